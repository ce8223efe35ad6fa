"""Services that answer as the real ones do where those cannot be brought to: errors, silence, calls that never come."""

import threading

from telephony import CALLS, MODEM_MANAGER, Gio, GLib


class StandIn:
    """A service on the bus of a test, in a thread of its own. `objects` are the paths and what is at each, as
    introspection data; methods go to `answer`."""

    def __init__(self, phone, name, objects):
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop.new(self._context, False)
        ready = threading.Event()
        self._thread = threading.Thread(
            target=self._serve, args=[phone.environment["DBUS_SESSION_BUS_ADDRESS"], name, objects, ready])
        self._thread.start()
        ready.wait()

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
        connection.close_sync(None)
        self._context.pop_thread_default()

    def _called(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        self.answer(method, arguments.unpack(), invocation)


MANAGER = """<interface name="org.freedesktop.DBus.ObjectManager"><method name="GetManagedObjects">
  <arg direction="out" type="a{oa{sa{sv}}}"/></method></interface>"""
PROPERTIES = """<interface name="org.freedesktop.DBus.Properties"><method name="GetAll"><arg direction="in" type="s"/>
  <arg direction="out" type="a{sv}"/></method></interface>"""
VOICE = f"""<interface name="{MODEM_MANAGER}.Modem.Voice"><method name="CreateCall"><arg direction="in" type="a{{sv}}"/>
  <arg direction="out" type="o"/></method><method name="DeleteCall"><arg direction="in" type="o"/></method></interface>"""
CALL = f"""<interface name="{MODEM_MANAGER}.Call"><method name="Start"/></interface>"""


class StandInModems(StandIn):
    """ModemManager with one modem. Each method's answer is a path, an error's name, or None for a service that goes away
    without one; `state` is that of the call."""

    ROOT = "/org/freedesktop/ModemManager1"

    def __init__(self, phone, **answers):
        self.answers = {"CreateCall": self.ROOT + "/Call/7", "state": 0, **answers}
        self.called = []
        super().__init__(phone, MODEM_MANAGER, {self.ROOT: MANAGER, self.ROOT + "/Modem/0": VOICE,
                                                self.ROOT + "/Call/7": CALL + PROPERTIES})

    def answer(self, method, arguments, invocation):
        if method == "GetManagedObjects":
            modem = {MODEM_MANAGER + ".Modem": {"State": GLib.Variant("i", 8), "Sim": GLib.Variant("o", "/")},
                     MODEM_MANAGER + ".Modem.Voice": {"Calls": GLib.Variant("ao", [])}}
            invocation.return_value(GLib.Variant("(a{oa{sa{sv}}})", [{self.ROOT + "/Modem/0": modem}]))
            return
        if method == "GetAll":
            invocation.return_value(GLib.Variant("(a{sv})", [{"State": GLib.Variant("i", self.answers["state"])}]))
            return
        self.called.append((method, *arguments))
        answer = self.answers.get(method, "")
        if answer is None:
            self._loop.quit()
        elif answer.startswith("/"):
            invocation.return_value(GLib.Variant("(o)", [answer]))
        elif answer:
            invocation.return_dbus_error(answer, "The number 0123456 is on record.")
        else:
            invocation.return_value(None)


ACTIONS = """<interface name="org.gtk.Actions"><method name="Describe"><arg direction="in" type="s"/>
  <arg direction="out" type="(bgav)"/></method></interface>"""
APPLICATION = """<interface name="org.freedesktop.Application"><method name="Open"><arg direction="in" type="as"/>
  <arg direction="in" type="a{sv}"/></method></interface>"""


class StandInCalls(StandIn):
    """GNOME Calls with calls of these numbers; it takes others, and calls them where it `dials`."""

    def __init__(self, phone, numbers=(), dials=False):
        self.numbers = list(numbers)
        self.dials = dials
        self.opened = []
        super().__init__(phone, CALLS, {"/org/gnome/Calls": MANAGER + ACTIONS + APPLICATION})

    def hang_up(self):
        self.numbers = []

    def answer(self, method, arguments, invocation):
        if method == "GetManagedObjects":
            calls = {f"/org/gnome/Calls/Call/{index}": {CALLS + ".Call": {"Id": GLib.Variant("s", number)}}
                     for index, number in enumerate(self.numbers)}
            invocation.return_value(GLib.Variant("(a{oa{sa{sv}}})", [calls]))
        elif method == "Describe":
            invocation.return_value(GLib.Variant("((bgav))", [(True, "s", [])]))
        else:
            self.opened += arguments[0]
            if self.dials:
                self.numbers += [address.removeprefix("tel:").replace("%23", "#") for address in arguments[0]]
            invocation.return_value(None)
