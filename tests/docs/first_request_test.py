#!/usr/bin/env python3
"""Runs the commands of docs/first-request.md as they stand, in a copy of the repository, and compares what they print
with what the page says."""

import os
import re
import subprocess
import sys
import tempfile

REPOSITORY = os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
PAGE = os.path.join("docs", "first-request.md")


def blocks_of(page):
    """Pairs of commands and the text that the page shows behind them, if any."""
    fenced = re.findall(r"^```(sh|text)\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)
    blocks = []
    for kind, text in fenced:
        if kind == "sh":
            blocks.append([text, None])
        else:
            blocks[-1][1] = text
    return blocks


def copy_repository(folder):
    files = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=REPOSITORY,
                           check=True, capture_output=True).stdout
    subprocess.run(["cpio", "--pass-through", "--make-directories", "--null", "--quiet", folder], cwd=REPOSITORY,
                   input=files, check=True)


def main():
    with open(os.path.join(REPOSITORY, PAGE), encoding="utf-8") as page:
        blocks = blocks_of(page.read())
    if not any(shown for _, shown in blocks):
        sys.exit(f"{PAGE} shows no output of a command, so nothing was checked")

    with tempfile.TemporaryDirectory() as folder:
        copy_repository(folder)
        # One shell for all: what a command sets holds for those behind it.
        script = "set -e\n" + "".join(f"{{\n{text}\n}} >block-{number}\n" for number, (text, _) in enumerate(blocks))
        result = subprocess.run(["bash", "-c", script], cwd=folder, capture_output=True, text=True, check=False)
        if result.returncode != 0:
            sys.exit(f"{PAGE}: a command failed with status {result.returncode}\n{result.stdout}{result.stderr}")
        for number, (text, shown) in enumerate(blocks):
            with open(os.path.join(folder, f"block-{number}"), encoding="utf-8") as output:
                printed = output.read()
            if shown is not None and printed != shown:
                sys.exit(f"{PAGE}: {text}printed\n{printed}and the page shows\n{shown}")


if __name__ == "__main__":
    main()
