#!/usr/bin/env python3
"""Checks the library's names and what it needs to be loaded: a program finds it by its soname, and on the target only
the C library and its loader are sure to be there."""

import argparse
import os
import re

from inspection import Findings, run

SONAME = "libquillon.so.0"
REAL_NAME = r"libquillon\.so\.0\.\d+\.\d+"
NEEDED = {"libc.so.6"}
LOADER = r"ld-linux-[\w-]+\.so\.\d"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    arguments = parser.parse_args()

    dynamic = run(["readelf", "--wide", "--dynamic", arguments.library])
    needed = set(re.findall(r"\(NEEDED\).*\[(.+)\]", dynamic))
    sonames = re.findall(r"\(SONAME\).*\[(.+)\]", dynamic)
    real_name = os.path.basename(os.path.realpath(arguments.library))

    findings = Findings()
    findings.add("Needed besides the C library and its loader",
                 {name for name in needed - NEEDED if not re.fullmatch(LOADER, name)},
                 "Link it with the C linker driver, and use nothing of them.")
    findings.add("Not needed, although the code calls it", NEEDED - needed, "Link the C library.")
    if sonames != [SONAME]:
        findings.add("The soname is not " + SONAME, sonames or ["none"], "See SOVERSION in cmake/library.cmake.")
    if not re.fullmatch(REAL_NAME, real_name):
        findings.add("The file's real name is not libquillon.so.0.<minor>.<patch>", [real_name],
                     "See VERSION in cmake/library.cmake.")
    if re.search(r"\((RPATH|RUNPATH)\)", dynamic):
        findings.add("Carries a search path", re.findall(r"\(R(?:UN)?PATH\).*\[(.+)\]", dynamic),
                     "Link it without one.")
    findings.end()


if __name__ == "__main__":
    main()
