"""Manual pages, completions and the examples that they, the help and the documents show."""

import os
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import program  # noqa: E402
from settings_terminal import Terminal, isolate  # noqa: E402
from waiting import PATIENCE  # noqa: E402

MANUAL = pathlib.Path(os.environ["QUIETDIAL_MANUAL"])
SOURCES = pathlib.Path(__file__).resolve().parents[2]
# What a call ends with where nothing can place it.
NO_LINE = 4
COMMAND = re.compile(r"(?:^|\| )quietdial\b")
# Not there in builds without the window.
DIALLER = pathlib.Path(program()).with_name("quietdial-dialler")


def help_of(*words):
    return subprocess.run([program(), *words, "--help"], check=True, capture_output=True, text=True).stdout


def commands():
    listed = help_of().split("Commands:\n")[1].split("\n\n")[0]
    return [line.split()[0] for line in listed.splitlines()]


def rendered(page):
    """A page without its formatting."""
    text = page.read_text(encoding="utf-8")
    return re.sub(r"\\([&-])", lambda match: "-" if match[1] == "-" else "", text).replace("\\(dq", '"').replace("\\e", "\\")


class ManualPages(unittest.TestCase):
    def test_each_command_has_a_page_with_its_options_and_examples(self):
        self.assertGreater(len(commands()), 10)
        overview = rendered(MANUAL / "quietdial.1")
        for command in commands():
            with self.subTest(command):
                page = rendered(MANUAL / f"quietdial-{command}.1")
                text = help_of(command)
                options = re.findall(r"^  (?:-\w,)?(--[a-z-]+)", text, re.MULTILINE)
                for word in options + re.findall(r"^  (quietdial .*?)  ", text, re.MULTILINE):
                    self.assertIn(word, page)
                self.assertIn(f"quietdial-{command}(1)", overview)

    def test_the_settings_file_page_has_every_key(self):
        page = rendered(MANUAL / "quietdial-settings-file.5")
        for line in subprocess.run([program(), "list", "--root", "/nowhere"], check=True, capture_output=True,
                                   text=True).stdout.splitlines()[1:]:
            self.assertIn(f'.B "{line.split()[0]}"', page)

    def test_the_pages_are_formatted_without_a_complaint(self):
        for page in MANUAL.glob("*.[15]"):
            lines = page.read_text(encoding="utf-8").splitlines()
            self.assertTrue(lines[0].startswith(".TH "), page)
            for line in lines:
                if line.startswith("."):
                    self.assertRegex(line, r"^\.(TH|SH|TP|B|I|PP)\b", page)
                    # A quote inside of another one would end it.
                    self.assertRegex(line, r'^[^"]*("[^"]*"( |$))*$', page)


class Completions(unittest.TestCase):
    def completed(self, *words):
        script = f'source "{MANUAL}/quietdial.bash"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _quietdial; ' \
                 'printf "%s\\n" "${COMPREPLY[@]}"'
        result = subprocess.run(["bash", "--norc", "-c", script, "bash", "quietdial", *words], capture_output=True, text=True,
                                timeout=PATIENCE, check=True, cwd=MANUAL)
        self.assertEqual(result.stderr, "")
        return result.stdout.split("\n")[:-1] if result.stdout != "\n" else []

    def test_commands_and_options_are_those_of_the_help(self):
        self.assertEqual(self.completed(""), [*commands(), "--help", "--version"])
        self.assertEqual(self.completed("ex"), ["export"])
        for command in commands():
            with self.subTest(command):
                options = re.findall(r"^  (?:-\w,)?(--[a-z-]+)", help_of(command), re.MULTILINE)
                self.assertEqual(self.completed(command, "--"), options)

    def test_arguments_are_what_the_commands_take(self):
        self.assertEqual(self.completed("set", "dialer"), ["dialerMode"])
        self.assertEqual(self.completed("get", "dialer"), ["dialerMode", "dialerModeText"])
        self.assertEqual(self.completed("set", "dialerMode", ""), ["swipe", "hold", "show\\ always"])
        self.assertEqual(self.completed("set", "dialButtonStyle", ""), ["1", "2", "3", "4"])
        self.assertEqual(self.completed("set", "customText", ""), [])
        self.assertEqual(self.completed("prefix", "South"), ["South\\ Korea"])
        self.assertEqual(self.completed("prefix", "U"), ["UK", "US"])
        self.assertEqual(self.completed("reset", "dialerMode", "custom"), ["customText", "customPrefix"])
        self.assertEqual(self.completed("import", "quietdial.b"), ["quietdial.bash"])
        self.assertEqual(self.completed("list", "--root", "/us"), ["/usr"])


