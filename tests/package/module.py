"""What the tests of the package share: the build, its installation, and the host that tries it."""

import os
import subprocess
import tempfile
import unittest

BUILD = os.environ["TE2_BUILD_DIR"]
VERSION = os.environ["TE2_VERSION"]
SOURCE = os.path.abspath(os.path.join(os.path.dirname(__file__), os.pardir, os.pardir))
MODULE = "TarnwickEditor2/plug-ins/TarnwickEditor2.so"


def output(*command, **options):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if done.returncode:
        raise AssertionError(f"{' '.join(command)}\n{done.stdout}")
    return done.stdout


def install(prefix, build=BUILD):
    output("cmake", "--install", build, "--prefix", prefix, "--strip")


class HostCase(unittest.TestCase):
    """A person starts the host in a bare environment, with a home of their own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tarnwick-package-")
        self.addCleanup(folder.cleanup)
        self.home = folder.name

    def run_host(self, **variables):
        """What the script wrote, line by line."""
        environment = {"HOME": self.home, "XDG_RUNTIME_DIR": self.home, "LC_ALL": "C.UTF-8",
                       "QT_QPA_PLATFORM": "offscreen", "PATH": os.environ["PATH"], **variables}
        script = os.path.join(os.path.dirname(__file__), "data", "load_module.mel")
        said = output(os.path.join(BUILD, "bin/tarnwick-host"), "-script", script,
                      env=environment, cwd=self.home, timeout=100)
        try:
            with open(os.path.join(self.home, "report.txt"), encoding="utf-8") as file:
                return file.read().splitlines()
        except FileNotFoundError:
            return ["no report", said]

    def assert_loads_from(self, modules, **variables):
        self.assertEqual(self.run_host(**variables), [
            "module " + VERSION, "loaded before 0", "path " + os.path.join(modules, MODULE),
            "version " + VERSION, "visible 1", "unloaded 1", "visible after 0"])
