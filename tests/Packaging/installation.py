"""What an installation brings, whoever packs it: these files with these rights, and no others."""

import subprocess
from pathlib import Path

ID = "com.jotwell.Jotwell"
PROGRAM = "bin/jotwell"
ENTRY = f"share/applications/{ID}.desktop"
SERVICE = f"share/dbus-1/services/{ID}.service"
METAINFO = f"share/metainfo/{ID}.metainfo.xml"
ICON = f"share/icons/hicolor/scalable/apps/{ID}.svg"
SYMBOLIC_ICON = f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg"
MANUAL = "share/man/man1/jotwell.1.gz"
CHANGELOG = "share/doc/jotwell/changelog.gz"
COPYRIGHT = "share/doc/jotwell/copyright"

MODES = {PROGRAM: 0o755} | dict.fromkeys(
    (ENTRY, SERVICE, METAINFO, ICON, SYMBOLIC_ICON, MANUAL, CHANGELOG, COPYRIGHT), 0o644)


def modes_below(folder):
    """The rights of each file below the folder."""
    return {str(path.relative_to(folder)): path.lstat().st_mode & 0o7777
            for path in Path(folder).rglob("*") if not path.is_dir() or path.is_symlink()}


def run(*command, **options):
    """The exit status of a command, and all that it says."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          timeout=300, **options)
    return done.returncode, done.stdout


def read(*command, **options):
    """The output of a command, which is to succeed."""
    status, said = run(*command, **options)
    if status:
        raise AssertionError(f"{command[0]} fails:\n{said}")
    return said
