"""What `cmake --install` puts where, checked by the tools that know each kind of file."""

import configparser
import gzip
import os
import re
import tempfile
import unittest
import xml.etree.ElementTree
from email.utils import parsedate_to_datetime
from pathlib import Path

from installation import (CHANGELOG, COPYRIGHT, ENTRY, ICON, ID, MANUAL, METAINFO, MODES, PROGRAM,
                          SERVICE, SYMBOLIC_ICON, modes_below, read, run)

SOURCES = Path(__file__).resolve().parents[2]
ACTIONS = "toggle", "settings", "quit"


def keys_of(path):
    """A file of groups and keys, by both of their names."""
    parser = configparser.RawConfigParser(strict=True, delimiters="=")
    parser.optionxform = str
    parser.read_string(path.read_text())
    return parser


class InstalledFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="jotwell-")
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = Path(folder.name) / "a prefix"
        os.umask(0o022)
        read("cmake", "--install", os.environ["JOTWELL_BUILD"], "--prefix", cls.prefix)

    def text_of(self, name):
        data = (self.prefix / name).read_bytes()
        return (gzip.decompress(data) if name.endswith(".gz") else data).decode()

    def metainfo(self):
        return xml.etree.ElementTree.fromstring(self.text_of(METAINFO))

    def test_nothing_is_missing_and_nothing_is_too_much(self):
        self.assertEqual(modes_below(self.prefix), MODES)

    def test_desktop_entry(self):
        self.assertEqual(run("desktop-file-validate", self.prefix / ENTRY), (0, ""))
        entry = keys_of(self.prefix / ENTRY)
        main = entry["Desktop Entry"]
        self.assertEqual(main["Icon"], Path(ICON).stem)
        self.assertEqual(main["Exec"], Path(PROGRAM).name)
        self.assertEqual(main["DBusActivatable"], "true")
        self.assertEqual(main["Actions"], "".join(f"{name};" for name in ACTIONS))
        for name in ACTIONS:
            action = entry[f"Desktop Action {name}"]
            self.assertTrue(action["Name"])
            self.assertEqual(action["Exec"], f"gapplication action {ID} {name}")

    def test_service_names_the_program_where_it_is(self):
        service = keys_of(self.prefix / SERVICE)["D-BUS Service"]
        self.assertEqual(service["Name"], ID)
        self.assertEqual(service["Exec"], f'"{self.prefix / PROGRAM}"')

    def test_metainfo(self):
        status, said = run("appstreamcli", "validate", "--no-net", self.prefix / METAINFO)
        self.assertEqual(status, 0, said)
        self.assertNotRegex(said, r"(?m)^[EWI]:")
        self.assertEqual(self.metainfo().findtext("launchable"), Path(ENTRY).name)

    def test_metainfo_and_desktop_entry_say_the_same(self):
        entry = keys_of(self.prefix / ENTRY)["Desktop Entry"]
        metainfo = self.metainfo()
        self.assertEqual(metainfo.findtext("name"), entry["Name"])
        self.assertEqual(metainfo.findtext("summary"), entry["Comment"])
        self.assertEqual([each.text for each in metainfo.iter("category")],
                         entry["Categories"].split(";")[:-1])

    def test_pictures_are_those_that_there_are(self):
        images = [each for each in self.metainfo().iter("image")]
        self.assertTrue(images)
        for image in images:
            self.assertRegex(image.text, "^https://")
            picture = SOURCES / "docs/images" / Path(image.text).name
            size = read("identify", "-format", "%w %h", picture)
            self.assertEqual(size, f"{image.get('width')} {image.get('height')}", picture)

    def test_manual_page_is_drawn_without_a_warning(self):
        page = self.prefix / MANUAL
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "MANWIDTH": "80"}
        said = read("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page,
                    env=environment)
        self.assertNotIn("warning", said)
        drawn = read("man", "-E", "UTF-8", "-l", page, env=environment)
        self.assertNotIn("@", drawn)
        for name in ("com.jotwell.Jotwell", "Ctrl+Return", "TagIndex.db", *ACTIONS):
            self.assertIn(name, drawn)

    def test_version_and_date_are_the_same_everywhere(self):
        release = self.metainfo().find("releases/release")
        version, date = release.get("version"), release.get("date")
        changelog = self.text_of(CHANGELOG)
        self.assertEqual(re.match(r"jotwell \((.*?)\) ", changelog)[1], version)
        written = re.search(r"^ -- .* <.*@.*>  (.*)$", changelog, re.MULTILINE)[1]
        self.assertEqual(parsedate_to_datetime(written).date().isoformat(), date)
        self.assertEqual(parsedate_to_datetime(written).strftime("%a"), written[:3])
        [title] = re.findall(r"(?m)^\.TH .*$", self.text_of(MANUAL))
        self.assertIn(f'"{date}" "Jotwell {version}"', title)

    def test_license_is_whole(self):
        told = re.sub(r"(?m)^ \.?", "", self.text_of(COPYRIGHT))
        license_text = (SOURCES / "LICENSE").read_text()
        self.assertIn(license_text.split("\n\n", 2)[2].strip(), told)
        self.assertIn(re.search(r"Copyright \(c\) (.*)", license_text)[1], told)

    def test_icons_are_drawings_of_their_own(self):
        for name in ICON, SYMBOLIC_ICON:
            drawing = xml.etree.ElementTree.fromstring(self.text_of(name))
            self.assertEqual(drawing.get("width"), drawing.get("height"))
            self.assertNotIn("href", self.text_of(name))


if __name__ == "__main__":
    unittest.main()
