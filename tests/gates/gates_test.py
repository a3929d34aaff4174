#!/usr/bin/env python3
"""Each check of the built library and its headers finds what it is there for, and passes when nothing is wrong."""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))

PLATFORM_HEADER = "#include <stdint.h>\nuint32_t platform_send(void *message);\n"
PUBLIC_HEADER = "#include <stdint.h>\nuint32_t first_request(uint32_t unit);\nuint32_t second_request(uint32_t unit);\n"
SOURCE = """
#include <stdio.h>
#include "quillon/platform.h"
#include "quillon/client.h"
uint32_t first_request(uint32_t unit) { return platform_send(&unit); }
uint32_t second_request(uint32_t unit) { puts("asked"); return platform_send(&unit); }
"""


class GateTest(unittest.TestCase):
    compiler = "gcc"

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        os.mkdir(self.path("quillon"))
        self.write("quillon/platform.h", PLATFORM_HEADER)
        self.write("quillon/client.h", PUBLIC_HEADER)
        self.write("exports.txt", "first_request\nsecond_request\n")
        self.write("declared.txt", "first_request\nsecond_request\n")
        self.write("platform.txt", "platform_send\n")

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="ascii") as file:
            file.write(text)

    def build(self, source=SOURCE, name="libquillon.so.0.1.0", options=("-Wl,-soname,libquillon.so.0",)):
        self.write("source.c", source)
        subprocess.run([self.compiler, "-shared", "-fPIC", "-O1", "-I", self.folder, self.path("source.c"),
                        "-o", self.path(name), "-Wl,-z,lazy", *options], check=True)
        return self.path(name)

    def run_check(self, check, *arguments, **environment):
        return subprocess.run([sys.executable, os.path.join(HERE, check), *arguments], capture_output=True, text=True,
                              env={**os.environ, **environment}, check=False)

    def pass_check(self, check, *arguments):
        result = self.run_check(check, *arguments)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def fail_check(self, expected, check, *arguments, **environment):
        result = self.run_check(check, *arguments, **environment)
        self.assertEqual(result.returncode, 1)
        for text in expected:
            self.assertIn(text, result.stderr)


class ExportsTest(GateTest):
    def arguments(self, library):
        return ("check_exports.py", "--library", library, "--declared", self.path("declared.txt"),
                "--list", self.path("exports.txt"))

    def test_passes_when_all_three_agree(self):
        self.pass_check(*self.arguments(self.build()))

    def test_finds_what_the_library_and_its_headers_do_not_share(self):
        library = self.build(SOURCE.replace("uint32_t second_request", "static uint32_t other_request"))
        self.fail_check(["not exported by libquillon.so.0.1.0:\n    second_request\n"], *self.arguments(library))
        library = self.build(SOURCE + "void helper(void) {}\n")
        self.fail_check(["declared in no public header:\n    helper\n", "exports.txt:\n    helper\n"],
                        *self.arguments(library))

    def test_finds_what_is_wrong_with_the_list(self):
        library = self.build()
        for names, expected in ((["first"], ["but not in", "    second_request\n"]),
                                (["first", "second", "third"],
                                 ["but not exported by libquillon.so.0.1.0:\n    third_request\n"]),
                                (["second", "first"], ["Not in order in", "    first_request\n", "sort -u"]),
                                (["first", "second", "second"], ["or there twice:\n    second_request\n"])):
            self.write("exports.txt", "".join(f"{name}_request\n" for name in names))
            self.fail_check(expected, *self.arguments(library))

    def test_fails_without_its_tool(self):
        self.fail_check(["nm is missing, so nothing was checked"], *self.arguments(self.build()), PATH=self.folder)

    def test_fails_without_its_list(self):
        os.remove(self.path("exports.txt"))
        self.fail_check(["nothing was checked"], *self.arguments(self.build()))

    def test_fails_without_a_library(self):
        self.fail_check(["failed"], *self.arguments(self.path("no.so")))


class DeclaredFunctionsTest(GateTest):
    def test_lists_what_the_header_declares_itself(self):
        self.pass_check("declared_functions.py", "--include", self.folder, "--output", self.path("names.txt"),
                        self.path("quillon/client.h"), self.path("quillon/platform.h"))
        with open(self.path("names.txt"), encoding="ascii") as names:
            self.assertEqual(names.read(), "first_request\nplatform_send\nsecond_request\n")

    def test_fails_for_a_header_without_functions(self):
        self.write("quillon/empty.h", "#include <stdint.h>\n")
        self.fail_check(["declares no function"], "declared_functions.py", "--include", self.folder,
                        self.path("quillon/empty.h"))


