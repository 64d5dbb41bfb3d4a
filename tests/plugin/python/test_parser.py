"""What the embedded parser makes of a source that is being edited."""

import contextlib
import io
import sys
import types
import unittest

from tarnwick_editor_parser import TarnwickEditorParser as Parser

MARKER = "def __tedefloc__(__tarnwick_lctr_qnht__): pass"


def names(source, obj=None, **flags):
    return Parser().parse_source(source, obj, **flags)


def public(source, obj=None):
    return [name for name in names(source, obj) if not name.startswith("_")]


class SyntaxCheck(unittest.TestCase):
    def test_errors_have_message_and_line(self):
        rows = {
            "x = 1": [],
            "": [],
            "x = 1\n)": ["unmatched ')'", "2"],
            "def f():\nx = 1": None,
            "if True:\n\tx = 1\n        y = 2": None,
        }
        for source, expected in rows.items():
            with self.subTest(source):
                found = Parser.syntax_check(source)
                if expected is None:
                    self.assertEqual(len(found), 2)
                    self.assertTrue(found[1].isdigit())
                    self.assertNotIn("line ", found[0].split("on line")[0])
                else:
                    self.assertEqual(found, expected)

    def test_what_the_compiler_refuses_otherwise_is_an_error_too(self):
        self.assertEqual(len(Parser.syntax_check("x = '\0'")), 2)
        self.assertEqual(len(Parser.syntax_check("(" * 5000 + ")" * 5000)), 2)

    def test_warnings_are_not_printed(self):
        with contextlib.redirect_stderr(io.StringIO()) as printed:
            Parser.syntax_check("x = 1 is 1")
        self.assertEqual(printed.getvalue(), "")


class ExecStatement(unittest.TestCase):
    def test_tells_whether_it_ran(self):
        self.assertEqual(Parser.exec_statement("import os"), 1)
        for statement in ("import nowhere_at_all", "raise SystemExit", "x = = 1", "1 / 0"):
            self.assertEqual(Parser.exec_statement(statement), 0, statement)

    def test_leaves_the_console_alone(self):
        Parser.exec_statement("te2_left_behind = 1")
        self.assertNotIn("te2_left_behind", vars(sys.modules["__main__"]))


