"""File systems of a test's own, seen by nobody else, for root and for everybody else."""

import contextlib
import os
import subprocess
import sys
import unittest

_MARK = "JOTWELL_OWN_MOUNTS"


def main():
    """unittest.main() in a mount namespace of its own, where the system lets us have one."""
    if _MARK not in os.environ:
        for options in ["--mount"], ["--mount", "--map-root-user"]:
            unshare = ["unshare", *options]
            if subprocess.run([*unshare, "true"], capture_output=True).returncode == 0:
                again = [*unshare, sys.executable, *sys.orig_argv[1:]]
                os.execvpe(again[0], again, os.environ | {_MARK: "1"})
    unittest.main()


@contextlib.contextmanager
def small_disk(folder, size="256k"):
    """Puts an empty file system of that size on `folder`."""
    _mount("-t", "tmpfs", "-o", f"size={size}", "tmpfs", folder)
    try:
        yield
    finally:
        subprocess.run(["umount", "--lazy", folder], check=True)


def set_writable(folder, is_writable):
    _mount("-o", f"remount,bind,{'rw' if is_writable else 'ro'}", folder)


@contextlib.contextmanager
def shown(source, target):
    """Shows the folder `source` with all that is mounted in it as `target`."""
    _mount("--rbind", source, target)
    try:
        yield
    finally:
        subprocess.run(["umount", "--lazy", target], check=True)


def _mount(*arguments):
    if _MARK not in os.environ:
        raise unittest.SkipTest("no mount namespaces here")
    mounted = subprocess.run(["mount", *arguments], capture_output=True, text=True)
    if mounted.returncode:
        raise unittest.SkipTest(mounted.stderr.strip())
