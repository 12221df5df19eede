#!/usr/bin/env python3
"""Runs tools/new-command on a copy of what it needs, and looks at what it makes. CXX names the compiler."""

import json
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from check_tree import Tree, check_command_files_belong, check_module_files, check_rows

SOURCE = Path(__file__).resolve().parents[2]
HEAD = "// The commands.\n"


class NewCommand(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for path in ("tools", "entry"):
            (self.root / path).mkdir()
        shutil.copy(SOURCE / "tools/new-command", self.root / "tools/new-command")
        self.registry = self.root / "entry/Commands.def"
        self.registry.write_text(HEAD)

    def run_tool(self, *arguments):
        return subprocess.run([self.root / "tools/new-command", *arguments], capture_output=True, text=True,
                              check=False)

    def make(self, family, name):
        done = self.run_tool(family, name)
        self.assertEqual(done.returncode, 0, done.stderr)

    def assert_refused(self, words, *arguments):
        before = sorted(self.root.rglob("*"))
        registry = self.registry.read_text()
        done = self.run_tool(*arguments)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "")
        self.assertIn(words, done.stderr)
        self.assertEqual(sorted(self.root.rglob("*")), before)
        self.assertEqual(self.registry.read_text(), registry)

    def assert_compiles(self, path):
        compiler = os.environ.get("CXX", "c++")
        done = subprocess.run([compiler, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wpedantic", "-Werror",
                               f"-I{SOURCE}", f"-I{SOURCE / 'tests'}", self.root / path],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_makes_a_command_with_everything_that_the_tree_asks_for(self):
        self.make("groups", "GPAGI")
        tree = Tree(self.root)
        self.assertEqual(tree.modules, {"GPAGI": "groups"})
        for check in (check_module_files, check_command_files_belong, check_rows):
            self.assertEqual(list(check(tree)), [])

    def test_makes_a_module_that_compiles(self):
        self.make("groups", "GPAGI")
        self.assert_compiles("commands/groups/GPAGI.cpp")

    @unittest.skipUnless(shutil.which("clang-format"), "needs clang-format")
    def test_makes_code_that_is_formatted(self):
        self.make("groups", "GPAGI")
        self.make("extensions", "EXTEITEMPLATE")
        style = f"--style=file:{SOURCE / '.clang-format'}"
        done = subprocess.run(["clang-format", style, "--dry-run", "-Werror", *self.root.rglob("*.cpp")],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_makes_a_transcript_that_fails_until_it_is_filled_in(self):
        self.make("groups", "GPAGI")
        transcript = (self.root / "tests/commands/groups/GPAGI.transcript").read_text()
        self.assertIn("\ncommand GPAGI\n", transcript)
        self.assertIn('\nrun {function} "NONE"\n', transcript)
        self.assertIn('\n  scPrintToDebugWindow("TODO")\n', transcript)

    def test_makes_a_minimal_form(self):
        self.make("groups", "GPAGI")
        form = json.loads((self.root / "data/forms/GPAGI.json").read_text())
        self.assertEqual((form["command"], form["table"], form["parameters"]), ("GPAGI", "GPAGI", []))

    def test_puts_each_row_in_its_place(self):
        for family, name in (("numberplan", "NANSI"), ("ip", "IVBOI"), ("groups", "ACGMI"), ("routes", "ROCAI_IMPORT"),
                             ("routes", "ROCAI"), ("keyextensions", "KSEXI")):
            self.make(family, name)
        self.assertEqual(self.registry.read_text(),
                         HEAD + "COMMAND(groups, ACGMI)\nCOMMAND(keyextensions, KSEXI)\nCOMMAND(numberplan, NANSI)\n"
                                "COMMAND(routes, ROCAI)\nCOMMAND(routes, ROCAI_IMPORT)\nCOMMAND(ip, IVBOI)\n")

    def test_knows_the_one_module_whose_name_is_not_its_commands(self):
        self.make("keyextensions", "KSEXITEMPLATE")
        self.assertIn("extern const Module KSEXITEMPLATE{", (self.root / "commands/keyextensions/KSEXITemplate.cpp").read_text())
        self.assertEqual(self.registry.read_text(), HEAD + "COMMAND(keyextensions, KSEXITEMPLATE)\n")
        tree = Tree(self.root)
        self.assertEqual(list(check_module_files(tree)) + list(check_rows(tree)), [])

    def test_refuses_a_name_that_is_no_command_and_offers_near_ones(self):
        self.assert_refused("KSEXY is not among the 87 commands of the exchange; did you mean KSEXI", "groups", "KSEXY")
        self.assert_refused("did you mean GPAGI", "groups", "gpagi")
        self.assert_refused("QQQQQ is not among the 87 commands of the exchange\n", "groups", "QQQQQ")

    def test_refuses_a_family_that_does_not_exist(self):
        self.assert_refused("group is no family of commands: there are numberplan, system,", "group", "GPAGI")

    def test_refuses_to_overwrite_anything(self):
        self.make("groups", "GPAGI")
        self.assert_refused("commands/groups/GPAGI.cpp, ", "groups", "GPAGI")
        page = self.root / "docs/commands/GPGMI.md"
        page.write_text("# Written by hand\n")
        self.assert_refused("docs/commands/GPGMI.md is there already: nothing was changed", "groups", "GPGMI")
        self.assertEqual(page.read_text(), "# Written by hand\n")

    def test_refuses_a_second_row(self):
        self.registry.write_text(HEAD + "COMMAND(groups, GPAGI)\n")
        self.assert_refused("GPAGI has its row in entry/Commands.def already", "groups", "GPAGI")

    def test_says_how_it_is_used(self):
        usage = "Usage: tools/new-command FAMILY NAME"
        for arguments in ((), ("groups",), ("groups", "GPAGI", "more"), ("--force", "GPAGI")):
            done = self.run_tool(*arguments)
            self.assertEqual(done.returncode, 2)
            self.assertIn(usage, done.stderr)
        done = self.run_tool("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn(usage, done.stdout)


if __name__ == "__main__":
    unittest.main()