class ParseSource(unittest.TestCase):
    def test_everything_at_the_top_level(self):
        source = (
            "import os.path, json as j\nfrom math import pi as PI\n"
            "class A:\n    inside = 1\ndef f(argument):\n    local = 1\n"
            "a, (b, *c) = 1, (2, 3)\nd: int = 4\nfor e in []:\n    g = 5\n"
            "with open('x') as h:\n    pass\nif a:\n    k = 1\nelse:\n    m = 2\n"
            "while a:\n    n = 1\ntry:\n    p = 1\nexcept ValueError as q:\n    pass\n"
        )
        expected = "A a b c d e f g h j k m n os p PI q".split()
        self.assertEqual(names(source), sorted(expected, key=str.lower))

    def test_keywords_and_builtins_on_request(self):
        found = names("x = 1", keywords=True, builtins=True)
        for name in ("x", "lambda", "None", "len"):
            self.assertEqual(found.count(name), 1)
        self.assertNotIn("len", names("x = 1", keywords=True))

    def test_order_is_public_first_without_case(self):
        source = "_b = B = a = __c = _A = 1"
        self.assertEqual(names(source), ["a", "B", "__c", "_A", "_b"])

    def test_internal_names_never_show(self):
        source = "x = 1\n" + MARKER + "\nclass __teclsloc__: pass"
        self.assertEqual(names(source), ["x"])

    def test_unfinished_sources(self):
        rows = {
            "last line ends with a dot": "import os\nx = 1\nos.path.",
            "bracket in front": "import os\nx = 1\n(y",
            "only imports survive": "import os\nfrom os import path as x\nclass (\n  y = 'a",
            "unfinished import": "import os\nimport os as x\ndef f(:\nfrom os import",
        }
        for label, source in rows.items():
            with self.subTest(label):
                self.assertEqual(names(source), ["os", "x"])

    def test_self_and_cls_need_the_marker(self):
        source = (
            "class Base:\n    def base(self): pass\n"
            "class A(Base):\n    count = 1\n    def go(self):\n        self.win = 'text'\n        {0}\n"
            "class Other:\n    def other(self): pass\n"
        )
        marked = source.format(MARKER)
        self.assertEqual(public(marked, "self"), ["base", "count", "go", "win"])
        self.assertEqual(public(marked, "cls"), ["base", "count", "go", "win"])
        self.assertIn("upper", names(marked, "self.win"))
        self.assertIn("bit_length", names(marked, "self.count"))
        self.assertEqual(names(marked, "self.nothing"), [])
        self.assertEqual(names(source.format("pass"), "self"), [])

    def test_none_does_not_hide_the_value(self):
        source = "class A:\n    def a(self):\n        self.x = {}\n        self.x = None\n        " + MARKER
        self.assertIn("items", names(source, "self.x"))

    def test_names_are_followed(self):
        source = (
            "import collections as c\nfrom os import path\nimport os.path\n"
            "class A:\n    value = 'x'\n    def method(self): pass\n"
            "a = A()\nb = a\nd = c.OrderedDict()\ne = [1]\ndef f(): pass\n"
        )
        rows = {
            "a": "method", "b": "method", "A": "method", "A.value": "upper", "b.value": "upper",
            "c": "deque", "d": "move_to_end", "e": "append", "path": "join", "os.path": "join",
        }
        for obj, member in rows.items():
            with self.subTest(obj):
                self.assertIn(member, names(source, obj))

    def test_functions_and_unknown_names_offer_nothing(self):
        source = "import os\ndef f(): pass\nx = f()\ny = y\nz = w\nw = z\n"
        for obj in ("f", "os.getcwd", "len", "x", "y", "z", "nobody", "os.nobody.more", "", "a..b"):
            with self.subTest(obj):
                if obj:
                    self.assertEqual(names(source, obj), [])

    def test_live_objects_are_not_run(self):
        class Trap(object):
            ran = []
            plain = "text"

            @property
            def trap(self):
                self.ran.append("property")

            def __getattr__(self, name):
                self.ran.append(name)
                raise AttributeError(name)

            def __dir__(self):
                self.ran.append("__dir__")
                return []

        main = sys.modules["__main__"]
        main.te2_trap = Trap()
        self.addCleanup(lambda: delattr(main, "te2_trap"))
        self.assertIn("trap", names("", "te2_trap"))
        self.assertEqual(names("", "te2_trap.trap"), [])
        self.assertEqual(names("", "te2_trap.nobody"), [])
        self.assertIn("upper", names("", "te2_trap.plain"))
        self.assertEqual(Trap.ran, [])

    def test_only_named_modules_are_imported(self):
        sys.modules.pop("colorsys", None)
        self.assertEqual(names("x = 1", "colorsys"), [])
        names("import colorsys")
        self.assertNotIn("colorsys", sys.modules)
        self.assertIn("rgb_to_hsv", names("import colorsys", "colorsys"))

    def test_broken_import_is_no_failure(self):
        source = "import nowhere_at_all\nfrom nowhere_at_all import *\nfrom . import b\nx = 1"
        self.assertEqual(names(source), ["b", "nowhere_at_all", "x"])
        self.assertEqual(names(source, "nowhere_at_all"), [])
        self.assertEqual(names(source, "b"), [])

    def test_parser_can_be_used_again(self):
        parser = Parser()
        parser.parse_source("x = 1")
        self.assertEqual(parser.parse_source("y = 1"), ["y"])


class Initialize(unittest.TestCase):
    def test_missing_modules_are_left_out(self):
        maya = types.ModuleType("maya")
        maya.__path__ = []
        loaded = {name: types.ModuleType(name) for name in Parser.HOST_MODULES[:3]}
        sys.modules.update(loaded, maya=maya)
        try:
            Parser.initialize()
        finally:
            for name in list(loaded) + ["maya"]:
                del sys.modules[name]


if __name__ == "__main__":
    unittest.main()
