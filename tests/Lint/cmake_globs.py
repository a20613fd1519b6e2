"""Sources are listed by name, so that a build knows when one comes or goes."""

import re

from sources import files, line_of, run_rule

_GLOB = re.compile(
    r"^[^#\n]*\b(file\s*\(\s*GLOB|aux_source_directory\s*\()", re.MULTILINE | re.IGNORECASE)


def findings_in(name, text):
    for glob in _GLOB.finditer(text):
        yield f"{name}:{line_of(text, glob.start(1))}: list the sources by name"


BAD = [
    ("CMakeLists.txt", "file(GLOB sources *.cpp)"),
    ("CMakeLists.txt", "if(A)\n    FILE( GLOB_RECURSE sources *.cpp)"),
    ("CMakeLists.txt", "aux_source_directory(. sources)"),
]

GOOD = [("CMakeLists.txt", "# file(GLOB is not for us\nfile(WRITE a.txt GLOB)")]

if __name__ == "__main__":
    run_rule(findings_in, files("CMakeLists.txt", ".cmake"), bad=BAD, good=GOOD)
