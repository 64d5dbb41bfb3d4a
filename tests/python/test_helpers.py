"""The interpreter's side of the module state and of the diagnostics."""

import contextlib
import io
import os
import sys
import types
import unittest

from tarnwick_editor_helpers import TarnwickEditorHelpers as Helpers


def printed(function, *arguments):
    with contextlib.redirect_stdout(io.StringIO()) as output:
        function(*arguments)
    return output.getvalue()


class Modules(unittest.TestCase):
    def setUp(self):
        Helpers.module_names = None
        sys.modules.pop("colorsys", None)
        self.addCleanup(setattr, Helpers, "module_names", None)

    def test_reverting_without_a_snapshot_does_nothing(self):
        import colorsys  # noqa: F401

        Helpers.revert_modules()
        self.assertIn("colorsys", sys.modules)

    def test_only_what_came_later_goes(self):
        Helpers.update_modules()
        import colorsys  # noqa: F401

        Helpers.revert_modules()
        self.assertNotIn("colorsys", sys.modules)
        self.assertIn("unittest", sys.modules)
        # The snapshot stays for the next time.
        import colorsys  # noqa: F401,F811

        Helpers.revert_modules()
        self.assertNotIn("colorsys", sys.modules)


class Listings(unittest.TestCase):
    def test_constants_are_keywords_once(self):
        keywords = Helpers.list_keywords()
        for name in ("True", "False", "None", "class"):
            self.assertEqual(keywords.count(name), 1)
        self.assertIn("len", Helpers.list_builtins())

    def test_version_has_three_parts(self):
        self.assertEqual(Helpers.python_version(), "%d.%d.%d" % sys.version_info[:3])

    def test_path_is_printed_and_joined(self):
        self.assertEqual(printed(Helpers.print_python_path), "\nsys.path:\n%s\n" % "\n".join(sys.path))
        self.assertEqual(Helpers.get_python_path_str(), os.pathsep.join(sys.path))

    def test_environment_is_sorted(self):
        lines = printed(Helpers.print_python_environ).splitlines()
        self.assertEqual(lines[:2], ["", "os.environ"])
        self.assertIn("PATH: " + os.environ["PATH"], lines)
        names = [line.split(": ")[0] for line in lines[2:] if line.split(": ")[0] in os.environ]
        self.assertEqual(names, sorted(names))

    def test_variable_is_asked_of_the_host_and_split(self):
        asked = []
        mel = types.ModuleType("maya.mel")
        mel.eval = lambda text: asked.append(text) or "/a:/b"
        maya = types.ModuleType("maya")
        maya.mel = mel
        sys.modules.update({"maya": maya, "maya.mel": mel})
        try:
            text = printed(Helpers.print_maya_env_var_paths, "XBMLANGPATH")
        finally:
            del sys.modules["maya"], sys.modules["maya.mel"]
        self.assertEqual(asked, ['getenv "XBMLANGPATH"'])
        self.assertEqual(text, "\nXBMLANGPATH:\n/a\n/b\n")


if __name__ == "__main__":
    unittest.main()
