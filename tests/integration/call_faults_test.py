"""What goes wrong on the way of a call: each has one sentence and its status, nothing is dialled twice, and nothing is
dialled without the prefix or the wish."""

import concurrent.futures
import json
import os
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from scripted_modem import ScriptedModem  # noqa: E402
from stand_ins import StandInCalls, StandInModems, StandInOfono, no_answer  # noqa: E402
from telephony import CALLS, MODEM_MANAGER, OFONO, GLib, Telephony  # noqa: E402
from waiting import wait_for  # noqa: E402

FAILED, UNKNOWN = 5, 6
GONE = "The modem has gone."
MODEM_MAY_DIAL = "The modem took the number and may still dial."
CALLS_MAY_DIAL = "Calls took the number and may still dial."
OFONO_MAY_DIAL = "oFono took the number and may still dial."


class CallFaults(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())

    def stand_in(self, kind, *arguments, **answers):
        service = kind(self.phone, *arguments, **answers)
        self.addCleanup(service.close)
        return service

    def scripted_modem(self, **options):
        modem = ScriptedModem(**options)
        self.addCleanup(modem.close)
        return modem

    def assert_ends(self, result, status, sentence):
        self.assertEqual((result.returncode, result.stderr), (status, f"quietdial call: {sentence}\n"))

    def end_the_bus(self, _invocation=None):
        self.phone.kill(self.phone.bus_daemon)


class ModemFaults(CallFaults):
    """On ModemManager itself, as far as it can be brought to it."""

    def setUp(self):
        super().setUp()
        self.modem = self.scripted_modem(answers={"ATD#31#0000000;": None})
        self.manager = self.phone.start_modem_manager(self.modem)

    def test_one_that_is_killed_before_the_answer_is_told(self):
        self.assert_ends(self.phone.asked("0123456", lambda: self.phone.kill(self.manager)), FAILED, GONE)
        self.assertEqual(self.modem.dialled(), [])

    def test_one_that_closes_its_port_before_the_answer_dials_nothing(self):
        self.assert_ends(self.phone.asked("0123456", self.modem.close), FAILED, "The modem does not place this call.")
        self.assertEqual(self.modem.dialled(), [])

    def test_a_call_that_the_modem_refuses_is_told_and_taken_back(self):
        self.assert_ends(self.phone.call("0000000"), FAILED, "The modem does not place this call.")
        self.assertEqual(self.modem.dialled(), ["ATD#31#0000000;"])
        self.assertEqual(self.phone.modem_calls(), [])

    def test_a_prefix_that_changes_before_the_answer_does_not_change_the_call(self):
        result = self.phone.asked("0123456", lambda: self.phone.store(selectedPrefix=""))
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(self.modem.dialled(), ["ATD#31#0123456;"])


class LockedModem(CallFaults):
    def test_an_emergency_call_on_a_locked_sim_is_told(self):
        modem = self.scripted_modem(answers={"AT+CPIN?": "+CPIN: SIM PIN"})
        self.phone.start_modem_manager(modem, enable=False)
        wait_for(lambda: self.phone.modem_state() == 2, "the lock to be found")
        self.assert_ends(self.phone.call("112"), FAILED, "The SIM is locked. Unlock it first.")
        self.assertEqual(modem.dialled(), [])


