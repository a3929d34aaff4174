#!/usr/bin/env python3
"""Compares the library's binary interface (functions, their arguments, the records they take) with the stored one, to
which released programs are bound."""

import argparse
import os
import subprocess
import sys

from inspection import run

# How the interface is read from debug information. Everything that is no public header's is left out.
READING = ["--drop-private-types", "--exported-interfaces-only"]
CHANGED = 4


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True, help="built with debug information")
    parser.add_argument("--headers", required=True, help="the folder of the public headers")
    parser.add_argument("--baseline", required=True)
    parser.add_argument("--update", action="store_true", help="store the library's interface as the baseline")
    arguments = parser.parse_args()

    sections = run(["readelf", "--wide", "--sections", arguments.library])
    if ".debug_info" not in sections:
        sys.exit(f"{arguments.library} has no debug information, so nothing was checked: build it with -g")
    if arguments.update:
        run(["abidw", *READING, "--headers-dir", arguments.headers, "--no-corpus-path", "--no-comp-dir-path",
             "--short-locs", "--out-file", arguments.baseline, arguments.library])
        return
    if not os.path.exists(arguments.baseline):
        sys.exit(f"{arguments.baseline} is missing, so nothing was checked: store it with --update")

    command = ["abidiff", *READING, "--harmless", "--headers-dir1", arguments.headers, "--headers-dir2",
               arguments.headers, arguments.baseline, arguments.library]
    try:
        comparison = subprocess.run(command, capture_output=True, text=True, check=False)
    except FileNotFoundError:
        sys.exit("abidiff is missing, so nothing was checked: run scripts/install-deps")
    if comparison.returncode & CHANGED:
        sys.exit(f"{comparison.stdout}\nThe library's binary interface has changed. Programs that are built keep "
                 "binding to the former one: take\nback whatever changes or removes something. When functions were only "
                 "added, store the new interface:\n"
                 f"    tests/gates/check_abi.py --update --library {arguments.library} --headers {arguments.headers} "
                 f"--baseline {arguments.baseline}")
    if comparison.returncode != 0:
        sys.exit(f"abidiff failed:\n{comparison.stdout}{comparison.stderr}")


if __name__ == "__main__":
    main()
