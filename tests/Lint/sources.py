"""What every rule needs: the project's files, C++ without its comments, and a main()."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

_LITERAL = re.compile(
    r"""
      //(?:\\\n|[^\n])*
    | /\*.*?\*/
    | (?:u8|[uUL])?R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)"
    | (?:u8|[uUL])?"(?:\\.|[^"\\\n])*"
    | (?<![0-9a-fA-F])(?:u8|[uUL])?'(?:\\.|[^'\\\n])+'
    """,
    re.VERBOSE | re.DOTALL,
)


def files(*suffixes):
    """The paths of all files that are or would be in the repository, relative to its root."""
    # The tests of a checkout may be run by another user than its owner.
    listing = subprocess.run(
        ["git", "-c", f"safe.directory={ROOT}", "ls-files", "-co", "--exclude-standard", "-z"],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout
    names = sorted(name for name in set(listing.split("\0")) if name.endswith(suffixes or ""))
    return [name for name in names if (ROOT / name).is_file()]


def cpp_files():
    return files(".cpp", ".h")


def text_of(name):
    return (ROOT / name).read_text(encoding="utf-8")


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def bare_cpp(text):
    """`text` with comments blank and literals empty; every position and line stays."""
    def blank(match):
        literal = match.group()
        if literal.startswith("/"):
            return re.sub(r"[^\n]", " ", literal)
        quote = literal[-1]
        return quote + re.sub(r"[^\n]", " ", literal[1:-1]) + quote
    return _LITERAL.sub(blank, text)


def run_rule(findings_in, names, *, bad, good):
    """Checks `names` with `findings_in(name, text)`, once the rule has shown that it bites.

    `bad` and `good` are samples as (file name, text): each bad one must give a finding, and each
    good one none.
    """
    for name, sample in bad:
        if not list(findings_in(name, sample)):
            sys.exit(f"The rule lets this pass in {name}:\n{sample}")
    for name, sample in good:
        for finding in findings_in(name, sample):
            sys.exit(f"The rule is wrong about this in {name} ({finding}):\n{sample}")
    findings = []
    for name in names:
        is_there = (ROOT / name).is_file()
        findings += findings_in(name, text_of(name)) if is_there else [f"{name}: not there"]
    print(*findings, f"{len(names)} files, {len(findings)} findings", sep="\n")
    sys.exit(1 if findings else 0)
