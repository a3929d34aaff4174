#!/usr/bin/env python3
"""The reference is built without a warning, tells the request of every function, and is not built when it could not."""

import argparse
import html
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = os.path.dirname(os.path.dirname(HERE))
build = None  # the build folder

# Typed from the protocol: offset, size and field of all that is filled, and of what is looked at in the reply.
REQUESTS = {
    "DEV_SWDRV_PMGR_TwsiDataRead": (59, 120, 211, 28, 260, [
        (24, 1, "bus_idx", "0"), (28, 4, "dev_id", "dev_id"), (32, 1, "sel_a", "sel_a"), (33, 1, "sel_b", "sel_b"),
        (36, 4, "word", "word"), (40, 1, "sel_c", "sel_c"), (41, 1, "len", "len")], [(24, 256, "data", "out")]),
    "DEV_SWDRV_PMGR_WaitAndReceiveOam": (24, 120, 237, 28, 4, [
        (24, 4, "event", "event"), (32, 8, "event_handle", "event_handle"), (40, 1, "wait_forever", "timeout"),
        (44, 4, "timeout", "timeout")], []),
    "DEV_SWDRV_PMGR_GetPortMaxFrameSize": (24, 120, 53, 12, 12, [
        (24, 4, "unit", "unit"), (28, 4, "port", "port")],
        [(24, 4, "values[0]", "size1"), (28, 4, "values[1]", "size2")]),
    "DEV_AMTRDRV_PMGR_ReadAndClearLocalHitBit": (24, 121, 27, 56, 5, [
        (20, 6, "mac", "mac"), (28, 4, "vlan", "vlan"), (32, 4, "selector", "selector"), (36, 32, "block", "block"),
        (68, 4, "mode", "mode")], [(20, 1, "value", "hit")]),
    "DEV_NICDRV_PMGR_SetPacketGenRate": (25, 37, 6, 68, 68, [
        (56, 1, "generator", "generator"), (72, 8, "wanted_rate", "wanted_rate"), (80, 8, "rate", "0")],
        [(80, 8, "rate", "rate")]),
    "DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos": (24, 122, 40, 28, 4, [
        (20, 4, "unit", "unit"), (24, 4, "port", "port"), (28, 4, "cos", "cos"), (32, 4, "cos_extra", "cos_extra"),
        (36, 4, "dscp", "dscp"), (40, 4, "dscp_extra", "dscp_extra")], []),
    "DEV_SWDRVL3_PMGR_l3mc_port_add": (24, 128, 108, 56, 56, [
        (24, 4, "arg1", "arg1"), (28, 16, "group", "group"), (44, 16, "source", "source"), (60, 4, "arg2", "arg2"),
        (64, 4, "arg6", "arg6"), (68, 4, "arg5", "arg5")], []),
    "DEV_NMTRDRV_PMGR_GetIfTableStats": (24, 126, 3, 20, 2888, [
        (24, 4, "selector", "selector"), (28, 4, "first_port", "first_port"), (32, 4, "last_port", "last_port")],
        [(24, 2880, "records", "records")]),
    "DEVRM_PMGR_DestroyRule": (24, 127, 8, 24, 8, [
        (24, 4, "a1", "a1"), (32, 4, "a3", "a3"), (36, 4, "a2", "a2")], []),
}


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False)


def text_of(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup)).strip()


def named_rows(markup):
    """The rows of a table that have a field's name."""
    rows = [[text_of(cell) for cell in re.findall(r"<td[^>]*>(.*?)</td>", row, re.DOTALL)]
            for row in re.findall(r"<tr.*?</tr>", markup, re.DOTALL)]
    return [(int(row[0]), int(row[1]), row[3], row[4]) for row in rows if len(row) == 5 and row[3]]


def setUpModule():
    built = run("cmake", "--build", build, "--target", "reference")
    if built.returncode != 0:
        raise AssertionError(built.stdout + built.stderr)


class ReferenceTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.members = {}
        folder = os.path.join(build, "reference", "html")
        for page in sorted(name for name in os.listdir(folder) if name.endswith("_8h.html")):
            with open(os.path.join(folder, page), encoding="utf-8") as file:
                for member in file.read().split('class="memitem"')[1:]:
                    name = re.search(r'class="memname">(.*?)</td>', member, re.DOTALL)
                    if name:
                        cls.members[text_of(name[1]).split(" ")[-1]] = member

    def test_tells_the_request_of_every_function(self):
        with open(os.path.join(SOURCE, "tests/gates/exports.txt"), encoding="ascii") as names:
            without = [name for name in names.read().split()
                       if ">Request</dt>" not in self.members.get(name, "")]
        self.assertEqual(without, [])

    def test_has_a_page_of_every_header(self):
        headers = set(os.listdir(os.path.join(SOURCE, "include", "quillon"))) - {"record.h"}
        pages = {name.replace("_8h.html", ".h")
                 for name in os.listdir(os.path.join(build, "reference", "html")) if name.endswith("_8h.html")}
        with open(os.path.join(build, "reference", "html", "index.html"), encoding="utf-8") as file:
            table = file.read().split('<table class="markdownTable">')[1].split("</table>")[0]
        listed = set(re.findall(r"\bquillon/(\w+\.h)", text_of(table)))
        self.assertEqual(pages, headers)
        self.assertEqual(listed, headers)

    def test_tells_the_place_of_each_field(self):
        for function, (queue, module, code, msg_size, reply_size, request, reply) in REQUESTS.items():
            with self.subTest(function):
                _, sent, answered = re.split(r">(?:Request|Reply)</dt>", self.members[function])
                self.assertEqual([int(number) for number in re.findall(r"\d+", text_of(sent.split("</dl>")[0]))[:4]],
                                 [queue, module, code, msg_size])
                self.assertTrue(text_of(answered).startswith(f"{reply_size} bytes"), text_of(answered)[:40])
                self.assertEqual(named_rows(sent), request)
                self.assertEqual(named_rows(answered), reply)


class FailureTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        shutil.copytree(os.path.join(SOURCE, "include"), self.path("include"))

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def change(self, header, old, new):
        path = self.path("include", "quillon", header)
        with open(path, encoding="ascii") as file:
            text = file.read()
        self.assertIn(old, text)
        with open(path, "w", encoding="ascii") as file:
            file.write(text.replace(old, new))

    def write_pages(self, library=None):
        return run("/usr/bin/python3", os.path.join(SOURCE, "docs/reference/write_pages.py"),
                   "--library", library or os.path.join(build, "libquillon.so"),
                   "--platform", os.path.join(build, "docs/reference/libreference_platform.so"),
                   "--declared", os.path.join(build, "reference/declared_functions.txt"),
                   "--include", self.path("include"), "--output", self.path("pages"))

    def test_fails_for_a_function_without_a_comment_of_its_own(self):
        self.change("swdrv.h", "/*\n * Shuts all ports down.\n */\n", "")
        result = self.write_pages()
        self.assertEqual(result.returncode, 1)
        self.assertIn("no comment of their own in include/quillon/: DEV_SWDRV_PMGR_DisableAllPortAdmin", result.stderr)

    def test_fails_without_debug_information(self):
        library = self.path("libquillon.so")
        subprocess.run(["strip", "--strip-debug", "-o", library, os.path.join(build, "libquillon.so")], check=True)
        result = self.write_pages(library)
        self.assertEqual(result.returncode, 1)
        self.assertIn("has no debug information", result.stderr)

    def test_fails_for_a_warning(self):
        os.mkdir(self.path("pages"))
        with open(self.path("pages", "page.h"), "w", encoding="ascii") as file:
            file.write("/**\n * @file\n * See @ref nowhere.\n */\n")
        with open(os.path.join(build, "reference", "Doxyfile"), encoding="utf-8") as settings:
            with open(self.path("Doxyfile"), "w", encoding="utf-8") as changed:
                changed.write(settings.read() + f'INPUT = "{self.path("pages")}"\nOUTPUT_DIRECTORY = "{self.folder}"\n')
        self.assertNotEqual(run("doxygen", self.path("Doxyfile")).returncode, 0)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True)
    build = os.path.abspath(parser.parse_args().build)
    unittest.main(argv=sys.argv[:1])
