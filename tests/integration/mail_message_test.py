"""Mails as they are written, read back by Python's own parser: every text to the letter."""

import email
import email.policy
import os
import random
import subprocess
import unittest

WRITER = os.environ["QUIETDIAL_MAIL_WRITER"]


def write(subject, body, attachment=None, sender="me@home.example", to="a@b.example",
          kind="application/x-plist", name="Information.plist"):
    data = body.encode("utf-8", "surrogateescape")
    if attachment is not None:
        data += b"\0" + attachment
    return subprocess.run([WRITER, sender, to, subject, kind, name], input=data, check=True,
                          capture_output=True).stdout


def read(data):
    message = email.message_from_bytes(data, policy=email.policy.SMTP)
    for part in message.walk():
        assert not part.defects, part.defects
        for _, value in part.items():
            assert not value.defects, value.defects
    return message


class Messages(unittest.TestCase):
    def check(self, subject, body, attachment=b"\x00\xff data", name="Information.plist"):
        data = write(subject, body, attachment, name=name)
        for line in data.split(b"\r\n"):
            self.assertLessEqual(len(line), 78, line)
            self.assertNotIn(b"\n", line)
            self.assertTrue(line.isascii())
        message = read(data)
        self.assertEqual(message["Subject"], subject)
        text, attached = message.iter_parts()
        self.assertEqual(text.get_content_type(), "text/plain")
        self.assertEqual(text.get_payload(decode=True).decode().replace("\r\n", "\n"), body)
        self.assertEqual(attached.get_content_type(), "application/x-plist")
        self.assertEqual(attached.get_filename(), name)
        self.assertEqual(attached.get_content_disposition(), "attachment")
        self.assertEqual(attached.get_payload(decode=True), attachment)
        return message

    def test_addresses_date_and_version_are_there(self):
        message = self.check("Subject", "Body")
        self.assertEqual(message["From"].addresses[0].addr_spec, "me@home.example")
        self.assertEqual([address.addr_spec for address in message["To"].addresses], ["a@b.example"])
        self.assertEqual(message["Date"].datetime.isoformat(), "1970-01-01T00:00:00+00:00")
        self.assertEqual(message["MIME-Version"], "1.0")

    def test_a_message_without_an_attachment_is_one_text(self):
        message = read(write("s", "a\nb"))
        self.assertFalse(message.is_multipart())
        self.assertEqual(message.get_content().splitlines(), ["a", "b"])

    def test_subjects_come_back_to_the_letter(self):
        for subject in ("", "a", "Übermut", "日本" * 60, "=?UTF-8?B?YQ==?=", "a  b", " a", "a ",
                        "🎉" * 80, "x" * 500, "word " * 60 + "end", "e\u0301" * 50, "a=?b", "?="):
            with self.subTest(subject):
                self.check(subject, "b")

    def test_bodies_come_back_to_the_letter(self):
        for body in ("", "\n", "\n\n--\n.", "a \nb\t\n ", "=", "=3D", "From here\n.\n", "x" * 5000,
                     "ü" * 3000, "日本\n" * 500, "--=_QuietDial_part--\n", "a\n\n\n", "\u0085\u2028x",
                     " " * 200, "\x01\x7f", "=" * 76, "a" * 75 + "=", "a" * 76, "a" * 76 + "\n" + "b" * 77):
            with self.subTest(body[:40]):
                self.check("s", body)

    def test_attachments_come_back_byte_by_byte(self):
        for attachment in (b"", b"\0", bytes(range(256)) * 40, b"\r\n--=_QuietDial_part--\r\n" * 20):
            with self.subTest(attachment[:20]):
                self.check("s", "b", attachment)

    def test_file_names_come_back_to_the_letter(self):
        for name in ("a b.plist", "Überblick.plist", "日" * 70 + ".plist", "a;b='c'.plist", "100%.plist"):
            with self.subTest(name):
                self.check("s", "b", name=name)

    def test_no_text_becomes_a_field(self):
        for line_end in ("\r\n", "\n", "\r", "\u0085", "\v"):
            message = read(write(f"a{line_end}Bcc: x@y.example{line_end}{line_end}b", "c", b"d",
                                 name=f"n{line_end}X-Bad: 1"))
            self.assertIsNone(message["Bcc"])
            self.assertEqual(message["Subject"].split()[0], "a")
            self.assertEqual(len(list(message.iter_parts())), 2)
            for part in message.walk():
                self.assertIsNone(part["X-Bad"])

    def test_what_is_not_utf_8_is_marked(self):
        message = read(write("a\udcffb", "c\udc80d", b""))
        self.assertEqual(message["Subject"], "a\ufffdb")
        text = next(message.iter_parts())
        self.assertEqual(text.get_payload(decode=True).decode(), "c\ufffdd")

    def test_any_texts_come_back(self):
        random.seed(20)
        letters = "aZ09 =?_.,:;<>@\"\\'()%\t" + "äß€日🎉\u200d\u0301" + "-"
        for _ in range(150):
            def some(most, extra=""):
                return "".join(random.choice(letters + extra) for _ in range(random.randrange(most)))
            subject = some(160).replace("\t", " ")
            self.check(subject, some(400, "\n"), random.randbytes(random.randrange(300)))


if __name__ == "__main__":
    unittest.main()
