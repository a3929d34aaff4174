#!/usr/bin/env python3
"""What is installed and packed is all that a user needs, and goes away as it came."""

import argparse
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = os.path.dirname(os.path.dirname(HERE))
build = None  # the build folder
architecture = None  # as in /usr/lib/<architecture>
PROGRAMS = ("port_type_c", "port_type_cpp")


def run(*command, **options):
    result = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(command)}: status {result.returncode}\n{result.stdout}{result.stderr}")
    return result.stdout


def entries_below(folder):
    return sorted(os.path.relpath(os.path.join(directory, name), folder)
                  for directory, _, names in os.walk(folder) for name in names)


class InstalledTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def write_program(self, name, script):
        os.makedirs(self.path("bin"), exist_ok=True)
        with open(self.path("bin", name), "w", encoding="ascii") as program:
            program.write(f"#!/bin/sh\n{script}\n")
        os.chmod(self.path("bin", name), 0o755)

    def libraries(self, prefix):
        return os.path.join(prefix, "lib", architecture)

    def build_with_pkg_config(self, prefix):
        environment = {**os.environ, "PKG_CONFIG_PATH": os.path.join(self.libraries(prefix), "pkgconfig")}
        flags = run("pkg-config", "--cflags", "--libs", "quillon", "quillon-platform", env=environment).split()
        run("gcc", os.path.join(HERE, "port_type.c"), "-o", self.path("port_type_c"), *flags)
        run("g++", os.path.join(HERE, "port_type.cpp"), "-o", self.path("port_type_cpp"), *flags)
        return self.folder

    def build_with_cmake(self, prefix):
        folder = self.path("build")
        run("cmake", "-S", os.path.join(HERE, "project"), "-B", folder, f"-DCMAKE_PREFIX_PATH={prefix}")
        run("cmake", "--build", folder)
        return folder

    def pack(self, folder, *names):
        """The packages that are made of the build folder, which have these names."""
        run("cpack", "--config", os.path.join(folder, "CPackConfig.cmake"), "-B", self.path("packages"))
        packages = sorted(glob.glob(self.path("packages", "*.deb")))
        self.assertEqual([os.path.basename(package).split("_")[0] for package in packages], [*names])
        return packages

    def expect_answers(self, prefix, programs):
        """Each of the programs asks an installed driver process for the type of a port."""
        environment = {**os.environ, "LD_LIBRARY_PATH": self.libraries(prefix)}
        for program in PROGRAMS:
            answer = run(os.path.join(prefix, "bin/quillon-run"), "--", os.path.join(programs, program),
                         env=environment)
            self.assertEqual(answer, "1 1\n")

    def test_installs_what_a_user_builds_and_runs_with(self):
        run("cmake", "--install", build, "--prefix", "/usr", env={**os.environ, "DESTDIR": self.folder})
        prefix = self.path("usr")
        self.expect_answers(prefix, self.build_with_pkg_config(prefix))
        self.expect_answers(prefix, self.build_with_cmake(prefix))
        self.assertIn("driver-encodings.md", entries_below(os.path.join(prefix, "share/doc/quillon")))
        for file in [*glob.glob(self.path("usr/bin/*")), *glob.glob(self.libraries(prefix) + "/*.so")]:
            self.assertNotRegex(run("readelf", "--dynamic", file), r"\((RPATH|RUNPATH)\)", file)

    def test_installs_the_library_alone_where_it_is_told(self):
        alone = self.path("alone")
        run("cmake", "-G", "Ninja", "-S", SOURCE, "-B", alone, "-DCMAKE_BUILD_TYPE=Release",
            "-DCMAKE_INSTALL_LIBDIR=lib", "-DQUILLON_HOST=OFF", "-DQUILLON_TESTS=OFF", "-DQUILLON_BENCH=OFF")
        run("cmake", "--build", alone)
        prefix = self.path("usr")
        run("cmake", "--install", alone, "--prefix", prefix)
        self.assertTrue(os.path.exists(os.path.join(prefix, "lib", "libquillon.so.0")))
        environment = {**os.environ, "PKG_CONFIG_PATH": os.path.join(prefix, "lib", "pkgconfig")}
        flags = run("pkg-config", "--cflags", "--libs", "quillon", env=environment).split()
        run("gcc", os.path.join(HERE, "port_type.c"), "-o", self.path("port_type_c"), *flags)
        self.build_with_cmake(prefix)
        packages = self.pack(alone, "libquillon-dev", "libquillon0")
        self.assertRegex(run("dpkg-deb", "--field", packages[0], "Depends"), r"^libquillon0 \(= [\d.]+\)\n$")

    def test_packs_what_a_user_builds_and_runs_with(self):
        packages = self.pack(build, "libquillon-dev", "libquillon0", "quillon-workstation")

        # A root folder of its own, in which the machine's packages count as installed.
        root = self.path("root")
        database = os.path.join(root, "var/lib/dpkg")
        os.makedirs(os.path.join(database, "info"))
        os.makedirs(os.path.join(database, "updates"))
        shutil.copy("/var/lib/dpkg/status", database)
        if os.path.exists("/var/lib/dpkg/arch"):
            shutil.copy("/var/lib/dpkg/arch", database)
        dpkg = ("dpkg", f"--root={root}", f"--log={self.path('log')}", "--force-not-root", "--force-script-chrootless")
        # The packages' scripts run outside of it, and the machine's cache of libraries is not theirs to write.
        self.write_program("ldconfig", f"echo $DPKG_MAINTSCRIPT_PACKAGE >>{self.path('ldconfig_calls')}")
        environment = {**os.environ, "PATH": self.path("bin") + os.pathsep + os.environ["PATH"]}
        before = entries_below(root)
        run(*dpkg, "--install", *packages, env=environment)
        prefix = os.path.join(root, "usr")
        self.expect_answers(prefix, self.build_with_pkg_config(prefix))
        self.expect_answers(prefix, self.build_with_cmake(prefix))
        run(*dpkg, "--purge", "libquillon-dev", "libquillon0", "quillon-workstation", env=environment)
        with open(self.path("ldconfig_calls"), encoding="ascii") as calls:
            self.assertEqual(set(calls.read().split()), {"libquillon0", "quillon-workstation"})
        after = [entry for entry in entries_below(root) if not entry.startswith("var/lib/dpkg")]
        self.assertEqual(after, [entry for entry in before if not entry.startswith("var/lib/dpkg")])
        self.assertFalse(os.path.exists(prefix))


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--architecture", required=True)
    arguments, rest = parser.parse_known_args()
    build, architecture = arguments.build, arguments.architecture
    unittest.main(argv=[sys.argv[0], *rest])
