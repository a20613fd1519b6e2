"""A layer includes only itself and what stands below it."""

import re
from pathlib import PurePosixPath

from sources import ROOT, bare_cpp, files, line_of, run_rule

# The interfaces stand in Platform itself, what implements them for a system in folders below it.
BELOW = {
    "Platform": {"Platform"},
    "Platform/*": {"Platform", "Platform/*", "Support"},
    "Support": {"Support", "Platform"},
    "Models": {"Models", "Support"},
    "Services": {"Services", "Models", "Support", "Platform"},
    "Views": {"Views", "Services", "Models", "Support", "Platform"},
}

_INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|import)[ \t]*["<]([^">\n]+)[">]', re.MULTILINE)


def layer_of(path):
    """The layer of a file below src/; none for the program on top of the layers."""
    folders = PurePosixPath(path).parts[:-1]
    if not folders:
        return None
    return "Platform/*" if folders[0] == "Platform" and len(folders) > 1 else folders[0]


def included_layer(name, path):
    folder = PurePosixPath(name).parent
    if (ROOT / folder / path).is_file():
        path = (folder / path).relative_to("src")
    layer = layer_of(path)
    return layer if layer in BELOW else None


def findings_in(name, text):
    layer = layer_of(PurePosixPath(name).relative_to("src"))
    if layer is None:
        return
    comments_blank = bare_cpp(text)
    for include in _INCLUDE.finditer(text):
        if comments_blank[include.end() - 1] == " ":
            continue
        other = included_layer(name, include.group(1))
        if other and other not in BELOW[layer]:
            line = line_of(text, include.start(1))
            yield f"{name}:{line}: {layer} must not include {include.group(1)}"


BAD = [
    ("src/Platform/Clock.h", '#include "Support/Result.h"'),
    ("src/Platform/linux/Bus.cpp", '#include "Services/ToastManager.h"'),
    ("src/Support/Result.h", "#include <Models/Toast.h>"),
    ("src/Support/File.cpp", '#include "Platform/linux/LinuxFiles.h"'),
    ("src/Models/Toast.h", '#include "Platform/Clock.h"'),
    ("src/Services/Index/Search/IndexSearch.cpp", '#  include "Views/Theme.h"'),
    ("src/Services/ToastManager.cpp", '\n#include "Platform/qt/QtScheduler.h"'),
    ("src/Views/Theme.cpp", '#include "Platform/linux/Colours.h"'),
]

GOOD = [
    ("src/JotwellApp.cpp", '#include "Platform/linux/Bus.h"\n#include "Views/Theme.h"'),
    ("src/Platform/linux/Bus.cpp", '#include "Platform/linux/Bus.h"\n#include "Support/Result.h"'),
    ("src/Support/File.cpp", '#include "Platform/FileCalls.h"\n#include <fcntl.h>'),
    ("src/Models/Toast.h", '#include "Support/Result.h" // not "Views/Toast.h"'),
    ("src/Services/ToastManager.cpp", '// #include "Views/Theme.h"\n#include "ToastManager.moc"'),
    ("src/Views/Settings/General.cpp", '#include "Services/SettingsService.h"'),
]

if __name__ == "__main__":
    sources = [name for name in files(".cpp", ".h", ".mm") if name.startswith("src/")]
    run_rule(findings_in, sources, bad=BAD, good=GOOD)
