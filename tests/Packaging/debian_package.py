"""The Debian package: what is in it, what it asks for, and how the program in it was built."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from installation import MODES, PROGRAM, read, run

SOURCES = Path(__file__).resolve().parents[2]
DEB = os.environ["JOTWELL_DEB"]
# Modules of QML that the program's views import, by the packages that have them.
MODULES = {
    "QtQuick": "qml6-module-qtquick",
    "QtQuick.Controls.Basic": "qml6-module-qtquick-controls",
    "QtQuick.Layouts": "qml6-module-qtquick-layouts",
    "QtQuick.Templates": "qml6-module-qtquick-templates",
    "QtQuick.Window": "qml6-module-qtquick-window",
}
IMPORT = re.compile(r"^import ([\w.]+)", re.MULTILINE)


def field(name):
    return read("dpkg-deb", "--field", DEB, name).strip()


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="jotwell-")
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name)
        read("dpkg-deb", "--extract", DEB, cls.root)
        cls.program = cls.root / "usr" / PROGRAM

    def entries(self):
        """Rights and owner of each file and folder, by its path."""
        lines = read("dpkg-deb", "--contents", DEB).splitlines()
        return {line.split(maxsplit=5)[5]: line.split()[:2] for line in lines}

    def test_lintian_has_nothing_to_say(self):
        status, said = run("lintian", "--allow-root", "--fail-on", "error,warning", DEB)
        self.assertEqual((status, said), (0, ""))

    def test_files_are_those_of_an_installation(self):
        files = {name for name in self.entries() if not name.endswith("/")}
        self.assertEqual(files, {f"./usr/{name}" for name in MODES})

    def test_all_is_roots_and_readable_by_everyone(self):
        for name, (rights, owner) in self.entries().items():
            self.assertEqual(owner, "root/root", name)
            executable = name.endswith(("/", f"/{PROGRAM}"))
            self.assertEqual(rights[1:], "rwxr-xr-x" if executable else "rw-r--r--", name)

    def test_no_script_runs_as_root(self):
        with tempfile.TemporaryDirectory() as folder:
            read("dpkg-deb", "--control", DEB, folder)
            self.assertEqual(sorted(os.listdir(folder)), ["control", "md5sums"])

    def test_fields(self):
        self.assertEqual(field("Package"), "jotwell")
        self.assertEqual(Path(DEB).name,
                         f"jotwell_{field('Version')}_{field('Architecture')}.deb")
        declared = re.search(r"project\(Jotwell VERSION (\S+)",
                             (SOURCES / "CMakeLists.txt").read_text())[1]
        self.assertEqual(field("Version"), declared)
        for name in "Maintainer", "Homepage", "Installed-Size":
            self.assertTrue(field(name), name)

    def test_every_imported_module_is_asked_for(self):
        imported = {module for path in (SOURCES / "src").rglob("*.qml")
                    for module in IMPORT.findall(path.read_text())} - {"Jotwell"}
        self.assertEqual(imported, set(MODULES))
        wanted = {each.split()[0] for each in field("Depends").split(", ")}
        self.assertLessEqual({*MODULES.values(), "fonts-noto-color-emoji", "qt6-wayland"}, wanted)
        for library in "libqt6core6", "libqt6dbus6", "libqt6svg6", "libsqlite3-0", "libsodium23":
            self.assertIn(library, wanted)

    def test_program_is_hardened(self):
        headers = read("readelf", "--wide", "--file-header", "--program-headers", "--dynamic",
                       self.program)
        self.assertIn("DYN (Position-Independent Executable file)", headers)
        self.assertIn("GNU_RELRO", headers)
        self.assertRegex(headers, r"\(FLAGS_1\) .*\bNOW\b")
        self.assertRegex(headers, r"GNU_STACK .* RW ")
        self.assertNotRegex(headers, r"\((RPATH|RUNPATH)\)")
        # The program can't be marked as a whole, since Debian's start-up code isn't.
        if field("Architecture") == "amd64":
            code = read("objdump", "--disassemble", "--no-show-raw-insn", self.program)
            self.assertGreater(code.count("\tendbr64"), 1000)
        symbols = read("readelf", "--wide", "--dyn-syms", self.program)
        self.assertIn("__stack_chk_fail@", symbols)
        self.assertRegex(symbols, r"__\w+_chk@")

    def test_program_is_stripped_and_names_no_folder_of_its_build(self):
        sections = read("readelf", "--wide", "--sections", self.program)
        self.assertNotIn(".symtab", sections)
        self.assertNotIn(".debug_", sections)
        self.assertNotIn(str(SOURCES).encode(), self.program.read_bytes())

    def test_service_starts_the_installed_program(self):
        service = (self.root / "usr/share/dbus-1/services/com.jotwell.Jotwell.service").read_text()
        self.assertIn('\nExec="/usr/bin/jotwell"\n', service)


if __name__ == "__main__":
    unittest.main()
