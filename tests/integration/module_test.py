"""What the bundle's module exports and needs: no more than what is meant for others."""

import os
import re
import subprocess
import unittest

MODULE = os.environ["QUIETDIAL_MODULE"]


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class Module(unittest.TestCase):
    def test_the_exports_are_the_named_ones_and_the_class_table(self):
        names = {line.split()[-1] for line in output("nm", "-D", "--defined-only", MODULE).splitlines()}
        self.assertEqual(
            names,
            {
                "applySettings", "preferencesDidChange", "preferencesListController", "navigationItem", "prefixes",
                "availableTweaks", "unseenTweaks", "quietDialPreferencesClasses",
            },
        )

    def test_it_needs_the_run_time_and_the_platform_only(self):
        needed = set(re.findall(r"\(NEEDED\).*\[(.*?)\]", output("readelf", "-d", MODULE)))
        self.assertLessEqual(
            needed - {"ld-linux-x86-64.so.2", "ld-linux-aarch64.so.1"},
            {"libquietdial-platform.so", "libstdc++.so.6", "libgcc_s.so.1", "libc.so.6", "libm.so.6"},
        )

    def test_nothing_of_ours_runs_when_it_is_loaded(self):
        # One entry is the compiler's own; a static object with a constructor would add another.
        size = re.search(r"INIT_ARRAYSZ\)\s+(\d+)", output("readelf", "-d", MODULE))
        self.assertEqual(size.group(1), "8")


if __name__ == "__main__":
    unittest.main()
