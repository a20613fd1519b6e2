"""The jobs of the program as a user sees it: note, tray, window."""

import sys
import time
from pathlib import Path

from figures import BUILD, ROOT, figures, machine, summary
from index_jobs import make_vault

sys.path.insert(0, str(ROOT / "tests" / "EndToEnd"))

from desktop import LISTENING, Desktop  # noqa: E402
from processes import wait_until  # noqa: E402

STARTS = 21
FIRST_SHOWS = 11
MOST_MEMORY = 60  # megabytes
PLACES = [("docs/speed.md", "<!-- figures: written by bench/run -->")]


class Row:
    """What was timed, beside the same of a reference."""

    def __init__(self, job, ours, reference, bare, limits=(None, None), ratio=None):
        self._job, self._ours, self._reference, self._bare = job, ours, reference, bare
        self._limits, self._ratio_limit = limits, ratio

    def shown(self):
        ours, bare = self._ours, self._bare
        cells = [self._job, f"{ours['p50']:.2f} ms", f"{ours['p99']:.2f} ms", self._reference,
                 f"{bare['p50']:.2f} ms", f"{bare['p99']:.2f} ms", f"{self._ratio():.2f}",
                 self._limit(), self._verdict()]
        return as_row(cells)

    def _ratio(self):
        return self._ours["p50"] / self._bare["p50"]

    def _limit(self):
        parts = [f"{limit:g} ms" for limit in self._limits if limit]
        if self._ratio_limit:
            parts.append(f"{self._ratio_limit:g} ×")
        return f"≤ {' / '.join(parts)}" if parts else ""

    def _verdict(self):
        misses = [name for name, limit in zip(("p50", "p99"), self._limits)
                  if limit and self._ours[name] > limit]
        if self._ratio_limit and self._ratio() > self._ratio_limit:
            misses.append("ratio")
        return f"MISSED: {', '.join(misses)}" if misses else "ok" if self._limit() else ""


def as_row(cells):
    return f"| {' | '.join(cells)} |"


def create_note():
    found = figures(BUILD / "bench" / "CreateNoteBench", BUILD)
    return Row("`createNote`, a note of 1.6 KB, until it is safe on the disk",
               found["createNote"], "the bare system calls", found["createNote reference"])


SHOW_LIMITS = {"limits": (4, 8), "ratio": 2.4}


def later_shows(desktop, vault):
    found = figures(BUILD / "bench" / "WindowBench", vault, environment=desktop.environment)
    told = [("later show", "show the window again, to the end of its first frame"),
            ("later show, list and panel", "the same with the list open and 50 results"),
            ("later show, build", "the same while the index of 10,000 notes is built")]
    return [Row(meaning, found[name], "a bare Qt window", found[f"{name} reference"], **SHOW_LIMITS)
            for name, meaning in told]


def first_show(desktop, meaning, *vault):
    runs = [figures(BUILD / "bench" / "WindowBench", "--first", *vault,
                    environment=desktop.environment)
            for _ in range(FIRST_SHOWS)]
    return Row(meaning, summary([run["first show"]["p50"] for run in runs]), "a bare Qt window",
               summary([run["first show reference"]["p50"] for run in runs]))


KEYS = [(f"{name} {length}", f"a key in {length:,} characters: {meaning}")
        for length in (200, 2000, 20000)
        for name, meaning in (("words", "a word of a note"),
                              ("folder", "a word, with a folder as parameter"),
                              ("template list", "a template's name, the list of 200 open"))]
KEYS += [(name, f"a key in 20,000 characters: {meaning}") for name, meaning in (
    ("folder list", "a folder's name, the list of 10,000 open"),
    ("panel", "a word, with 50 results"),
    ("folder list and panel", "a folder's name, the list of 10,000 open, with 50 results"),
    ("build", "a word, while the index of 10,000 notes is built"))]


def typing(desktop, vault):
    """Rows of a key press by itself, and with the drawing that it causes."""
    found = figures(BUILD / "bench" / "TypingBench", vault, environment=desktop.environment)
    rows = []
    for name, meaning in KEYS:
        for part, told, limits in ((" event", "by itself", (0.4, None)),
                                   ("", "and its drawing", (2, 4))):
            ours, bare = found[name + part], found[f"{name}{part} reference"]
            rows.append(Row(f"{meaning}, {told}", ours, "a plain QTextEdit", bare, limits, 2.5))
    return rows


LATEST_FRAME = 32  # milliseconds
MOVEMENTS = [("spring and flash", "a command's spring and flash"), ("toast", "a toast in and out"),
             ("strip", "the strip of the index in and out"),
             ("opening the list", "opening the list of 10,000 folders"),
             ("opening the panel", "opening the panel of 50 results"),
             ("arrows in the list", "arrow down held in the list, 200 rows"),
             ("arrows in the panel", "arrow down held in the panel, 50 rows"),
             ("frames reference", "a bare Qt window whose card grows")]


def frames(desktop, vault):
    """The table of the times between frames."""
    found = figures(BUILD / "bench" / "FrameBench", vault, environment=desktop.environment)
    lines = [as_row(["What moves", "Frames", "p50", "p99", "Longest", "of it own work, p99",
                     "longest", ""]), "|" + "---|" * 8]
    lines += [frame_row(found, name, meaning) for name, meaning in MOVEMENTS]
    lines += [frame_row(found, f"{name}, build", f"{meaning}, while an index is built")
              for name, meaning in MOVEMENTS]
    lines.append(frame_row(found, "spinner, build", "how late a step of the spinner is, likewise"))
    return lines


