"""The jobs of the program as a user sees it: note, tray, window."""

import sys
import time
from pathlib import Path

from figures import BUILD, ROOT, figures, machine, summary

sys.path.insert(0, str(ROOT / "tests" / "EndToEnd"))

from desktop import Desktop  # noqa: E402
from processes import wait_until  # noqa: E402

STARTS = 21
FIRST_SHOWS = 11
PLACES = [("README.md", "<!-- figures: written by bench/run -->")]


def create_note():
    found = figures(BUILD / "bench" / "CreateNoteBench", BUILD)
    ours, bare = found["createNote"], found["createNote reference"]
    return ("`createNote`, a note of 1.6 KB, until it is safe on the disk",
            ours, "the bare system calls", bare)


def later_show(desktop):
    found = figures(BUILD / "bench" / "WindowBench", environment=desktop.environment)
    return ("show the window again, to the end of its first frame",
            found["later show"], "a bare Qt window", found["later show reference"])


def first_show(desktop):
    runs = [figures(BUILD / "bench" / "WindowBench", "--first", environment=desktop.environment)
            for _ in range(FIRST_SHOWS)]
    return ("show the window for the first time, to the end of its first frame",
            summary([run["first show"]["p50"] for run in runs]), "a bare Qt window",
            summary([run["first show reference"]["p50"] for run in runs]))


TYPING = [("words", "a word of a note"), ("folder", "a word, with a folder as parameter"),
          ("template list", "a template's name, the list open")]


def typing(desktop):
    """Rows of a key press by itself, and with the drawing that it causes."""
    found = figures(BUILD / "bench" / "TypingBench", environment=desktop.environment)
    rows = []
    for length in (200, 2000, 20000):
        for name, told in TYPING:
            for part, meaning in ((" event", ", by itself"), ("", ", and its drawing")):
                key = f"{name} {length}{part}"
                rows.append((f"a key in {length:,} characters: {told}{meaning}", found[key],
                             "a plain QTextEdit", found[f"{key} reference"]))
    return rows


def start_to_tray(desktop, watcher):
    ours, bare = [], []
    for _ in range(STARTS):
        bare.append(timed_start(desktop, watcher, BUILD / "bench" / "BareTray"))
        ours.append(timed_start(desktop, watcher, BUILD / "src" / "jotwell"))
    return ("start of the process to the tray item on the bus",
            summary(ours[1:]), "a bare Qt program with a tray item", summary(bare[1:]))


def timed_start(desktop, watcher, program):
    before = len(watcher.output().split())
    start = time.monotonic()
    process = desktop.spawn("measured", [program])
    wait_until(lambda: len(watcher.output().split()) > before, "the tray item")
    registered = float(watcher.output().split()[before])
    process.stop()
    return (registered - start) * 1000


def memory(desktop):
    """Resident megabytes: hidden since the start, and after the window was shown once."""
    process = desktop.spawn("jotwell", [BUILD / "src" / "jotwell"])
    wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program on the bus")
    time.sleep(1)
    hidden = resident(process)
    desktop.spawn("second", [BUILD / "src" / "jotwell"]).exit_status()
    desktop.wait_for_window()
    desktop.press("Escape")
    desktop.wait_for_no_window()
    time.sleep(1)
    shown = resident(process)
    process.stop()
    return hidden, shown


def resident(process):
    status = Path(f"/proc/{process.pid()}/status").read_text()
    [line] = [line for line in status.splitlines() if line.startswith("VmRSS")]
    return int(line.split()[1]) / 1024


def table(rows, resident_memory):
    lines = ["| Job | p50 | p99 | Reference | p50 | Ratio |", "|---|---|---|---|---|---|"]
    for job, ours, reference, bare in rows:
        lines.append(f"| {job} | {ours['p50']:.2f} ms | {ours['p99']:.2f} ms | {reference} "
                     f"| {bare['p50']:.2f} ms | {ours['p50'] / bare['p50']:.2f} |")
    hidden, shown = resident_memory
    lines.append("")
    lines.append(f"Resident memory: {hidden:.0f} MB since the start, {shown:.0f} MB once the window "
                 "has been shown.")
    lines.append("")
    lines.append(f"Measured on {machine()}, under Xvfb with openbox and picom, software rendering. "
                 "Where a job ran fewer than a hundred times, p99 is its slowest run.")
    return "\n".join(lines)


def measure():
    rows = [create_note()]
    with Desktop() as desktop:
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        watcher = desktop.spawn("watcher",
                                ["/usr/bin/python3", ROOT / "bench" / "tray_watcher.py"])
        wait_until(lambda: desktop.owns_name("org.kde.StatusNotifierWatcher"), "the tray")
        rows += [start_to_tray(desktop, watcher), first_show(desktop), later_show(desktop)]
        rows += typing(desktop)
        return table(rows, memory(desktop))
