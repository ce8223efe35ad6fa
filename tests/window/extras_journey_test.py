"""Support mail, alert, share sheet and credits, through the accessibility bus and by keyboard; what
is opened and sent is seen by stand-ins for the desktop's own programs."""

import email
import email.policy
import os
import plistlib
import tempfile
import unittest

import desktop
import program

ROOT = "QDPreferencesListController"
SUPPORT = "QDSupportListController"
CREDITS = "QDCreditsListController"
HAS_OWN_SENDMAIL = any(map(os.path.exists, ("/usr/sbin/sendmail", "/usr/lib/sendmail")))


class Extras(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        environment = dict(os.environ)
        self.addCleanup(lambda: (os.environ.clear(), os.environ.update(environment)))
        os.makedirs(os.path.join(self.folder, "bin"))
        os.makedirs(os.path.join(self.folder, "data", "applications"))
        for name in ("XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "EMAIL"):
            os.environ.pop(name, None)
        os.environ.update(
            PATH=os.path.join(self.folder, "bin") + ":" + os.environ["PATH"],
            HOME=self.folder, XDG_DATA_HOME=os.path.join(self.folder, "data"),
            XDG_DATA_DIRS=os.path.join(self.folder, "none"),
            XDG_CONFIG_HOME=os.path.join(self.folder, "config"),
            XDG_CACHE_HOME=os.path.join(self.folder, "cache"))

    def path(self, name):
        return os.path.join(self.folder, name)

    def script(self, name, text):
        with open(self.path("bin/" + name), "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\n" + text)
        os.chmod(self.path("bin/" + name), 0o755)

    def add_handler(self, scheme):
        """An application of the desktop that keeps the addresses it is given, by scheme."""
        kept = self.path("opened-" + scheme)
        self.script("open-" + scheme, f"printf '%s' \"$1\" >'{kept}.new' && mv '{kept}.new' '{kept}'\n")
        with open(self.path(f"data/applications/{scheme}.desktop"), "w", encoding="utf-8") as file:
            file.write(f"[Desktop Entry]\nType=Application\nName={scheme}\n"
                       f"Exec={self.path('bin/open-' + scheme)} %u\n"
                       f"MimeType=x-scheme-handler/{scheme};\n")
        with open(self.path("data/applications/mimeapps.list"), "a", encoding="utf-8") as file:
            file.write(f"[Default Applications]\nx-scheme-handler/{scheme}={scheme}.desktop\n")

    def opened(self, scheme):
        def ask():
            return self.read("opened-" + scheme)
        return desktop.wait_for(ask, f"the handler of {scheme} to be given an address")

    def read(self, name):
        try:
            with open(self.path(name), encoding="utf-8") as file:
                return file.read()
        except FileNotFoundError:
            return None

    def add_sendmail(self, then=""):
        kept = self.path("mail")
        self.script("sendmail", f"cat >'{kept}.new' && mv '{kept}.new' '{kept}'\n" + then)

    def start(self, pane, *arguments):
        self.application = desktop.Application(self.path("root"), "--pane", pane, *arguments)
        self.addCleanup(self.application.close)

    def press(self, role, name):
        self.application.press(role, name)

    def gone(self, role, name):
        desktop.wait_for(lambda: not self.application.find(role, name), f"{role} “{name}” to go")

    def text_of(self, name):
        return self.application.wait_for("text", name).queryText().getText(0, -1)

    def page(self):
        return sorted((element.getRoleName(), element.name) for element in self.application.elements())

    def on(self, role, name):
        def ask():
            element = self.application.find(role, name)
            return element and "focused" in self.application.states(element)
        desktop.wait_for(ask, f"{role} “{name}” to have the keyboard")

    def keys(self, *keys):
        desktop.xdotool("key", *keys)

    @unittest.skipIf(HAS_OWN_SENDMAIL, "this machine has a sendmail command")
    def test_with_no_mail_set_up_an_alert_says_so_and_closes(self):
        self.start(SUPPORT)
        self.application.wait_for("push button", "Send Support Mail")
        before = self.page()
        self.press("push button", "Send Support Mail")
        self.application.wait_for("dialog", "No mail accounts are set up.")
        self.application.wait_for("heading", "No mail accounts are set up.")
        self.application.wait_for("label", "Please go to the Mail settings to add a new account.")
        self.on("push button", "OK")
        self.assertFalse(self.application.find("dialog", "New Message"))
        self.press("push button", "OK")
        self.gone("dialog", "")
        self.assertEqual(self.page(), before)
        # By keyboard, from the row and back to it.
        self.keys("Down")
        self.on("push button", "Send Support Mail")
        self.keys("Return")
        self.on("push button", "OK")
        self.keys("Escape")
        self.gone("dialog", "")
        self.on("push button", "Send Support Mail")

    def test_a_mail_is_read_changed_and_sent(self):
        self.add_sendmail()
        os.makedirs(os.path.dirname(self.path("root/" + program.SETTINGS_FILE)))
        with open(self.path("root/" + program.SETTINGS_FILE), "wb") as file:
            plistlib.dump({"customPrefix": "Zürich *31#"}, file)
        self.start(SUPPORT)
        self.press("push button", "Send Support Mail")
        self.application.wait_for("dialog", "New Message")
        self.application.wait_for("label", "To: support@tallowbyte.example")
        self.assertEqual(self.text_of("Subject"), "QuietDial 1.0.0 (me.orlanvey.quietdial)")
        body = self.text_of("Message")
        self.assertTrue(body.startswith("\n\n" + "-" * 39 + "\nWe attached"), body)

        self.press("push button", "Attachment Information.plist")
        self.application.wait_for("heading", "Information.plist")
        listing = desktop.wait_for(
            lambda: next((element.name for element in self.application.elements()
                          if "customPrefix" in element.name), None), "the attachment's text")
        self.assertIn("customPrefix: “Zürich *31#”", listing)
        self.assertIn("QuietDial", listing)
        self.press("push button", "Done")
        self.application.wait_for("heading", "New Message")

        message = self.application.wait_for("text", "Message")
        self.assertTrue(message.queryEditableText().setTextContents("Grüße!" + body))
        subject = self.application.wait_for("text", "Subject")
        self.assertTrue(subject.queryEditableText().setTextContents("Größer\nals je"))
        self.press("push button", "Send")
        self.gone("dialog", "")
        with open(self.path("mail"), "rb") as file:
            mail = email.message_from_binary_file(file, policy=email.policy.default)
        self.assertEqual(mail["Subject"], "Größer als je")
        self.assertEqual([address.addr_spec for address in mail["To"].addresses],
                         ["support@tallowbyte.example"])
        text, attachment = mail.iter_parts()
        self.assertEqual(text.get_payload(decode=True).decode(), "Grüße!" + body)
        self.assertEqual(attachment.get_content_type(), "application/x-plist")
        information = plistlib.loads(attachment.get_payload(decode=True))
        self.assertEqual(information["Settings"], {"customPrefix": "Zürich *31#"})
        self.assertEqual(information["Device"]["Screen"]["Width"], 800)

    def test_a_mail_that_cannot_be_sent_stays_and_becomes_a_draft(self):
        self.script("sendmail", "cat >/dev/null; exit 75\n")
        self.start(SUPPORT)
        self.press("push button", "Send Support Mail")
        self.press("push button", "Send")
        self.application.wait_for("label", "The mail could not be sent.")
        self.press("push button", "Save as Draft")
        self.application.wait_for("dialog", "Draft saved")
        self.gone("dialog", "New Message")
        drafts = os.listdir(self.path("root/Drafts"))
        self.assertEqual(len(drafts), 1)
        self.application.wait_for("label", "Mail programs open it")
        self.press("push button", "OK")
        self.gone("dialog", "")

    def test_cancelling_the_mail_leaves_the_pane_as_it_was(self):
        self.add_sendmail()
        self.start(SUPPORT)
        self.application.wait_for("push button", "Send Support Mail")
        before = self.page()
        self.press("push button", "Send Support Mail")
        self.application.wait_for("dialog", "New Message")
        covered = self.application.find("push button", "Send Support Mail")
        self.assertNotIn("enabled", self.application.states(covered))
        self.press("push button", "Cancel")
        self.gone("dialog", "")
        self.assertEqual(self.page(), before)
        self.assertIsNone(self.read("mail"))

    def test_the_mail_by_keyboard(self):
        self.add_sendmail()
        self.start(SUPPORT)
        self.application.wait_for("push button", "Send Support Mail")
        self.application.wait_for_state("list", "Settings", "focused")
        self.keys("Down")
        self.on("push button", "Send Support Mail")
        self.keys("Return")
        self.application.wait_for("dialog", "New Message")
        # What is typed goes above the text that is there.
        desktop.xdotool("type", "--delay", "30", "Hello")
        desktop.wait_for(lambda: self.text_of("Message").startswith("Hello\n\n---"), "the typed text")
        self.keys("shift+Tab")
        self.on("push button", "Attachment Information.plist")
        self.keys("Return")
        self.application.wait_for("heading", "Information.plist")
        self.keys("Escape")
        self.application.wait_for("heading", "New Message")
        self.on("push button", "Attachment Information.plist")
        self.keys("Tab", "Tab")
        self.on("push button", "Save as Draft")
        self.keys("Tab")
        self.on("push button", "Cancel")
        self.keys("Tab")
        self.on("push button", "Send")
        self.keys("Escape")
        self.gone("dialog", "")
        self.on("push button", "Send Support Mail")
        self.assertIsNone(self.read("mail"))

    def test_posting_opens_the_services_form_with_the_text(self):
        self.add_handler("https")
        self.start(ROOT)
        self.press("push button", "Share")
        self.application.wait_for("dialog", "Twitter")
        text = self.application.wait_for("text", "Text")
        self.assertTrue(text.queryEditableText().setTextContents("50% off & ünïcode? #1"))
        self.press("push button", "Post")
        self.gone("dialog", "Twitter")
        self.assertEqual(self.opened("https"),
                         "https://twitter.example/intent/tweet?text=50%25%20off%20%26%20"
                         "%C3%BCn%C3%AFcode%3F%20%231")

    def test_following_opens_the_application_where_the_desktop_has_one(self):
        self.add_handler("https")
        self.add_handler("twitter")
        self.start(CREDITS)
        self.press("push button", "Follow @Tallowbyte on Twitter")
        self.assertEqual(self.opened("twitter"), "twitter://user?screen_name=Tallowbyte")
        self.assertIsNone(self.read("opened-https"))

    def test_following_opens_the_web_form_where_the_desktop_has_no_application(self):
        self.add_handler("https")
        self.start(CREDITS)
        self.press("push button", "Follow @Tallowbyte on Twitter")
        self.assertEqual(self.opened("https"),
                         "https://twitter.example/intent/user?screen_name=Tallowbyte")

    def test_the_credits_show_the_makers_and_lead_to_the_software(self):
        self.start(CREDITS)
        self.application.wait_for("label", "Tallowbyte, Orlan, Tavish")
        self.press("push button", "Software Credits")
        self.application.wait_for("heading", "Software Credits")
        self.application.wait_for("label", "libpng, libpng License")

    def test_the_update_row_opens_the_package_managers_page(self):
        self.add_handler("cydia")
        self.start(ROOT, "--entry-badge", "New update available!")
        self.press("push button", "Install the new update")
        self.assertEqual(self.opened("cydia"), "cydia://package/me.orlanvey.quietdial")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
