"""What the compiler and the linker put into the optimised programs against faults of ours, read off the programs."""

import os
import re
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
import elf  # noqa: E402

BUILD = os.environ["QUIETDIAL_BUILD"]
PAGE = 4096
# The C library's own, which are built without.
START_UP = {"_start", "_init", "_fini"}
# How a function begins that may be called by its address, and the options that only one kind of machine has.
MACHINES = {
    "X86-64": (r"endbr64", {"-fcf-protection=full"}),
    "AArch64": (r"bti\b|paciasp", {"-mbranch-protection=standard"}),
}


def machine(path):
    name = re.search(r"Machine:\s+(.*)", elf.output("readelf", "-hW", path)).group(1)
    return next((known for known in MACHINES if known in name), None)


def imports(path):
    return {line.split()[-1].split("@")[0] for line in elf.output("nm", "-D", "--undefined-only", path).splitlines()}


def instructions(path):
    """By address."""
    lines = re.findall(r"^\s*([0-9a-f]+):\t(.*)$", elf.output("objdump", "-d", "--no-show-raw-insn", path), re.MULTILINE)
    return {int(address, 16): instruction.strip() for address, instruction in lines}


def functions(path):
    """The names of the functions that other files of the program may call, by address."""
    found = {}
    for line in elf.output("readelf", "-sW", path).splitlines():
        words = line.split()
        if len(words) == 8 and words[3] == "FUNC" and words[4] in ("GLOBAL", "WEAK") and words[6] != "UND":
            found[int(words[1], 16)] = words[7].split("@")[0]
    return found


class Hardening(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.programs = elf.install(BUILD, folder.name)

    def each(self, check):
        for path in self.programs:
            with self.subTest(os.path.basename(path)):
                check(path)

    def test_programs_library_and_module_are_read(self):
        names = {os.path.basename(path) for path in self.programs}
        self.assertLessEqual({"quietdial", "libquietdial-platform.so", "quietDialPreferences"}, names)

    def test_the_loader_binds_all_at_once_and_then_forbids_to_change_it(self):
        def check(path):
            self.assertRegex(elf.dynamic_section(path), r"\(FLAGS_1\)\s+Flags:.*\bNOW\b")
            self.assertIn("GNU_RELRO", elf.output("readelf", "-lW", path))

        self.each(check)

    def test_programs_lie_anywhere_and_nothing_can_be_both_written_and_run(self):
        def check(path):
            headers = elf.output("readelf", "-lW", path)
            self.assertIn("Elf file type is DYN", headers)
            flags = re.findall(r"^  (\S+) +(?:0x\w+ +){5}([RWE ]{3})", headers, re.MULTILINE)
            self.assertIn("GNU_STACK", dict(flags))
            self.assertEqual([kind for kind, what in flags if "W" in what and "E" in what], [])

        self.each(check)

    def test_stacks_and_the_librarys_containers_are_checked(self):
        def check(path):
            self.assertIn("__stack_chk_fail", imports(path))
            self.assertTrue([name for name in imports(path) if "__glibcxx_assert_fail" in name])

        self.each(check)

    def test_calls_of_the_c_library_are_checked_where_the_size_is_known_only_at_run_time(self):
        def check(path):
            if os.path.basename(path) in ("quietdial", "quietdial-settings"):
                # Both read files into memory that they have just asked for.
                self.assertIn("__read_chk", imports(path))

        self.each(check)

    def test_functions_begin_with_what_marks_them_as_such(self):
        def check(path):
            if machine(path):
                beginning, _ = MACHINES[machine(path)]
                code = instructions(path)
                others = [name for address, name in functions(path).items()
                          if name not in START_UP and not re.match(beginning, code.get(address, ""))]
                self.assertEqual(others, [])

        self.each(check)

    def test_no_stack_grows_past_a_page_untouched(self):
        def check(path):
            steps = re.findall(r"sub +\$0x([0-9a-f]{1,8}),%rsp$", "\n".join(instructions(path).values()), re.MULTILINE)
            if machine(path) == "X86-64":
                self.assertTrue(steps)
            self.assertEqual([step for step in steps if int(step, 16) > PAGE], [])

        self.each(check)

    def test_every_file_is_compiled_so(self):
        if os.environ["QUIETDIAL_COMPILER"] != "GNU":
            self.skipTest("this compiler does not note its options")

        def check(path):
            options = {"-fstack-protector-strong", "-fstack-clash-protection"}
            if machine(path):
                options |= MACHINES[machine(path)][1]
            units = re.findall(r"DW_AT_producer.*: (GNU C\+\+.*)$",
                               elf.output("readelf", "--debug-dump=info", "--dwarf-depth=1", path), re.MULTILINE)
            self.assertTrue(units)
            for unit in units:
                self.assertLessEqual(options, set(unit.split()))

        self.each(check)


if __name__ == "__main__":
    unittest.main()
