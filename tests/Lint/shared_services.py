"""The services are wired together on one page: `shared()` is defined and called only there and
above the services."""

import re

from sources import bare_cpp, cpp_files, line_of, run_rule

WIRING = "src/Services/SharedServices.cpp"
# The program, what it shows, and the programs that drive and measure the services as they are wired.
ABOVE_THE_SERVICES = (
    "src/JotwellApp.cpp", "src/AppDelegate.cpp", "src/Views/", "tests/AppDelegate",
    "tests/driver/", "bench/")

# Tables and fonts: made of nothing else, so there is nothing to wire.
NO_SERVICES = ("BreakKinds", "MarkdownHighlighter", "SystemFonts")

_NO_SERVICE = re.compile(rf"\b(?:{'|'.join(NO_SERVICES)})::shared\s*\(\s*\)")
_SHARED = re.compile(r"\bshared\s*\(\s*\)")
_DECLARATION = re.compile(r"\bstatic\s+[\w:]+\s*&\s*shared\s*\(\s*\)\s*;")
_DEFINITION = re.compile(r"[\w:]+\s*&\s*[\w:]+::shared\s*\(\s*\)\s*(?:noexcept\s*)?\{")


def findings_in(name, text):
    if name == WIRING:
        return
    code = _NO_SERVICE.sub(lambda match: " " * len(match.group()), bare_cpp(text))
    for definition in _DEFINITION.finditer(code):
        yield f"{name}:{line_of(code, definition.start())}: shared() is defined in {WIRING} only"
    if name.startswith(ABOVE_THE_SERVICES):
        return
    if name.endswith(".h"):
        code = _DECLARATION.sub(lambda match: " " * len(match.group()), code)
    for call in _SHARED.finditer(code):
        yield f"{name}:{line_of(code, call.start())}: shared() is out of reach here"


BAD = [
    ("src/Services/ToastManager.cpp", "ToastManager& ToastManager::shared()\n{\n}\n"),
    ("src/Views/ToastView.cpp", "ToastManager& ToastManager::shared() {}"),
    ("src/Services/CommandService.cpp", "void f() { ToastManager::shared().show(); }"),
    ("src/Services/CommandService.h", "void f() { ToastManager::shared ( ).show(); }"),
    ("src/Services/SharedServices.h", "inline auto& all() { return SettingsService::shared(); }"),
    ("src/Models/Toast.cpp", "auto* p = &ToastManager::shared();"),
    ("tests/Services/ToastManagerTest.cpp", "ToastManager::shared();"),
    ("src/Views/SystemFonts.cpp", "SystemFontsService& SystemFontsService::shared()\n{\n}\n"),
]

GOOD = [
    (WIRING, "ToastManager& ToastManager::shared()\n{\n    return SettingsService::shared();\n}"),
    ("src/Services/ToastManager.h", "class T {\n    static ToastManager& shared();\n};"),
    ("src/AppDelegate.cpp", "ToastManager::shared().show();"),
    ("src/Views/ToastView.cpp", "ToastManager::shared().show();"),
    ("tests/driver/Driver.cpp", "ToastManager::shared().show();"),
    ("bench/WindowBench.cpp", "ToastManager::shared().show();"),
    ("src/Views/SystemFonts.cpp", "const SystemFonts& SystemFonts::shared()\n{\n}\n"),
    ("src/Support/CharacterWalk.cpp", "BreakKinds& kinds = BreakKinds::shared();"),
    ("src/Services/CommandService.cpp", "// shared() is elsewhere\nauto p = make_shared<int>();"),
]

if __name__ == "__main__":
    run_rule(findings_in, cpp_files(), bad=BAD, good=GOOD)
