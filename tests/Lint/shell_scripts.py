"""Shell scripts pass shellcheck."""

import re
import subprocess

from sources import ROOT, files, run_rule

_SHEBANG = re.compile(r"#!\s*/(?:usr/)?bin/(?:env\s+)?(?:ba|da)?sh\b")


def is_script(name):
    if name.endswith(".sh"):
        return True
    with open(ROOT / name, "rb") as file:
        return bool(_SHEBANG.match(file.readline(100).decode(errors="replace")))


def findings_in(name, text):
    check = subprocess.run(["shellcheck", "--format=gcc", "-"], input=text,
                           capture_output=True, text=True, timeout=60)
    for finding in check.stdout.splitlines():
        yield finding.replace("-:", f"{name}:", 1)


BAD = [("sample.sh", "#!/bin/bash\ncd $1\n")]
GOOD = [("sample.sh", "#!/bin/bash\nset -e\ncd \"$1\"\n")]

if __name__ == "__main__":
    run_rule(findings_in, [name for name in files() if is_script(name)], bad=BAD, good=GOOD)
