"""Calls handed to a dialler that the desktop knows by its entry."""

import os
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from telephony import Gio, GLib, Telephony  # noqa: E402
from waiting import wait_for  # noqa: E402

PLASMA = "org.kde.phone.dialer.desktop"
APPLICATION = """<node><interface name="org.freedesktop.Application">
<method name="Open"><arg direction="in" type="as"/><arg direction="in" type="a{sv}"/></method></interface></node>"""


class CallDesktop(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())
        self.phone.environment["XDG_DATA_DIRS"] = self.phone.path("system")
        self.phone.write("bin/stub-dialler", f"""#!/bin/sh
for word in "$@"; do printf '%s\\n' "$word"; done >{self.phone.path("given.part")}
mv {self.phone.path("given.part")} {self.phone.path("given")}
""", 0o755)

    def install(self, entry, command="stub-dialler --number %u", mime="x-scheme-handler/tel;", **lines):
        text = f"[Desktop Entry]\nType=Application\nName=A Dialler\nExec={command}\nMimeType={mime}\n"
        text += "".join(f"{key}={value}\n" for key, value in lines.items())
        self.phone.write("system/applications/" + entry, text)

    def given(self):
        path = self.phone.path("given")
        wait_for(lambda: os.path.exists(path), "the dialler to be started")
        with open(path, encoding="utf-8") as file:
            return file.read().split("\n")[:-1]

    def is_started(self):
        return os.path.exists(self.phone.path("given"))

    def test_one_that_does_not_decode_gets_raw_hashes(self):
        self.install(PLASMA)
        result = self.phone.call("012 3456")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, "Calling 0123456 with #31# through Plasma Dialer. Asked to hide your number; "
                                        "the network decides.\nHanded to Plasma Dialer: press Call there.\n")
        self.assertEqual(self.given(), ["--number", "tel:#31#0123456"])

    def test_others_get_an_encoded_address(self):
        self.install("linphone.desktop", command='"stub-dialler" %U --quiet %i "a b" %%')
        self.assertEqual(self.phone.call("0123456").returncode, 0)
        self.assertEqual(self.given(), ["tel:%2331%230123456", "--quiet", "a b", "%"])

    def test_the_desktops_choice_comes_first(self):
        self.install(PLASMA)
        self.install("linphone.desktop")
        self.phone.handle_links_with("linphone.desktop")
        self.assertEqual(self.phone.plan("0123456")[0]["line"], "desktop:linphone.desktop")

    def test_an_unknown_one_is_used_only_where_it_is_named(self):
        self.install("a.desktop")
        self.phone.handle_links_with("a.desktop")
        self.assertEqual(self.phone.call("0123456").returncode, 4)
        self.assertFalse(self.is_started())
        self.assertEqual(self.phone.call("--via", "desktop:a.desktop", "0123456").returncode, 0)
        self.assertEqual(self.given(), ["--number", "tel:%2331%230123456"])

    def test_what_would_hand_the_number_on_is_never_used(self):
        self.install("me.orlanvey.quietdial.desktop")
        self.install("b.desktop", command="/usr/bin/quietdial-dialler %u")
        self.install("c.desktop", command="env A=B quietdial call --yes %u")
        self.install("d.desktop", command="xdg-open %u")
        self.install("e.desktop", Categories="Network;WebBrowser;")
        self.install("f.desktop", mime="x-scheme-handler/tel;x-scheme-handler/https;")
        self.install("g.desktop", mime="text/plain;")
        self.install("h.desktop", Hidden="true")
        for name in ("me.orlanvey.quietdial", "b", "c", "d", "e", "f", "g", "h", "nothing", "../applications/a"):
            result = self.phone.call("--via", f"desktop:{name}.desktop", "0123456")
            self.assertEqual(result.returncode, 4, name)
        self.assertFalse(self.is_started())

    def test_one_that_does_not_start_is_told(self):
        self.install(PLASMA, command="/nowhere/dialler %u")
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr), (5, "quietdial call: Plasma Dialer does not start.\n"))
        self.install(PLASMA, command="stub-dialler \"%u")
        self.assertEqual(self.phone.call("0123456").returncode, 5)

    def test_one_that_the_bus_starts_is_opened_there(self):
        opened = []
        self.phone.connection.register_object(
            "/org/example/the_dialler", Gio.DBusNodeInfo.new_for_xml(APPLICATION).interfaces[0],
            lambda *call: (opened.append(call[5].unpack()), call[6].return_value(None)))
        self.phone.ask("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.RequestName",
                       GLib.Variant("(su)", ["org.example.the-dialler", 0]))
        self.install("org.example.the-dialler.desktop", DBusActivatable="true")
        process = self.phone.start([os.environ["QUIETDIAL"], "call", "--yes", "--via",
                                    "desktop:org.example.the-dialler.desktop", "0123456"])
        context = GLib.MainContext.default()
        wait_for(lambda: (context.iteration(False), process.poll() is not None)[1], "the call to be handed over")
        self.assertEqual(process.returncode, 0)
        self.assertEqual(opened, [(["tel:%2331%230123456"], {})])
        self.assertFalse(self.is_started())

    def test_where_the_bus_has_ended_before_the_answer_nothing_is_handed_over(self):
        self.install("org.example.the-dialler.desktop", DBusActivatable="true")
        result = self.phone.asked("0123456", lambda: self.phone.kill(self.phone.bus_daemon),
                                  "--via", "desktop:org.example.the-dialler.desktop")
        self.assertEqual((result.returncode, result.stderr), (5, "quietdial call: A Dialler does not start.\n"))
        self.assertFalse(self.is_started())

    def test_an_emergency_number_is_handed_over_bare(self):
        self.install(PLASMA)
        plan, code = self.phone.plan("#31#112")
        self.assertEqual((plan["dial"], plan["hide"], code), ("112", "no", 0))
        self.assertEqual(self.given(), ["--number", "tel:112"])


if __name__ == "__main__":
    unittest.main()
