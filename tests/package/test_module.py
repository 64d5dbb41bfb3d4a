"""The module as users get it: what is installed and packed, and what its library needs of others."""

import os
import re
import stat
import tarfile
import tempfile
import unittest
import zipfile

from module import BUILD, MODULE, SOURCE, VERSION, HostCase, install, output

ENTRY_POINTS = {
    "_Z16initializePluginN8Autodesk4Maya16OpenMaya202400007MObjectE",
    "_Z18uninitializePluginN8Autodesk4Maya16OpenMaya202400007MObjectE",
}
HOST_LIBRARIES = {"libFoundation.so", "libOpenMaya.so", "libOpenMayaUI.so"}
OTHER_LIBRARIES = {"libQt5Core.so.5", "libQt5Gui.so.5", "libQt5Widgets.so.5", "libstdc++.so.6",
                   "libm.so.6", "libgcc_s.so.1", "libc.so.6"}
# What plug-ins may use, as the host's public reference lists it; constructors and operators too.
API_CLASSES = ["MArgDatabase", "MArgParser", "MCallbackIdArray", "MCommandMessage", "MCommandResult",
               "MEventMessage", "MFnPlugin", "MGlobal", "MMessage", "MObject", "MPxCommand", "MQtUtil",
               "MStatus", "MString", "MStringArray", "MSyntax"]


def tree(folder):
    """Path, whether it is executable and content of every file."""
    files = {}
    for path, _, names in os.walk(folder):
        for name in names:
            whole = os.path.join(path, name)
            with open(whole, "rb") as file:
                executable = bool(os.stat(whole).st_mode & stat.S_IXUSR)
                files[os.path.relpath(whole, folder)] = (executable, file.read())
    return files


def names_in(folder, suffix):
    return {name for name in os.listdir(os.path.join(SOURCE, folder)) if name.endswith(suffix)}


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="tarnwick-package-")
        cls.prefix = os.path.join(cls.folder.name, "modules")
        install(cls.prefix)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def read(self, name):
        with open(os.path.join(self.prefix, name), encoding="utf-8") as file:
            return file.read()


class Layout(Installed):
    def test_holds_the_module_and_nothing_else(self):
        wanted = {"TarnwickEditor2.mod", MODULE, "TarnwickEditor2/docs/README.md",
                  "TarnwickEditor2/docs/guide.md", "TarnwickEditor2/licenses/LICENSE"}
        wanted |= {"TarnwickEditor2/docs/images/" + name for name in names_in("docs/images", ".png")}
        wanted |= {"TarnwickEditor2/licenses/" + name for name in names_in("licenses", ".txt")}
        self.assertEqual(set(tree(self.prefix)), wanted)

    def test_mod_file_names_the_folder_beside_it(self):
        self.assertEqual(self.read("TarnwickEditor2.mod").splitlines(),
                         [f"+ MAYAVERSION:2024 PLATFORM:linux TarnwickEditor2 {VERSION} ./TarnwickEditor2",
                          "plug-ins: plug-ins"])

    def test_links_of_the_documents_lead_somewhere(self):
        for name in ("README.md", "guide.md"):
            links = re.findall(r"\]\(([^)#][^)]*)\)", self.read("TarnwickEditor2/docs/" + name))
            self.assertTrue(links, name)
            for link in links:
                if not link.startswith("https://"):
                    path = os.path.join(self.prefix, "TarnwickEditor2/docs", link)
                    self.assertTrue(os.path.isfile(path), f"{name}: {link}")

    def test_nothing_tells_where_it_was_built(self):
        # Without optimisation the toolkit's assertions name their files.
        binary = () if os.environ["TE2_BUILD_TYPE"] == "Release" else (MODULE,)
        for name, (_, content) in tree(self.prefix).items():
            if name not in binary:
                self.assertNotIn(SOURCE.encode(), content, name)
                self.assertNotIn(BUILD.encode(), content, name)


