#!/usr/bin/env python3
"""Looks at what tools/tidy reads, and at what it makes of what clang-tidy finds."""

import contextlib
import io
import re
import shutil
import subprocess
import tempfile
import unittest
from importlib.machinery import SourceFileLoader
from importlib.util import module_from_spec, spec_from_loader
from pathlib import Path
from unittest import mock

SOURCE = Path(__file__).resolve().parents[2]


def tool():
    loader = SourceFileLoader("tidy", str(SOURCE / "tools/tidy"))
    module = module_from_spec(spec_from_loader("tidy", loader))
    loader.exec_module(module)
    return module


class Sources(unittest.TestCase):
    @unittest.skipUnless(shutil.which("git") and (SOURCE / ".git").exists(), "needs a checkout")
    def test_every_source_but_tests_and_those_for_windows_is_in_one_batch(self):
        listed = subprocess.run(["git", "ls-files", "*.cpp"], cwd=SOURCE, capture_output=True, text=True, check=True)
        wanted = [path for path in listed.stdout.split() if not path.startswith(("tests/", "com/"))]
        self.assertEqual(sorted(path for batch in tool().all_batches() for path in batch), sorted(wanted))

    def test_what_is_found_in_a_batch_is_told_of_every_room(self):
        wanted = re.search(r"HeaderFilterRegex: '(.*)'", (SOURCE / ".clang-tidy").read_text())[1]
        for room in tool().ROOMS:
            self.assertRegex(str(SOURCE / room / "Source.cpp"), wanted)
        self.assertNotRegex("/usr/include/sqlite3.h", wanted)

    def test_commands_stand_in_namespaces_of_their_own(self):
        tidy = tool()
        self.assertIn("namespace commands_numberplan_NANSI_cpp {", tidy.included("commands/numberplan/NANSI.cpp"))
        self.assertNotIn("namespace", tidy.included("script/List.cpp"))


class Findings(unittest.TestCase):
    """With a compiler and a clang-tidy that say what is set here, and say it of every batch that holds the source."""

    def setUp(self):
        self.tidy = tool()
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tidy.BATCHES = Path(folder.name)
        self.clashing = set()
        self.faulty = set()
        self.looked_at = []
        self.tidy.run = self.run_tool

    def run_tool(self, *command):
        named = [word for word in command if word.endswith(".cpp")]
        self.assertEqual(len(named), 1)
        path = Path(named[0])
        paths = [named[0]]
        if path.is_absolute():
            paths = re.findall(r'^#include "(\S+\.cpp)"', path.read_text(), re.M)
        if command[0] == "clang++":
            seen = [each for each in paths if each in self.clashing and len(paths) > 1]
            return "".join(f"{SOURCE / each}:1:1: error: it clashes\n" for each in seen)
        self.looked_at.append(paths)
        return "".join(f"{each} is faulty\n" for each in paths if each in self.faulty)

    def look(self, *batch):
        said = io.StringIO()
        with mock.patch.object(self.tidy, "all_batches", lambda: [list(batch)]), \
                mock.patch.object(self.tidy.sys, "argv", ["tidy"]), contextlib.redirect_stdout(said):
            return self.tidy.main(), said.getvalue()

    four = ("script/List.cpp", "script/Text.cpp", "script/Conversions.cpp", "script/Module.cpp")

    def test_a_batch_without_findings_is_looked_at_once(self):
        self.assertEqual(self.look(*self.four), (0, ""))
        self.assertEqual(self.looked_at, [list(self.four)])

    def test_what_is_found_is_told_of_the_single_source(self):
        self.faulty = {"script/Conversions.cpp"}
        self.assertEqual(self.look(*self.four), (1, "script/Conversions.cpp is faulty\n"))
        self.assertIn(["script/Conversions.cpp"], self.looked_at)

    def test_sources_that_clash_are_looked_at_all_the_same(self):
        self.clashing = {"script/List.cpp", "script/Text.cpp"}
        self.faulty = {"script/Text.cpp", "script/Module.cpp"}
        code, said = self.look(*self.four)
        self.assertEqual(code, 1)
        self.assertIn(["script/Conversions.cpp", "script/Module.cpp"], self.looked_at)
        self.assertFalse([batch for batch in self.looked_at if self.clashing <= set(batch)])
        self.assertEqual(sorted(said.splitlines()), ["script/Module.cpp is faulty", "script/Text.cpp is faulty"])


if __name__ == "__main__":
    unittest.main()
