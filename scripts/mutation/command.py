"""The command line: what is drawn, in which order it is made, and what is said of it."""

import argparse
import os
import pathlib
import signal
import sys

from . import judged
from .clone import Clone, Refused
from .draw import GROUP_OF, GROUPS, changed_lines, drawn, folder_of
from .finder import find_changes
from .results import PENDING, RAN_OUT, UNBUILT, UNNOTICED, Results

SOURCES = pathlib.Path(__file__).resolve().parents[2]


def arguments(words):
    parser = argparse.ArgumentParser(
        prog="scripts/mutate",
        description="Makes one change of the sources at a time, in a clone, and names those that no test notices.",
        epilog="Groups: " + ", ".join(f"{group} ({' '.join(folders)})" for group, folders in GROUPS.items())
        + ". A change that does not compile counts as none, and another is drawn for it.")
    parser.add_argument("count", nargs="*", metavar="GROUP=COUNT", help="how many changes of a group (without any: of "
                        "what changed, every one)")
    parser.add_argument("--seed", default="1", help="draws others (default: 1)")
    parser.add_argument("--since", metavar="COMMIT", help="only in lines that were changed since then")
    parser.add_argument("--file", action="append", metavar="PATH", help="only in this file (more than once)")
    parser.add_argument("--unnoticed", action="store_true", help="make again those that no test noticed so far")
    parser.add_argument("--list", action="store_true", help="only tell what would be made")
    parser.add_argument("--widest", type=int, default=12, metavar="N",
                        help="leave out headers that more than N objects are built from (default: 12)")
    parser.add_argument("--folder", type=pathlib.Path, default=SOURCES / "build-mutate",
                        help="where the clone and the results are (default: build-mutate)")
    parser.add_argument("--keep", action="store_true", help="keep the clone at the end, for the next run")
    parser.add_argument("--measure", action="store_true",
                        help="run every test once without a change, also where that was done before")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="how many compilers and tests at once")
    options = parser.parse_args(words)
    options.wanted = {}
    for word in options.count:
        group, _, count = word.partition("=")
        if group not in GROUPS or not count.isdigit():
            parser.error(f"{word}: GROUP=COUNT, with one of {' '.join(GROUPS)}")
        options.wanted[group] = int(count)
    if not options.wanted and not (options.since or options.file or options.unnoticed):
        parser.error("say how many of which group, or --since, --file or --unnoticed")
    return options


def candidates(clone, options, results):
    """Every change that may be drawn, by group, in the order in which they are."""
    lines = changed_lines(clone.difference(options.since)) if options.since else None
    users = clone.users()
    found = []
    for file in clone.files(GROUP_OF):
        is_wide = file.endswith(".h") and users.get(file, 0) > options.widest
        if is_wide or (options.file and file not in options.file):
            continue
        for change in find_changes(file, clone.source(file)):
            if lines is not None and change.line not in lines.get(file, ()):
                continue
            if options.unnoticed and results.result(change) not in (UNNOTICED, PENDING, RAN_OUT):
                continue
            found.append(change)
    ordered = {group: [] for group in GROUPS}
    for change in drawn(found, options.seed):
        ordered[GROUP_OF[folder_of(change.file)]].append(change)
    return ordered


def plan(ordered, wanted, results):
    """Yields the changes to make, group after group, of each until it has enough that compile."""
    for group, changes in ordered.items():
        left = wanted.get(group, 0) if wanted else len(changes)
        for change in changes:
            if left == 0:
                break
            yield change
            left -= results.result(change) != UNBUILT


def say(text):
    print(text, flush=True)


def make(clone, ordered, options, results, reasons):
    """Makes what is not known yet, with the quick tests; then, with the slow ones, what those did not notice."""
    made = []
    for change in plan(ordered, options.wanted, results):
        made.append(change)
        if change.key not in reasons and (options.unnoticed or not results.result(change)):
            tell(change, clone.ask_quick, results)
    for change in made:
        if change.key not in reasons and results.result(change) == PENDING:
            tell(change, clone.ask_slow, results)
    return made


def tell(change, ask, results):
    say(change.described())
    outcome = ask(change)
    results.add(change, outcome)
    say(f"  {outcome.result}{outcome.by and ': ' + outcome.by} ({outcome.seconds:.0f} s)")


def run(options):
    clone = Clone(SOURCES, options.folder / "clone", options.jobs)
    results = Results(options.folder / "results.jsonl")
    reasons = judged.reasons()
    say(f"Cloning {SOURCES} into {options.folder / 'clone'}, as committed; nothing else is changed")
    commit = clone.check_out()
    say(f"Building {commit} (debug, without the window); at the first time running every test once without a change")
    clone.build()
    ordered = candidates(clone, options, results)
    wanted = options.wanted
    say("To draw from: " + ", ".join(f"{len(changes)} of {group}" for group, changes in ordered.items()))
    if options.list:
        for change in plan(ordered, wanted, results):
            say(change.described())
        return 0
    for name in clone.measure(options.measure):
        say(f"  {name} fails without a change, and is left out")
    made = make(clone, ordered, options, results, reasons)
    say("")
    say(results.table(made, reasons))
    unnoticed = [change for change in made if results.standing(change, reasons) == UNNOTICED]
    for change in unnoticed:
        say(f"No test noticed {change.described()}")
    if not options.keep:
        clone.remove()
        say(f"Removed the clone; the results stay in {options.folder / 'results.jsonl'}")
    return 1 if unnoticed else 0


def main():
    options = arguments(sys.argv[1:])
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    options.folder.mkdir(parents=True, exist_ok=True)
    try:
        return run(options)
    except Refused as refusal:
        print(f"scripts/mutate: {refusal}", file=sys.stderr)
        return 2
    except KeyboardInterrupt:
        print("\nInterrupted; the same command goes on from here.", file=sys.stderr)
        return 130
