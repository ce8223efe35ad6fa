"""A modem that talks AT commands (3GPP TS 27.007) on a socket and keeps what it was told, for the
services that look after modems. A number that it dials rings for ever."""

import socket
import threading
import uuid

ANSWERS = {
    "ATI": "Manufacturer: Test", "AT+GCAP": "+GCAP: +CGSM,+DS,+ES", "AT+CGMI": "Test", "AT+CGMM": "Modem",
    "AT+CGMR": "1", "AT+CGSN": "490154203237518", "AT+CIMI": "262011234567890", "AT+CICCID": "89490200001234567890",
    "AT+CPIN?": "+CPIN: READY", "AT+CFUN?": "+CFUN: 1", "AT+WS46=?": "+WS46: (12,22)", "AT+CSQ": "+CSQ: 20,99",
    "AT+CSCS=?": '+CSCS: ("IRA","GSM","UCS2")', "AT+CSCS?": '+CSCS: "IRA"', "AT+CMGF=?": "+CMGF: (0,1)",
    "AT+CLCK=?": '+CLCK: ("SC","AO","PS","FD")', 'AT+CLCK="SC",2': "+CLCK: 0", 'AT+CLCK="FD",2': "+CLCK: 0",
    'AT+CLCK="PS",2': "+CLCK: 0", "AT+CREG?": '+CREG: 2,1,"1234","0011AABB"', "AT+CGREG?": '+CGREG: 2,1,"1234","0011AABB"',
    "AT+CGDCONT=?": '+CGDCONT: (1-11),"IP",,,(0-2),(0-3)', "AT+CUSD=?": "+CUSD: (0-2)", "AT+CLIR?": "+CLIR: 0,4",
    "AT+COPS=3,2;+COPS?": '+COPS: 0,2,"26201",2', "AT+COPS=3,0;+COPS?": '+COPS: 0,0,"Test"',
    "AT+COPS?": '+COPS: 0,2,"26201",2', "AT+CIND=?": None, "AT+CNMI=?": None,
}


class ScriptedModem:
    """Listens on an abstract socket of its own, which ModemManager calls by `name`, or with `tcp` on a
    port of this machine that is free. `answers` stand before the usual ones; None is an error."""

    def __init__(self, tcp=False, answers=None):
        self.answers = {**ANSWERS, **(answers or {})}
        self.told = []
        self._called = None
        self._connections = []
        self._change = threading.Condition()
        self.name = "abstract:quietdial-test-" + uuid.uuid4().hex
        self._listener = socket.socket(socket.AF_INET if tcp else socket.AF_UNIX)
        self._listener.bind(("127.0.0.1", 0) if tcp else "\0" + self.name)
        self._listener.listen()
        self.port = self._listener.getsockname()[1] if tcp else None
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            try:
                connection, _ = self._listener.accept()
            except OSError:
                return
            self._connections.append(connection)
            threading.Thread(target=self._serve, args=[connection], daemon=True).start()

    def _serve(self, connection):
        waiting = b""
        try:
            while received := connection.recv(4096):
                waiting += received
                while b"\r" in waiting:
                    line, waiting = waiting.split(b"\r", 1)
                    command = line.strip().decode("latin-1")
                    if command:
                        connection.sendall(self._answer(command))
        except OSError:
            pass

    def _answer(self, command):
        with self._change:
            self.told.append(command)
            self._change.notify_all()
        if command.startswith("ATD"):
            self._called = command.removeprefix("ATD").rstrip("Ii;")
        elif command in ("ATH", "AT+CHUP"):
            self._called = None
        if command == "AT+CLCC" and self._called:
            outgoing_and_dialling = "0,2,0,0"
            return f'\r\n+CLCC: 1,{outgoing_and_dialling},"{self._called}",129\r\n\r\nOK\r\n'.encode()
        answer = self.answers.get(command, "")
        if answer is None:
            return b"\r\nERROR\r\n"
        return (f"\r\n{answer}\r\n" if answer else "").encode() + b"\r\nOK\r\n"

    def wait_for(self, command, patience=30):
        with self._change:
            assert self._change.wait_for(lambda: command in self.told, patience), self.told

    def dialled(self):
        """What would have gone out, in order: calls and requests to the network."""
        with self._change:
            return [command for command in self.told
                    if command.startswith("ATD") or command.startswith("AT+CUSD=1,")]

    def close(self):
        """As if it were pulled out."""
        for connection in [self._listener, *self._connections]:
            try:
                connection.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
            connection.close()
