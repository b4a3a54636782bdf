#!/usr/bin/env python3
"""What ./dev mutants plants, and what it leaves alone."""
import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
import mutants
from mutant_planting import mutants_of


def body(lines: str) -> str:
    return "int F(int a, int b)\n{\n" + lines + "\n}\n"


def planted(source: str, **options: bool) -> list[tuple[str, str]]:
    """Rule and line, as it is with the fault."""
    return [(mutant.rule, mutant.then_line) for mutant in mutants_of("src/a/a.cpp", source, **options)]


def of_rule(rule: str, source: str) -> list[str]:
    return [line for name, line in planted(source) if name == rule]


class Planting(unittest.TestCase):
    def test_a_comparison_is_swapped_and_its_boundary_moved(self) -> None:
        source = body("    Use(a < b);")
        self.assertEqual(of_rule("comparison", source), ["Use(a >= b);"])
        self.assertEqual(of_rule("boundary", source), ["Use(a <= b);"])

    def test_the_brackets_of_a_template_are_no_comparison(self) -> None:
        source = body("    const std::vector<int> x = Make<int>(a);")
        self.assertEqual(of_rule("comparison", source), [])
        self.assertEqual(of_rule("boundary", source), [])

    def test_sums_and_products_are_swapped_and_signs_and_pointers_left(self) -> None:
        self.assertEqual(of_rule("arithmetic", body("    Use(a + b, a * b);")), ["Use(a - b, a * b);", "Use(a + b, a / b);"])
        self.assertEqual(of_rule("arithmetic", body("    const int* x = &a;")), [])
        self.assertEqual(of_rule("arithmetic", body("    Use(-a);")), [])

    def test_texts_are_not_subtracted(self) -> None:
        self.assertEqual(of_rule("arithmetic", body('    Use(a + u"x"_s);')), [])

    def test_and_becomes_or_and_the_reverse(self) -> None:
        self.assertEqual(of_rule("logic", body("    Use(a && b || a);")), ["Use(a || b || a);", "Use(a && b && a);"])
        self.assertEqual(of_rule("logic", "void F(Text&& a);\n"), [])

    def test_a_whole_number_moves_by_one_both_ways(self) -> None:
        self.assertEqual(of_rule("constant", "constexpr int kMost = 10;\n"), ["constexpr int kMost = 11;", "constexpr int kMost = 9;"])
        self.assertEqual(of_rule("constant", "constexpr int kMost = 0;\n"), ["constexpr int kMost = 1;"])
        self.assertEqual(of_rule("constant", "constexpr int kMost = 1'000u;\n"), ["constexpr int kMost = 1001u;", "constexpr int kMost = 999u;"])

    def test_another_number_moves_by_two_percent(self) -> None:
        self.assertEqual(of_rule("constant", "constexpr double kFive = 0.05;\n"), ["constexpr double kFive = 0.051;"])
        self.assertEqual(of_rule("constant", "constexpr double kZero = 0.0;\n"), ["constexpr double kZero = 1.0;"])

    def test_true_becomes_false_and_a_character_another(self) -> None:
        self.assertEqual(of_rule("constant", "bool g = true;\n"), ["bool g = false;"])
        self.assertEqual(of_rule("constant", "QChar g = u',';\n"), ["QChar g = u'~';"])

    def test_a_large_table_of_numbers_is_data(self) -> None:
        source = "const int kTable[] = {" + ", ".join(["7"] * 101) + "};\n"
        self.assertEqual({rule for rule, _ in planted(source)}, {"data"})

    def test_a_condition_is_negated_but_for_a_declaration(self) -> None:
        self.assertEqual(of_rule("condition", body("    if (a)\n        Use(b);")), ["if (!(a))"])
        self.assertEqual(of_rule("condition", body("    if (const int c = a; c)\n        Use(b);")), ["if (const int c = a; !(c))"])
        self.assertEqual(of_rule("condition", body("    if (const auto c = Next())\n        Use(b);")), [])

    def test_the_ends_of_a_choice_change_places(self) -> None:
        self.assertEqual(of_rule("choice", body("    Use(a ? b : Other(a, b), a);")), ["Use(a ? Other(a, b) : b, a);"])

    def test_a_statement_is_left_out(self) -> None:
        lines = "    if (a)\n        Use(b);\n    m_x.y = 3;\n    ++a;\n    for (;;)\n        break;\n    Q_EMIT Done();"
        source = body(lines)
        self.assertEqual(of_rule("statement", source), [";"] * 5)
        starts = [source[mutant.start : mutant.end] for mutant in mutants_of("a", source) if mutant.rule == "statement"]
        self.assertEqual(starts, ["Use(b);", "m_x.y = 3;", "++a;", "break;", "Q_EMIT Done();"])

    def test_a_declaration_is_no_statement(self) -> None:
        for line in ("int c = a;", "const QString c = Make();", "QFile file(a);", "std::vector<int> c(3);", "using std::max;"):
            self.assertEqual(of_rule("statement", body("    " + line)), [], line)
        self.assertEqual(of_rule("statement", "class A\n{\n    A(int);\n    Use(b);\n};\n"), [])

    def test_what_only_makes_room_is_no_statement(self) -> None:
        self.assertEqual(of_rule("statement", body("    all.reserve(4);")), [])

    def test_a_returned_value_is_replaced(self) -> None:
        self.assertEqual(of_rule("return", body("    return Sum(a, b);")), ["return {};"])
        self.assertEqual(of_rule("return", body("    return a == b && a;")), ["return !(a == b && a);"])
        self.assertEqual(of_rule("return", body("    return a == b ? a : b;")), ["return {};"])
        self.assertEqual(of_rule("return", body("    return false;")), [])

    def test_comments_texts_directives_and_assertions_are_left_alone(self) -> None:
        for source in ("// a < b, 3\n", "/* a < b\n 3 */\n", "#define THREE 3\n", 'Text g = u"a < b 3 \\" true"_s;\n',
                       'Text g = R"(a < b " 3)";\n', "static_assert(a < 3);\n", body("    Q_ASSERT(a < 3);")):
            self.assertEqual(planted(source), [], source)

    def test_texts_are_changed_when_asked(self) -> None:
        self.assertIn(("text", 'Text g = u"~abc"_s;'), planted('Text g = u"abc"_s;\n', with_texts=True))

    def test_the_fault_stands_where_it_says(self) -> None:
        source = body("    if (a < b)\n        Use(3);")
        for mutant in mutants_of("src/a/a.cpp", source):
            changed = mutant.planted(source).splitlines()[mutant.line - 1]
            self.assertEqual(" ".join(changed.split()), mutant.then_line)

    def test_a_name_does_not_hang_on_lines_elsewhere_and_is_borne_once(self) -> None:
        source = body("    Use(a + b);\n    Use(a + b);")
        before = [mutant.name for mutant in mutants_of("src/a/a.cpp", source)]
        after = [mutant.name for mutant in mutants_of("src/a/a.cpp", "// one line more\n" + source)]
        self.assertEqual(before, after)
        self.assertEqual(len(set(before)), len(before))


