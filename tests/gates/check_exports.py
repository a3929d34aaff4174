#!/usr/bin/env python3
"""Checks that the library exports what its public headers declare and what the checked-in list names: callers bind to
these names, so that none may come, go or change unnoticed."""

import argparse
import os

from inspection import Findings, read_names, run


def exported_by(library):
    names = set()
    for line in run(["nm", "--dynamic", "--defined-only", "--format=posix", library]).splitlines():
        names.add(line.split()[0].split("@")[0])
    return names


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    parser.add_argument("--declared", required=True, help="the functions of the public headers, one a line")
    parser.add_argument("--list", required=True, help="the checked-in list, one a line, sorted")
    arguments = parser.parse_args()

    exported = exported_by(arguments.library)
    declared = set(read_names(arguments.declared))
    lines = read_names(arguments.list)
    listed = set(lines)
    library = os.path.basename(arguments.library)
    file = os.path.relpath(arguments.list)

    findings = Findings()
    findings.add("Declared in a public header, but not exported by " + library, declared - exported,
                 "Define them with the header included, or take them out of the header.")
    findings.add(f"Exported by {library}, but declared in no public header", exported - declared,
                 "Declare them in include/quillon/, or give them internal linkage.")
    findings.add(f"Exported by {library}, but not in {file}", exported - listed,
                 "When they are meant to be there, add them to the list: they are a promise from then on.")
    findings.add(f"In {file}, but not exported by {library}", listed - exported,
                 "Callers bind to these names: bring them back. Only a name never released may leave the list.")
    misplaced = [line for previous, line in zip(lines, lines[1:]) if previous >= line]
    findings.add(f"Not in order in {file}, or there twice", misplaced, f"Run: LC_ALL=C sort -u -o {file} {file}")
    findings.end()


if __name__ == "__main__":
    main()
