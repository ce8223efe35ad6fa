"""Calls through ModemManager: what goes to the modem, and what does not."""

import os
import pty
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from scripted_modem import ScriptedModem  # noqa: E402
from telephony import MODEM_MANAGER, GLib, Telephony  # noqa: E402
from waiting import wait_for  # noqa: E402


class CallModem(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())
        self.modem = ScriptedModem()
        self.addCleanup(self.modem.close)
        self.phone.start_modem_manager(self.modem)

    def test_the_prefix_goes_out_with_the_number_and_nothing_else(self):
        result = self.phone.call("012 34-56")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, "Calling 0123456 with #31# through the modem. "
                                        "Asked to hide your number; the network decides.\n")
        self.modem.wait_for("ATD#31#0123456;")
        self.assertEqual(self.modem.dialled(), ["ATD#31#0123456;"])

    def test_what_is_refused_sends_nothing(self):
        for number, status in (("*100#", 3), ("#31#", 3), ("*31#0123456", 3), ("1;+CGMI", 3), ("1\r\nATD2;", 3),
                               ("0123456;x", 3), ("tel:1%0DATD2;", 3), ("1,ATD2", 3), ("", 3)):
            plan, code = self.phone.plan(number)
            self.assertEqual(code, status, (number, plan))
            self.assertNotIn("dial", plan)
        self.assertEqual(self.modem.dialled(), [])
        self.assertEqual(self.phone.modem_calls(), [])

    def test_emergency_numbers_go_out_bare(self):
        for number in ("#31#112", "110"):
            result = self.phone.call(number)
            self.assertEqual(result.returncode, 0, result.stderr)
        self.modem.wait_for("ATD110;")
        self.assertEqual(self.modem.dialled(), ["ATD112;", "ATD110;"])

    def test_the_country_is_the_networks(self):
        self.phone.store(selectedPrefix="*67")
        plan, code = self.phone.plan("--dry-run", "+49 30 123456")
        self.assertEqual((plan["region"], plan["dial"], code), ("DE", "*67030123456", 0))

    def test_nothing_is_placed_beside_another_call(self):
        self.assertEqual(self.phone.call("0123456").returncode, 0)
        plan, code = self.phone.plan("0123457")
        self.assertEqual((plan["refused"], code), ("in-call", 3))
        self.modem.wait_for("ATD#31#0123456;")
        self.assertEqual(self.modem.dialled(), ["ATD#31#0123456;"])

    def test_an_unreadable_settings_file_places_nothing(self):
        self.phone.write("root/User/Library/Preferences/me.orlanvey.quietDial.plist", "no list")
        plan, code = self.phone.plan("0123456")
        self.assertEqual((plan["refused"], code), ("no-settings", 3))
        self.assertEqual(self.modem.dialled(), [])

    def test_without_a_terminal_nobody_is_asked_and_nothing_is_placed(self):
        result = self.phone.quietdial("call", "0123456", stdin="y\n")
        self.assertEqual(result.returncode, 2)
        self.assertIn("--yes", result.stderr)
        self.assertEqual(self.modem.dialled(), [])

    def test_the_number_can_come_from_the_input(self):
        self.assertEqual(self.phone.call("-", stdin="0123456\n").returncode, 0)
        self.modem.wait_for("ATD#31#0123456;")
        self.assertEqual(self.modem.dialled(), ["ATD#31#0123456;"])

    def test_a_modem_that_is_off_is_told(self):
        self.phone.ask(MODEM_MANAGER, self.phone.modem_path(), MODEM_MANAGER + ".Modem.Enable",
                       GLib.Variant("(b)", [False]))
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr), (5, "quietdial call: The modem is off.\n"))
        self.assertEqual(self.modem.dialled(), [])

    def test_the_bus_ends_before_the_answer(self):
        result = self.phone.asked("0123456", lambda: self.phone.kill(self.phone.bus_daemon))
        self.assertEqual((result.returncode, result.stderr), (5, "quietdial call: The modem has gone.\n"))
        self.assertEqual(self.modem.dialled(), [])

    def test_who_does_not_say_yes_does_not_call(self):
        terminal, other = pty.openpty()
        self.addCleanup(os.close, terminal)
        os.write(terminal, b"\n")
        call = subprocess.run([os.environ["QUIETDIAL"], "call", "0123456"], env=self.phone.environment,
                              stdin=other, capture_output=True, timeout=60, check=False)
        os.close(other)
        self.assertEqual((call.returncode, call.stderr), (3, b"quietdial call: not called.\n"))
        self.assertEqual(self.modem.dialled(), [])

    def test_the_line_is_listed(self):
        result = self.phone.quietdial("lines")
        self.assertEqual(result.stdout, "modem: the modem; takes a prefix; what a call takes\n")


class LockedSIM(unittest.TestCase):
    def test_it_is_told(self):
        modem = ScriptedModem(answers={"AT+CPIN?": "+CPIN: SIM PIN"})
        self.addCleanup(modem.close)
        with Telephony() as phone:
            phone.start_modem_manager(modem, enable=False)
            wait_for(lambda: phone.modem_state() == 2, "the lock to be found")
            result = phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr), (5, "quietdial call: The SIM is locked. Unlock it first.\n"))
        self.assertEqual(modem.dialled(), [])


if __name__ == "__main__":
    unittest.main()
