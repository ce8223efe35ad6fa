"""`quietdial call` and `quietdial lines`: arguments, words, status, and what bad company does to them."""

import json
import os
import stat
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from stand_ins import StandInCalls, StandInModems  # noqa: E402
from telephony import MODEM_MANAGER, SETTINGS, Telephony  # noqa: E402


class CallCommand(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())

    def modems(self, **answers):
        modems = StandInModems(self.phone, **answers)
        self.addCleanup(modems.close)
        return modems

    def test_a_dry_run_tells_and_places_nothing(self):
        modems = self.modems()
        result = self.phone.quietdial("call", "--dry-run", "0123456")
        self.assertEqual((result.returncode, result.stdout), (0, "Calling 0123456 with #31# through the modem. "
                                                                 "Asked to hide your number; the network decides.\n"))
        self.assertEqual(modems.called, [])

    def test_the_object_for_programs(self):
        plan, code = self.phone.plan("--dry-run", "--via", "print", "--region", "gb", "020 7946 0000")
        self.assertEqual((plan, code), ({"number": "02079460000", "dial": "#31#02079460000", "hide": "prefix",
                                         "line": "print", "region": "GB", "notices": []}, 0))
        plan, code = self.phone.plan("--dry-run", "--via", "print", "*100#")
        self.assertEqual((plan["refused"], plan["hide"], "dial" in plan, code), ("code", "no", False, 3))
        self.assertTrue(plan["sentence"])

    def test_print_writes_what_would_be_dialled(self):
        self.phone.store(selectedPrefix="*32# ")
        result = self.phone.quietdial("call", "--root", self.phone.path("root"), "--via", "print", "0123456")
        self.assertEqual((result.returncode, result.stdout), (0, "*32#0123456\n"))
        result = self.phone.quietdial("call", "--open", "--via", "print", "0123456")
        self.assertEqual((result.returncode, result.stdout), (0, "0123456\n"))

    def test_a_code_that_shows_is_not_called_hiding(self):
        self.phone.store(selectedPrefix="*31#", selectedCountry="India")
        result = self.phone.call("--dry-run", "--via", "print", "02212345678")
        self.assertEqual(result.stdout, "Calling 02212345678 with *31# through standard output. "
                                        "On most networks this code shows your number.\n")

    def test_the_regions_of_settings_and_locale_are_the_last_ones(self):
        self.assertEqual(self.phone.plan("--via", "print", "0123456", LC_ALL="de_AT.UTF-8@euro")[0]["region"], "AT")
        self.assertEqual(self.phone.plan("--via", "print", "0123456", LC_ALL="", LANG="fr_CA")[0]["region"], "CA")
        self.assertEqual(self.phone.plan("--via", "print", "0123456", LC_ALL="C")[0]["region"], "")
        self.phone.store(selectedCountry="UK ")
        self.assertEqual(self.phone.plan("--via", "print", "0123456", LC_ALL="de_AT.UTF-8")[0]["region"], "GB")

    def test_arguments_that_mean_nothing_are_told(self):
        for arguments in ([], ["--region", "XX", "1"], ["--region", "DEU", "1"], ["--open", "--anonymous", "1"],
                          ["--bogus", "1"], ["1", "2"]):
            result = self.phone.quietdial("call", *arguments)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertTrue(result.stderr.startswith("quietdial call: "), result.stderr)
        self.assertEqual(self.phone.quietdial("lines", "--bogus").returncode, 2)
        self.assertEqual(self.phone.quietdial("call", "-", stdin="1" * 600).returncode, 2)

    def test_without_a_line_or_a_bus_that_is_told(self):
        for environment in ({}, {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere",
                                 "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere"}):
            result = self.phone.call("0123456", **environment)
            self.assertEqual((result.returncode, result.stderr),
                             (4, "quietdial call: Nothing here can place this call.\n"))
            self.assertEqual(self.phone.call("112", **environment).returncode, 4)
            self.assertEqual(self.phone.quietdial("lines", **environment).stdout, "Nothing here can place calls.\n")
        self.assertEqual(self.phone.call("--via", "nothing", "0123456").returncode, 4)

    def test_settings_that_cannot_be_read_are_not_taken_for_new_ones(self):
        path = self.phone.path("root", SETTINGS)
        for bytes_ in (b"", b"no list", b"<plist><array/></plist>", b"<plist><dict><key>selectedPrefix</key><real>1</real></dict></plist>"):
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "wb") as file:
                file.write(bytes_)
            plan, code = self.phone.plan("--via", "print", "0123456")
            self.assertEqual((plan.get("refused"), code), ("no-settings", 3), bytes_)
            self.assertEqual(self.phone.plan("--via", "print", "112")[1], 0)
        os.remove(path)
        os.mkdir(path)
        self.assertEqual(self.phone.plan("--via", "print", "0123456")[1], 3)

    def test_a_session_without_rights_is_told_and_the_modems_words_are_not_shown(self):
        modems = self.modems(CreateCall=MODEM_MANAGER + ".Error.Core.Unauthorized")
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr),
                         (5, "quietdial call: The system does not let this session place calls. "
                             "It lets one at the device itself.\n"))
        self.assertEqual([call[0] for call in modems.called], ["CreateCall"])

    def test_a_call_that_does_not_start_is_taken_back(self):
        modems = self.modems(Start=MODEM_MANAGER + ".Error.Core.Failed")
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr),
                         (5, "quietdial call: The modem does not place this call.\n"))
        self.assertEqual(modems.called, [("CreateCall", {"number": "#31#0123456"}), ("Start",),
                                         ("DeleteCall", "/org/freedesktop/ModemManager1/Call/7")])

    def test_a_call_that_another_program_has_started_is_placed(self):
        modems = self.modems(Start=MODEM_MANAGER + ".Error.Core.Failed", state=1)
        self.assertEqual(self.phone.call("0123456").returncode, 0)
        self.assertEqual([call[0] for call in modems.called], ["CreateCall", "Start"])

    def test_silence_is_not_known_and_not_tried_again(self):
        for silent, called in (("CreateCall", ["CreateCall"]), ("Start", ["CreateCall", "Start"])):
            with self.subTest(silent):
                with StandInModems(self.phone, **{silent: None}) as modems:
                    result = self.phone.call("0123456")
                self.assertEqual((result.returncode, result.stderr),
                                 (6, "quietdial call: The modem took the number and may still dial.\n"))
                self.assertEqual([call[0] for call in modems.called], called)

    def test_a_number_that_gnome_calls_takes_without_calling_is_not_known(self):
        calls = StandInCalls(self.phone)
        self.addCleanup(calls.close)
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stderr),
                         (6, "quietdial call: Calls took the number and may still dial.\n"))
        self.assertEqual(calls.opened, ["tel:%2331%230123456"])

    def test_a_call_that_was_there_before_is_not_taken_for_the_new_one(self):
        calls = StandInCalls(self.phone, numbers=["112"])
        self.addCleanup(calls.close)
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        self.assertEqual(self.phone.call("112").returncode, 6)
        self.assertEqual(calls.opened, ["tel:112"])

    def test_an_emergency_call_goes_to_the_next_line_where_one_has_failed_and_no_other_call_does(self):
        modems = self.modems(CreateCall=MODEM_MANAGER + ".Error.Core.Failed")
        calls = StandInCalls(self.phone, dials=True)
        self.addCleanup(calls.close)
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        result = self.phone.call("112")
        self.assertEqual((result.returncode, result.stderr),
                         (0, "quietdial call: The modem does not place this call. Trying the next line.\n"))
        self.assertEqual(modems.called, [("CreateCall", {"number": "112"})])
        self.assertEqual(calls.opened, ["tel:112"])
        calls.hang_up()
        self.assertEqual(self.phone.call("--via", "modem", "0123456").returncode, 5)
        self.assertEqual(calls.opened, ["tel:112"])

    def test_an_emergency_call_that_may_have_gone_out_is_not_tried_elsewhere(self):
        calls = StandInCalls(self.phone, dials=True)
        self.addCleanup(calls.close)
        modems = self.modems(Start=None)
        self.assertEqual(self.phone.call("112").returncode, 6)
        self.assertEqual([call[0] for call in modems.called], ["CreateCall", "Start"])
        self.assertEqual(calls.opened, [])

    def test_one_call_a_second_is_placed_and_no_number_is_kept(self):
        self.modems()
        self.assertEqual(self.phone.call("0123456").returncode, 0)
        note = self.phone.path("quietdial-last-call")
        first = os.stat(note)
        self.assertEqual(stat.S_IMODE(first.st_mode), 0o600)
        self.assertEqual(self.phone.call("0123456").returncode, 0)
        self.assertGreaterEqual(os.stat(note).st_mtime_ns - first.st_mtime_ns, 1_000_000_000)
        with open(note, encoding="ascii") as file:
            self.assertEqual(file.read(), "\n")
        # An emergency call neither waits nor makes others wait.
        second = os.stat(note)
        self.assertEqual(self.phone.call("112").returncode, 0)
        self.assertEqual(os.stat(note).st_mtime_ns, second.st_mtime_ns)

    def test_the_lines_for_programs(self):
        self.modems()
        self.assertEqual(json.loads(self.phone.quietdial("lines", "--json").stdout),
                         [{"line": "modem", "title": "the modem", "hides": False, "auto": True}])


if __name__ == "__main__":
    unittest.main()
