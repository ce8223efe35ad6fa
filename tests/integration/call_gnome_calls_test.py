"""Calls through GNOME Calls: with its own stand-in for a modem, on ModemManager, and with neither."""

import os
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from scripted_modem import ScriptedModem  # noqa: E402
from telephony import Telephony  # noqa: E402
from waiting import wait_for  # noqa: E402


class CallGnomeCalls(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())

    def test_a_running_one_dials_the_prefix_with_the_number(self):
        self.phone.install_gnome_calls("--provider", "dummy")
        self.phone.start_gnome_calls()
        result = self.phone.call("0123456")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, "Calling 0123456 with #31# through GNOME Calls. "
                                        "Asked to hide your number; the network decides.\n")
        self.assertEqual(self.phone.calls_numbers(), ["#31#0123456"])
        # A second call would end the first.
        plan, code = self.phone.plan("0123457")
        self.assertEqual((plan["refused"], code), ("in-call", 3))
        self.assertEqual(self.phone.calls_numbers(), ["#31#0123456"])

    def test_one_that_does_not_run_is_started_first(self):
        self.phone.install_gnome_calls("--provider", "dummy")
        result = self.phone.call("tel:+49-30-123456")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(self.phone.calls_numbers(), ["#31#+4930123456"])

    def test_without_a_modem_it_is_not_given_the_number(self):
        self.phone.install_gnome_calls()
        self.phone.start(self.phone.calls_command, **self.phone.calls_environment)
        wait_for(lambda: self.phone.is_running("org.gnome.Calls"), "GNOME Calls")
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr),
                         (5, "quietdial call: GNOME Calls has no modem to call with.\n"))
        # One that appears is not dialled on.
        modem = ScriptedModem()
        self.addCleanup(modem.close)
        self.phone.start_modem_manager(modem)
        wait_for(self.phone.calls_can_dial, "GNOME Calls to have the modem")
        self.assertEqual(modem.dialled(), [])
        self.assertEqual(self.phone.calls_numbers(), [])

    def test_the_chain_from_a_link_to_the_modem(self):
        modem = ScriptedModem()
        self.addCleanup(modem.close)
        self.phone.start_modem_manager(modem)
        self.phone.install_gnome_calls()
        plan, code = self.phone.plan("tel:012-3456")
        self.assertEqual((plan["line"], plan["dial"], code), ("calls", "#31#0123456", 0))
        modem.wait_for("ATD#31#0123456;")
        self.assertEqual(modem.dialled(), ["ATD#31#0123456;"])

    def test_a_call_of_ours_on_the_modem_that_it_starts_first_is_placed_once(self):
        modem = ScriptedModem()
        self.addCleanup(modem.close)
        self.phone.start_modem_manager(modem)
        self.phone.install_gnome_calls()
        self.phone.start_gnome_calls()
        result = self.phone.call("--via", "modem", "0123456")
        self.assertEqual(result.returncode, 0, result.stderr)
        modem.wait_for("ATD#31#0123456;")
        self.assertEqual(modem.dialled(), ["ATD#31#0123456;"])

    def test_an_emergency_call_goes_to_the_modem_itself(self):
        modem = ScriptedModem()
        self.addCleanup(modem.close)
        self.phone.start_modem_manager(modem)
        self.phone.install_gnome_calls("--provider", "dummy")
        self.phone.start_gnome_calls()
        plan, code = self.phone.plan("#31#112")
        self.assertEqual((plan["line"], plan["dial"], plan["hide"], code), ("modem", "112", "no", 0))
        modem.wait_for("ATD112;")
        self.assertEqual(modem.dialled(), ["ATD112;"])
        self.assertEqual(self.phone.calls_numbers(), [])

    def test_it_is_taken_by_itself_only_where_it_handles_links(self):
        self.phone.install_gnome_calls("--provider", "dummy")
        listed = "calls: GNOME Calls; takes a prefix"
        self.assertEqual(self.phone.quietdial("lines").stdout, listed + "; what a call takes\n")
        self.phone.handle_links_with("another.desktop")
        self.assertEqual(self.phone.quietdial("lines").stdout, listed + "\n")
        self.assertEqual(self.phone.plan("0123456")[1], 4)


if __name__ == "__main__":
    unittest.main()
