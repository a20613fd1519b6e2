"""The README's pictures are those that the script takes."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

import screenshots

_ROOT = Path(__file__).resolve().parents[2]
_IMAGES = _ROOT / "docs" / "images"


def sizes(folder):
    return {path.name: subprocess.run(["identify", "-format", "%wx%h", path], capture_output=True,
                                      text=True, check=True).stdout
            for path in Path(folder).glob("*.png")}


class Pictures(unittest.TestCase):
    def test_each_is_taken_by_the_script(self):
        with tempfile.TemporaryDirectory() as folder:
            screenshots.take_all(folder)
            self.assertEqual(sizes(folder), sizes(_IMAGES))

    def test_readme_shows_each(self):
        shown = re.findall(r"\(docs/images/([^)]+)\)", (_ROOT / "README.md").read_text())
        self.assertEqual(sorted(shown), sorted(path.name for path in _IMAGES.glob("*.png")))


if __name__ == "__main__":
    unittest.main()
