"""The Settings application's page about the phone, and a dialler that follows the settings beside it."""

import os
import unittest

from dialler import Dialler, Telephony, desktop, environment
from scripted_modem import ScriptedModem

OWN = "me.orlanvey.QuietDial.Dialler.desktop"
ENTRY = "[Desktop Entry]\nType=Application\nName={}\nExec=/bin/true %u\nMimeType=x-scheme-handler/tel;\n"


class PhoneJourney(unittest.TestCase):
    def setUp(self):
        self.phone = self.enterContext(Telephony())
        self.modem = ScriptedModem()
        self.addCleanup(self.modem.close)

    def open(self, *arguments):
        own = environment(self.phone)
        application = desktop.Application(self.phone.path("root"), *arguments, **{
            name: own[name] for name in ("DBUS_SYSTEM_BUS_ADDRESS", "HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME")},
            XDG_DATA_DIRS=self.phone.path("none"), XDG_CURRENT_DESKTOP="")
        self.addCleanup(application.close)
        return application

    def install(self, entry, name):
        self.phone.write("data/applications/" + entry, ENTRY.format(name))

    def list(self):
        path = self.phone.path("config", "mimeapps.list")
        if not os.path.exists(path):
            return ""
        with open(path, encoding="utf-8") as file:
            return file.read()

    def says(self, application, text):
        desktop.wait_for(lambda: any(text in (element.name or "") for element in application.elements()), text)

    def test_links_are_taken_and_given_back(self):
        self.install("a.desktop", "A Dialler")
        self.phone.write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/tel=a.desktop\n")
        application = self.open()
        application.press("push button", "Phone")
        self.says(application, "Phone links are opened with A Dialler now. Until QuietDial opens them, the links of "
                               "other programs go where they went.")
        application.press("push button", "Open Phone Links with QuietDial")
        application.wait_for("push button", "Give Phone Links Back to A Dialler")
        self.assertIn("x-scheme-handler/tel=" + OWN, self.list())
        application.press("push button", "Give Phone Links Back to A Dialler")
        application.wait_for("push button", "Open Phone Links with QuietDial")
        self.assertEqual(self.list(), "[Default Applications]\nx-scheme-handler/tel=a.desktop\n")

    def test_where_it_is_the_only_one(self):
        application = self.open()
        application.press("push button", "Phone")
        self.says(application, "Nothing opens phone links now.")
        application.press("push button", "Open Phone Links with QuietDial")
        application.press("push button", "Stop Opening Phone Links")
        self.says(application, "Nothing opens phone links now.")

    def test_what_a_call_would_do(self):
        application = self.open()
        application.press("push button", "Phone")
        self.says(application, "No call can be placed: nothing here can place calls.")
        application.close()
        self.phone.start_modem_manager(self.modem)
        self.phone.store(selectedPrefix="*67")
        application = self.open()
        application.press("push button", "Phone")
        self.says(application, "An anonymous call would be dialled with *67 through the modem.")
        self.assertEqual(self.modem.dialled(), [])

    def test_the_keypad_opens_and_follows_the_settings(self):
        self.phone.start_modem_manager(self.modem)
        application = self.open()
        application.press("push button", "Phone")
        application.press("push button", "Open Keypad")
        import pyatspi

        def find_keypad():
            for found in pyatspi.Registry.getDesktop(0):
                if found and found.name == "quietdial-dialler" and found.childCount:
                    return found
            return None
        keypad = Dialler.__new__(Dialler)
        keypad._application = desktop.wait_for(find_keypad, "the keypad")
        keypad.process = application.process
        self.addCleanup(lambda: os.kill(keypad._application.get_process_id(), 15))
        keypad.wait_for("push button", "star")
        self.assertIsNone(keypad.find("push button", "Call Anonymously"))
        # Swipe by itself; now the buttons stand there always.
        application.press("push button", "Back")
        application.press("push button", "QuietDial")
        application.press("push button", "Dial Tab Style")
        application.press("radio button", "Show always")
        keypad.wait_for("push button", "Call Anonymously")
        # The next call has the new prefix.
        application.press("push button", "Back")
        application.press("push button", "Hide Caller ID Prefix")
        application.press("radio button", "Canada")
        application.wait_for_state("radio button", "Canada", "checked")
        for key in "0123456":
            keypad.press("push button", key)
        keypad.press("push button", "Call Anonymously")
        self.modem.wait_for("ATD*670123456;")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