class ModemAnswers(CallFaults):
    """On what answers as ModemManager does."""

    def modems(self, **answers):
        return self.stand_in(StandInModems, **answers)

    def test_a_modem_that_goes_before_the_answer_is_told(self):
        modems = self.modems()

        def go():
            modems.modem = None
        self.assert_ends(self.phone.asked("0123456", go), FAILED, GONE)
        self.assertEqual(modems.called, [])

    def test_the_bus_ends_in_the_middle_of_a_call(self):
        for method, called in (("CreateCall", ["CreateCall"]), ("Start", ["CreateCall", "Start"])):
            with self.subTest(method), Telephony() as self.phone, \
                    StandInModems(self.phone, **{method: self.end_the_bus}) as modems:
                self.assert_ends(self.phone.call("0123456"), UNKNOWN, MODEM_MAY_DIAL)
                self.assertEqual([call[0] for call in modems.called], called)

    def test_a_session_that_may_not_call_is_told_so(self):
        for error in (MODEM_MANAGER + ".Error.Core.Unauthorized", "org.freedesktop.DBus.Error.AccessDenied"):
            with self.subTest(error), Telephony() as self.phone, StandInModems(self.phone, CreateCall=error) as modems:
                self.assert_ends(self.phone.call("0123456"), FAILED, "The system does not let this session place calls. "
                                 "It lets one at the device itself.")
                self.assertEqual(len(modems.called), 1)

    def test_without_a_network_only_an_emergency_call_goes_out(self):
        modems = self.modems(modem=7)
        self.assert_ends(self.phone.call("0123456"), FAILED, "The modem has no network.")
        self.assertEqual(modems.called, [])
        self.assertEqual(self.phone.call("112").returncode, 0)
        self.assertEqual(modems.called, [("CreateCall", {"number": "112"}), ("Start",)])

    def test_a_call_that_was_started_and_has_ended_is_not_placed(self):
        modems = self.modems(Start=MODEM_MANAGER + ".Error.Core.Failed", state=7)
        self.assert_ends(self.phone.call("0123456"), FAILED, "The modem does not place this call.")
        self.assertEqual([call[0] for call in modems.called], ["CreateCall", "Start", "DeleteCall"])

    def test_a_call_that_is_gone_before_its_start_is_not_deleted(self):
        gone = "org.freedesktop.DBus.Error.UnknownObject"
        modems = self.modems(Start=gone, GetAll=gone)
        self.assert_ends(self.phone.call("0123456"), FAILED, GONE)
        self.assertEqual([call[0] for call in modems.called], ["CreateCall", "Start"])

    def test_only_a_call_that_goes_on_is_in_the_way(self):
        modems = self.modems(calls=["/org/freedesktop/ModemManager1/Call/7"], state=4)
        plan, status = self.phone.plan("0123456")
        self.assertEqual((plan["refused"], status), ("in-call", 3))
        self.assertEqual(self.phone.plan("112")[1], 0)
        modems.state = 7
        self.assertEqual(self.phone.plan("0123456")[1], 0)


class GnomeCallsFaults(CallFaults):
    def test_one_that_is_killed_before_the_answer_dials_once_when_the_bus_has_started_it_again(self):
        self.phone.install_gnome_calls("--provider", "dummy")
        calls = self.phone.start_gnome_calls()
        result = self.phone.asked("0123456", lambda: self.phone.kill(calls))
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.phone.calls_numbers(), ["#31#0123456"])

    def test_one_that_is_killed_and_not_started_again_is_told(self):
        self.phone.install_gnome_calls("--provider", "dummy")
        calls = self.phone.start_gnome_calls()

        def kill():
            self.phone.kill(calls)
            self.phone.write(f"services/{CALLS}.service", f"[D-BUS Service]\nName={CALLS}\nExec=/bin/false\n")
            self.phone.reload_services()
        self.assert_ends(self.phone.asked("0123456", kill), FAILED, "GNOME Calls does not start.")

    def test_its_modem_goes_before_the_answer(self):
        modem = self.scripted_modem()
        manager = self.phone.start_modem_manager(modem)
        self.phone.install_gnome_calls()
        self.phone.start_gnome_calls()

        def kill():
            self.phone.kill(manager)
            wait_for(lambda: not self.phone.calls_can_dial(), "GNOME Calls to see that the modem has gone")
        self.assert_ends(self.phone.asked("0123456", kill), FAILED, "GNOME Calls has no modem to call with.")
        # What has not been taken is not dialled later.
        modem.close()
        modem = self.scripted_modem()
        self.phone.start_modem_manager(modem)
        wait_for(self.phone.calls_can_dial, "GNOME Calls to have a modem again")
        self.assertEqual(modem.dialled(), [])
        self.assertEqual(self.phone.calls_numbers(), [])

    def test_the_bus_ends_before_the_answer(self):
        calls = self.stand_in(StandInCalls)
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        self.assert_ends(self.phone.asked("0123456", self.end_the_bus), FAILED, "GNOME Calls does not start.")
        self.assertEqual(calls.opened, [])

    def test_what_ends_while_it_takes_the_number_is_not_known(self):
        for name, fault in (("the bus", self.end_the_bus), ("GNOME Calls", None)):
            with self.subTest(name), Telephony() as self.phone, StandInCalls(self.phone, Open=fault) as calls:
                self.phone.handle_links_with("org.gnome.Calls.desktop")
                self.assert_ends(self.phone.call("0123456"), UNKNOWN, CALLS_MAY_DIAL)
                self.assertEqual(calls.opened, ["tel:%2331%230123456"])

    def test_where_it_fails_an_ordinary_call_goes_to_no_other_line(self):
        modems = self.stand_in(StandInModems)
        self.stand_in(StandInCalls, Open="org.freedesktop.DBus.Error.InvalidArgs")
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        self.assert_ends(self.phone.call("0123456"), FAILED, "GNOME Calls does not take the number.")
        self.assertEqual(modems.called, [])

    def test_one_that_handles_no_links_gets_emergency_calls_alone(self):
        calls = self.stand_in(StandInCalls, dials=True)
        self.assertEqual(self.phone.plan("0123456")[1], 4)
        self.assertEqual(self.phone.call("112").returncode, 0)
        self.assertEqual(calls.opened, ["tel:112"])

    def test_a_call_that_comes_in_meanwhile_is_not_taken_for_ours(self):
        def ring(invocation):
            calls.numbers.append("0301234567")
            invocation.return_value(None)
        calls = self.stand_in(StandInCalls, Open=ring)
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        self.assert_ends(self.phone.call("0123456"), UNKNOWN, CALLS_MAY_DIAL)
        self.assertEqual(calls.opened, ["tel:%2331%230123456"])

    def test_one_that_refuses_the_number_is_told(self):
        calls = self.stand_in(StandInCalls, Open="org.freedesktop.DBus.Error.InvalidArgs")
        self.phone.handle_links_with("org.gnome.Calls.desktop")
        self.assert_ends(self.phone.call("0123456"), FAILED, "GNOME Calls does not take the number.")
        self.assertEqual(calls.opened, ["tel:%2331%230123456"])


