"""Tests of what tells whether the tests are thorough: run by `./run coverage` and `./run mutate`."""

import tempfile
import unittest

import mutants
import reviewed


def changes_of(source, path="platform/X.cpp"):
    """The sources that the mutants of one are."""
    return {mutant.apply(source) for mutant in mutants.mutants_of(path, source)}


class MutantsTest(unittest.TestCase):
    def test_turns_relations_and_moves_their_bounds(self):
        self.assertEqual(
            changes_of("bool A(int x, int y) { return x < y; }"),
            {
                "bool A(int x, int y) { return x <= y; }",
                "bool A(int x, int y) { return x >= y; }",
                "bool A(int x, int y) { return {}; }",
            },
        )

    def test_tells_operators_from_brackets_and_pointers(self):
        self.assertEqual(changes_of("std::vector<int>* Make(const Node& a, Node&& b);"), set())

    def test_changes_numbers_within_their_notation(self):
        self.assertEqual(
            changes_of("int x = 0x10U;"), {"int x = 0x11U;", "int x = 0xfU;", "int x = 0x0U;"}
        )
        self.assertEqual(changes_of("int x = 0;"), {"int x = 1;"})

    def test_changes_texts_and_characters(self):
        self.assertEqual(changes_of('auto t = "abc";'), {'auto t = "abx";'})
        self.assertEqual(changes_of(r'auto t = "\n";'), {r'auto t = "\nx";'})
        self.assertEqual(changes_of("char c = 'a';"), {"char c = 'b';"})

    def test_leaves_out_statements_but_no_declarations(self):
        changed = changes_of("void A() { const Tree t = Make(); t.Go(a, b); n += t; Tree* p = q; }")
        self.assertIn("void A() { const Tree t = Make(); ; n += t; Tree* p = q; }", changed)
        self.assertIn("void A() { const Tree t = Make(); t.Go(a, b); ; Tree* p = q; }", changed)
        self.assertEqual(len(changed), 3)  # and "n -= t"

    def test_returns_something_else(self):
        self.assertEqual(changes_of("T A() { return Make(); }"), {"T A() { return {}; }"})
        self.assertEqual(changes_of("T A() { return {}; }"), set())
        self.assertEqual(changes_of("bool A() { return false; }"), {"bool A() { return true; }"})

    def test_turns_conditions_once(self):
        self.assertEqual(
            changes_of("void A() { if (Is(x)) { Go(); } }"),
            {"void A() { if (!(Is(x))) { Go(); } }", "void A() { if (Is(x)) { ; } }"},
        )
        self.assertEqual(
            changes_of("void A() { while (!Is()) { } }"), {"void A() { while (Is()) { } }"}
        )

    def test_leaves_comments_directives_and_static_assertions(self):
        self.assertEqual(
            changes_of('#include "a.h"\n// x < 1\n/* 2 */\nstatic_assert(x < 3, "no");\n'), set()
        )


class ReviewedTest(unittest.TestCase):
    def read(self, text):
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
            file.write(text)
            file.flush()
            return reviewed.ReviewedList(file.name)

    def test_finds_by_file_line_and_change(self):
        known = self.read("# a comment\n\na.cpp\n    f(1);\n    1 -> *\n    It is\n    so.\n")
        self.assertEqual(known.entries[0].reason, "It is so.")
        self.assertEqual(len(known.unused()), 1)
        self.assertIsNone(known.find("b.cpp", "f(1);", "1 -> 2"))
        self.assertIsNone(known.find("a.cpp", "f(2);", "1 -> 2"))
        self.assertIsNone(known.find("a.cpp", "f(1);", "2 -> 1"))
        self.assertIsNotNone(known.find("a.cpp", "f(1);", "1 -> 2"))
        self.assertEqual(known.unused(), [])

    def test_takes_no_entry_without_a_reason(self):
        with self.assertRaises(reviewed.BadList):
            self.read("a.cpp\n    f(1);\n    1 -> 2\n")

    def test_takes_brackets_as_they_are(self):
        known = self.read("a.cpp\n    a[1]?\n    [1] -> [2]\n    Why.\n")
        self.assertIsNotNone(known.find("a.cpp", "a[1]?", "[1] -> [2]"))

    def test_names_lines_that_are_there_twice_with_the_one_before(self):
        self.assertEqual(reviewed.name_lines("a\n  b\nc\nb"), ["a", "a / b", "c", "c / b"])


if __name__ == "__main__":
    unittest.main()
