#!/usr/bin/env python3
"""Checks that the library asks its process for nothing but the platform functions and a few of the C library's, and
that they bind when they are first called: a process that uses one family need not bring the functions of another."""

import argparse
import os
import re

from inspection import Findings, read_names, run

C_LIBRARY = {"printf", "puts", "sprintf", "system", "memcpy", "memset", "malloc", "free"}
TOOL_CHAIN = {"__cxa_finalize", "__gmon_start__", "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}
# assert() in a debug build.
DEBUG = {"__assert_fail"}


def imported_by(library):
    lines = run(["nm", "--dynamic", "--undefined-only", "--format=posix", library]).splitlines()
    return {line.split()[0].split("@")[0] for line in lines}


def bound_at_load(library):
    """The symbols that the loader resolves before any code runs."""
    names = set()
    for line in run(["readelf", "--wide", "--relocs", library]).splitlines():
        match = re.match(r"[0-9a-f]+\s+[0-9a-f]+\s+(R_\S+)\s+[0-9a-f]+\s+([\w.]+)", line)
        if match and not match.group(1).endswith("JUMP_SLOT") and not match.group(1).endswith("JUMP_SLO"):
            names.add(match.group(2))
    return names


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    parser.add_argument("--platform", required=True, help="the functions of platform.h, one a line")
    parser.add_argument("--debug", action="store_true", help="the library was built with assertions")
    arguments = parser.parse_args()

    library = os.path.basename(arguments.library)
    platform = set(read_names(arguments.platform))
    allowed = platform | C_LIBRARY | TOOL_CHAIN | (DEBUG if arguments.debug else set())

    findings = Findings()
    findings.add(f"{library} needs functions that its processes do not promise",
                 imported_by(arguments.library) - allowed,
                 "Do without them. A platform function that is really needed stands in include/quillon/platform.h.")
    findings.add(f"{library} binds platform functions when it is loaded", bound_at_load(arguments.library) & platform,
                 "Call them and take no address of them: a process may lack those of families that it does not use.")
    if re.search(r"BIND_NOW|Flags:.*\bNOW\b", run(["readelf", "--wide", "--dynamic", arguments.library])):
        findings.add(f"{library} binds everything when it is loaded", ["-z now"], "Link it with -z lazy.")
    findings.end()


if __name__ == "__main__":
    main()
