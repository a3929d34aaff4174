#!/usr/bin/env python3
"""Lists the functions that public headers declare, sorted, one a line. The compiler does the parsing."""

import argparse
import os
import re
import sys
import tempfile

from inspection import run


def declared_in(header, compiler, include_folder):
    # The compiler's list of prototypes tells for each where it stands, so that <stdint.h> adds nothing.
    with tempfile.NamedTemporaryFile(mode="r", suffix=".prototypes") as prototypes:
        run([compiler, "-x", "c", "-std=c99", "-fsyntax-only", "-I", include_folder, "-aux-info", prototypes.name,
             header])
        path = os.path.realpath(header)
        for line in prototypes:
            match = re.match(r"/\* (.*):\d+:\w+ \*/ extern .*?\b(\w+) \(", line)
            if match and os.path.realpath(match.group(1)) == path:
                yield match.group(2)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--compiler", default="gcc", help="a gcc: its -aux-info is needed")
    parser.add_argument("--include", required=True, help="the folder that holds quillon/")
    parser.add_argument("--output", help="the list; standard output when it is not given")
    parser.add_argument("headers", nargs="+")
    arguments = parser.parse_args()

    names = set()
    for header in arguments.headers:
        found = set(declared_in(header, arguments.compiler, arguments.include))
        if not found:
            sys.exit(f"{header} declares no function that {arguments.compiler} finds: is the path right?")
        names |= found
    text = "".join(name + "\n" for name in sorted(names))
    if arguments.output:
        with open(arguments.output, "w", encoding="ascii") as output:
            output.write(text)
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
