#!/usr/bin/env python3
"""Checks that a public header compiles by itself and without a warning in the oldest C and C++ of its users."""

import argparse
import subprocess
import sys

DIALECTS = {"c99": ("c", "-std=c99"), "c++11": ("c++", "-std=c++11")}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--dialect", required=True, choices=sorted(DIALECTS))
    parser.add_argument("--include", required=True, help="the folder that holds quillon/")
    parser.add_argument("header", help="as users include it, such as quillon/swdrv.h")
    arguments = parser.parse_args()

    language, standard = DIALECTS[arguments.dialect]
    command = [arguments.compiler, "-x", language, standard, "-Wall", "-Wextra", "-pedantic", "-Werror",
               "-fsyntax-only", "-I", arguments.include, "-"]
    try:
        compilation = subprocess.run(command, input=f"#include <{arguments.header}>\n", text=True, check=False)
    except FileNotFoundError:
        sys.exit(f"{arguments.compiler} is missing, so nothing was checked: run scripts/install-deps")
    if compilation.returncode != 0:
        sys.exit(f"{arguments.header} does not compile alone as {arguments.dialect}: include what it uses, and keep "
                 "to what C99 and C++11 have in common.")


if __name__ == "__main__":
    main()
