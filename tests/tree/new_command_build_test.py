#!/usr/bin/env python3
"""Makes a command in a copy of the tree, builds it, and shows that one block of its transcript fails, and no other test
but the one that counts the commands.

Usage: new_command_build_test.py BUILD    the folder of a build by Ninja, of which the objects of all other files are used
"""

import json
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from check_tree import complaints

SOURCE = Path(__file__).resolve().parents[2]
BUILD = Path()
# A command that no exchange has, planned in the copy.
FAMILY, NAME = "system", "XTEST"
TABLE = {"name": NAME, "columns": ["CMDID", "DIR", "CUST"], "types": {"CMDID": "whole"},
         "indexes": [["CMDID"]]}
RECORDS = {"table": NAME, "is": "record of a test", "key": ["DIR"]}


def run(*arguments, folder=None, check=True):
    return subprocess.run([str(argument) for argument in arguments], cwd=folder, check=check, capture_output=True,
                          text=True)


class Tree:
    """A copy of the sources with the new command, and what is built of it."""

    def __init__(self, root):
        self.root = root
        shutil.copytree(SOURCE, root, dirs_exist_ok=True, ignore=shutil.ignore_patterns("build", ".git", "__pycache__"))
        self.plan()
        self.made = run(root / "tools/new-command", NAME).stdout
        self.objects = root / "build"
        self.objects.mkdir()
        commands = json.loads((BUILD / "compile_commands.json").read_text())
        self.commands = {entry["file"]: entry["command"] for entry in commands}

    def plan(self):
        registry = self.root / "entry/Commands.def"
        registry.write_text(registry.read_text() + f"PLANNED({FAMILY}, {NAME})\n")
        schema = self.root / "data/schema.json"
        tables = schema.read_text()
        schema.write_text(tables.replace('"dynamic": [', f'"dynamic": [{json.dumps(TABLE)},', 1))
        references = self.root / "data/references.json"
        text = references.read_text().replace('"records": [', f'"records": [{json.dumps(RECORDS)},', 1)
        references.write_text(text.replace('"namedBy": [', f'"namedBy": ["{NAME}.DIR", ', 1))

    def compile(self, source, like):
        """Compiles a file with the options of one that the build has, but for precompiled headers: these are not the
        copy's."""
        out = self.objects / (Path(source).stem + ".o")
        options = re.sub(r"(-Xclang )?-include(-pch)? (-Xclang )?\S+", "", self.commands[str(like)])
        command = [part.replace(str(SOURCE), str(self.root)) if part.startswith(("-I", "-D")) else part
                   for part in shlex.split(options)]
        command[command.index("-o") + 1] = str(out)
        command[command.index("-c") + 1] = str(self.root / source)
        done = run(*command, folder=BUILD, check=False)
        if done.returncode != 0:
            raise AssertionError(done.stderr)
        return out

    def link(self, target, objects):
        """Links a program of the build; the given objects take the place of those of the same sources, also of those in
        archives: of these none is linked whole, so that the linker takes what is missing."""
        out = self.objects / target
        command = run("ninja", "-t", "commands", target, folder=BUILD).stdout.splitlines()[-1]
        place = f" -o {target} "
        assert place in command, command
        for path in objects:
            command = re.sub(rf"\S*/{path.stem}\.cpp\.o ", "", command)
        command = re.sub(r"(-Xlinker |-Wl,)--whole-archive[ ,].*?--no-whole-archive ", "", command)
        command = command.replace(place, f" -o {shlex.quote(str(out))} {shlex.join(map(str, objects))} ")
        subprocess.run(command, shell=True, cwd=BUILD, check=True)
        return out


def failures(program, only="*"):
    """The tests of a program that failed, and those that were skipped."""
    report = program.with_suffix(".json")
    run(program, "--gtest_brief=1", f"--gtest_filter={only}", f"--gtest_output=json:{report}", check=False)
    failed, skipped = [], []
    for suite in json.loads(report.read_text())["testsuites"]:
        for test in suite["testsuite"]:
            name = f"{suite['name']}.{test['name']}"
            failed += [name] if "failures" in test else []
            skipped += [name] if test["result"] == "SKIPPED" else []
    return failed, skipped


class NewCommandBuilds(unittest.TestCase):
    def test_everything_builds_and_one_test_fails_until_it_is_filled_in(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = Tree(Path(folder))
            resources = tree.objects / "Resources_data.cpp"
            run(BUILD / "embed", resources, tree.root / "data", tree.root / "docs")
            module = tree.compile(f"commands/{FAMILY}/{NAME}.cpp", SOURCE / "entry/Registry.cpp")
            registry = tree.compile("entry/Registry.cpp", SOURCE / "entry/Registry.cpp")
            data = tree.compile(resources.relative_to(tree.root), BUILD / "Resources_data.cpp")
            sources = tree.compile("tests/support/SourceFolder.cpp", SOURCE / "tests/support/SourceFolder.cpp")
            road = tree.compile(f"tests/workbench/roads/{FAMILY}_road_test.cpp",
                                SOURCE / "tests/workbench/roads/system_road_test.cpp")

            program = tree.link("cordboard", [module, registry, data])
            self.assertIn(f"{NAME}: TODO: a title\n", run(program, "help", NAME).stdout)
            pages = run(tree.root / "tools/command-pages", "--program", program).stdout
            self.assertEqual(pages, f"written: docs/commands/{NAME}.md\n")
            self.assertEqual(complaints(tree.root), [])

            library = failures(tree.link("library-tests", [module, registry, sources]))
            # Of the workbench those that go through all commands, since a run of all of them takes minutes.
            workbench = failures(tree.link("workbench-tests", [module, registry, data, sources, road]),
                                 only=f"{NAME}*:*Form*:*Schema*:*Fixed*:*Generation*:*Plant*:*Message*:*Kinds*")
            self.assertEqual(library[0] + workbench[0],
                             [f"{NAME}.DoesWhatItsRulesSay",
                              "Registry.ThereAre87CommandsOfDifferentNames"])  # it is one more than the exchange has
            self.assertIn(f"{NAME}Road.TODO", workbench[1])


if __name__ == "__main__":
    BUILD = Path(sys.argv.pop(1)).resolve()
    unittest.main()
