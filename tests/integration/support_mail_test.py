"""The support mail from the tap to what the machine's mail system is handed."""

import base64
import email
import email.policy
import getpass
import glob
import os
import plistlib
import socket
import stat
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import SETTINGS, Drive  # noqa: E402

PANE = "QDSupportListController"
BODY = ("\n\n---------------------------------------\nWe attached some information about your Quiet Dial "
        "Preferences and your device here. This will help us solve your problem more quickly.")
ALERT = {"event": "alert", "title": "No mail accounts are set up.",
         "message": "Please go to the Mail settings to add a new account.", "button": "OK"}


class SupportMail(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.root = os.path.join(self.folder, "root")
        self.environment = dict(os.environ)
        self.addCleanup(lambda: (os.environ.clear(), os.environ.update(self.environment)))
        os.environ["PATH"] = os.path.join(self.folder, "bin") + ":/usr/bin:/bin"
        os.environ["XDG_CACHE_HOME"] = os.path.join(self.folder, "cache")
        os.environ.pop("EMAIL", None)

    def program(self, name, script):
        path = os.path.join(self.folder, "bin", name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\n" + script)
        os.chmod(path, 0o755)

    def store(self, settings):
        path = self.root + SETTINGS
        os.makedirs(os.path.dirname(path))
        with open(path, "wb") as file:
            plistlib.dump(settings, file, fmt=plistlib.FMT_BINARY)

    def write(self, *arguments):
        """A session in which the row for a mail has been tapped."""
        drive = Drive("--root", self.root, *arguments)
        self.addCleanup(drive.__exit__)
        drive.do("push", pane=PANE)
        drive.events()
        row = next(row for row in drive.rows() if row["action"] == "sendSupportEmail")
        drive.do("tap", row=row["index"])
        return drive

    def send(self, result="sent"):
        """What a stand-in for the sendmail command was given."""
        kept = os.path.join(self.folder, "mail")
        self.program("sendmail", f"printf '%s ' \"$@\" >'{kept}.arguments'\nexec cat >'{kept}'\n")
        drive = self.write("--effects", "real")
        drive.do("sheet", result=result)
        self.assertEqual([event["event"] for event in drive.events()], ["present", "dismiss"])
        with open(kept, "rb") as file:
            return email.message_from_binary_file(file, policy=email.policy.default)

    def check(self, message, settings):
        self.assertEqual(message.defects, [])
        self.assertEqual([address.addr_spec for address in message["To"].addresses],
                         ["support@tallowbyte.example"])
        self.assertEqual((message["Cc"], message["Bcc"]), (None, None))
        self.assertEqual(message["Subject"], "QuietDial 1.0.0 (me.orlanvey.quietdial)")
        text, *attachments = message.iter_parts()
        self.assertEqual(text.get_content_type(), "text/plain")
        self.assertEqual(text.get_payload(decode=True).decode(), BODY)
        self.assertEqual(len(attachments), 1)
        self.assertEqual(attachments[0].get_content_type(), "application/x-plist")
        self.assertEqual(attachments[0].get_filename(), "Information.plist")
        information = plistlib.loads(attachments[0].get_payload(decode=True))
        self.assertEqual(information["Settings"], settings)
        self.assertEqual(information["Package"],
                         {"Identifier": "me.orlanvey.quietdial", "Name": "QuietDial", "Version": "1.0.0"})
        return information

    def test_the_mail_arrives_with_one_recipient_the_texts_and_the_settings(self):
        settings = {"dialerMode": 2, "selectedPrefix": "#31#", "seen_tweaks": ["a", "b"], "customText": 0.1}
        self.store(settings | {"password": "of another program", "customtext": "", "": 1})
        self.check(self.send(), settings)
        with open(os.path.join(self.folder, "mail.arguments"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "-oi -t ")

    def test_settings_of_any_letters_arrive(self):
        for settings in ({"customPrefix": "Vorwahl für Zürich – 日本 🎉 *31#"}, {"customPrefix": "a\x01\rb"}):
            with self.subTest(settings):
                self.setUp()
                self.store(settings)
                self.check(self.send(), settings)

    def test_without_a_settings_file_the_mail_is_sent_all_the_same(self):
        information = plistlib.loads(list(self.send().iter_parts())[1].get_payload(decode=True))
        self.assertEqual(sorted(information), ["Device", "Package"])

    def test_a_mail_that_the_command_refuses_has_failed_and_the_sheet_goes(self):
        self.program("sendmail", "cat >/dev/null; exit 75\n")
        drive = self.write("--effects", "real")
        drive.do("sheet", result="sent")
        self.assertEqual([event["event"] for event in drive.events()], ["present", "dismiss"])
        self.assertFalse(drive.ask("sheet", result="sent")["ok"])

    def test_a_draft_is_kept_below_the_device_root(self):
        self.store({"dialerMode": 1})
        drive = self.write("--effects", "real")
        drive.do("sheet", result="saved")
        drafts = glob.glob(os.path.join(self.root, "Drafts", "*.eml"))
        self.assertEqual(len(drafts), 1)
        self.assertEqual([stat.S_IMODE(os.stat(path).st_mode) for path in (os.path.dirname(drafts[0]), drafts[0])],
                         [0o700, 0o600])
        with open(drafts[0], "rb") as file:
            message = email.message_from_binary_file(file, policy=email.policy.default)
        self.assertEqual(message["X-Unsent"], "1")
        text, attachment = message.iter_parts()
        self.assertEqual(text.get_payload(decode=True).decode().replace("\r\n", "\n"), BODY)
        self.assertEqual(plistlib.loads(attachment.get_payload(decode=True))["Settings"], {"dialerMode": 1})

    def test_the_desktops_mail_program_gets_the_mail_where_there_is_no_sendmail(self):
        if any(map(os.path.exists, ("/usr/sbin/sendmail", "/usr/lib/sendmail"))):
            self.skipTest("this machine has a sendmail command")
        self.store({"customPrefix": "Zürich"})
        applications = os.path.join(self.folder, "data", "applications")
        os.makedirs(applications)
        kept = os.path.join(self.folder, "address")
        self.program("reader", f"printf '%s' \"$1\" >'{kept}.new'\nmv '{kept}.new' '{kept}'\n")
        with open(os.path.join(applications, "reader.desktop"), "w", encoding="utf-8") as file:
            file.write("[Desktop Entry]\nType=Application\nName=Reader\nMimeType=x-scheme-handler/mailto;\n"
                       f"Exec={self.folder}/bin/reader %u\n")
        with open(os.path.join(applications, "mimeapps.list"), "w", encoding="utf-8") as file:
            file.write("[Default Applications]\nx-scheme-handler/mailto=reader.desktop\n")
        for name in ("XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "MAILER"):
            os.environ.pop(name, None)
        # Without a display, handlers are not looked for.
        os.environ.update(DISPLAY=":987", XDG_DATA_HOME=os.path.join(self.folder, "data"),
                          XDG_DATA_DIRS=os.path.join(self.folder, "none"),
                          XDG_CONFIG_HOME=os.path.join(self.folder, "config"), HOME=self.folder)
        drive = self.write("--effects", "real")
        drive.do("sheet", result="sent")
        with open(kept, encoding="utf-8") as file:
            address = file.read()
        from urllib.parse import parse_qs, unquote, urlsplit
        parts = urlsplit(address)
        self.assertEqual((parts.scheme, unquote(parts.path)), ("mailto", "support@tallowbyte.example"))
        query = parse_qs(parts.query)
        self.assertEqual(query["subject"], ["QuietDial 1.0.0 (me.orlanvey.quietdial)"])
        self.assertEqual(query["body"], [BODY.replace("\n", "\r\n")])
        self.assertEqual(len(query["attach"]), 1)
        self.assertEqual(os.path.basename(query["attach"][0]), "Information.plist")
        with open(query["attach"][0], "rb") as file:
            self.assertEqual(plistlib.load(file)["Settings"], {"customPrefix": "Zürich"})

    def test_with_no_mail_set_up_the_alert_is_all_that_happens(self):
        drive = self.write("--mail", "no")
        self.assertEqual(drive.events(), [ALERT])
        self.assertFalse(drive.ask("sheet", result="cancelled")["ok"])
        drive.do("sheet", result="ok")
        self.assertEqual(drive.events(), [])
        self.assertFalse(drive.ask("sheet", result="ok")["ok"])

    def test_a_script_sees_the_whole_mail_and_who_presents_it(self):
        self.store({"dialerMode": 1})
        drive = self.write()
        event, = drive.events()
        data = base64.b64decode(event["attachments"][0].pop("data"))
        self.assertEqual(event, {
            "event": "present", "sheet": "mail", "to": ["support@tallowbyte.example"],
            "subject": "QuietDial 1.0.0 (me.orlanvey.quietdial)", "body": BODY, "html": False,
            "attachments": [{"name": "Information.plist", "type": "application/x-plist"}], "from": "outer"})
        information = plistlib.loads(data)
        self.assertEqual(information["Settings"], {"dialerMode": 1})
        self.assertTrue(data.startswith(b"<?xml"))

    def test_however_the_mail_ends_it_goes_and_the_pane_stays_as_it_was(self):
        for result in ("sent", "saved", "cancelled", "failed"):
            with self.subTest(result):
                drive = self.write()
                before = drive.do("rows")
                drive.events()
                for wrong in ("posted", "ok", ""):
                    self.assertFalse(drive.ask("sheet", result=wrong)["ok"])
                drive.do("sheet", result=result)
                self.assertEqual(drive.events(), [{"event": "dismiss", "sheet": "mail"}])
                self.assertEqual(drive.do("rows"), before)
        self.assertFalse(os.path.exists(os.path.join(self.root, "Drafts")), "nothing really happens")

    def test_a_sheet_whose_pane_was_left_still_goes(self):
        drive = self.write()
        drive.do("pop")
        drive.events()
        drive.do("sheet", result="cancelled")
        self.assertEqual(drive.events(), [{"event": "dismiss", "sheet": "mail"}])

    def test_nothing_of_the_attachment_tells_who_sends_it(self):
        os.environ["HOME"] = "/home/jo.somebody"
        os.environ["USER"] = os.environ["LOGNAME"] = "jo.somebody"
        attachment = list(self.send().iter_parts())[1].get_payload(decode=True).decode()
        for word in ("somebody", "/home", self.folder, socket.gethostname()):
            self.assertNotIn(word, attachment)
        values = []
        def collect(value):
            for entry in value.values():
                collect(entry) if isinstance(entry, dict) else values.append(entry)
        collect(plistlib.loads(attachment.encode()))
        self.assertNotIn(getpass.getuser(), values)


if __name__ == "__main__":
    unittest.main()