class Examples(unittest.TestCase):
    """Each is run where the files that it names are there; none may be misunderstood."""

    def examples(self):
        found = set()
        for command in ["", *commands()]:
            words = [command] if command else []
            found |= set(re.findall(r"^  ((?:echo .*\| )?quietdial .*?)(?:  .*)?$", help_of(*words), re.MULTILINE))
        for page in MANUAL.glob("*.1"):
            found |= set(re.findall(r'^\.B "(quietdial .*)"$', rendered(page), re.MULTILINE))
        documents = [SOURCES / "README.md", *sorted((SOURCES / "docs").glob("*.md"))]
        for document in documents:
            text = re.sub(r" *\\\n +", " ", document.read_text(encoding="utf-8"))
            for line in text.splitlines():
                line = re.sub(r"\s{2,}\S.*$", "", line[4:].removeprefix("$ ")) if line.startswith("    ") else ""
                if COMMAND.search(line) and (DIALLER.name not in line or DIALLER.exists()):
                    found.add(line)
        return sorted(found)

    def prepare(self, terminal):
        """What the examples name beside the program."""
        terminal.write_script("ssh", 'shift; exec "$@"')
        terminal.write_script("pass", "echo 0171 555 0134")
        terminal.install("exit 0")
        if DIALLER.exists():
            # Its window is drawn once, into a file.
            root = "--allow-root" if os.geteuid() == 0 else ""
            terminal.write_script(
                DIALLER.name, f'QT_QPA_PLATFORM=offscreen exec "{DIALLER}" {root} --screenshot shown.png "$@"')
        for command in ("set dialerMode hold", "export settings.json"):
            subprocess.run(f"quietdial {command}", shell=True, check=True, env=terminal.environment, cwd=terminal.folder,
                           stdout=subprocess.DEVNULL)
        stored = terminal.path("data/quietdial/User/Library/Preferences/me.orlanvey.quietDial.plist")
        os.link(stored, terminal.path("me.orlanvey.quietDial.plist"))
        sample = SOURCES / "tests/data/gif"
        os.symlink(next(sample.glob("*.gif")), terminal.path("FILE"))
        os.symlink(next(sample.glob("*.gif")), terminal.path("picture.gif"))

    def test_each_does_what_it_says(self):
        examples = self.examples()
        self.assertGreater(len(examples), 25, examples)
        with Terminal() as terminal:
            self.prepare(terminal)
            for example in examples:
                with self.subTest(example):
                    endless = " watch" in example
                    process = subprocess.Popen(example, shell=True, executable="/bin/bash", env=terminal.environment,
                                               cwd=terminal.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                               stderr=subprocess.PIPE, text=True, start_new_session=True)
                    if endless:
                        self.assertIn("Watching", process.stderr.readline())
                        os.killpg(process.pid, 9)
                    out, err = process.communicate(timeout=PATIENCE * 4)
                    if endless:
                        continue
                    # Nothing places calls here, and nobody is there to be asked.
                    allowed = (0, NO_LINE) if " call" in example else (0,)
                    self.assertIn(process.returncode, allowed, (out, err))


if __name__ == "__main__":
    isolate()
    unittest.main()
