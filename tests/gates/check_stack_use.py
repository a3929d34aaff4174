#!/usr/bin/env python3
"""Checks the stack that each function of the library uses, as the compiler reports it (-fstack-usage). Application
tasks have small stacks, and a request's envelope should be all that it takes there."""

import argparse
import os
import re
import sys

from inspection import Findings, read_names

LIMIT = 256
# What a function with a large envelope may use besides it: registers that it saves, of which aarch64 has more and in
# pairs, and alignment.
BESIDES_ENVELOPE = 144


def stack_uses(folder):
    """Pairs of function and bytes. What the compiler cannot bound counts as endless."""
    for directory, _, files in os.walk(folder):
        for file in files:
            if file.endswith(".su"):
                with open(os.path.join(directory, file), encoding="utf-8") as lines:
                    for line in lines:
                        place, size, kind = line.rstrip("\n").split("\t")
                        name = re.search(r"(\w+)\s*\(|:(\w+)$", place)
                        bounded = kind == "static" or "bounded" in kind
                        yield (name.group(1) or name.group(2) if name else place,
                               int(size) if bounded else float("inf"))


def large_envelopes(path):
    envelopes = {}
    for line in read_names(path):
        if not line or line.startswith("#"):
            continue
        match = re.fullmatch(r"(\w+) (\d+)", line)
        if not match:
            sys.exit(f"{path}: not a name and a size: {line}")
        envelopes[match.group(1)] = int(match.group(2))
    return envelopes


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--objects", required=True, help="the folder of the library's object files")
    parser.add_argument("--large-envelopes", required=True, help="functions and the size of their envelope, one a line")
    arguments = parser.parse_args()

    envelopes = large_envelopes(arguments.large_envelopes)
    uses = list(stack_uses(arguments.objects))
    if not uses:
        sys.exit(f"{arguments.objects} holds no .su file, so nothing was checked: build with -fstack-usage")

    too_much = []
    for function, used in uses:
        allowed = envelopes[function] + BESIDES_ENVELOPE if function in envelopes else LIMIT
        if used > allowed:
            too_much.append(f"{function}: {used} bytes, allowed are {allowed}")

    findings = Findings()
    findings.add("Too much stack", too_much,
                 "Make the envelope as large as its command needs and keep copies of it off the stack. When the\n"
                 f"command itself is large, name the function in {os.path.relpath(arguments.large_envelopes)} with "
                 "20 bytes + the larger of its request and reply sizes.")
    findings.end()


if __name__ == "__main__":
    main()
