"""From a phone link to the modem: by mouse, by keyboard and through the accessibility bus, in every style."""

import subprocess
import tempfile
import time
import unittest

from dialler import COMMAND, PREFS_CHANGED, Dialler, Telephony, desktop, environment
from scripted_modem import ScriptedModem
from touchscreen import TouchScreen

LINK = "tel:012-3456"
ANONYMOUS = "ATD#31#0123456;"
OPEN = "ATD0123456;"
SWIPE, HOLD, ALWAYS = range(3)


class CallJourney(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.phone = cls.enterClassContext(Telephony())

    def setUp(self):
        self.modem = ScriptedModem()
        self.addCleanup(self.modem.close)
        self.manager = self.phone.start_modem_manager(self.modem)
        self.addCleanup(self.phone.stop, self.manager)
        self.phone.store()

    def open(self, link=LINK, *arguments, **settings):
        if settings:
            self.phone.store(**settings)
        dialler = Dialler(self.phone, *arguments, link)
        self.addCleanup(dialler.close)
        return dialler

    def has_dialled(self, command):
        return command in self.modem.dialled()

    def expect(self, dialler, command):
        self.modem.wait_for(command)
        dialler.wait_for_end()
        self.assertEqual(self.modem.dialled(), [command])

    def rest_of_the_deaf_time(self):
        """Until presses count: time itself is what is waited for here."""
        end = time.monotonic() + 0.6
        desktop.wait_for(lambda: time.monotonic() > end, "time to pass")

    # Show always

    def test_both_buttons_by_mouse(self):
        dialler = self.open()
        dialler.wait_for("heading", "0123456")
        dialler.wait_for_text("How would you like to call?")
        dialler.wait_for_text("#31#0123456\u2069 through the modem")
        place = dialler.centre("push button", "Call Anonymously")
        self.rest_of_the_deaf_time()
        desktop.xdotool("mousemove", *place, "click", "--repeat", 2, 1)
        self.expect(dialler, ANONYMOUS)

    def test_the_green_button_by_mouse_calls_openly(self):
        dialler = self.open()
        place = dialler.centre("push button", "Call")
        self.rest_of_the_deaf_time()
        desktop.xdotool("mousemove", *place, "click", 1)
        self.expect(dialler, OPEN)

    def test_by_keyboard(self):
        dialler = self.open()
        dialler.wait_for_state("push button", "Cancel", "focused")
        dialler.wait_for("push button", "Call Anonymously")
        desktop.xdotool("key", "Tab")
        dialler.wait_for_state("push button", "Call Anonymously", "focused")
        self.rest_of_the_deaf_time()
        desktop.xdotool("key", "Return", "Return")
        self.expect(dialler, ANONYMOUS)

    def test_through_the_accessibility_bus(self):
        dialler = self.open()
        dialler.act_until(lambda: self.has_dialled(ANONYMOUS), "the call", "push button", "Call Anonymously")
        self.expect(dialler, ANONYMOUS)

    def test_cancel_and_escape_dial_nothing(self):
        for key in ("Return", "Escape"):
            dialler = self.open()
            dialler.wait_for_state("push button", "Cancel", "focused")
            dialler.wait_for("push button", "Call Anonymously")
            self.rest_of_the_deaf_time()
            desktop.xdotool("key", key)
            dialler.wait_for_end()
        self.assertEqual(self.modem.dialled(), [])
        self.assertEqual(self.phone.modem_calls(), [])

    def test_refused_links_offer_no_call(self):
        for link, sentence in (("tel:*100%23", "code"), ("tel:1%0DATD2;", "number"), ("tel:%2331%23", "code"),
                               ("https://example.org", "number")):
            dialler = self.open(link)
            dialler.wait_for_text(sentence)
            dialler.wait_for("push button", "Close")
            self.assertIsNone(dialler.find("push button", "Call"))
            dialler.close()
        self.assertEqual(self.modem.dialled(), [])

    def test_an_emergency_number_goes_out_bare(self):
        dialler = self.open("tel:%2331%23112")
        dialler.wait_for("heading", "112")
        dialler.wait_for_text("Emergency number: your number will be shown.")
        self.assertIsNone(dialler.find("push button", "Call Anonymously"))
        dialler.act_until(lambda: self.has_dialled("ATD112;"), "the call", "push button", "Call")
        self.expect(dialler, "ATD112;")

    # The gestures

    def test_a_swipe_brings_the_button(self):
        for way in (-1, 1):
            dialler = self.open(systemwideStyle=SWIPE)
            dialler.wait_for_text("Are you sure you want to call?")
            self.assertIsNone(dialler.find("push button", "Call Anonymously"))
            x, y = dialler.centre("push button", "Call")
            self.rest_of_the_deaf_time()
            # Given up half-way nothing has been pressed.
            desktop.xdotool("mousemove", x, y, "mousedown", 1)
            self.drag(x, y, way * 90)
            self.drag(x + way * 90, y, way * -80)
            desktop.xdotool("mouseup", 1)
            dialler.wait_for_rest()
            self.assertIsNone(dialler.find("push button", "Call Anonymously"))
            desktop.xdotool("mousemove", x, y, "mousedown", 1)
            self.drag(x, y, way * 80)
            desktop.xdotool("mouseup", 1)
            place = dialler.centre("push button", "Call Anonymously")
            self.assertEqual(self.modem.dialled(), [])
            dialler.close()
        dialler = self.open(systemwideStyle=SWIPE)
        x, y = dialler.centre("push button", "Call")
        desktop.xdotool("mousemove", x, y, "mousedown", 1)
        self.drag(x, y, -90)
        desktop.xdotool("mouseup", 1)
        place = dialler.centre("push button", "Call Anonymously")
        self.rest_of_the_deaf_time()
        desktop.xdotool("mousemove", *place, "click", 1)
        self.expect(dialler, ANONYMOUS)

    def test_a_finger_swipes_and_holds(self):
        for style in (SWIPE, HOLD):
            with tempfile.TemporaryDirectory() as folder:
                finger = TouchScreen(folder)
                self.phone.store(systemwideStyle=style)
                dialler = Dialler(self.phone, LINK, **finger.environment)
                self.addCleanup(dialler.close)
                x, y = dialler.centre("push button", "Call")
                self.rest_of_the_deaf_time()
                if style == SWIPE:
                    finger.drag((x, y), (x - 30, y), (x - 60, y), (x - 90, y))
                else:
                    finger.press(x, y)
                    dialler.wait_for("push button", "Call Anonymously")
                    finger.release(x, y)
                place = dialler.centre("push button", "Call Anonymously")
                self.assertEqual(self.modem.dialled(), [])
                if style == SWIPE:
                    dialler.close()
                else:
                    finger.tap(*place)
                    self.expect(dialler, ANONYMOUS)

    @staticmethod
    def drag(x, y, way):
        moves = []
        for step in range(1, 9):
            moves += ["mousemove", x + way * step // 8, y]
        desktop.xdotool(*moves)

    def test_holding_brings_the_button(self):
        dialler = self.open(systemwideStyle=HOLD, customText="Really?")
        dialler.wait_for_text("Really?")
        x, y = dialler.centre("push button", "Call")
        self.rest_of_the_deaf_time()
        desktop.xdotool("mousemove", x, y, "mousedown", 1)
        place = dialler.wait_for("push button", "Call Anonymously") and dialler.centre("push button",
                                                                                       "Call Anonymously")
        desktop.xdotool("mouseup", 1)
        dialler.wait_for_rest()
        self.assertEqual(self.modem.dialled(), [])
        desktop.xdotool("mousemove", *place, "click", 1)
        self.expect(dialler, ANONYMOUS)

    def test_a_hidden_button_is_one_key_away(self):
        for style, key in ((SWIPE, "Menu"), (HOLD, "shift+F10")):
            dialler = self.open(systemwideStyle=style)
            dialler.wait_for_state("push button", "Cancel", "focused")
            dialler.wait_for("push button", "Call")
            desktop.xdotool("key", key)
            dialler.wait_for_state("push button", "Call Anonymously", "focused")
            dialler.close()
        dialler = self.open(systemwideStyle=SWIPE)
        dialler.wait_for_state("push button", "Cancel", "focused")
        dialler.wait_for("push button", "Call")
        desktop.xdotool("key", "Menu")
        dialler.wait_for_state("push button", "Call Anonymously", "focused")
        self.rest_of_the_deaf_time()
        desktop.xdotool("key", "space")
        self.expect(dialler, ANONYMOUS)

    def test_a_hidden_button_is_one_named_action_away(self):
        dialler = self.open(systemwideStyle=HOLD)
        green = dialler.wait_for("push button", "Call")
        self.assertIn("Hold", green.description)
        dialler.act("push button", "Call", "Show Call Anonymously")
        dialler.act_until(lambda: self.has_dialled(ANONYMOUS), "the call", "push button", "Call Anonymously")
        self.expect(dialler, ANONYMOUS)

    # Many links, changed settings, ends

    def test_ten_links_at_once_open_one_screen(self):
        links = [subprocess.Popen([*COMMAND, "--root", self.phone.path("root"), f"tel:012345{digit}"],
                                  env=environment(self.phone), stderr=subprocess.PIPE, text=True)
                 for digit in range(10)]
        try:
            desktop.wait_for(lambda: sum(link.poll() is None for link in links) == 1, "all but one to end")
            self.assertEqual([link.returncode for link in links if link.poll() is not None], [0] * 9)
            left = next(link for link in links if link.poll() is None)
            dialler = Dialler.__new__(Dialler)
            dialler.process = left
            dialler._application = desktop.wait_for(dialler._find, "the one")
            dialler.wait_for_text("9 more phone links were not opened.")
            self.assertEqual(self.modem.dialled(), [])
        finally:
            for link in links:
                link.kill()
                link.wait()
                link.stderr.close()

    def test_changed_settings_show_at_once_and_count(self):
        dialler = self.open()
        dialler.wait_for_text("How would you like to call?")
        self.phone.store(selectedPrefix="*67", systemwideStyle=HOLD, customText="Now?")
        desktop.Posts(PREFS_CHANGED).flood(PREFS_CHANGED, 1)
        dialler.wait_for_text("*670123456")
        dialler.wait_for_text("Now?")
        self.assertIsNone(dialler.find("push button", "Call Anonymously"))
        dialler.act("push button", "Call", "Show Call Anonymously")
        dialler.act_until(lambda: self.has_dialled("ATD*670123456;"), "the call", "push button", "Call Anonymously")
        self.expect(dialler, "ATD*670123456;")

    def test_a_killed_dialler_dials_nothing(self):
        for _ in range(3):
            dialler = self.open()
            dialler.process.kill()
            dialler.process.wait()
        dialler = self.open()
        dialler.wait_for("push button", "Call Anonymously")
        dialler.process.terminate()
        dialler.wait_for_end()
        self.assertEqual(self.modem.dialled(), [])
        self.assertEqual(self.phone.modem_calls(), [])

    def test_what_goes_wrong_is_said_and_tried_again(self):
        dialler = self.open()
        dialler.wait_for_text("through the modem")
        self.modem.answers.update({ANONYMOUS: None})
        dialler.act_until(lambda: dialler.find("push button", "Try Again"), "the failure", "push button",
                          "Call Anonymously")
        self.assertIsNone(dialler.find("push button", "Call Anonymously"))
        self.assertEqual(self.modem.dialled(), [ANONYMOUS])
        del self.modem.answers[ANONYMOUS]
        dialler.act_until(lambda: len(self.modem.dialled()) > 1 or dialler.has_ended(), "the second call",
                          "push button", "Try Again")
        dialler.wait_for_end()
        self.assertEqual(self.modem.dialled(), [ANONYMOUS, ANONYMOUS])

    def test_no_number_reaches_the_windows_title(self):
        dialler = self.open()
        dialler.wait_for("heading", "0123456")
        titles = [window.name for window in dialler.top()]
        self.assertEqual(titles, ["Call"])


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
