"""The commands over the settings: what they print, store, tell and refuse."""

import json
import os
import plistlib
import pty
import select
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import program  # noqa: E402
from settings_terminal import TOLD, Terminal, isolate  # noqa: E402
from waiting import PATIENCE  # noqa: E402

HOLD = {"dialerMode": 1, "dialerModeText": "Hold"}
DEFAULTS = {
    "dialerMode": 0, "dialerModeText": "Swipe", "systemwideStyle": 2, "systemwideStyleText": "Show always",
    "customText": None, "systemWideTwoButtonText": None, "dialButtonStyle": 1, "systemwideButtonStyle": 1,
    "buttonStyleText": "Style 1 & 1", "selectedCountry": "Most other counties", "selectedPrefix": "#31#",
    "customPrefix": "", "seen_tweaks": None,
}


class SettingsCommandTest(unittest.TestCase):
    def setUp(self):
        self.terminal = Terminal()
        self.addCleanup(self.terminal.close)
        self.terminal.start_dialler()

    def changes(self, *words, stored=None):
        """The command changes the settings, tells so once and restarts the dialler once."""
        result = self.terminal.run(*words)
        self.assertEqual((result.returncode, result.stderr), (0, ""), words)
        self.assertEqual(self.terminal.heard(), TOLD)
        self.terminal.check_dialler(self, restarts=True)
        if stored is not None:
            self.assertEqual(self.terminal.stored(), stored)
        return result.stdout

    def changes_nothing(self, *words, status=0, root=True, stdin=None):
        before = self.terminal.stored()
        result = self.terminal.run(*words, root=root, stdin=stdin)
        self.assertEqual(result.returncode, status, result)
        self.assertEqual(self.terminal.stored(), before)
        self.assertEqual(self.terminal.heard(), [])
        self.terminal.check_dialler(self, restarts=False)
        if status:
            self.assertEqual(result.stdout, "")
            self.assertTrue(result.stderr.startswith(f"quietdial {words[0]}: "), result.stderr)
            return result.stderr
        self.assertEqual(result.stderr, "")
        return result.stdout


class Reading(SettingsCommandTest):
    def test_get_gives_defaults_and_what_is_stored(self):
        for key, value in DEFAULTS.items():
            with self.subTest(key):
                self.assertEqual(self.changes_nothing("get", key), ("" if value is None else str(value)) + "\n")
                self.assertEqual(self.terminal.json("get", key), value)
        self.assertFalse(os.path.exists(self.terminal.root))
        self.terminal.store({"selectedPrefix": "#31# ", "customText": "line\nbreak", "seen_tweaks": ["a", "b"]})
        self.assertEqual(self.changes_nothing("get", "selectedPrefix"), "#31# \n")
        self.assertEqual(self.changes_nothing("get", "customText"), "line\nbreak\n")
        self.assertEqual(self.changes_nothing("get", "seen_tweaks"), "a\nb\n")
        self.assertEqual(self.terminal.json("get", "seen_tweaks"), ["a", "b"])

    def test_list_tells_values_defaults_and_what_is_changed(self):
        self.terminal.store({**HOLD, "systemwideStyle": 2, "customText": "\x1b[31m\n", "other": 1}, fmt=plistlib.FMT_BINARY)
        listed = {entry["key"]: entry for entry in self.terminal.json("list")}
        self.assertEqual({key: entry["default"] for key, entry in listed.items()}, DEFAULTS)
        self.assertEqual({key: entry["value"] for key, entry in listed.items()},
                         {**DEFAULTS, **HOLD, "customText": "\x1b[31m\n"})
        self.assertEqual([key for key, entry in listed.items() if entry["changed"]],
                         ["dialerMode", "dialerModeText", "customText"])
        lines = self.changes_nothing("list").splitlines()
        self.assertEqual(len(lines), 1 + len(DEFAULTS))
        self.assertRegex(lines[1], r"^dialerMode +1 \(Hold\) +0 \(Swipe\) +yes$")
        self.assertRegex(lines[5], r'^customText +"\\u001b\[31m\\n" +not set +yes$')

    def test_an_unreadable_file_is_told_and_left_alone(self):
        self.terminal.store({})
        with open(self.terminal.file, "w", encoding="utf-8") as file:
            file.write("no property list")
        for words in (["get", "dialerMode"], ["list"], ["set", "dialerMode", "1"], ["prefix", "US"], ["prefix"],
                      ["export"], ["reset", "--yes", "dialerMode"]):
            with self.subTest(words):
                result = self.terminal.run(*words)
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertIn("the settings file cannot be read: it is no property list with settings.", result.stderr)
        self.assertEqual(self.terminal.heard(), [])
        with open(self.terminal.file, encoding="utf-8") as file:
            self.assertEqual(file.read(), "no property list")
        self.assertEqual(self.changes("reset", "--yes", stored={}), "")
        self.assertTrue(os.path.exists(self.terminal.file + ".damaged"))


