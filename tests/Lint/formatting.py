"""C++ stands as clang-format sets it."""

import subprocess

from sources import ROOT, cpp_files, run_rule


def findings_in(name, text):
    # The style is looked up from where a file of that name would be.
    check = subprocess.run(
        ["clang-format", "--dry-run", "-Werror", "--style=file", f"--assume-filename={name}"],
        cwd=ROOT, input=text, capture_output=True, text=True, timeout=60)
    if check.returncode:
        yield check.stderr.strip().splitlines()[0] if check.stderr else f"{name}: no clang-format"


BAD = [("src/Sample.cpp", "int main() {\n  return 0 ;\n}\n")]
GOOD = [("src/Sample.cpp", "int main()\n{\n    return 0;\n}\n")]

if __name__ == "__main__":
    run_rule(findings_in, cpp_files(), bad=BAD, good=GOOD)
