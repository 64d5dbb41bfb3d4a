"""What the embedded parser makes of a source that is being edited."""

import contextlib
import io
import sys
import types
import unittest
import unittest.mock

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
        rows = {
            "import os.path, json as j\nfrom math import pi as PI\nfrom .near import n": "j n os PI",
            "class A:\n    inside = 1\n@A\ndef f(argument):\n    local = 1\nasync def g(): pass": "A f g",
            "a, (b, *c) = 1, (2, 3)\nd: int\n[e, f] = x.y, x[0] = 4, 5\ng += 1": "a b c d e f g",
            "for e in []:\n    g = 5\nelse:\n    h = 1": "e g h",
            "with open('x') as h, a as (i, j):\n    k = 1": "h i j k",
            "if a:\n    k = 1\nelif b:\n    l = 1\nelse:\n    m = 2": "k l m",
            "while a:\n    n = 1\nelse:\n    o = 1": "n o",
            "try:\n    p = 1\nexcept ValueError as q:\n    r = 1\nelse:\n    s = 1\nfinally:\n    t = 1": "p q r s t",
            "match a:\n    case [b, *c] if (d := b):\n        e = 1\n    case {'k': f, **g} as h:\n        pass": "b c d e f g h",
            "if (a := 1):\n    print(b := [c := 2])\nd = (e := 3)": "a b c d e",
            "def f():\n    global a\n    a = b = 1": "a f",
            "if x: a = 1\n" + "elif x: b = 2\n" * 600: "a b",
            "x = " + " + ".join("1" * 900): "x",
        }
        for source, expected in rows.items():
            with self.subTest(source[:80]):
                self.assertEqual(names(source), expected.split())

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

    def test_hostile_sources_end(self):
        rows = {
            "(" * 100000: [],
            "x = " + "-" * 100000 + "1": [],
            "x = " + "+".join("1" * 100000): [],
            "y = 1\nx = '\0'": [],
            "x = 1\n" + "a" * 10000000: ["x"],
        }
        for source, expected in rows.items():
            with self.subTest(source[:20]):
                self.assertEqual(names(source), expected)
        # Each class would be looked at twice as often as the one before.
        tangle = "class A(A, B): a = 1\nclass B(A, B): b = 1\n"
        self.assertEqual(public(tangle, "A"), ["a", "b"])
        self.assertEqual(names(tangle, "A.nothing"), [])

    def test_unfinished_sources(self):
        rows = {
            "last line ends with a dot": "import os\nx = 1\nos.path.",
            "bracket in front": "import os\nx = 1\n(y",
            "only imports survive": "import os\nfrom os import path as x\nclass (\n  y = 'a",
            "line ends of other systems": "import os\r\nx = 1\ros.",
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
        # In the class's function itself, and in a source that does not parse.
        inside = "class A:\n    x = 1\n    def go(this, __tarnwick_lctr_qnht__): pass\n"
        for obj in ("self", "cls", "this"):
            self.assertEqual(public(inside, obj), ["go", "x"])
        called = "class A:\n    x = 1\n    def go(self): f(\n        __tarnwick_lctr_qnht__)\n"
        self.assertEqual(public(called, "self"), ["go", "x"])
        self.assertEqual(public(marked + "(y", "self"), ["base", "count", "go", "win"])
        outside = "class A:\n    x = 1\n" + MARKER + "\nself = 'text'"
        self.assertIn("upper", names(outside, "self"))

    def test_members_come_from_every_assignment(self):
        source = (
            "class A:\n    def go(self):\n        self.a, self.b = 1, ''\n        self.c: int = 2\n"
            "        self.d += 1\n        for self.e in []:\n            with x as self.f: pass\n"
            "    @classmethod\n    def make(cls):\n        cls.g = 1\n        def nested():\n"
            "            self.h = []\n    @property\n    def i(self) -> str: pass\n"
            "    @i.setter\n    def i(self, value): pass\nx = A()\n"
        )
        self.assertEqual(public(source, "x"), "a b c d e f g go h i make".split())
        for obj, member in {"x.b": "upper", "x.c": "real", "x.h": "append", "x.i": "upper"}.items():
            with self.subTest(obj):
                self.assertIn(member, names(source, obj))

    def test_cursor_sees_the_names_around_it(self):
        source = (
            "class A:\n    text = ''\n    def go(self, a: 'str', b: Optional[list] = None, *c, **d):\n"
            "        local = self.text\n        " + MARKER + "\ndef other():\n    hidden = ''\n"
        )
        rows = {"a": "upper", "b": "append", "c": "index", "d": "items", "local": "upper"}
        for obj, member in rows.items():
            with self.subTest(obj):
                self.assertIn(member, names(source, obj))
        self.assertEqual(names(source, "hidden"), [])
        self.assertEqual(names(source, "text"), [])
        self.assertEqual(names(source), ["A", "other"])

    def test_none_does_not_hide_the_value(self):
        source = "class A:\n    def a(self):\n        self.x = {}\n        self.x = None\n        " + MARKER
        self.assertIn("items", names(source, "self.x"))

    def test_names_are_followed(self):
        source = (
            "import collections as c\nfrom os import path\nimport os.path\n"
            "class A:\n    value = 'x'\n    def method(self): pass\n"
            "a = A()\nb = a\nd = c.OrderedDict()\ne = [1]\ndef f() -> A: pass\ng = f()\n"
            "h: 'A | None' = unknown()\ni: Wrong = ''\nj = None or '' if a else a\nk = (l := {1})\n"
        )
        rows = {
            "a": "method", "b": "method", "A": "method", "A.value": "upper", "b.value": "upper",
            "c": "deque", "d": "move_to_end", "e": "append", "path": "join", "os.path": "join",
            "g": "method", "h": "method", "i": "upper", "j": "upper", "k": "union", "l": "union",
        }
        for obj, member in rows.items():
            with self.subTest(obj):
                self.assertIn(member, names(source, obj))

    def test_imports_of_every_form(self):
        rows = {
            ("import xml.dom", "xml.dom"): "Node",
            ("import xml.dom\nimport xml.sax", "xml.dom"): "Node",
            ("import xml.dom as d", "d"): "Node",
            ("from xml import dom", "dom"): "Node",
            ("from xml.dom import Node as N", "N"): "TEXT_NODE",
            ("from xml.dom import *", "Node"): "TEXT_NODE",
            ("try:\n    import xml.dom as d\nexcept ImportError:\n    import nowhere_at_all as d", "d"): "Node",
        }
        for (source, obj), member in rows.items():
            with self.subTest(source):
                self.assertIn(member, names(source, obj))
        self.assertIn("Node", names("from xml.dom import *"))

    def test_functions_and_unknown_names_offer_nothing(self):
        source = (
            "import os\ndef f(): pass\nx = f()\ny = y\nz = w\nw = z\n"
            "class C:\n    def __call__(self): pass\n"
        )
        unknown = ("f", "os.getcwd", "len", "x", "y", "z", "C", "nobody", "os.nobody.more", "a..b")
        for obj in unknown:
            with self.subTest(obj):
                self.assertEqual(names(source, obj), [])

    def test_live_objects_are_not_run(self):
        class Trap(object):
            ran = []
            plain = "text"

            @property
            def trap(self):
                Trap.ran.append("property")

            @property
            def __class__(self):
                Trap.ran.append("__class__")
                raise RuntimeError

            def __getattribute__(self, name):
                Trap.ran.append(name)
                raise RuntimeError(name)

            def __dir__(self):
                Trap.ran.append("__dir__")
                return []

        main = sys.modules["__main__"]
        main.te2_trap = Trap()
        object.__getattribute__(main.te2_trap, "__dict__").update({"own": 1, 2: 3})
        self.addCleanup(lambda: delattr(main, "te2_trap"))
        for name in ("trap", "own"):
            self.assertIn(name, names("", "te2_trap"))
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
        class Finder:
            asked = []

            @classmethod
            def find_spec(cls, name, path=None, target=None):
                cls.asked.append(name)
                if name == "maya.OpenMayaAnim":
                    raise RuntimeError("does not load here")

        maya = types.ModuleType("maya")
        maya.__path__ = []
        with unittest.mock.patch.dict(sys.modules, {"maya": maya}):
            with unittest.mock.patch.object(sys, "meta_path", [Finder]):
                Parser.initialize()
        self.assertEqual(Finder.asked, list(Parser.HOST_MODULES))


if __name__ == "__main__":
    unittest.main()