class Setting(SettingsCommandTest):
    def test_a_mode_takes_its_text_along(self):
        self.terminal.store({"other": [1, 2.5]})
        said = self.changes("set", "dialerMode", "hold", stored={"other": [1, 2.5], **HOLD})
        self.assertEqual(said, 'dialerMode: not set -> 1 (Hold)\ndialerModeText: not set -> "Hold"\n')
        self.assertEqual(self.changes_nothing("set", "dialerMode", "1"), "Nothing changes.\n")
        self.assertEqual(self.changes_nothing("set", "-q", "dialerMode", "Hold"), "")
        self.assertEqual(self.changes("set", "--quiet", "dialerMode", "showalways"), "")

    def test_texts_are_stored_as_they_are(self):
        for text in ("", " ", "-", "%%", "{}", "[]", "[a,b]", '"quoted"', "'", "a=b", "--", "-q", "ä 日本", "x" * 300, "line\nbreak", "true"):
            with self.subTest(text):
                self.changes("set", "customText", "--", text, stored={"customText": text})

    def test_what_cannot_be_set_is_refused(self):
        for words, sentence in {
            ("dialerMode", "3"): "dialerMode has to be 0 (Swipe), 1 (Hold) or 2 (Show always).",
            ("dialerMode", "swpe"): "dialerMode has to be 0 (Swipe), 1 (Hold) or 2 (Show always).",
            ("dialButtonStyle", "0"): "dialButtonStyle has to be a number from 1 to 4.",
            ("dialermode", "1"): 'there is no setting "dialermode"; did you mean "dialerMode"?',
            ("x", "1"): 'there is no setting "x"; quietdial list shows them all.',
            ("dialerModeText", "Hold"): "dialerModeText goes with dialerMode and is changed with it.",
            ("buttonStyleText", "a"): "buttonStyleText goes with dialButtonStyle and is changed with it.",
            ("selectedPrefix", "*67"): "selectedPrefix goes with selectedCountry and is changed with it.",
            ("seen_tweaks", "a"): "seen_tweaks is kept by the page of tweaks and cannot be set.",
            ("selectedCountry", "Cnada"): 'there is no country "Cnada" in the table; did you mean "Canada"?',
            ("customText", b"\xff"): "customText has to be a text.",
        }.items():
            with self.subTest(words):
                self.assertEqual(self.changes_nothing("set", *words, status=2), f"quietdial set: {sentence}\n")
        for words in (["set"], ["set", "dialerMode"], ["set", "dialerMode", "1", "2"], ["set", "dialerMode", "-1"],
                      ["get"], ["get", "--yes", "dialerMode"], ["import"], ["reset", "--all"]):
            with self.subTest(words):
                self.changes_nothing(*words, status=2)

    def test_what_cannot_be_written_is_told(self):
        with open(self.terminal.root, "w", encoding="utf-8"):
            pass
        result = self.terminal.run("set", "dialerMode", "1")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, "quietdial set: the settings cannot be written: Not a directory.\n")
        self.assertEqual(self.terminal.heard(), [])

    def test_without_a_bus_a_change_is_stored_and_applied(self):
        result = self.terminal.run("set", "dialerMode", "1", DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        self.assertEqual(result.returncode, 0)
        self.assertIn("no session bus", result.stderr)
        self.assertEqual(self.terminal.stored(), HOLD)
        self.terminal.check_dialler(self, restarts=True)

    def test_a_write_of_somebody_else_is_told(self):
        # What is written while the dialler restarts comes after the command's own write.
        self.terminal.store({"dialerMode": 0, "dialerModeText": "Swipe"})
        other = subprocess.Popen([sys.executable, "-c", WRITES_BACK, self.terminal.file], stdout=subprocess.PIPE)
        other.stdout.readline()
        results = [self.terminal.run("set", "dialerMode", "1") for _ in range(30)]
        other.kill()
        other.wait()
        other.stdout.close()
        for result in results:
            self.assertIn((result.returncode, bool(result.stderr)), [(0, False), (1, True)])
        self.assertIn(1, [result.returncode for result in results])


WRITES_BACK = """
import os, plistlib, sys
path = sys.argv[1]
print("ready", flush=True)
while True:
    try:
        with open(path, "rb") as file:
            stored = plistlib.load(file)
    except OSError:
        continue
    if stored.get("dialerMode") == 1:
        with open(path + ".new", "wb") as file:
            plistlib.dump({"dialerMode": 0, "dialerModeText": "Swipe"}, file)
        os.rename(path + ".new", path)
"""


class Prefix(SettingsCommandTest):
    def test_the_table_marks_the_chosen_row(self):
        rows = self.changes_nothing("prefix").splitlines()
        self.assertEqual(len(rows), 35)
        self.assertEqual([row for row in rows if row.startswith("*")], ["* Most other counties   #31#"])
        self.assertEqual(rows[31], "  UK                    141")
        self.terminal.store({"selectedCountry": "Custom (enter below)", "selectedPrefix": "*9", "customPrefix": "*9"})
        table = self.terminal.json("prefix")
        self.assertEqual([row for row in table if row["chosen"]],
                         [{"country": "Custom (enter below)", "prefix": "*9", "chosen": True}])
        self.assertEqual(table[2], {"country": "Australia", "prefix": "#31# ", "chosen": False})

    def test_a_country_is_chosen_as_the_page_does(self):
        for name, country, prefix in (("Canada", "Canada", "*67"), ("GB", "UK ", "141"), ("australia", "Australia", "#31# "),
                                      ("south korea", "South Korea", "*23#"), ("uk", "UK ", "141")):
            with self.subTest(name):
                self.changes("prefix", name, stored={"selectedCountry": country, "selectedPrefix": prefix})
        self.changes_nothing("prefix", "UK ")

    def test_a_prefix_of_ones_own(self):
        custom = {"selectedCountry": "Custom (enter below)", "selectedPrefix": "*31#", "customPrefix": "*31#"}
        self.changes("prefix", "--custom", "*31#", stored=custom)
        self.changes_nothing("prefix", "--custom", "*31#")
        self.changes("set", "customPrefix", "#30#", stored={**custom, "selectedPrefix": "#30#", "customPrefix": "#30#"})
        self.changes("prefix", "US", stored={"selectedCountry": "US", "selectedPrefix": "*67", "customPrefix": "#30#"})
        self.changes("set", "customPrefix", "*1", stored={"selectedCountry": "US", "selectedPrefix": "*67", "customPrefix": "*1"})
        self.changes("prefix", "custom (enter below)",
                     stored={"selectedCountry": "Custom (enter below)", "selectedPrefix": "*1", "customPrefix": "*1"})
        self.changes("prefix", "--custom", "",
                     stored={"selectedCountry": "Custom (enter below)", "selectedPrefix": "", "customPrefix": ""})

    def test_what_is_not_one_row_is_refused(self):
        self.assertEqual(self.changes_nothing("prefix", "IE", status=2),
                         'quietdial prefix: "IE" stands for several rows: "Ireland" (141) and "Republic of Ireland" (#31#); '
                         "name one of them.\n")
        self.assertIn('did you mean "Most other counties"?', self.changes_nothing("prefix", "Most other countries", status=2))
        self.assertIn("quietdial prefix lists them.", self.changes_nothing("prefix", "Atlantis", status=2))
        self.changes_nothing("prefix", "US", "--custom", "1", status=2)


class Resetting(SettingsCommandTest):
    STORED = {**HOLD, "dialButtonStyle": 2, "systemwideButtonStyle": 1, "buttonStyleText": "Style 2 & 1", "other": 1}

    def test_everything_or_some(self):
        self.terminal.store(self.STORED)
        self.changes("reset", "--yes", "dialButtonStyle",
                     stored={**HOLD, "systemwideButtonStyle": 1, "buttonStyleText": "Style 1 & 1", "other": 1})
        said = self.changes("reset", "--yes", stored={"systemwideButtonStyle": 1, "buttonStyleText": "Style 1 & 1", "other": 1})
        self.assertEqual(said, 'dialerMode: 1 (Hold) -> not set\ndialerModeText: "Hold" -> not set\n')
        self.changes_nothing("reset", "--yes")
        self.changes_nothing("reset", "--yes", "dialerModeText", status=2)
        self.changes_nothing("reset", "--yes", "dialermode", status=2)

    def test_it_asks(self):
        self.terminal.store(self.STORED)
        self.assertIn("there is no terminal to ask on", self.changes_nothing("reset", status=2))
        for answer, status in ((b"n\n", 1), (b"\n", 1), (b"y\n", 0)):
            main, side = pty.openpty()
            process = subprocess.Popen([program(), "reset", "dialerMode", "--root", self.terminal.root], stdin=side,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.terminal.environment)
            os.write(main, answer)
            out, err = process.communicate(timeout=PATIENCE)
            os.close(main)
            os.close(side)
            self.assertEqual(process.returncode, status, err)
            self.assertIn(b"dialerMode: 1 (Hold) -> not set\n", out)
            self.assertIn(b"Reset? [y/N]", out)
        self.assertNotIn("dialerMode", self.terminal.stored())


class Moving(SettingsCommandTest):
    FULL = {**HOLD, "customText": 'a "b"\n', "selectedCountry": "UK ", "selectedPrefix": "141", "seen_tweaks": ["x"],
            "dialButtonStyle": 3, "buttonStyleText": "Style 3 & 1"}

    def test_export_reset_and_import_give_the_same(self):
        self.terminal.store({**self.FULL, "other": 1})
        path = self.terminal.path("settings.json")
        self.assertEqual(self.changes_nothing("export", path), "")
        self.assertEqual(os.stat(path).st_mode & 0o777, 0o600)
        with open(path, encoding="utf-8") as file:
            text = file.read()
        self.assertEqual(json.loads(text), {"format": "quietdial-settings", "version": 1, "settings": self.FULL})
        self.assertEqual(self.changes_nothing("export"), text)
        self.assertEqual(self.changes_nothing("export", "-"), text)
        self.changes("reset", "--yes", stored={"other": 1})
        self.assertIn("dialerMode: not set -> 1 (Hold)\n", self.changes_nothing("import", "--dry-run", path))
        self.assertEqual(self.terminal.stored(), {"other": 1})
        self.changes("import", path, stored={**self.FULL, "other": 1})
        self.assertEqual(self.changes_nothing("import", path), "Nothing changes.\n")
        self.assertEqual(self.changes_nothing("import", "--dry-run", "-", stdin=text), "Nothing would change.\n")
        result = self.terminal.run("import", "-", stdin=text.replace('"dialerMode": 1', '"dialerMode": 2'))
        self.assertEqual(result.returncode, 0, result)
        self.assertEqual(self.terminal.stored()["dialerModeText"], "Show always")

    def test_a_phones_file_is_taken_over(self):
        for kind in (plistlib.FMT_XML, plistlib.FMT_BINARY):
            self.terminal.store({})
            path = self.terminal.path("phone.plist")
            with open(path, "wb") as file:
                plistlib.dump(self.FULL, file, fmt=kind)
            self.changes("import", path, stored=self.FULL)

    def test_what_is_refused_changes_nothing(self):
        self.terminal.store(HOLD)
        path = self.terminal.path("settings.json")
        with open(path, "w", encoding="utf-8") as file:
            file.write('{"format": "quietdial-settings", "version": 1, "settings": {\n  "dialerMode": 2,\n  "dialermode": 1}}')
        said = f'quietdial import: {path}, line 3, column 3: There is no setting "dialermode". ' \
               'Did you mean "dialerMode"? Nothing was imported.\n'
        self.assertEqual(self.changes_nothing("import", path, status=1), said)
        self.assertEqual(self.changes_nothing("import", "--dry-run", path, status=1), said)
        self.assertIn("there is no such file", self.changes_nothing("import", path + "x", status=1))
        self.assertIn("it is not a file", self.changes_nothing("import", self.terminal.folder, status=1))

    def test_an_export_that_cannot_be_written_fails(self):
        self.terminal.store(HOLD)
        self.assertIn("cannot be written", self.changes_nothing("export", self.terminal.folder, status=1))
        with open("/dev/full", "wb") as full:
            result = subprocess.run([program(), "export", "--root", self.terminal.root], stdout=full, check=False,
                                    stderr=subprocess.PIPE, env=self.terminal.environment)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"cannot be written", result.stderr)

    def test_what_a_setting_cannot_be_is_left_out_of_an_export(self):
        self.terminal.store({"dialerMode": "one", "customText": "a"})
        result = self.terminal.run("export")
        self.assertEqual(json.loads(result.stdout)["settings"], {"customText": "a"})
        self.assertEqual((result.returncode, result.stderr),
                         (0, "quietdial export: dialerMode holds what it cannot be, and is left out.\n"))


