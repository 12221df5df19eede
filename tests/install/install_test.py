#!/usr/bin/env python3
"""What is installed is whole: the program runs from there, its pages and its completion are found, and the Debian package
holds the same.

Usage: install_test.py BUILD    the folder of a build
"""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD = Path()
FILES = {"bin/cordboard", "include/cordboard/entry/CScript.h", "include/cordboard/script/Host.h",
         "share/man/man1/cordboard.1", "share/man/man1/cordboard-apply.1", "share/man/man7/cordboard-KSEXI.7",
         "share/bash-completion/completions/cordboard", "share/doc/cordboard/README.md",
         "share/doc/cordboard/docs/plans.md", "share/doc/cordboard/docs/commands/KSEXI.md",
         "share/doc/cordboard/examples/embed/main.cpp"}
# Their folder has the name of the machine in it, or not.
LIBRARY = {"libcordboard.a", "cordboard-config.cmake", "cordboard-config-version.cmake"}
COMMANDS = 87


def run(*arguments, **options):
    done = subprocess.run([str(argument) for argument in arguments], capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise AssertionError(f"{arguments}\n{done.stdout}{done.stderr}")
    return done.stdout


class Installed(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)

    def is_whole(self, files, zsh):
        self.assertLessEqual(FILES | {f"share/zsh/{zsh}/_cordboard"}, files)
        self.assertLessEqual(LIBRARY, {Path(name).name for name in files})
        self.assertEqual(sum(name.endswith(".7") for name in files), COMMANDS)

    def test_the_program_runs_from_where_it_is_installed(self):
        prefix = self.folder / "prefix"
        run("cmake", "--install", BUILD, "--prefix", prefix)
        self.is_whole({path.relative_to(prefix).as_posix() for path in prefix.rglob("*")}, "site-functions")

        there = {"env": {"PATH": f"{prefix}/bin:/usr/bin:/bin", "MANPATH": f"{prefix}/share/man"}, "cwd": self.folder}
        run("cordboard", "new", "office.cbx", "--release", "R7", **there)
        run("cordboard", "apply", "office.cbx", "-", input="NANSI:NUMTYP=EX,NUMSE=100&&199;\n", **there)
        self.assertEqual(run("cordboard", "generate", "office.cbx", **there), "NANSI:NUMTYP=EX,NUMSE=100&&199;\n")
        self.assertTrue(run("cordboard", "help", "plans", **there).startswith("# Plans\n"))
        if shutil.which("man"):
            self.assertIn("cordboard-KSEXI.7", run("man", "-w", "cordboard-KSEXI", **there))
        completion = prefix / "share/bash-completion/completions/cordboard"
        self.assertIn("_cordboard", run("bash", "-c", f"source {completion}; complete -p cordboard", **there))

    @unittest.skipUnless(shutil.which("dpkg-deb"), "there is no dpkg-deb")
    def test_the_debian_package_is_whole(self):
        run("cpack", "-G", "DEB", "--config", BUILD / "CPackConfig.cmake", "-B", self.folder,
            "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=none")
        package, = self.folder.glob("cordboard_*.deb")
        listed = run("dpkg-deb", "-c", package).splitlines()
        self.is_whole({line.split()[5].removeprefix("./usr/") for line in listed}, "vendor-completions")
        self.assertEqual({line.split()[1] for line in listed}, {"root/root"})
        if shutil.which("dpkg-shlibdeps"):
            self.assertIn("libsqlite3-0", run("dpkg-deb", "-f", package, "Depends"))


if __name__ == "__main__":
    BUILD = Path(sys.argv.pop(1)).resolve()
    unittest.main()
