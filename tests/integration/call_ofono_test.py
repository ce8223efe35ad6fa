"""Calls through ofonod, which hides the number by itself."""

import os
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from scripted_modem import ScriptedModem  # noqa: E402
from telephony import Telephony  # noqa: E402


class CallOfono(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())
        self.modem = ScriptedModem(tcp=True)
        self.addCleanup(self.modem.close)
        self.phone.start_ofono(self.modem)

    def test_the_modem_is_asked_to_hide_and_gets_the_bare_number(self):
        result = self.phone.call("#31# 012-3456")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, "Calling 0123456 through oFono. "
                                        "Asked to hide your number; the network decides.\n")
        self.modem.wait_for("ATD0123456I;")
        self.assertEqual(self.modem.dialled(), ["ATD0123456I;"])
        plan, code = self.phone.plan("0123457")
        self.assertEqual((plan["refused"], code), ("in-call", 3))

    def test_an_emergency_number_goes_without_the_wish(self):
        plan, code = self.phone.plan("112")
        self.assertEqual((plan["line"], plan["hide"], code), ("ofono", "no", 0))
        self.modem.wait_for("ATD112;")
        self.assertEqual(self.modem.dialled(), ["ATD112;"])

    def test_an_open_call_goes_without_the_wish(self):
        self.assertEqual(self.phone.call("--open", "0123456").returncode, 0)
        self.modem.wait_for("ATD0123456;")
        self.assertEqual(self.modem.dialled(), ["ATD0123456;"])

    def test_the_plus_stays_and_the_modems_emergency_numbers_count(self):
        self.phone.store(selectedPrefix="*67")
        plan, code = self.phone.plan("--dry-run", "+49 30 123456")
        self.assertEqual((plan["dial"], plan["hide"], code), ("+4930123456", "line", 0))
        self.assertEqual(self.phone.plan("--dry-run", "999")[0]["notices"], ["emergency"])

    def test_what_is_refused_sends_nothing(self):
        for number in ("*100#", "*31#0123456", "1;+CGMI", ""):
            self.assertEqual(self.phone.plan(number)[1], 3, number)
        self.assertEqual(self.modem.dialled(), [])

    def test_the_line_is_listed_as_one_that_hides(self):
        self.assertEqual(self.phone.quietdial("lines").stdout,
                         "ofono: oFono; hides the number by itself; what a call takes\n")


if __name__ == "__main__":
    unittest.main()