class Watching(SettingsCommandTest):
    def watch(self, *options):
        process = subprocess.Popen([program(), "watch", *options, "--root", self.terminal.root], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True, env=self.terminal.environment)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.stderr.close)
        self.assertIn("Watching", process.stderr.readline())
        return process

    def test_each_change_is_a_line_whoever_makes_it(self):
        words, objects = self.watch(), self.watch("--json")
        self.terminal.run("set", "dialerMode", "1")
        self.assertEqual(words.stdout.readline(), "dialerMode: not set -> 1 (Hold)\n")
        self.assertEqual(words.stdout.readline(), 'dialerModeText: not set -> "Hold"\n')
        self.assertEqual(json.loads(objects.stdout.readline()), {"key": "dialerMode", "before": None, "after": 1})
        self.assertEqual(json.loads(objects.stdout.readline())["key"], "dialerModeText")
        subprocess.run([program(), "drive", "--root", self.terminal.root], check=True, stdout=subprocess.DEVNULL,
                       text=True, env=self.terminal.environment,
                       input='{"do":"push","pane":"QDDialerStyleSelectionController"}\n{"do":"segment","row":1,"index":2}\n')
        self.assertEqual(words.stdout.readline(), "dialerMode: 1 (Hold) -> 2 (Show always)\n")
        self.assertEqual(words.stdout.readline(), 'dialerModeText: "Hold" -> "Show always"\n')
        os.remove(self.terminal.file)
        self.assertEqual(words.stdout.readline(), "dialerMode: 2 (Show always) -> not set\n")

    def test_a_reader_that_has_gone_ends_it(self):
        process = self.watch()
        process.stdout.close()
        self.terminal.run("set", "dialerMode", "1")
        self.assertNotEqual(process.wait(timeout=PATIENCE), 0)


