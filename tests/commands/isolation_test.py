"""What uses the real killall reaches nothing else, also where no process namespaces are made."""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import isolated

PATIENCE = 60
SHELL = ["sh", "-c"]


def wait_for(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.02)


def names():
    return [name for _, name, _ in isolated.processes()]


class Isolation(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        # Nothing makes namespaces here, and turns are taken apart from those of other tests.
        self.program("unshare", "#!/bin/sh\nexit 1\n")
        self.program("killall", '#!/bin/sh\nexec /usr/bin/killall "$@"\n')
        self.without_namespaces = dict(os.environ, PATH=self.folder + ":" + os.environ["PATH"])

    def program(self, name, text):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        os.chmod(path, 0o755)

    def start(self, *command, **options):
        process = subprocess.Popen([sys.executable, "-B", isolated.__file__, *command], env=self.without_namespaces,
                                   text=True, **options)
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        process.kill()
        process.wait()
        for stream in filter(None, (process.stdin, process.stdout, process.stderr)):
            stream.close()

    def start_named(self, name):
        """A process of that name that does nothing until it is killed."""
        path = os.path.join(self.folder, name)
        shutil.copy(shutil.which("sleep"), path)
        process = subprocess.Popen([path, "1000"])
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        wait_for(lambda: name in names(), name + " to run")
        return process

    def test_a_command_ends_as_it_would_alone(self):
        self.assertEqual(self.start("sh", "-c", "exit 7").wait(PATIENCE), 7)
        self.assertEqual(self.start("sh", "-c", "kill -9 $$").wait(PATIENCE), 128 + signal.SIGKILL)

    def test_it_is_refused_while_a_process_runs_that_it_would_kill(self):
        for name in isolated.DIALLER:
            with self.subTest(name):
                process = self.start_named(name)
                refused = self.start("touch", os.path.join(self.folder, "begun"), stderr=subprocess.PIPE)
                _, said = refused.communicate(timeout=PATIENCE)
                self.assertEqual(refused.returncode, 1)
                self.assertIn(f"{name} (process {process.pid})", said)
                self.assertFalse(os.path.exists(os.path.join(self.folder, "begun")))
                self.assertIsNone(process.poll())
                process.kill()
                # It has ended, and nobody has collected it: nothing there to kill.
                os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
                self.assertEqual(self.start("true").wait(PATIENCE), 0)

    def test_a_command_waits_for_its_turn(self):
        first = self.start(*SHELL, "echo begun; read go", stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.assertEqual(first.stdout.readline(), "begun\n")
        second = self.start("touch", os.path.join(self.folder, "second"))

        def waits():
            with open("/proc/locks", encoding="ascii") as file:
                return any("->" in line and f" {second.pid} " in line for line in file)
        wait_for(waits, "the second to wait")
        self.assertFalse(os.path.exists(os.path.join(self.folder, "second")))
        first.communicate("go\n", timeout=PATIENCE)
        self.assertEqual(second.wait(PATIENCE), 0)
        self.assertTrue(os.path.exists(os.path.join(self.folder, "second")))

    def left_behind(self):
        """A program that starts another one out of its reach; both have names of their own."""
        self.start_named("qd-left-behind").kill()
        return f"setsid {self.folder}/qd-left-behind 1000 & echo begun; "

    def test_what_a_command_leaves_behind_ends_with_it(self):
        ended = self.start(*SHELL, f"({self.left_behind()})", stdout=subprocess.DEVNULL)
        self.assertEqual(ended.wait(PATIENCE), 0)
        self.assertNotIn("qd-left-behind", names())

    def test_a_command_that_is_asked_to_end_leaves_nothing(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number):
                asked = self.start(*SHELL, f"({self.left_behind()}); read go", stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE)
                self.assertEqual(asked.stdout.readline(), "begun\n")
                wait_for(lambda: "qd-left-behind" in names(), "what is left behind to run")
                asked.send_signal(number)
                self.assertEqual(asked.wait(PATIENCE), 128 + number)
                self.assertNotIn("qd-left-behind", names())

    def test_in_a_namespace_nothing_outside_is_seen(self):
        if not isolated.namespace():
            self.skipTest("this machine makes no process namespaces")
        outside = self.start_named(isolated.DIALLER[0])
        seen = subprocess.run([sys.executable, "-B", isolated.__file__, "killall", "-9", isolated.DIALLER[0]],
                              stderr=subprocess.PIPE, text=True, timeout=PATIENCE, check=False)
        self.assertIn("no process found", seen.stderr)
        self.assertIsNone(outside.poll())


if __name__ == "__main__":
    if not os.environ.get(isolated.INSIDE):
        # The processes that it starts would be killed by others, and be in their way.
        os.execv(sys.executable, [sys.executable, "-B", isolated.__file__, sys.executable, "-B", *sys.argv])
    unittest.main()
