"""The keypad: what is typed, erased and pasted, and what its buttons call."""

import subprocess
import unittest

from dialler import PREFS_CHANGED, Dialler, Telephony, desktop
from scripted_modem import ScriptedModem

SWIPE, HOLD, ALWAYS = range(3)


class KeypadJourney(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.phone = cls.enterClassContext(Telephony())

    def setUp(self):
        self.modem = ScriptedModem()
        self.addCleanup(self.modem.close)
        self.manager = self.phone.start_modem_manager(self.modem)
        self.addCleanup(self.phone.stop, self.manager)
        self.phone.store()

    def open(self, **settings):
        self.phone.store(**settings)
        dialler = Dialler(self.phone)
        self.addCleanup(dialler.close)
        dialler.wait_for("push button", "star")
        return dialler

    def type(self, dialler, keys, number):
        for key in keys:
            dialler.press("push button", key)
        dialler.wait_for("heading", " ".join(number))

    def test_keys_type_and_erase(self):
        dialler = self.open()
        dialler.wait_for("heading", "No number")
        self.type(dialler, ["1", "2", "star", "hash"], "12*#")
        dialler.press("push button", "Erase")
        dialler.wait_for("heading", "1 2 *")
        dialler.act("push button", "Erase", "Erase All")
        dialler.wait_for("heading", "No number")
        dialler.act("push button", "0", "Plus")
        dialler.wait_for("heading", "+")

    def test_the_mouse_types_and_holds(self):
        dialler = self.open()
        dialler.click("push button", "5")
        dialler.wait_for("heading", "5")
        x, y = dialler.centre("push button", "0")
        desktop.xdotool("mousemove", x, y, "mousedown", 1)
        dialler.wait_for("heading", "5 +")
        desktop.xdotool("mouseup", 1)
        dialler.wait_for_rest()
        dialler.wait_for("heading", "5 +")
        x, y = dialler.centre("push button", "Erase")
        desktop.xdotool("mousemove", x, y, "mousedown", 1)
        dialler.wait_for("heading", "No number")
        desktop.xdotool("mouseup", 1)

    def test_the_keyboard_types_and_erases(self):
        dialler = self.open()
        dialler.wait_for_rest()
        desktop.xdotool("type", "--delay", "30", "+49x30*#")
        dialler.wait_for("heading", "+ 4 9 3 0 * #")
        desktop.xdotool("key", "BackSpace")
        dialler.wait_for("heading", "+ 4 9 3 0 *")
        desktop.xdotool("key", "Delete")
        dialler.wait_for("heading", "No number")

    def test_a_swipe_and_a_press_call_anonymously(self):
        dialler = self.open(dialerMode=SWIPE)
        self.assertIsNone(dialler.find("push button", "Call Anonymously"))
        self.type(dialler, "0123456", "0123456")
        dialler.act("push button", "Call", "Show Call Anonymously")
        dialler.press("push button", "Call Anonymously")
        self.modem.wait_for("ATD#31#0123456;")
        # Back to the keys.
        dialler.wait_for("push button", "star")
        self.assertEqual(self.modem.dialled(), ["ATD#31#0123456;"])

    def test_the_green_button_calls_openly_and_once(self):
        dialler = self.open()
        self.type(dialler, "0123456", "0123456")
        place = dialler.centre("push button", "Call")
        desktop.xdotool("mousemove", *place, "click", "--repeat", 2, 1)
        self.modem.wait_for("ATD0123456;")
        dialler.wait_for("push button", "star")
        dialler.wait_for_rest()
        self.assertEqual(self.modem.dialled(), ["ATD0123456;"])

    def test_an_emergency_number_is_asked_about(self):
        dialler = self.open(dialerMode=ALWAYS)
        self.type(dialler, "112", "112")
        dialler.press("push button", "Call Anonymously")
        dialler.wait_for_text("Emergency number: your number will be shown.")
        self.assertEqual(self.modem.dialled(), [])
        dialler.act_until(lambda: dialler.find("push button", "star"), "the keys", "push button", "Cancel")
        self.assertEqual(self.modem.dialled(), [])
        dialler.wait_for("heading", "1 1 2")

    def test_settings_show_at_once(self):
        dialler = self.open(dialerMode=SWIPE)
        self.assertIsNone(dialler.find("push button", "Call Anonymously"))
        self.phone.store(dialerMode=ALWAYS)
        desktop.Posts(PREFS_CHANGED).flood(PREFS_CHANGED, 1)
        dialler.wait_for("push button", "Call Anonymously")

    def test_a_second_keypad_is_the_first_ones(self):
        dialler = self.open()
        second = subprocess.run([*dialler.process.args], env=None, capture_output=True, timeout=desktop.PATIENCE,
                                check=False)
        self.assertEqual(second.returncode, 0, second.stderr)
        self.assertFalse(dialler.has_ended())

    def test_beside_a_links_call_nothing_is_called(self):
        keypad = self.open()
        self.type(keypad, "0123456", "0123456")
        link = Dialler(self.phone, "tel:0999999")
        self.addCleanup(link.close)
        link.wait_for("push button", "Cancel")
        keypad.press("push button", "Call")
        keypad.wait_for_text("Another call screen is open.")
        self.assertEqual(self.modem.dialled(), [])


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