class Rest(SettingsCommandTest):
    def test_apply_restarts_the_dialler_and_tells_that_alone(self):
        result = self.terminal.run("apply")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.terminal.heard(), TOLD[1:])
        self.terminal.check_dialler(self, restarts=True)
        self.assertEqual(self.terminal.run("apply", "-q").stdout, "")

    def test_status_tells_what_is_set_and_what_is_in_the_way(self):
        self.terminal.store({**HOLD, "selectedCountry": "India", "selectedPrefix": "*31#"})
        status = self.terminal.json("status")
        self.assertEqual(status["settings"], {**DEFAULTS, **HOLD, "selectedCountry": "India", "selectedPrefix": "*31#"})
        self.assertTrue(status["example"]["dial"].startswith("*31#"))
        self.assertIsNone(status["through"])
        self.assertEqual({warning["code"] for warning in status["warnings"]} & {"may-show", "no-line"}, {"may-show", "no-line"})
        words = self.changes_nothing("status")
        self.assertRegex(words, r'Hide Caller ID Prefix +"\*31#" for "India"\n')
        self.assertRegex(words, r"Dial Tab Style +Hold\n")
        self.assertRegex(words, r"Systemwide Call Style +Show always\n")
        self.assertRegex(words, r"Button Style +Style 1 & 1\n")
        self.assertIn("would be dialled as *31#", words)
        self.assertIn("Warning: ", words)
        self.terminal.store({"selectedCountry": "Custom (enter below)", "selectedPrefix": "", "customPrefix": ""})
        self.assertIn("no-prefix", [warning["code"] for warning in self.terminal.json("status")["warnings"]])
        with open(self.terminal.file, "w", encoding="utf-8") as file:
            file.write("no property list")
        self.assertIn("unreadable", [warning["code"] for warning in self.terminal.json("status")["warnings"]])

    def test_open_names_pages_as_the_first_page_does(self):
        self.assertIn('did you mean "Credits"?', self.changes_nothing("open", "Credit", status=2))
        self.assertIn("there are: Hide Caller ID Prefix, Dial Tab Style,", self.changes_nothing("open", "kitchen", status=2))
        self.assertIn("several pages are called", self.changes_nothing("open", "style", status=2))

    def test_open_opens_the_window_on_the_page(self):
        installed = self.terminal.install(f'echo "$@" >>{self.terminal.path("opened")}')
        for words, opened in (([], ""), (["prefix"], "--pane QDCountryPrefixController"), (["dial tab style"], "--pane QDDialerStyleSelectionController"),
                              (["Credits", "--root", "/else"], "--pane QDCreditsListController --root /else")):
            subprocess.run([installed, "open", *words], check=True, env=self.terminal.environment)
            with open(self.terminal.path("opened"), encoding="utf-8") as file:
                self.assertEqual(file.read(), opened + "\n")
            os.remove(self.terminal.path("opened"))
        self.terminal.write_script("quietdial-settings", "exit 1")
        result = subprocess.run([installed, "open"], check=False, env=self.terminal.environment, capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (1, "quietdial open: quietdial-settings could not be opened.\n"))

    def test_what_is_known_of_numbers_is_loaded_for_calls_alone(self):
        libraries = subprocess.run(["ldd", program()], check=True, capture_output=True, text=True).stdout
        self.assertIn("libquietdial-platform.so", libraries)
        self.assertNotIn("phonenumber", libraries)
        result = self.terminal.run("call", "--via", "print", "--region", "DE", "--yes", "0171 555 0134")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "#31#01715550134\n", ""))

    def test_help_opens_with_examples_and_colours_are_for_terminals(self):
        for command in ("status", "get", "list", "set", "prefix", "reset", "export", "import", "watch", "apply", "open"):
            with self.subTest(command):
                result = self.terminal.run(command, "--help", root=False)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertLess(result.stdout.index("Examples:"), result.stdout.index("Usage:"))
                self.assertIn(f"  quietdial {command}", result.stdout)
                for option in ("--root DIR", "-q,--quiet"):
                    self.assertIn(option, result.stdout)
        self.terminal.store(HOLD)
        self.assertNotIn("\x1b", self.terminal.run("list").stdout)
        for environment, coloured in (({"TERM": "xterm"}, True), ({"TERM": "xterm", "NO_COLOR": "1"}, False), ({"TERM": "dumb"}, False)):
            main, side = pty.openpty()
            subprocess.run([program(), "list", "--root", self.terminal.root], stdout=side, check=True,
                           env={**self.terminal.environment, **environment})
            os.close(side)
            self.assertEqual(b"\x1b[1m" in read_all(main), coloured, environment)

    def test_a_mistyped_command_gets_a_suggestion(self):
        for typed, meant in (("sett", "set"), ("lsit", "list"), ("exprot", "export"), ("stats", "status")):
            result = self.terminal.run(typed, root=False)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertEqual(result.stderr, f'quietdial: there is no command "{typed}"; did you mean "{meant}"?\n')


def read_all(main):
    text = b""
    while select.select([main], [], [], 0)[0]:
        try:
            text += os.read(main, 65536)
        except OSError:
            break
    os.close(main)
    return text


if __name__ == "__main__":
    isolate()
    unittest.main()
