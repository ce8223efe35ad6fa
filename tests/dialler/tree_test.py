"""What assistive technology is told of each screen of the dialler, against the kept files in trees/.

QUIETDIAL_KEEP_TREES=1 in the environment writes the files anew, to be looked at and committed."""

import os
import unittest

from dialler import Dialler, Telephony, desktop

TREES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "trees")
STATES = ["enabled", "focusable", "focused"]
SMALLEST_TARGET = 44
SWIPE, HOLD, ALWAYS = range(3)
LINK = "tel:+49-30-123456"
SCREENS = {
    "always": ([LINK], {}, "Call Anonymously"),
    "swipe": ([LINK], {"systemwideStyle": SWIPE}, "Call"),
    "hold": ([LINK], {"systemwideStyle": HOLD}, "Call"),
    "emergency": (["tel:112"], {}, "Call"),
    "refused": (["tel:*100%23"], {}, "Close"),
    "no-prefix": ([LINK], {"selectedPrefix": ""}, "Choose a Prefix"),
    "abroad": (["tel:+33-1-42-68-53-00"], {}, "Call"),
    "keypad": ([], {"dialerMode": ALWAYS}, "star"),
    "keypad-swipe": ([], {}, "star"),
}


class Tree(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.phone = cls.enterClassContext(Telephony())

    def screens(self):
        for name, (arguments, settings, button) in SCREENS.items():
            self.phone.store(**settings)
            dialler = Dialler(self.phone, "--via", "print", "--region", "DE", "--size", "375x667", "--motion", "reduced",
                              *arguments)
            try:
                dialler.wait_for("push button", button)
                dialler.wait_for_rest()
                yield name, dialler
            finally:
                dialler.close()

    def test_each_screen_tells_what_is_kept(self):
        for name, dialler in self.screens():
            difference = desktop.difference_to_kept(os.path.join(TREES, name + ".txt"), dialler.tree(STATES))
            self.assertEqual(difference, "", name)

    def test_what_can_be_pressed_is_large_enough_for_a_finger_and_nothing_of_it_overlaps(self):
        for name, dialler in self.screens():
            taken = []
            for element in dialler.elements():
                if element.getRoleName() != "push button":
                    continue
                x, y, width, height = dialler.place(element)
                self.assertGreaterEqual(min(width, height), SMALLEST_TARGET, (name, element.name))
                for left, top, right, bottom in taken:
                    self.assertTrue(x >= right or x + width <= left or y >= bottom or y + height <= top,
                                    (name, element.name))
                taken.append((x, y, x + width, y + height))


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
