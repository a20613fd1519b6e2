"""The jobs of the vault's index, on vaults of three sizes, each beside its reference and its limit."""

import subprocess
import sys
import time

from figures import BUILD, CACHE, figures, machine

SIZES = 1_000, 10_000, 100_000
PLACES = [("docs/speed.md", "<!-- figures of the index: written by bench/run -->")]

# In smaller vaults the ways between threads outweigh the work.
SIZES_WITH_RATIO = 10_000, 100_000

# A file that has just been written is read again by every scan, whatever its status says.
SETTLED = 65  # seconds



class Job:
    """One row: what was measured, beside what it is measured against."""

    def __init__(self, title, name, *, key="p50", reference=None, ratio=None, limits=None,
                 least=None):
        self.title, self.name, self.key = title, name, key
        self.reference_title, self.reference_name = reference or ("", None)
        self.ratio_limit, self.limits, self.least = ratio, limits or {}, least

    def shown(self, value):
        return milliseconds(value)

    def value(self, found):
        return found[self.name][self.key]

    def reference(self, found):
        return found[self.reference_name][self.key] if self.reference_name else None

    def ratio(self, found):
        return self.value(found) / self.reference(found)

    def limit(self):
        parts = [f"≤ {self.shown(limit)} at {size:,}" for size, limit in self.limits.items()]
        if len(set(self.limits.values())) == 1 and len(parts) > 1:
            parts = [f"≤ {self.shown(next(iter(self.limits.values())))}"]
        if self.least:
            parts.append(f"≥ {self.shown(self.least)}")
        if self.ratio_limit:
            parts.append(self.ratio_limit.text)
        return ", ".join(parts)

    def misses(self, size, found):
        value = self.value(found)
        if value > self.limits.get(size, value) or (self.least and value < self.least):
            yield f"{self.shown(value)} at {size:,}"
        is_limited = self.ratio_limit and size in SIZES_WITH_RATIO
        if is_limited and not self.ratio_limit.holds(self.ratio(found)):
            yield f"{self.ratio(found):.2f} × at {size:,}"


class Figure(Job):
    """Of something that is no time."""

    def __init__(self, title, name, unit, **more):
        super().__init__(title, name, key="value", **more)
        self.unit = unit

    def shown(self, value):
        return f"{three_digits(value)} {self.unit}"


class AtMost:
    def __init__(self, limit):
        self.text, self._limit = f"≤ {limit:g} ×", limit

    def holds(self, ratio):
        return ratio <= self._limit


class AtLeast:
    def __init__(self, limit):
        self.text, self._limit = f"≥ {limit:g} ×", limit

    def holds(self, ratio):
        return ratio >= self._limit


def hold(title, name):
    return Figure(title, name, "ms", limits=dict.fromkeys(SIZES, 8),
                  reference=("of it its own work", f"{name}, working"))


JOBS = [
    Figure("clean the texts and find their tags, on one thread", "cleaning", "MB/s", least=150),
    Figure("the same of 1,000 notes", "cleaning of some", "MB/s", ratio=AtLeast(7),
           reference=("ICU with compiled patterns", "cleaning of some reference")),
    Job("build until the maps are full", "build", ratio=AtMost(1.5),
        limits={10_000: 250, 100_000: 2300},
        reference=("read and hash all files on all cores, and clean them", "build reference")),
    Job("store after a build", "store", ratio=AtMost(1.1),
        reference=("SQLite alone, one commit a row, no syncs", "store reference")),
    Job("search of the texts, p50", "search", ratio=AtMost(1.5), limits={10_000: 5, 100_000: 45},
        reference=("vector scan of all texts on all cores", "search reference")),
    Job("search of the texts, p99", "search", key="p99", limits={10_000: 8}),
    Job("search by name and tag", "name and tag search", limits={10_000: 1, 100_000: 8}),
    Job("the same search again", "cached search", limits=dict.fromkeys(SIZES, 0.02)),
    Job("scan of an unchanged vault", "scan", ratio=AtMost(1.25),
        limits={10_000: 25, 100_000: 275},
        reference=("list the folders, statx every note", "scan reference")),
    Job("of it on the main thread", "scan on the main thread", limits={10_000: 1}),
    Job("the 50 notes that changed last", "recent notes", ratio=AtMost(1.15),
        limits={10_000: 25, 100_000: 260},
        reference=("list, statx, keep the newest 50", "recent notes reference")),
    Figure("memory per byte of note text", "memory per byte", "B",
           limits={10_000: 2.1, 100_000: 2.1}, reference=("both texts", "both texts per byte")),
    hold("longest hold of the main thread: build and store", "held by build and store"),
    hold("the same: build over a full index", "held by rebuild"),
    hold("the same: scan", "held by scan"),
    hold("the same: nothing, while others keep the cores busy", "held by nothing"),
]


def three_digits(value):
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def milliseconds(value):
    return f"{three_digits(value)} ms" if value >= 0.1 else f"{three_digits(value * 1000)} µs"


def make_vault(size):
    folder = CACHE / "vaults" / str(size)
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run([BUILD / "bench" / "MakeVault", folder, str(size)], check=True, timeout=600)
    return folder


def wait_until_settled(folders):
    newest = max((folder / "vault.txt").stat().st_mtime for folder in folders)
    left = newest + SETTLED - time.time()
    if left > 0:
        print(f"The vaults are new: waiting {left:.0f} s for them to settle", file=sys.stderr)
        time.sleep(left)


def run(size, folder):
    start = time.monotonic()
    scratch = CACHE / "scratch"
    scratch.mkdir(exist_ok=True)
    command = [BUILD / "bench" / "IndexBench", folder / "notes", str(size), scratch]
    found = figures(*command, timeout=1800) | figures(*command, "memory")
    print(f"{size:,} notes: {time.monotonic() - start:.0f} s", file=sys.stderr)
    return found


def row(job, results):
    found = results.values()
    values = [job.shown(job.value(each)) for each in found]
    reference, ratio = "", ""
    if job.reference_name:
        shown = " / ".join(job.shown(job.reference(each)) for each in found)
        reference = f"{job.reference_title}: {shown}"
        if job.ratio_limit:
            ratio = " / ".join(f"{job.ratio(each):.2f}" for each in found)
    misses = [miss for size, each in results.items() for miss in job.misses(size, each)]
    verdict = f"MISSED: {', '.join(misses)}" if misses else "ok" if job.limit() else ""
    return "| " + " | ".join([job.title, *values, reference, ratio, job.limit(), verdict]) + " |"


def table(results):
    sizes = [f"{size:,} notes" for size in results]
    heads = ["Job", *sizes, "Reference", "Ratio", "Limit", ""]
    lines = ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads)]
    lines += [row(job, results) for job in JOBS]
    lines.append("")
    lines.append(f"Medians, measured on {machine()}, warm cache; each job by turns with its "
                 "reference. A ratio's limit is that of 10,000 notes and more. The vaults are made "
                 "up, with the statistics of real ones: 3.8 KB to a note in the mean, 1.6 KB in "
                 "the median.")
    return "\n".join(lines)


def measure(sizes=SIZES):
    folders = {size: make_vault(size) for size in sizes}
    wait_until_settled(folders.values())
    return table({size: run(size, folder) for size, folder in folders.items()})
