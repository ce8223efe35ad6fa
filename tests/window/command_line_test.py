"""What the program answers to its arguments."""

import os
import subprocess
import tempfile
import unittest

import program
from picture import Picture


class CommandLine(unittest.TestCase):
    def refuses(self, *arguments):
        result = program.run(*arguments)
        self.assertEqual(result.returncode, 2, result.stderr)
        self.assertEqual(result.stdout, "")
        self.assertEqual(result.stderr.count("\n"), 1, result.stderr)
        self.assertTrue(result.stderr.startswith("quietdial-settings: "), result.stderr)

    def test_unusable_arguments_are_refused_with_one_line(self):
        for arguments in (["--bogus"], ["word"], ["--size", "tall"], ["--size", "1x1"],
                          ["--size", "99999x600"], ["--scale", "nan"], ["--scale", "0"],
                          ["--renderer", "crayon"], ["--effects", "some"],
                          ["--effects", "real", "--screenshot", "a"], ["--appearance", "pink"],
                          ["--text-size", "huge"], ["--motion", ""], ["--direction", "up"],
                          ["--bundle", "/no/such.bundle"],
                          ["--screenshot", ""], ["--root", ""], ["--gif", ""],
                          ["--refresh-rate", "0"], ["--refresh-rate", "fast"],
                          ["--scale", "2x"], ["--map-host", "a=b"], ["--pane"]):
            with self.subTest(arguments=arguments):
                self.refuses(*arguments)

    def test_help_names_every_option(self):
        result = program.run("--help")
        self.assertEqual(result.returncode, 0)
        for option in ("root", "bundle", "pane", "entry-badge", "size", "scale", "screenshot",
                       "renderer", "appearance", "text-size", "motion", "direction",
                       "effects", "gif", "refresh-rate", "allow-root", "help", "version"):
            self.assertIn("--" + option, result.stdout)

    def test_a_file_that_cannot_be_played_is_told_in_one_sentence(self):
        with tempfile.TemporaryDirectory() as folder:
            text = os.path.join(folder, "text.gif")
            with open(text, "w", encoding="ascii") as file:
                file.write("not a picture")
            for path, reason in ((os.path.join(folder, "none.gif"), "cannot be read."),
                                 (folder, "cannot be read."),
                                 (text, "is no animated picture that can be played.")):
                with self.subTest(path=path):
                    result = program.run("--root", folder, "--effects", "none", "--gif", path,
                                         QT_QPA_PLATFORM="offscreen")
                    self.assertEqual(result.returncode, 1)
                    self.assertEqual(result.stderr, f"quietdial-settings: {path} {reason}\n")

    def test_root_is_turned_away_unless_it_says_that_it_knows(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = os.path.join(folder, "picture.png")
            command = [program.PROGRAM, "--root", os.path.join(folder, "root"), "--screenshot", picture]
            if os.geteuid() != 0:
                command = ["unshare", "--map-root-user", *command]
                if subprocess.run([*command[:2], "true"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
                    self.skipTest("nobody can become root here")
            result = subprocess.run(command, capture_output=True, text=True, check=False)
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            self.assertEqual(result.stderr,
                             "quietdial-settings: This is not meant for root; --allow-root goes on all the same.\n")
            self.assertEqual(os.listdir(folder), [])
            result = subprocess.run([*command, "--allow-root"], capture_output=True, text=True, check=False)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertTrue(os.path.exists(picture))

    def test_of_an_option_that_is_given_again_the_last_one_counts(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = os.path.join(folder, "picture.png")
            result = program.run("--root", "/nowhere", "--size", "400x400", "--root=" + folder, "--size=320x568",
                                 "--screenshot", picture)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual((Picture(picture).width, Picture(picture).height), (320, 568))

    def test_the_tour_has_arguments_of_its_own(self):
        for arguments in ([], [""], ["--bogus", "a"], ["--size", "tall", "a"], ["a", "b"], ["--pane", "A", "a"]):
            with self.subTest(arguments=arguments):
                result = program.tour(*arguments)
                self.assertEqual((result.returncode, result.stdout), (2, ""))
                self.assertRegex(result.stderr, r"^quietdial-tour: [^\n]+\n$")
        with tempfile.NamedTemporaryFile() as file:
            result = program.tour(file.name)
            self.assertEqual(result.returncode, 1)
            self.assertEqual(result.stderr, f"quietdial-tour: The folder {file.name} cannot be made.\n")
        self.assertRegex(program.tour("--version").stdout, r"^quietdial-tour \d+\.\d+\.\d+\n$")
        for option in ("root", "bundle", "entry-badge", "size", "scale", "renderer", "direction", "map-host",
                       "no-web-engine", "allow-root"):
            self.assertIn("--" + option, program.tour("--help").stdout)

    def test_version_is_one_line(self):
        result = program.run("--version")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stdout, r"^quietdial-settings \d+\.\d+\.\d+\n$")

    def test_without_a_display_one_sentence_says_so(self):
        for environment in ({}, {"DISPLAY": ":987"}):
            with self.subTest(environment=environment), tempfile.TemporaryDirectory() as root:
                result = program.run("--root", root, **environment)
                self.assertEqual(result.returncode, 1, result.stderr)
                self.assertEqual(result.stderr.count("\n"), 1, result.stderr)
                self.assertIn("no display", result.stderr)

    def test_a_picture_that_cannot_be_written_fails(self):
        with tempfile.TemporaryDirectory() as root:
            result = program.run("--root", root, "--screenshot", root + "/none/picture.png")
        self.assertEqual(result.returncode, 1)
        self.assertIn("cannot be written", result.stderr)

    def test_a_renderer_that_draws_nothing_fails(self):
        with tempfile.TemporaryDirectory() as root:
            picture = os.path.join(root, "picture.png")
            result = program.run("--root", root, "--renderer", "gpu", "--screenshot", picture,
                                 LIBGL_DRIVERS_PATH="/nowhere")
            self.assertEqual(result.returncode == 0, os.path.exists(picture), result.stderr)


if __name__ == "__main__":
    unittest.main()
