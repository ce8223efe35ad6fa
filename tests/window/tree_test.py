"""What assistive technology is told of each page, against the kept files in trees/.

QUIETDIAL_KEEP_TREES=1 in the environment writes the files anew, to be looked at and committed."""

import os
import sys
import tempfile
import unittest

import desktop

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from catalogue import Catalogue  # noqa: E402

TREES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "trees")
PANES = ["SettingsListController", "QDPreferencesListController", "QDCountryPrefixController",
         "QDDialerStyleSelectionController", "QDSystemwideStyleSelectionController",
         "QDButtonStyleSelectionController", "QDPromotionController", "QDSupportListController",
         "QDCreditsListController", "QDSoftwareCreditsController"]
STATES = ["checked", "checkable", "editable", "enabled", "focusable"]
SMALLEST_TARGET = 44
# Their segments are lower than that and take taps beyond their edges: see the styles' journey.
SEGMENTED = ["QDDialerStyleSelectionController", "QDSystemwideStyleSelectionController"]


class Tree(unittest.TestCase):
    maxDiff = None

    def open(self, pane):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        arguments = [] if pane == "SettingsListController" else ["--pane", pane]
        if pane == "QDPromotionController":
            server = Catalogue("com.a")
            self.addCleanup(server.end)
            arguments += ["--map-host", server.mapping]
        self.application = desktop.Application(folder.name, "--size", "375x667", "--motion",
                                               "reduced", "--effects", "none", "--no-web-engine",
                                               *arguments)
        self.addCleanup(self.application.close)
        if pane == "QDPromotionController":
            self.application.wait_for("push button", "Open in Browser")

    def settled(self):
        self.application.wait_for("list", "Settings")
        self.application.wait_for_rest()
        return self.application.tree(STATES)

    def test_each_page_tells_what_is_kept(self):
        for pane in PANES:
            with self.subTest(pane=pane):
                self.open(pane)
                lines = self.settled()
                self.application.close()
                self.assertEqual(desktop.difference_to_kept(os.path.join(TREES, pane + ".txt"), lines), "")

    def test_what_can_be_pressed_is_large_enough_for_a_finger_and_nothing_of_it_overlaps(self):
        for pane in set(PANES) - set(SEGMENTED):
            with self.subTest(pane=pane):
                self.open(pane)
                self.settled()
                taken = []
                for element in self.application.elements():
                    role = element.getRoleName()
                    if role not in ("push button", "radio button", "text"):
                        continue
                    x, y, width, height = self.application.place(element)
                    self.assertGreaterEqual(width, SMALLEST_TARGET, element.name)
                    self.assertGreaterEqual(height, SMALLEST_TARGET, element.name)
                    if element.parent.getRoleName() == "list":
                        for left, top, right, bottom in taken:
                            self.assertTrue(x >= right or x + width <= left or y >= bottom
                                            or y + height <= top, element.name)
                        taken.append((x, y, x + width, y + height))
                self.application.close()

    def test_a_chosen_row_is_announced_with_its_new_state(self):
        import pyatspi
        self.open("QDCountryPrefixController")
        self.application.wait_for("radio button", "Algeria")
        heard = []
        def listen(event):
            if event.source.getApplication().get_process_id() == self.application.process.pid:
                heard.append((event.type.split(":")[-1], event.source.name, event.detail1,
                              "checked" in self.application.states(event.source)))
        pyatspi.Registry.registerEventListener(listen, "object:state-changed:focused")
        self.addCleanup(pyatspi.Registry.deregisterEventListener, listen,
                        "object:state-changed:focused")
        self.application.press("radio button", "UK, one four one")
        self.application.wait_for_state("radio button", "UK, one four one", "checked")

        def announced():
            from gi.repository import GLib
            while GLib.MainContext.default().iteration(False):
                pass
            return ("focused", "UK, one four one", 1, True) in heard
        desktop.wait_for(announced, "the chosen row to be announced")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
