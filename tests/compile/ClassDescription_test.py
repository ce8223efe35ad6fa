"""A class whose description is not its own does not compile, and the compiler says what is wrong."""

import os
import subprocess
import unittest

COMPILER = os.environ["QUIETDIAL_COMPILER"]
SOURCES = os.environ["QUIETDIAL_SOURCES"]

PROLOGUE = """
#include "platform/foundation/method.h"
class Row : public Subclass<Row, NSObject> {
 public:
  static const ClassOf<Row> classObject;
};
class Cell : public Subclass<Cell, Row> {
 public:
  static const ClassOf<Cell> classObject;
  void act() {}
};
"""
TABLE = """
constexpr auto kMethods = methods<Cell>(method<&Cell::act>("act"));
constexpr ClassOf<Cell> Cell::classObject{"Cell", kMethods};
"""


class Compiled(unittest.TestCase):
    def errors(self, text):
        command = [COMPILER, "-std=c++20", "-fsyntax-only", f"-I{SOURCES}", "-x", "c++", "-"]
        run = subprocess.run(command, input=PROLOGUE + text, capture_output=True, text=True)
        self.assertEqual(run.returncode != 0, "error:" in run.stderr, run.stderr)
        return [line for line in run.stderr.splitlines() if "error:" in line]

    def assert_refused(self, text, why):
        errors = self.errors(text)
        self.assertTrue(any(why in line for line in errors), f"{why!r} is not said in {errors}")

    def test_a_class_with_a_description_of_its_own(self):
        self.assertEqual(self.errors(TABLE + "auto made() { return alloc<Cell>(); }"), [])

    def test_a_method_of_a_superclass_may_stand_in_the_table(self):
        self.assertEqual(
            self.errors(
                """
                class Kind : public Subclass<Kind, Cell> {
                 public:
                  static const ClassOf<Kind> classObject;
                };
                constexpr auto kMethods = methods<Kind>(method<&Cell::act>("act"));
                constexpr ClassOf<Kind> Kind::classObject{"Kind", kMethods};
                """
            ),
            [],
        )

    def test_a_class_that_goes_by_its_superclass(self):
        self.assert_refused(
            "class Forgetful : public Cell {}; auto made() { return alloc<Forgetful>(); }",
            "an object is made of a class with a description of its own",
        )

    def test_a_class_that_is_described_but_does_not_say_so(self):
        self.assert_refused(
            """
            class Forgetful : public Cell {
             public:
              static const ClassOf<Forgetful> classObject;
            };
            constexpr ClassOf<Forgetful> Forgetful::classObject{"Forgetful"};
            """,
            "T derives from Subclass<T, Base>, with a classObject of its own",
        )

    def test_a_class_that_forgets_its_description(self):
        self.assert_refused(
            """
            class Forgetful : public Subclass<Forgetful, Cell> {};
            Forgetful one;
            """,
            "a class has a description of its own",
        )

    def test_a_class_that_borrows_the_place_of_another(self):
        self.assert_refused(
            """
            class Borrower : public Subclass<Cell, Row> {
             public:
              static const ClassOf<Borrower> classObject;
            };
            constexpr ClassOf<Borrower> Borrower::classObject{"Borrower"};
            """,
            "T derives from Subclass<T, Base>, with a classObject of its own",
        )

    def test_a_superclass_without_a_description(self):
        self.assert_refused(
            """
            class Undescribed : public Cell {};
            class Kind : public Subclass<Kind, Undescribed> {
             public:
              static const ClassOf<Kind> classObject;
            };
            """,
            "a superclass has a description of its own",
        )

    def test_a_description_of_another_class(self):
        self.assert_refused(
            """
            class Kind : public Subclass<Kind, Cell> {
             public:
              static const ClassOf<Cell> classObject;
            };
            auto made() { return alloc<Kind>(); }
            """,
            "an object is made of a class with a description of its own",
        )

    def test_a_method_of_another_class(self):
        self.assert_refused(
            'constexpr auto kMethods = methods<Row>(method<&Cell::act>("act"));',
            "each method is one of T's own",
        )

    def test_the_methods_of_another_class(self):
        self.assert_refused(
            TABLE
            + """
            class Kind : public Subclass<Kind, Cell> {
             public:
              static const ClassOf<Kind> classObject;
            };
            constexpr ClassOf<Kind> Kind::classObject{"Kind", kMethods};
            """,
            "no matching",
        )


if __name__ == "__main__":
    unittest.main()
