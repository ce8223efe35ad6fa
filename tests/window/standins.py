"""The stand-ins for the dialler's processes."""

import os
import re

import lines

REPORT = re.compile(r"(MobilePhone|InCallService) \((\d+)\): prefix ([^,]*), .*")


class Dialler(lines.Program):
    """A program that keeps them alive."""

    def pids_with(self, prefix):
        """The process identifiers of both once each has read that prefix."""
        pids = {}
        while len(pids) < 2:
            report = self.next_match(REPORT)
            if report[3] == prefix:
                pids[report[1]] = int(report[2])
        return pids


def children_of(pid):
    """The states of its child processes by their identifiers."""
    states = {}
    for entry in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{entry}/stat", encoding="utf-8") as file:
                state, parent = file.read().rsplit(")", 1)[1].split()[:2]
        except OSError:  # it has gone
            continue
        if int(parent) == pid:
            states[int(entry)] = state
    return states


def family(pid):
    """The identifiers of the process and of all below it."""
    return {pid}.union(*(family(child) for child in children_of(pid)))


def name_of(pid):
    """The name of its program, cut at 15 characters, as the kernel has it."""
    try:
        with open(f"/proc/{pid}/comm", encoding="utf-8") as file:
            return file.read().strip()
    except OSError:
        return ""


def is_running(pid):
    try:
        with open(f"/proc/{pid}/stat", encoding="utf-8") as file:
            return file.read().rsplit(")", 1)[1].split()[0] != "Z"
    except OSError:
        return False


def handles(pid, number):
    """Whether the process handles that signal itself."""
    with open(f"/proc/{pid}/status", encoding="utf-8") as file:
        caught = next(line for line in file if line.startswith("SigCgt:"))
    return int(caught.split()[1], 16) >> (number - 1) & 1
