"""What the documents name in backticks as one of our files is there."""

import re
from pathlib import PurePosixPath

from sources import ROOT, files, line_of, run_rule

DOCUMENTS = ["CONTRIBUTING.md", "docs/ARCHITECTURE.md", "docs/index-database.md",
             "docs/input-language.md", "docs/packaging.md", "docs/updates.md"]

_QUOTED = re.compile(r"(?<!`)`([^`\n]+)`(?!`)")
_PATH = re.compile(r"\.?[\w{][\w.,{}-]*(/[\w.,{}-]+)*/?")
_ALTERNATIVES = re.compile(r"\{([^{}]*)\}")
_SUFFIXES = (".cpp", ".h", ".mm", ".qml", ".py", ".sh", ".md", ".txt", ".json", ".cmake", ".in")


def looks_like_path(text):
    is_ours = "/" in text or text.endswith(_SUFFIXES)
    return is_ours and bool(_PATH.fullmatch(text)) and not text.startswith("build/")


def spelled_out(path):
    """`Name.{h,cpp}` as `Name.h` and `Name.cpp`."""
    braces = _ALTERNATIVES.search(path)
    if not braces:
        return [path]
    return [way for choice in braces.group(1).split(",")
            for way in spelled_out(path[:braces.start()] + choice + path[braces.end():])]


def exists(path, document):
    roots = (ROOT, ROOT / "src", ROOT / PurePosixPath(document).parent)
    if any((root / path).exists() for root in roots):
        return True
    return "/" not in path and any(name.endswith("/" + path) for name in files())


def findings_in(name, text):
    for quoted in _QUOTED.finditer(text):
        if not looks_like_path(quoted.group(1)):
            continue
        for path in spelled_out(quoted.group(1)):
            if not exists(path, name):
                yield f"{name}:{line_of(text, quoted.start())}: there is no {path}"


BAD = [
    ("CONTRIBUTING.md", "See `docs/NONE.md`."),
    ("CONTRIBUTING.md", "See `NONE.md`."),
    ("CONTRIBUTING.md", "See `src/NONE/`."),
    ("docs/ARCHITECTURE.md", "The rules: `tests/Lint/{sources,NONE}.py`."),
]

GOOD = [
    ("CONTRIBUTING.md", "Say `./test`, `co_await f()` or `$XDG_DATA_HOME/a.db` in `tests/Lint/`."),
    ("docs/ARCHITECTURE.md", "`tests/Lint/{sources,formatting}.py`, `sources.py`, `<Name>.cpp`."),
]

if __name__ == "__main__":
    run_rule(findings_in, DOCUMENTS, bad=BAD, good=GOOD)
