"""What the checks of the built library share: running binutils, and telling what is wrong."""

import subprocess
import sys


def run(command):
    """The output of `command`. A tool that is missing or fails ends the check as a failure."""
    try:
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout
    except FileNotFoundError:
        sys.exit(f"{command[0]} is missing, so nothing was checked: run scripts/install-deps")
    except subprocess.CalledProcessError as error:
        sys.exit(f"{' '.join(command)} failed:\n{error.stderr}")


def read_names(path):
    """The names in the file, one a line."""
    try:
        with open(path, encoding="ascii") as lines:
            return [line.rstrip("\n") for line in lines]
    except OSError as error:
        sys.exit(f"nothing was checked: {error}")


class Findings:
    """Collects what is wrong, so that one run tells all of it."""

    def __init__(self):
        self.texts = []

    def add(self, what, names, advice):
        """`what` is wrong with `names`, when there are any; `advice` says what to do."""
        if names:
            self.texts.append("\n".join([what + ":", *(f"    {name}" for name in sorted(names)), advice]))

    def end(self):
        """Ends the process, as a failure when there are findings."""
        if self.texts:
            sys.exit("\n\n".join(self.texts))
