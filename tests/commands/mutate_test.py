"""Changes of the sources: each kind is found and undone, and what a test notices is told from what none does."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCES = pathlib.Path(os.environ["QUIETDIAL_SOURCES"])
sys.dont_write_bytecode = True
sys.path.insert(0, str(SOURCES / "scripts"))
from mutation.draw import changed_lines, drawn  # noqa: E402
from mutation.finder import find_changes  # noqa: E402

LIMIT = """\
#include "core/limit.h"
const char* said = "";
bool isOn = true;
namespace {
void note(const char* text) { said = text; }
}
int limited(int value) {
  if (value > 9 && isOn) {
    note("much");
    return 9;
  }
  return value;
}
"""
TEST = """\
#include "core/limit.h"
int main() { return limited(20) == 9 && limited(3) == 3 ? 0 : 1; }
"""
LISTS = """\
cmake_minimum_required(VERSION 3.25)
project(Small LANGUAGES CXX)
enable_testing()
add_library(limit SHARED core/limit.cc)
set_target_properties(limit PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib/small)
target_include_directories(limit PUBLIC ${PROJECT_SOURCE_DIR})
add_executable(limit_test tests/unit/core/limit_test.cc)
target_link_libraries(limit_test limit)
set_target_properties(limit_test PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
add_test(NAME limit_test.all COMMAND limit_test)
"""
PRESETS = {"version": 3, "configurePresets": [
    {"name": "debug", "generator": "Ninja", "binaryDir": "${sourceDir}/build-debug",
     "cacheVariables": {"CMAKE_EXPORT_COMPILE_COMMANDS": "ON"}}]}


def changes_of(source):
    return [(change.kind, change.before, change.after) for change in find_changes("core/a.cc", source)]


class Finding(unittest.TestCase):
    def assert_found(self, source, *expected):
        self.assertEqual(changes_of(source), list(expected))

    def test_a_comparison(self):
        self.assert_found("x = a < b;\n", ("comparison", "x = a < b;", "x = a <= b;"))
        self.assert_found("x = a == b;\n", ("comparison", "x = a == b;", "x = a != b;"))
        self.assert_found("std::vector<int> a;\n")

    def test_a_number(self):
        self.assert_found("x = 0;\n", ("number", "x = 0;", "x = 1;"))
        self.assert_found("x = 1'000u;\n", ("number", "x = 1'000u;", "x = 1001u;"),
                          ("number", "x = 1'000u;", "x = 999u;"))
        self.assert_found("x = 0xFF;\n", ("number", "x = 0xFF;", "x = 0x100;"), ("number", "x = 0xFF;", "x = 0xfe;"))
        self.assert_found("x = 0700;\n", ("number", "x = 0700;", "x = 0677;"), ("number", "x = 0700;", "x = 0701;"))
        self.assert_found("x = 0.5F;\n", ("number", "x = 0.5F;", "x = 1.5F;"))

    def test_a_condition(self):
        self.assert_found("if (a) {\n}\n", ("condition", "if (a) {", "if (!(a)) {"))
        self.assert_found("if (!a) {\n}\n", ("condition", "if (!a) {", "if (a) {"))
        self.assert_found("x = a && b;\n", ("condition", "x = a && b;", "x = a || b;"))
        self.assert_found("if (auto a = f(); a) {\n}\n", ("condition", "if (auto a = f(); a) {",
                                                          "if (auto a = f(); !(a)) {"))
        self.assert_found("if (auto a = f()) {\n}\nvoid g(T&& t);\n")

    def test_a_call_left_out(self):
        self.assert_found("{\n  a->b(c(d));\n}\n", ("call", "a->b(c(d));", ";"))
        self.assert_found("{\n  A b(c);\n  std::vector<int> d(e);\n  f = g();\n  delete h();\n}\n")

    def test_a_returned_value(self):
        self.assert_found("return true;\n", ("return", "return true;", "return false;"))
        self.assert_found("return [] { f(); };\n", ("return", "return [] { f(); };", "return {};"),
                          ("call", "return [] { f(); };", "return [] { ; };"))
        self.assert_found("return;\nreturn {};\nreturn nullptr;\n")

    def test_a_text(self):
        self.assert_found('x = "a\\"b";\n', ("text", 'x = "a\\"b";', 'x = "a\\"b~";'))
        self.assert_found("x = '\\'';\n", ("text", "x = '\\'';", "x = '~';"))

    def test_what_is_no_code(self):
        self.assert_found('#include "a.h"\n#define A \\\n  1\n// 1 == 2\n/* "1" */\nstatic_assert(a == 1, "b");\n'
                          '[[deprecated("1")]]\nextern "C" {\n}\n')

    def test_the_rest_of_the_text_stays_and_the_key_outlives_lines_above(self):
        above = "int more;\n" + LIMIT
        found = find_changes("core/limit.cc", LIMIT)
        self.assertEqual({change.kind for change in found},
                         {"comparison", "number", "condition", "call", "return", "text"})
        self.assertEqual(len({change.key for change in found}), len(found))
        for change, moved in zip(found, find_changes("core/limit.cc", above)):
            self.assertEqual((moved.key, moved.line), (change.key, change.line + 1))
            text = change.applied(LIMIT)
            self.assertEqual(text[:change.start] + LIMIT[change.start:change.end]
                             + text[change.start + len(change.replacement):], LIMIT)
            self.assertNotEqual(text, LIMIT)


class Drawing(unittest.TestCase):
    def test_the_same_seed_draws_the_same_whatever_comes_in_between(self):
        found = find_changes("core/limit.cc", LIMIT)
        order = [change.key for change in drawn(found, "1")]
        self.assertEqual([change.key for change in drawn(found[::-1], "1")], order)
        self.assertNotEqual([change.key for change in drawn(found, "2")], order)

    def test_changed_lines(self):
        self.assertEqual(changed_lines("--- a/x.cc\n+++ b/x.cc\n@@ -3 +3,2 @@ f\n+a\n+b\n@@ -9,2 +10,0 @@\n-c\n-d\n"
                                       "--- a/y.cc\n+++ /dev/null\n@@ -1 +0,0 @@\n"), {"x.cc": {3, 4}})


class Making(unittest.TestCase):
    """A small repository with this script, one source and its test."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name) / "small"
        ignored = shutil.ignore_patterns("__pycache__", "equal.json")
        shutil.copytree(SOURCES / "scripts" / "mutation", self.folder / "scripts" / "mutation", ignore=ignored)
        for name in ("scripts/mutate", "tests/support/isolated.py"):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCES / name, self.folder / name)
        for name, text in {
            "core/limit.cc": LIMIT, "tests/unit/core/limit_test.cc": TEST, "CMakeLists.txt": LISTS,
            "core/limit.h": "extern const char* said;\nextern bool isOn;\nint limited(int value);\n",
            "CMakePresets.json": json.dumps(PRESETS), ".gitignore": "/build*/\n__pycache__/\n",
        }.items():
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / name).write_text(text)
        self.run_git("init", "-q")
        self.commit()

    def run_git(self, *words):
        subprocess.run(["git", "-c", "user.name=a", "-c", "user.email=a@b.example", *words], cwd=self.folder,
                       check=True, capture_output=True)

    def commit(self):
        self.run_git("add", "-A")
        self.run_git("commit", "-q", "-m", "a")

    def mutate(self, *words):
        return subprocess.run([sys.executable, "-B", "scripts/mutate", *words], cwd=self.folder, text=True,
                              capture_output=True, check=False, timeout=200)

    def results(self):
        lines = (self.folder / "build-mutate" / "results.jsonl").read_text().splitlines()
        return {(record["before"], record["after"]): record["result"] for record in map(json.loads, lines)}

    def test_a_noticed_change_is_told_from_one_that_is_not(self):
        done = self.mutate("--file", "core/limit.cc", "--keep")
        results = self.results()
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        said, by_value = 'note("much");', "if (value > 9 && isOn) {"
        self.assertEqual(results[said, ";"], "unnoticed")
        self.assertEqual(results[said, 'note("much~");'], "unnoticed")
        self.assertEqual(results["return 9;", "return {};"], "noticed")
        self.assertEqual(results[by_value, "if (value > 9 || isOn) {"], "noticed")
        self.assertEqual(results[by_value, "if (value > 10 && isOn) {"], "unnoticed")
        self.assertIn(f"No test noticed core/limit.cc:9: call: {said}  ->  ;\n", done.stdout)
        self.assertEqual((self.folder / "build-mutate/clone/core/limit.cc").read_text(), LIMIT)
        self.assertEqual((self.folder / "core/limit.cc").read_text(), LIMIT)

        # What is known is not made again; what is judged is no fault, and a new test is seen to notice.
        judged = [{"file": "core/limit.cc", "before": before, "after": after, "reason": "Nobody asks."}
                  for (before, after), result in results.items() if result == "unnoticed" and before == said]
        (self.folder / "scripts/mutation/equal.json").write_text(json.dumps(judged))
        test = self.folder / "tests/unit/core/limit_test.cc"
        test.write_text(TEST.replace("limited(3) == 3", "limited(3) == 3 && limited(10) == 9 && limited(9) == 9"))
        self.commit()
        again = self.mutate("--unnoticed", "--keep")
        self.assertNotIn('core/limit.cc:10: return', again.stdout)
        self.assertNotIn(said, again.stdout)
        self.assertEqual(self.results()[by_value, "if (value > 10 && isOn) {"], "noticed")
        table = self.mutate("--file", "core/limit.cc")
        self.assertNotIn(" s)", table.stdout)
        self.assertRegex(table.stdout, r"(?m)^core +\d+ +\d+ +0 +2 +\d+ +1$")
        self.assertFalse((self.folder / "build-mutate/clone").exists())

    def test_a_change_that_does_not_compile_counts_as_none(self):
        source = self.folder / "core/limit.cc"
        source.write_text("#include \"core/limit.h\"\nint& reference() { static int a; return a; }\n" + LIMIT)
        self.run_git("add", "-A")
        self.run_git("commit", "-q", "-m", "a")
        done = self.mutate("--since", "HEAD~", "--keep")
        self.assertEqual((done.returncode, list(self.results().values())), (0, ["does not compile"]),
                         done.stdout + done.stderr)
        self.assertRegex(done.stdout, r"(?m)^all +0 ")


if __name__ == "__main__":
    unittest.main()
