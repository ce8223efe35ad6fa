"""The benchmarks compile and link in a tree without the tests. The libraries are those of the tree that this test
belongs to, built alike, so that only the benchmarks' own sources are compiled."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["QUIETDIAL_BUILD"])
# What has to be the same for objects of the one tree to go into the other.
SHARED = ("CMAKE_BUILD_TYPE", "CMAKE_CXX_COMPILER", "CMAKE_CXX_FLAGS", "CMAKE_UNITY_BUILD", "QD_WINDOW")
# What brings the libraries without which a benchmark is left out.
PACKAGES = {
    "benchmark::benchmark": "libbenchmark-dev",
    "GIF::GIF": "libgif-dev",
    "GTest::gmock": "libgmock-dev",
    "PkgConfig::DCONF": "libdconf-dev",
    "PkgConfig::PLIST": "libplist-dev",
}


def run(*command, **options):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}:\n{result.stdout[-4000:]}")
    return result.stdout


def cached():
    """What the tree of this test was configured with."""
    lines = (BUILD / "CMakeCache.txt").read_text().splitlines()
    return dict(re.findall(r"^(\w+):\w+=(.*)$", "\n".join(lines), re.MULTILINE))


def installed(package):
    result = subprocess.run(["dpkg-query", "-W", "-f=${db:Status-Status}", package], stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, text=True, check=False)
    return result.stdout == "installed"


class BenchmarkBuild(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.tree = pathlib.Path(folder.name)
        values = cached()
        shared = [f"-D{name}={values[name]}" for name in SHARED if name in values]
        said = run("cmake", "-S", SOURCES, "-B", cls.tree, "-G", "Ninja", "-DQD_BENCH=ON", "-DQD_TESTS=OFF", *shared)
        cls.left_out = {name: library
                        for library, name in re.findall(r"-- (\S+) is not installed: (\w+) is not built", said)}
        rules = cls.ninja("-t", "targets", "all")
        cls.programs = dict(re.findall(r"^(bench/(\w+)): CXX_EXECUTABLE_LINKER\S*$", rules, re.MULTILINE))

    @classmethod
    def ninja(cls, *arguments):
        return run("ninja", "-C", cls.tree, "--quiet", *arguments)

    def inputs(self, program):
        """The files that the program is linked from, of the tree's own."""
        listed = self.ninja("-t", "query", program).split("outputs:")[0]
        files = re.findall(r"^    (?:\| )?(\S+)$", listed, re.MULTILINE)
        return [file for file in files if not os.path.isabs(file)]

    def test_every_program_is_built_or_lacks_a_library(self):
        wanted = {path.stem for path in (SOURCES / "bench").rglob("*.cc") if "int main(" in path.read_text()
                  or "BENCHMARK_MAIN" in path.read_text()}
        if cached()["QD_WINDOW"] == "OFF":
            wanted.remove("bare_window")
        self.assertEqual({*self.programs.values(), *self.left_out}, wanted)
        for name, library in self.left_out.items():
            self.assertFalse(installed(PACKAGES[library]), f"{name} is left out, though {library} is installed")

    def test_each_links(self):
        inputs = {program: self.inputs(program) for program in self.programs}
        own = {file for files in inputs.values() for file in files if file.startswith("bench/")}
        for file in {file for files in inputs.values() for file in files} - own:
            (self.tree / file).parent.mkdir(parents=True, exist_ok=True)
            (self.tree / file).symlink_to(BUILD / file)
        archives = {file for file in own if file.endswith(".a")}
        compiled = own - archives
        for archive in archives:
            compiled.update(self.inputs(archive))
        self.ninja(*sorted(compiled))
        for output in [*sorted(archives), *self.programs]:
            with self.subTest(output):
                run("sh", "-c", self.ninja("-t", "commands", "-s", output), cwd=self.tree)
                self.assertTrue((self.tree / output).is_file())


if __name__ == "__main__":
    unittest.main()
