"""What all measurements share: running a benchmark, and writing tables into documents."""

import json
import os
import platform
import statistics
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = Path(os.environ.get("JOTWELL_BENCH_BUILD", ROOT / "build" / "release"))
CACHE = ROOT / "build" / "bench"


def figures(*command, environment=None, timeout=600):
    """What a benchmark prints, by name."""
    printed = subprocess.run(command, env=environment, stdout=subprocess.PIPE, text=True,
                             check=True, timeout=timeout).stdout
    lines = [json.loads(line) for line in printed.splitlines()]
    return {line["name"]: line for line in lines}


def summary(times):
    ordered = sorted(times)
    return {"p50": statistics.median(ordered), "p99": ordered[-1]}


def machine():
    return (f"{len(os.sched_getaffinity(0))} cores ({cpu()}), "
            f"Linux {platform.release().split('-')[0]}, in a Release build")


def cpu():
    names = [line.split(":", 1)[1].strip() for line in Path("/proc/cpuinfo").read_text().splitlines()
             if line.startswith("model name")]
    return names[0] if names else platform.machine()


def write(document, start, text):
    """Puts `text` between the line `start` and the end of the figures that follows it."""
    path = ROOT / document
    before, rest = path.read_text().split(start)
    end = "<!-- end of figures -->"
    after = rest.split(end, 1)[1]
    path.write_text(f"{before}{start}\n\n{text}\n\n{end}{after}")