class Archives(Installed):
    def test_hold_what_is_installed(self):
        base = f"TarnwickEditor2-{VERSION}-maya2024-linux"
        packed = os.path.join(self.folder.name, "packed")
        output("cpack", "--config", os.path.join(BUILD, "CPackConfig.cmake"), "-B", packed)
        for suffix, unpack in ((".tar.gz", self.unpack_tar), (".zip", self.unpack_zip)):
            folder = os.path.join(self.folder.name, suffix)
            unpack(os.path.join(packed, base + suffix), folder)
            with self.subTest(suffix):
                self.assertEqual(tree(folder), tree(self.prefix))

    def unpack_tar(self, archive, folder):
        with tarfile.open(archive) as file:
            self.assertFalse([name for name in file.getnames() if name.startswith(("/", ".."))])
            file.extractall(folder)

    def unpack_zip(self, archive, folder):
        # The standard library's own drops the permissions.
        output("cmake", "-E", "make_directory", folder)
        output("cmake", "-E", "tar", "xf", archive, cwd=folder)
        self.assertIsNone(zipfile.ZipFile(archive).testzip())


class Symbols(Installed):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.module = os.path.join(cls.prefix, MODULE)
        dynamic = output("readelf", "--dynamic", "--wide", cls.module)
        cls.run_path = re.findall(r"\((?:RPATH|RUNPATH)\)", dynamic)
        cls.needed = set(re.findall(r"\(NEEDED\).*\[(.+)\]", dynamic))
        cls.undefined = cls.symbols(cls.module, "--undefined-only")
        built = output("ldd", os.path.join(BUILD, "plug-ins/TarnwickEditor2.so"))
        cls.paths = dict(re.findall(r"(\S+) => (/\S+)", built))

    @staticmethod
    def symbols(path, which):
        """Pairs of a symbol with its version and its letter."""
        lines = output("nm", "--dynamic", "--with-symbol-versions", which, path).splitlines()
        return [(line.split()[-1].replace("@@", "@"), line.split()[-2]) for line in lines]

    def test_exports_the_entry_points_alone(self):
        exported = {name for name, letter in self.symbols(self.module, "--defined-only")
                    if letter.isupper() or letter in "uvw"}
        self.assertEqual(exported, ENTRY_POINTS)

    def test_needs_only_what_the_host_has(self):
        self.assertEqual(self.needed - {"ld-linux-x86-64.so.2"}, HOST_LIBRARIES | OTHER_LIBRARIES)
        self.assertEqual(self.run_path, [])

    def test_every_symbol_is_in_what_it_needs(self):
        provided = set()
        for library in self.needed:
            names = self.symbols(self.paths.get(library, "/lib64/" + library), "--defined-only")
            provided |= {name for name, _ in names} | {name.split("@")[0] for name, _ in names
                                                       if library in HOST_LIBRARIES}
        missing = [name for name, letter in self.undefined if letter == "U" and name not in provided]
        self.assertEqual(missing, [])

    def test_uses_only_the_public_interface_of_the_host(self):
        used = [name for name, _ in self.undefined if "@" not in name and name.startswith("_Z")]
        plain = output("c++filt", *used).splitlines()
        self.assertTrue(plain)
        member = re.compile(r"(?:typeinfo for |vtable for )?Autodesk::Maya::OpenMaya20240000::"
                            rf"(?:{'|'.join(API_CLASSES)})(?:::[~\w]+(?:\(| |\[|=|\+|$).*)?$")
        self.assertEqual([name for name in plain if not member.match(name)], [])


class InHost(HostCase):
    """A person installs the module and loads the plug-in."""

    def test_finds_a_module_of_the_module_path(self):
        modules = os.path.join(self.home, "studio modules")
        install(modules)
        self.assert_loads_from(modules, MAYA_MODULE_PATH="/nowhere:" + modules)

    def test_finds_a_module_where_the_readme_puts_it(self):
        modules = os.path.join(self.home, "maya/2024/modules")
        install(modules)
        self.assert_loads_from(modules)


if __name__ == "__main__":
    unittest.main()
