"""What the embedded inspector says of names, and what it never does for it."""

import builtins
import functools
import os
import sys
import types
import unittest

import tarnwick_editor_parser

# The plug-in runs both texts in one namespace.
for _name in ("TarnwickEditorParser", "_tarnwick_ast"):
    setattr(builtins, _name, getattr(tarnwick_editor_parser, _name))
from tarnwick_editor_inspector import TarnwickEditorInspector as Inspector  # noqa: E402

SOURCE = '''
import os.path as place
from maya_nowhere import thing

class Rig(Base):
    """Holds bones.

    And more.
    """
    def __init__(self, root, sides=2): pass

    async def mirror(self, *, axis: str = "x") -> bool:
        """Turns it."""
        return self.mirror

rig = Rig(None)
'''


class Trap:
    """Springs when anybody runs it."""

    def __repr__(self):
        raise AssertionError("printed")

    def __getattr__(self, name):
        raise AssertionError("asked for " + name)


class Walker:
    """Walks."""

    @property
    def pace(self):
        """How fast."""
        raise AssertionError("run")

    @functools.lru_cache()
    def route(self, start, end=Trap()):
        """The way."""

    @staticmethod
    def stop(at: int = 3) -> "str":
        """Ends it."""


def wrapper(function):
    @functools.wraps(function)
    def inner(*arguments):
        pass

    return inner


@wrapper
def wrapped(first, second=(1, 2)):
    """Wrapped."""


def described(name, source="", line=0):
    return Inspector().describe(source, name, line)


class Describing(unittest.TestCase):
    def setUp(self):
        self.main = sys.modules["__main__"]
        for name, value in {"walker": Walker(), "Walker": Walker, "wrapped": wrapped,
                            "trap": Trap()}.items():
            self.assertFalse(hasattr(self.main, name))
            setattr(self.main, name, value)
            self.addCleanup(delattr, self.main, name)

    def test_kind_signature_and_text(self):
        rows = {
            "os": ["module", "os", "OS routines"],
            "place.join": ["function", "join(a, *p)", "Join two"],
            "str.join": ["function", "join(self, iterable, /)", "Concatenate"],
            "len": ["function", "len(obj, /)", "Return the number"],
            "walker": ["instance", "Walker()", "Walks."],
            "walker.pace": ["property", "pace", "How fast."],
            "Walker.route": ["function", "route(self, start, end=...)", "The way."],
            "Walker.stop": ["function", "stop(at: int = 3) -> str", "Ends it."],
            "wrapped": ["function", "wrapped(first, second=(1, 2))", "Wrapped."],
            "Rig": ["class", "Rig(root, sides=2)", "Holds bones."],
            "rig.mirror": ["function", "mirror(self, *, axis: str='x') -> bool", "Turns it."],
            "self.mirror": ["function", "mirror(self, *, axis: str='x') -> bool", "Turns it."],
            "trap": ["instance", "Trap()", "Springs"],
        }
        for name, expected in rows.items():
            with self.subTest(name):
                found = described(name, SOURCE, 13)
                self.assertEqual(len(found), 6, found)
                self.assertEqual(found[:2], expected[:2])
                self.assertTrue(found[2].startswith(expected[2]), found[2])
                self.assertNotIn("And more", found[2])

    def test_files_and_lines(self):
        kind, _, _, path, line, module = described("os.path.join")
        self.assertEqual(path, os.path.__file__)
        self.assertGreater(int(line), 0)
        self.assertEqual(module, os.path.__name__)
        self.assertEqual(described("wrapped")[3:5],
                         [__file__, str(wrapped.__wrapped__.__code__.co_firstlineno)])
        self.assertEqual(described("len")[3:], ["", "0", "builtins"])

    def test_unknown_names(self):
        for name in ("", ".", "a..b", "nobody", "os.nobody", "walker.nobody", "thing",
                     "walker.pace.real"):
            self.assertEqual(described(name, SOURCE), [], name)

    def test_nothing_is_imported(self):
        sys.modules.pop("colorsys", None)
        self.assertEqual(described("colorsys.rgb_to_hls", "import colorsys"), [])
        self.assertNotIn("colorsys", sys.modules)

    def test_strange_modules(self):
        strange = types.ModuleType("te_strange")
        strange.__file__ = strange.__doc__ = Trap()
        sys.modules["te_strange"] = strange
        self.addCleanup(sys.modules.pop, "te_strange")
        self.assertEqual(described("te_strange"),
                         ["module", "te_strange", "", "", "0", "te_strange"])

    def test_a_source_that_does_not_parse(self):
        self.assertEqual(described("Rig", SOURCE + "\nx = os.")[0], "class")


if __name__ == "__main__":
    unittest.main()