class ImportsTest(GateTest):
    def arguments(self, library, *more):
        return ("check_imports.py", "--library", library, "--platform", self.path("platform.txt"), *more)

    def test_passes_with_platform_functions_and_the_c_librarys(self):
        self.pass_check(*self.arguments(self.build(SOURCE + 'void f(int i) { printf("%d", i); }\n')))

    def test_finds_a_function_that_nobody_promises(self):
        library = self.build(SOURCE + "#include <stdlib.h>\nvoid f(void) { abort(); }\n")
        self.fail_check(["do not promise:\n    abort\n"], *self.arguments(library))

    def test_allows_assertions_in_debug_builds_only(self):
        library = self.build(SOURCE + "#include <assert.h>\nvoid f(int i) { assert(i); }\n")
        self.fail_check(["    __assert_fail\n"], *self.arguments(library))
        self.pass_check(*self.arguments(library, "--debug"))

    def test_finds_a_platform_function_whose_address_is_taken(self):
        library = self.build(SOURCE + "void *address(void) { return (void *)platform_send; }\n")
        self.fail_check(["when it is loaded:\n    platform_send\n"], *self.arguments(library))

    def test_finds_a_library_that_binds_at_once(self):
        self.fail_check(["-z now"], *self.arguments(self.build(options=("-Wl,-z,now",))))


class IdentityTest(GateTest):
    SONAME = "-Wl,-soname,libquillon.so.0"

    def test_passes_with_its_names_and_the_c_library(self):
        os.symlink(self.build(), self.path("libquillon.so"))
        for library in ("libquillon.so.0.1.0", "libquillon.so"):
            self.pass_check("check_identity.py", "--library", self.path(library))

    def test_finds_what_is_wrong(self):
        for expected, changes in (
                ("The soname is not libquillon.so.0:\n    libquillon.so.1\n",
                 {"options": ["-Wl,-soname,libquillon.so.1"]}),
                ("    none\n", {"options": []}),
                ("    libquillon.so.0.1\n", {"name": "libquillon.so.0.1"}),
                ("Needed besides the C library and its loader:\n    libm.so.6\n",
                 {"options": [self.SONAME, "-Wl,--no-as-needed", "-lm"]}),
                ("    libc.so.6\n", {"options": [self.SONAME, "-nostdlib"]}),
                ("    /opt/lib\n", {"options": [self.SONAME, "-Wl,-rpath,/opt/lib"]})):
            self.fail_check([expected], "check_identity.py", "--library", self.build(**changes))


class AbiTest(GateTest):
    RECORD = "struct port { unsigned unit; unsigned short port; };\n"
    FUNCTION = "unsigned ask(const struct port *port, unsigned char flag);\n"

    def library(self, record=RECORD, function=FUNCTION, options=("-g", "-nostdlib")):
        self.write("quillon/client.h", record + function)
        return self.build('#include "quillon/client.h"\n' + function.rstrip(";\n") + " { return port->unit + flag; }\n",
                          options=options)

    def arguments(self, library):
        return ("check_abi.py", "--library", library, "--headers", self.path("quillon"),
                "--baseline", self.path("baseline.abi"))

    def setUp(self):
        super().setUp()
        self.pass_check(*self.arguments(self.library()), "--update")

    def test_passes_what_is_as_it_was(self):
        self.pass_check(*self.arguments(self.library()))

    def test_finds_what_changed(self):
        for expected, changes in (
                ("port", {"record": self.RECORD.replace("short port", "char port")}),
                ("unsigned char", {"function": self.FUNCTION.replace("unsigned char flag", "unsigned flag")}),
                ("'function unsigned int ask(", {"function": self.FUNCTION.replace("ask", "asks")})):
            self.fail_check(["binary interface has changed", expected], *self.arguments(self.library(**changes)))

    def test_fails_without_debug_information(self):
        self.fail_check(["nothing was checked"], *self.arguments(self.library(options=("-nostdlib",))))

    def test_fails_without_a_baseline(self):
        library = self.library()
        os.remove(self.path("baseline.abi"))
        self.fail_check(["baseline.abi is missing, so nothing was checked"], *self.arguments(library))

    def test_fails_without_its_tool(self):
        os.symlink(shutil.which("readelf"), self.path("readelf"))
        self.fail_check(["abidiff is missing"], *self.arguments(self.library()), PATH=self.folder)


