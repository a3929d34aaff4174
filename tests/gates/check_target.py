#!/usr/bin/env python3
"""Checks that the library runs on the target: it takes no more of the flash than was promised, and its C library may be
as old as those of the first 64-bit systems."""

import argparse
import os
import re
import tempfile

from inspection import Findings, run

MOST_BYTES = 128 * 1024
NEWEST_C_LIBRARY = (2, 17)


def stripped_size(library, strip):
    with tempfile.TemporaryDirectory() as folder:
        stripped = os.path.join(folder, "stripped.so")
        run([strip, "-o", stripped, library])
        return os.path.getsize(stripped)


def too_new(library):
    """The versions that the library's symbols ask of the C library, as far as they are newer than promised."""
    versions = set(re.findall(r"Name: GLIBC_([\d.]+)", run(["readelf", "--wide", "--version-info", library])))
    return {version for version in versions if tuple(map(int, version.split("."))) > NEWEST_C_LIBRARY}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    parser.add_argument("--strip", required=True, help="the tool that strips libraries of this architecture")
    parser.add_argument("--print-size", action="store_true", help="print the size, for the documentation")
    arguments = parser.parse_args()

    size = stripped_size(arguments.library, arguments.strip)
    if arguments.print_size:
        print(size)
    findings = Findings()
    findings.add(f"Takes more than {MOST_BYTES} bytes without symbols", [f"{size} bytes"] if size > MOST_BYTES else [],
                 "See what grew with `size --format=sysv`, and the options for the target in cmake/library.cmake.")
    findings.add("Needs a C library newer than 2.17", {f"GLIBC_{version}" for version in too_new(arguments.library)},
                 "Find the functions with `nm --dynamic`, and do without them.")
    findings.end()


if __name__ == "__main__":
    main()
