"""Services that answer as the real ones do where those cannot be brought to: errors, silence, calls that never come."""

import contextlib
import threading

from telephony import CALLS, MODEM_MANAGER, OFONO, Gio, GLib


def no_answer(_invocation):
    """For a method that is never answered by a service that stays."""


class StandIn:
    """A service on the bus of a test, in a thread of its own. `objects` are the paths and what is at each, as
    introspection data; methods go to `answer`. What is asked of it is `called`; it answers with what `answers` has for
    the method: a path, an error's name, None for a service that goes away without an answer, or a function that takes
    the answering over."""

    def __init__(self, phone, name, objects, answers):
        self.answers = answers
        self.called = []
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop.new(self._context, False)
        ready = threading.Event()
        self._thread = threading.Thread(
            target=self._serve, args=[phone.environment["DBUS_SESSION_BUS_ADDRESS"], name, objects, ready])
        self._thread.start()
        ready.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self._loop.quit()
        self._thread.join()

    def _serve(self, address, name, objects, ready):
        self._context.push_thread_default()
        connection = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        connection.set_exit_on_close(False)
        for path, interfaces in objects.items():
            for interface in Gio.DBusNodeInfo.new_for_xml(f"<node>{interfaces}</node>").interfaces:
                connection.register_object(path, interface, self._called)
        connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                             GLib.Variant("(su)", [name, 0]), None, Gio.DBusCallFlags.NONE, -1, None)
        ready.set()
        self._loop.run()
        with contextlib.suppress(GLib.Error):  # the bus may have ended
            connection.close_sync(None)
        self._context.pop_thread_default()

    def _called(self, _connection, _sender, path, _interface, method, arguments, invocation):
        self.answer(path, method, arguments.unpack(), invocation)

    def reply(self, method, invocation, good=None):
        answer = self.answers.get(method, good)
        if method in self.answers and answer is None:
            self._loop.quit()
        elif callable(answer):
            answer(invocation)
        elif answer and not answer.startswith("/"):
            invocation.return_dbus_error(answer, "The number 0123456 is on record.")
        else:
            invocation.return_value(GLib.Variant("(o)", [answer]) if answer else None)


MANAGER = """<interface name="org.freedesktop.DBus.ObjectManager"><method name="GetManagedObjects">
  <arg direction="out" type="a{oa{sa{sv}}}"/></method></interface>"""
PROPERTIES = """<interface name="org.freedesktop.DBus.Properties"><method name="GetAll"><arg direction="in" type="s"/>
  <arg direction="out" type="a{sv}"/></method></interface>"""
VOICE = f"""<interface name="{MODEM_MANAGER}.Modem.Voice"><method name="CreateCall"><arg direction="in" type="a{{sv}}"/>
  <arg direction="out" type="o"/></method><method name="DeleteCall"><arg direction="in" type="o"/></method></interface>"""
CALL = f"""<interface name="{MODEM_MANAGER}.Call"><method name="Start"/></interface>"""


class StandInModems(StandIn):
    """ModemManager with one modem in the state `modem`, None for no modem, with calls of these paths; `state` is that of
    each."""

    ROOT = "/org/freedesktop/ModemManager1"

    def __init__(self, phone, modem=8, calls=(), state=0, **answers):
        self.modem, self.calls, self.state = modem, list(calls), state
        super().__init__(phone, MODEM_MANAGER, {self.ROOT: MANAGER, self.ROOT + "/Modem/0": VOICE,
                                                self.ROOT + "/Call/7": CALL + PROPERTIES}, answers)

    def answer(self, _path, method, arguments, invocation):
        if method == "GetManagedObjects":
            modems = {} if self.modem is None else {self.ROOT + "/Modem/0": {
                MODEM_MANAGER + ".Modem": {"State": GLib.Variant("i", self.modem), "Sim": GLib.Variant("o", "/")},
                MODEM_MANAGER + ".Modem.Voice": {"Calls": GLib.Variant("ao", self.calls)}}}
            invocation.return_value(GLib.Variant("(a{oa{sa{sv}}})", [modems]))
        elif method == "GetAll" and method not in self.answers:
            invocation.return_value(GLib.Variant("(a{sv})", [{"State": GLib.Variant("i", self.state)}]))
        else:
            if method != "GetAll":
                self.called.append((method, *arguments))
            self.reply(method, invocation, self.ROOT + "/Call/7" if method == "CreateCall" else None)