class TargetTest(GateTest):
    def arguments(self, library):
        return ("check_target.py", "--library", library, "--strip", "strip")

    def test_passes_a_small_library(self):
        source = "int first_request(void) { return 1; }\n"
        self.pass_check(*self.arguments(self.build(source, options=("-nostdlib",))))

    def test_finds_what_is_too_large(self):
        library = self.build("char table[200000] = {1};\n", options=("-nostdlib",))
        self.fail_check(["Takes more than 131072 bytes without symbols:\n    2"], *self.arguments(library))

    def test_does_not_count_symbols(self):
        functions = "".join(f"void function_with_a_long_name_{'x' * 100}_{i}(void) {{}}\n" for i in range(2000))
        hidden = '#pragma GCC visibility push(hidden)\n' + functions
        self.pass_check(*self.arguments(self.build(hidden, options=("-nostdlib",))))

    def test_finds_a_newer_c_library(self):
        source = "#include <sys/random.h>\nlong first_request(void) { char c; return getrandom(&c, 1, 0); }\n"
        self.fail_check(["newer than 2.17:\n    GLIBC_2.25\n"], *self.arguments(self.build(source)))


class StackUseTest(GateTest):
    def check(self, stack_uses, envelopes=""):
        os.makedirs(self.path("objects/part"), exist_ok=True)
        self.write("objects/part/source.su", stack_uses)
        self.write("envelopes.txt", envelopes)
        return ("check_stack_use.py", "--objects", self.path("objects"),
                "--large-envelopes", self.path("envelopes.txt"))

    def test_passes_up_to_the_limit(self):
        self.pass_check(*self.check("a.cpp:1:1:uint8_t first(uint32_t)\t256\tdynamic,bounded\n"))

    def test_finds_a_function_beyond_it(self):
        self.fail_check(["    first: 272 bytes, allowed are 256\n"],
                        *self.check("a.cpp:1:1:uint8_t first(uint32_t)\t272\tstatic\n"))

    def test_allows_a_large_envelope_and_little_besides(self):
        uses = "a.cpp:1:1:uint8_t first(uint32_t)\t512\tstatic\na.cpp:9:1:void second()\t512\tstatic\n"
        self.pass_check(*self.check(uses, "# sizes\nfirst 384\nsecond 384\n"))
        self.fail_check(["    second: 512 bytes, allowed are 511\n"], *self.check(uses, "first 384\nsecond 367\n"))

    def test_finds_a_function_without_a_bound(self):
        self.fail_check(["    first: inf bytes"], *self.check("a.cpp:1:1:void first(int)\t64\tdynamic\n"))

    def test_reads_what_the_compiler_writes(self):
        self.write("source.c", "void use(char *);\nvoid first(void) { char large[1000]; use(large); }\n")
        os.mkdir(self.path("objects"))
        self.write("envelopes.txt", "")
        subprocess.run([self.compiler, "-c", "-O2", "-fstack-usage", self.path("source.c"),
                        "-o", self.path("objects/source.o")], check=True)
        self.fail_check(["    first: 10"], "check_stack_use.py", "--objects", self.path("objects"),
                        "--large-envelopes", self.path("envelopes.txt"))

    def test_fails_when_nothing_was_reported(self):
        os.mkdir(self.path("objects"))
        self.write("envelopes.txt", "")
        self.fail_check(["holds no .su file"], "check_stack_use.py", "--objects", self.path("objects"),
                        "--large-envelopes", self.path("envelopes.txt"))


class HeaderTest(GateTest):
    def arguments(self, dialect, compiler=None):
        return ("check_header.py", "--compiler", compiler or self.compiler, "--dialect", dialect,
                "--include", self.folder, "quillon/client.h")

    def test_passes_in_both_languages(self):
        self.pass_check(*self.arguments("c99"))
        self.pass_check(*self.arguments("c++11"))

    def test_finds_a_missing_include_and_a_warning(self):
        for header in ("uint32_t first_request(uint32_t unit);\n", "struct empty { };\n"):
            self.write("quillon/client.h", header)
            self.fail_check(["does not compile alone as c99"], *self.arguments("c99"))

    def test_finds_what_one_language_lacks(self):
        self.write("quillon/client.h", "void first_request(int *restrict unit);\n")
        self.pass_check(*self.arguments("c99"))
        self.fail_check(["does not compile alone as c++11"], *self.arguments("c++11"))

    def test_fails_without_its_compiler(self):
        self.fail_check(["no-compiler is missing"], *self.arguments("c99", "no-compiler"))


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--compiler", default=GateTest.compiler)
    known, rest = parser.parse_known_args()
    GateTest.compiler = known.compiler
    unittest.main(argv=[sys.argv[0], *rest])