class OfonoFaults(CallFaults):
    """On ofonod itself."""

    def start(self, **answers):
        self.modem = self.scripted_modem(tcp=True, answers=answers)
        self.ofono = self.phone.start_ofono(self.modem)

    def test_one_that_is_killed_before_the_answer_is_told(self):
        self.start()
        self.assert_ends(self.phone.asked("0123456", lambda: self.phone.kill(self.ofono)), FAILED, GONE)
        self.assertEqual(self.modem.dialled(), [])

    def test_one_that_goes_offline_before_the_answer_is_told(self):
        self.start()

        def go_offline():
            self.phone.ask(OFONO, "/phonesim", OFONO + ".Modem.SetProperty",
                           GLib.Variant("(sv)", ["Online", GLib.Variant("b", False)]))
        self.assert_ends(self.phone.asked("0123456", go_offline), FAILED, GONE)
        self.assertEqual(self.modem.dialled(), [])

    def test_a_call_that_the_modem_refuses_is_told_and_not_tried_openly(self):
        self.start(**{"ATD0123456I;": None})
        self.assert_ends(self.phone.call("0123456"), FAILED, "oFono does not place this call.")
        self.assertEqual(self.modem.dialled(), ["ATD0123456I;"])

    def test_a_code_that_it_does_not_take_is_told(self):
        self.start()
        self.assert_ends(self.phone.call("--open", "--as-is", "*#06#"), FAILED,
                         "oFono does not take a number of this form.")
        self.assertEqual(self.modem.dialled(), [])