ACTIONS = """<interface name="org.gtk.Actions"><method name="Describe"><arg direction="in" type="s"/>
  <arg direction="out" type="(bgav)"/></method></interface>"""
APPLICATION = """<interface name="org.freedesktop.Application"><method name="Open"><arg direction="in" type="as"/>
  <arg direction="in" type="a{sv}"/></method></interface>"""


class StandInCalls(StandIn):
    """GNOME Calls with calls of these numbers; it takes others, and calls them where it `dials`."""

    def __init__(self, phone, numbers=(), dials=False, **answers):
        self.numbers = list(numbers)
        self.dials = dials
        super().__init__(phone, CALLS, {"/org/gnome/Calls": MANAGER + ACTIONS + APPLICATION}, answers)

    @property
    def opened(self):
        return [address for _, addresses, _ in self.called for address in addresses]

    def hang_up(self):
        self.numbers = []

    def answer(self, _path, method, arguments, invocation):
        if method == "GetManagedObjects":
            calls = {f"/org/gnome/Calls/Call/{index}": {CALLS + ".Call": {"Id": GLib.Variant("s", number)}}
                     for index, number in enumerate(self.numbers)}
            invocation.return_value(GLib.Variant("(a{oa{sa{sv}}})", [calls]))
        elif method == "Describe":
            invocation.return_value(GLib.Variant("((bgav))", [(True, "s", [])]))
        else:
            self.called.append((method, *arguments))
            if self.dials:
                self.numbers += [address.removeprefix("tel:").replace("%23", "#") for address in arguments[0]]
            self.reply(method, invocation)


OFONO_MANAGER = f"""<interface name="{OFONO}.Manager"><method name="GetModems">
  <arg direction="out" type="a(oa{{sv}})"/></method></interface>"""
OFONO_VOICE = f"""<interface name="{OFONO}.VoiceCallManager"><method name="GetProperties">
  <arg direction="out" type="a{{sv}}"/></method><method name="GetCalls"><arg direction="out" type="a(oa{{sv}})"/></method>
  <method name="Dial"><arg direction="in" type="s"/><arg direction="in" type="s"/>
  <arg direction="out" type="o"/></method></interface>"""


class StandInOfono(StandIn):
    """ofonod with modems of these types, /modem0 and so on, and calls of these paths on each; `called` has the modem of
    each call, its number and whether it hides."""

    MOST = 2

    def __init__(self, phone, types, calls=(), **answers):
        self.types, self.calls = types, list(calls)
        modems = {f"/modem{index}": OFONO_VOICE for index in range(self.MOST)}
        super().__init__(phone, OFONO, {"/": OFONO_MANAGER, **modems}, answers)

    def answer(self, path, method, arguments, invocation):
        if method == "GetModems":
            modems = [(f"/modem{index}", {"Type": GLib.Variant("s", kind), "Online": GLib.Variant("b", True),
                                          "Interfaces": GLib.Variant("as", [OFONO + ".VoiceCallManager"])})
                      for index, kind in enumerate(self.types)]
            invocation.return_value(GLib.Variant("(a(oa{sv}))", [modems]))
        elif method == "GetProperties":
            invocation.return_value(GLib.Variant("(a{sv})", [{}]))
        elif method == "GetCalls":
            invocation.return_value(GLib.Variant("(a(oa{sv}))", [[(call, {}) for call in self.calls]]))
        else:
            self.called.append((path, *arguments))
            self.reply(method, invocation, path + "/voicecall01")