def frame_row(found, name, meaning):
    gaps, work = found[name], found[f"{name}, work"]
    is_ours = not name.startswith("frames reference")
    verdict = "ok" if gaps["longest"] <= LATEST_FRAME else f"MISSED: ≤ {LATEST_FRAME} ms"
    return as_row([meaning, str(gaps["count"]), *(f"{gaps[key]:.1f} ms" for key in
                                                  ("p50", "p99", "longest")),
                   f"{work['p99']:.1f} ms", f"{work['longest']:.1f} ms",
                   verdict if is_ours else ""])


MEMORY = [("started", "the window is made"), ("shown", "it has been shown"),
          ("panel", "50 results are shown"), ("list and panel", "and a list of 10,000 folders"),
          ("50 toggles", "after 50 shows"), ("1,000 toasts", "after 1,000 toasts, 10 ms apart"),
          ("100 openings of the list", "after 100 openings of the list"),
          ("100 openings of the panel", "after 100 openings of the panel")]


def card_memory(desktop):
    """The table of the resident memory; each use has been looked at half-way, too."""
    found = figures(BUILD / "bench" / "CardMemoryBench", environment=desktop.environment)
    lines = [as_row(["Resident, on a vault of 10,000 folders", "", "half-way"]), "|---|---|---|"]
    for name, meaning in MEMORY:
        half = found.get(f"{name}, half")
        lines.append(as_row([meaning, megabytes(found[name]), megabytes(half) if half else ""]))
    return lines


def megabytes(figure):
    return f"{figure['value']:.1f} MB"


def start_to_tray(desktop, watcher):
    ours, bare = [], []
    for _ in range(STARTS):
        bare.append(timed_start(desktop, watcher, BUILD / "bench" / "BareTray"))
        ours.append(timed_start(desktop, watcher, BUILD / "src" / "jotwell"))
    return Row("start of the process to the tray item on the bus", summary(ours[1:]),
               "a bare Qt program with a tray item", summary(bare[1:]), limits=(80, None))


def timed_start(desktop, watcher, program):
    before = len(watcher.output().splitlines())
    start = time.monotonic()
    process = desktop.spawn("measured", [program])
    wait_until(lambda: len(watcher.output().splitlines()) > before, "the tray item")
    registered = float(watcher.output().splitlines()[before].split()[0])
    process.stop()
    return (registered - start) * 1000


def start_to_hotkey(desktop, watcher):
    ours, bare = [], []
    for _ in range(STARTS):
        bare.append(timed_start(desktop, watcher, BUILD / "bench" / "BareTray"))
        ours.append(timed_listening(desktop))
    return Row("start of the process to the hotkey that works", summary(ours[1:]),
               "a bare Qt program with a tray item", summary(bare[1:]), limits=(80, None))


def timed_listening(desktop):
    file = desktop.folder / "listening.out"
    before = file.read_text().count(LISTENING) if file.exists() else 0
    start = time.monotonic()
    process = desktop.spawn("listening", [BUILD / "src" / "jotwell"])
    while process.output().count(LISTENING) == before:
        time.sleep(0.0005)
    listening = time.monotonic()
    process.stop()
    return (listening - start) * 1000


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


def wake_ups(desktop):
    """How often the hidden program wakes in a minute in which nothing happens."""
    process = desktop.spawn("jotwell", [BUILD / "src" / "jotwell"])
    wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program on the bus")
    time.sleep(35)  # a thread without work ends after half a minute
    count = process.wake_ups_in(60)
    process.stop()
    return count


def resident(process):
    status = Path(f"/proc/{process.pid()}/status").read_text()
    [line] = [line for line in status.splitlines() if line.startswith("VmRSS")]
    return int(line.split()[1]) / 1024


def table(rows, resident_memory, idle_wake_ups, frame_lines, memory_lines):
    lines = [as_row(["Job", "p50", "p99", "Reference", "p50", "p99", "Ratio", "Limit", ""]),
             "|" + "---|" * 9, *(row.shown() for row in rows), "", *frame_lines, "", *memory_lines]
    hidden, shown = resident_memory
    lines.append("")
    lines.append(f"Without a vault the program has {hidden:.0f} MB since the start and {shown:.0f} MB "
                 f"once the window has been shown, of {MOST_MEMORY} MB that it may have. Hidden, "
                 f"it woke {idle_wake_ups} times in a minute.")
    lines.append("")
    lines.append(f"Measured on {machine()}, under Xvfb with openbox and picom, software rendering. "
                 "Where a job ran fewer than a hundred times, p99 is its slowest run. What a thread "
                 "itself has worked leaves out what it has waited for a core.")
    return "\n".join(lines)


def measure():
    vault = make_vault(10_000) / "notes"
    rows = [create_note()]
    with Desktop() as desktop:
        desktop.write_settings(OnboardingCompleted="true")
        watcher = desktop.spawn("watcher",
                                ["/usr/bin/python3", ROOT / "tests" / "EndToEnd" / "notifier_watcher.py"])
        wait_until(lambda: desktop.owns_name("org.kde.StatusNotifierWatcher"), "the tray")
        rows += [start_to_hotkey(desktop, watcher), start_to_tray(desktop, watcher),
                 first_show(desktop, "show the window for the first time, to the end of its first "
                                     "frame"),
                 first_show(desktop, "the same while the index of 10,000 notes is built", vault),
                 *later_shows(desktop, vault), *typing(desktop, vault)]
        return table(rows, memory(desktop), wake_ups(desktop), frames(desktop, vault), card_memory(desktop))