class OfonoAnswers(CallFaults):
    """On what answers as ofonod does, with a modem of another kind or in another company."""

    def test_a_hands_free_modem_gets_the_prefix(self):
        ofono = self.stand_in(StandInOfono, types=["hfp"])
        self.assertEqual(self.phone.quietdial("lines").stdout, "ofono: oFono; takes a prefix; what a call takes\n")
        result = self.phone.call("0123456")
        self.assertEqual((result.returncode, result.stdout),
                         (0, "Calling 0123456 with #31# through oFono. Asked to hide your number; "
                             "the network decides.\n"))
        self.assertEqual(self.phone.call("--region", "DE", "+49 30 123456").returncode, 0)
        self.assertEqual(self.phone.call("112").returncode, 0)
        self.assertEqual(ofono.called, [("/modem0", "#31#0123456", "default"), ("/modem0", "#31#030123456", "default"),
                                        ("/modem0", "112", "default")])

    def test_one_that_hides_comes_before_one_that_does_not(self):
        ofono = self.stand_in(StandInOfono, types=["hfp", "hardware"])
        self.assertEqual(self.phone.call("0123456").returncode, 0)
        self.assertEqual(ofono.called, [("/modem1", "0123456", "enabled")])

    def test_a_hands_free_modem_does_not_get_what_was_meant_for_one_that_hides(self):
        ofono = self.stand_in(StandInOfono, types=["hardware"])

        def change():
            ofono.types = ["hfp"]
        self.assert_ends(self.phone.asked("0123456", change), FAILED, GONE)
        self.assertEqual(ofono.called, [])

    def test_one_that_hides_does_not_get_less_than_was_meant_for_a_hands_free_modem(self):
        ofono = self.stand_in(StandInOfono, types=["hfp"])

        def change():
            ofono.types = ["hardware"]
        self.assertEqual(self.phone.asked("0123456", change).returncode, 0)
        self.assertEqual(ofono.called, [("/modem0", "#31#0123456", "default")])

    def test_nothing_is_placed_beside_another_call(self):
        ofono = self.stand_in(StandInOfono, types=["hfp"], calls=["/modem0/voicecall01"])
        plan, status = self.phone.plan("0123456")
        self.assertEqual((plan["refused"], status), ("in-call", 3))
        self.assertEqual(ofono.called, [])

    def test_each_answer_has_its_sentence(self):
        for answer, status, sentence in (
                ("org.freedesktop.DBus.Error.AccessDenied", FAILED, "The system does not let this session place calls."),
                ("org.ofono.Error.InProgress", FAILED, "oFono does not place this call."),
                (None, UNKNOWN, OFONO_MAY_DIAL), (self.end_the_bus, UNKNOWN, OFONO_MAY_DIAL)):
            with self.subTest(answer), Telephony() as self.phone, \
                    StandInOfono(self.phone, types=["hardware"], Dial=answer) as ofono:
                self.assert_ends(self.phone.call("0123456"), status, sentence)
                self.assertEqual(ofono.called, [("/modem0", "0123456", "enabled")])

    def test_an_emergency_call_goes_on_where_one_line_has_gone(self):
        ofono = self.stand_in(StandInOfono, types=["hardware"])
        self.stand_in(StandInModems, CreateCall="org.freedesktop.DBus.Error.ServiceUnknown")
        result = self.phone.call("--json", "112")
        self.assertEqual((result.returncode, result.stderr), (0, f"quietdial call: {GONE} Trying the next line.\n"))
        self.assertEqual(json.loads(result.stdout)["line"], "ofono")
        self.assertEqual(ofono.called, [("/modem0", "112", "default")])


class Silence(CallFaults):
    """Services that stay and say nothing: as long as one waits for each, so all at once."""

    CASES = {
        "the modem's new call": (StandInModems, {"CreateCall": no_answer}, MODEM_MAY_DIAL, 1),
        "the modem's start": (StandInModems, {"Start": no_answer}, MODEM_MAY_DIAL, 2),
        "GNOME Calls": (StandInCalls, {"Open": no_answer}, CALLS_MAY_DIAL, 1),
        "oFono": (StandInOfono, {"types": ["hardware"], "Dial": no_answer}, OFONO_MAY_DIAL, 1),
    }

    def test_it_is_not_known_and_nothing_is_tried_again(self):
        def call(case):
            kind, answers, _, _ = case
            with Telephony() as phone, kind(phone, **answers) as service:
                phone.handle_links_with("org.gnome.Calls.desktop")
                result = phone.call("0123456")
                return result, len(service.called)
        with concurrent.futures.ThreadPoolExecutor(len(self.CASES)) as pool:
            ends = dict(zip(self.CASES, pool.map(call, self.CASES.values())))
        for name, (result, called) in ends.items():
            with self.subTest(name):
                self.assert_ends(result, UNKNOWN, self.CASES[name][2])
                self.assertEqual(called, self.CASES[name][3])


if __name__ == "__main__":
    unittest.main()
