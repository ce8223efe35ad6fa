"""Runs a command that uses the real killall, which reaches every process of its names:

    isolated.py COMMAND [ARGUMENT …]    runs it, and ends as it did
    isolated.py --makes-namespaces      whether this machine makes process namespaces, as the status

The command runs in a process namespace of its own. Where the machine makes none (in a bare root folder, in
most containers) it runs without one: one such command at a time, and only where nothing runs that its
killall would end. Either way what it leaves behind is collected, and killed when it has ended."""

import contextlib
import ctypes
import fcntl
import os
import shutil
import signal
import subprocess
import sys

# The dialler's processes, which each change restarts.
DIALLER = ("MobilePhone", "InCallService")
# Set for what is isolated already.
INSIDE = "QUIETDIAL_TEST_ISOLATED"

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
prctl = ctypes.CDLL(None).prctl


def namespace():
    """The command that runs another one in a process namespace; empty where the machine makes none."""
    plain = ["unshare", "--pid", "--fork", "--kill-child", "--mount-proc"]
    # Who may not make one needs a namespace of users for it.
    for command in (plain, [*plain, "--map-root-user"]):
        if subprocess.run([*command, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0:
            return command
    return []


def processes():
    """Identifier, name and parent of each process, without those that have ended and only wait to be
    collected."""
    for number in filter(str.isdigit, os.listdir("/proc")):
        with contextlib.suppress(OSError), open(f"/proc/{number}/stat", encoding="utf-8", errors="replace") as file:
            name, rest = file.read().split("(", 1)[1].rsplit(")", 1)
            state, parent = rest.split()[:2]
            if state not in "ZX":
                yield int(number), name, int(parent)


def run_and_collect(command):
    """The status of the command, as a shell gives it."""
    own = os.getpid()
    # What loses its parent is left to this process.
    prctl(PR_SET_CHILD_SUBREAPER, 1)
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        if signal.getsignal(number) is not signal.SIG_IGN:
            signal.signal(number, lambda number, _: sys.exit(128 + number))

    def end_with_this_one():
        prctl(PR_SET_PDEATHSIG, signal.SIGKILL)
        if os.getppid() != own:
            os.kill(os.getpid(), signal.SIGKILL)

    try:
        started = subprocess.Popen(command, env=dict(os.environ, **{INSIDE: "1"}), preexec_fn=end_with_this_one)
        ended = status = None
        while ended != started.pid:
            ended, status = os.wait()
        started.returncode = os.waitstatus_to_exitcode(status)
        return started.returncode if started.returncode >= 0 else 128 - started.returncode
    finally:
        # Each that is killed may leave its own children to this process.
        with contextlib.suppress(ChildProcessError):
            while True:
                for process, _, parent in processes():
                    if parent == own:
                        os.kill(process, signal.SIGKILL)
                os.wait()


def main():
    command = sys.argv[1:]
    if command == ["--makes-namespaces"]:
        return 0 if namespace() else 1
    if command[0] == "--collect":
        return run_and_collect(command[1:])
    prefix = namespace()
    if prefix:
        os.execvp(prefix[0], [*prefix, sys.executable, "-B", __file__, "--collect", *command])
    # The turn is over when this process ends.
    fcntl.flock(os.open(shutil.which("killall"), os.O_RDONLY), fcntl.LOCK_EX)
    in_the_way = [f"{name} (process {process})" for process, name, _ in processes() if name in DIALLER]
    if in_the_way:
        print("This machine makes no process namespaces, so the killall of this test would end what already runs: "
              + ", ".join(in_the_way), file=sys.stderr)
        return 1
    return run_and_collect(command)


if __name__ == "__main__":
    sys.exit(main())
