"""Runs the benchmarks and makes tables of them: each figure beside a reference that was measured in
the same run, by turns, so that a slow machine slows both."""

import argparse

import desktop_jobs
import index_jobs
from figures import write

GROUPS = {"desktop": desktop_jobs, "index": index_jobs}


def arguments():
    parser = argparse.ArgumentParser(prog="bench/run")
    parser.add_argument("groups", nargs="*", metavar="GROUP",
                        help=f"what to measure, of {', '.join(GROUPS)}; all without any")
    parser.add_argument("--write", action="store_true",
                        help="put the tables into the documents that quote them")
    found = parser.parse_args()
    unknown = set(found.groups) - set(GROUPS)
    if unknown:
        parser.error(f"there is no {', '.join(unknown)}")
    return found


def main():
    asked = arguments()
    for name in asked.groups or GROUPS:
        text = GROUPS[name].measure()
        print(text, flush=True)
        if asked.write:
            for document, start in GROUPS[name].PLACES:
                write(document, start, text)


main()
