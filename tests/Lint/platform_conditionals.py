"""Nothing outside Platform knows which system it is built for."""

import re

from sources import bare_cpp, files, line_of, run_rule

_CONDITION = re.compile(r"^[ \t]*#[ \t]*(?:el)?if(?:n?def)?\b(?:\\\n|[^\n])*", re.MULTILINE)
_SYSTEM = re.compile(r"\b(Q_OS_\w+|__linux__|__linux|__APPLE__|__unix__|__FreeBSD__|_WIN32)\b")


def findings_in(name, text):
    if name.startswith("src/Platform/"):
        return
    code = bare_cpp(text)
    for condition in _CONDITION.finditer(code):
        for system in _SYSTEM.findall(condition.group()):
            yield f"{name}:{line_of(code, condition.start())}: {system} belongs in src/Platform/"


BAD = [
    ("src/Views/Window.cpp", "int a;\n#ifdef Q_OS_LINUX\n#endif"),
    ("src/Support/File.h", "#  if A && \\\n defined(__APPLE__)\n#endif"),
    ("tests/Support/FileTest.cpp", "#if A\n#elif defined(__linux__)\n#endif"),
]

GOOD = [
    ("src/Platform/linux/Bus.cpp", "#ifdef Q_OS_LINUX\n#endif"),
    ("src/Views/Window.cpp", "#ifdef QT_DEBUG // Q_OS_LINUX\n#endif\n/*\n#ifdef Q_OS_MACOS\n*/"),
]

if __name__ == "__main__":
    run_rule(findings_in, files(".cpp", ".h", ".mm"), bad=BAD, good=GOOD)
