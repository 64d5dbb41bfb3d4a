"""What is said when a folder is no development kit, or not one for this plug-in. The kit is made of
the stand-in's headers and libraries, laid out as the vendor's is."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest

from module import BUILD, SOURCE

HEADERS = "include/maya"


def make_kit(folder):
    shutil.copytree(os.path.join(SOURCE, "host/api/maya"), os.path.join(folder, HEADERS),
                    dirs_exist_ok=True)
    os.makedirs(os.path.join(folder, "lib"), exist_ok=True)
    for library in ("Foundation", "OpenMaya", "OpenMayaUI"):
        name = f"lib/lib{library}.so"
        shutil.copy2(os.path.join(BUILD, name), os.path.join(folder, name))
    return folder


def configure(build, kit, *options):
    return subprocess.run(["cmake", "--preset", "devkit", "-B", build, *options], cwd=SOURCE,
                          env={**os.environ, "DEVKIT_LOCATION": kit}, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


class Messages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # One for all: the compiler is looked at once.
        cls.build = tempfile.TemporaryDirectory(prefix="tarnwick-kit-")
        cls.addClassCleanup(cls.build.cleanup)

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tarnwick-kit-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.kit = make_kit(os.path.join(self.folder, "kit"))

    def assert_refused(self, kit, message):
        done = configure(self.build.name, kit)
        self.assertNotEqual(done.returncode, 0, done.stdout)
        self.assertIn(message, re.sub(r"\s+", " ", done.stdout))

    def test_no_kit_is_named(self):
        self.assert_refused("", "DEVKIT_LOCATION is not set.")

    def test_no_such_folder(self):
        self.assert_refused("/nowhere", 'There is no development kit in "/nowhere": no such folder.')

    def test_a_folder_that_is_no_kit(self):
        os.remove(os.path.join(self.kit, HEADERS, "MFnPlugin.h"))
        self.assert_refused(self.kit, "include/maya/MFnPlugin.h is missing.")

    def test_a_library_is_missing(self):
        os.remove(os.path.join(self.kit, "lib/libOpenMayaUI.so"))
        self.assert_refused(self.kit, "libOpenMayaUI.so is in none of: " + self.kit)

    def test_releases(self):
        types = os.path.join(self.kit, HEADERS, "MTypes.h")
        with open(types, encoding="utf-8") as file:
            text = file.read()
        for version, message in (("20230200", "is for API version 20230200; this plug-in is made for 2024"),
                                 ("unknown", "does not say which MAYA_API_VERSION it is for.")):
            with self.subTest(version):
                with open(types, "w", encoding="utf-8") as file:
                    file.write(text.replace("20240000", version))
                self.assert_refused(self.kit, message)


if __name__ == "__main__":
    unittest.main()