class Choosing(unittest.TestCase):
    def test_the_logic_is_all_but_windows_and_the_start(self) -> None:
        names = {str(path.relative_to(ROOT)) for path in mutants.sources(None)}
        self.assertIn("src/base/number_text.cpp", names)
        self.assertNotIn("src/main.cpp", names)
        self.assertFalse([name for name in names if "/windows/" in name])

    def test_a_folder_is_named_with_or_without_src(self) -> None:
        self.assertEqual(mutants.sources("base"), mutants.sources("src/base"))
        self.assertTrue(mutants.sources("exercise/windows"))
        with self.assertRaises(mutants.Broken):
            mutants.sources("nowhere")

    def test_names_are_borne_once_in_all_of_the_logic(self) -> None:
        found = mutants.planted(mutants.sources(None), with_texts=False, with_data=True)
        self.assertEqual(len({mutant.name for mutant in found}), len(found))


class KnownToChangeNothing(unittest.TestCase):
    def test_a_block_needs_its_reason(self) -> None:
        with self.assertRaises(mutants.Broken):
            mutants.equivalent_mutants("file: a\nwas: b\nthen: c\n")

    def test_each_block_of_the_list_is_a_fault_of_the_sources(self) -> None:
        for entry in mutants.equivalent_mutants(mutants.EQUIVALENT.read_text(encoding="utf-8")):
            found = mutants_of(entry["file"], (ROOT / entry["file"]).read_text(encoding="utf-8"))
            self.assertIn(mutants.key_of(entry), {(mutant.path, mutant.was_line, mutant.then_line) for mutant in found})


if __name__ == "__main__":
    unittest.main()
