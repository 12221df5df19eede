#!/usr/bin/env python3
"""Runs tools/new-command on a copy of what it needs, and looks at what it makes."""

import json
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from check_tree import Tree, check_command_files_belong, check_module_files, check_rows

SOURCE = Path(__file__).resolve().parents[2]
HEAD = "// The commands.\n"
ROWS = HEAD + "PLANNED(groups, GPAGI)\nCOMMAND(keyextensions, KSANI)\nPLANNED(keyextensions, KSEXITEMPLATE)\n" \
              "PLANNED(extensions, EXTEI)\nPLANNED(groups, GPGMI)\n"


class NewCommand(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for path in ("tools/new-command", "data/schema.json", "data/generation-order.json"):
            (self.root / path).parent.mkdir(exist_ok=True)
            shutil.copy(SOURCE / path, self.root / path)
        (self.root / "entry").mkdir()
        self.registry = self.root / "entry/Commands.def"
        self.registry.write_text(ROWS)

    def run_tool(self, *arguments):
        return subprocess.run([self.root / "tools/new-command", *arguments], capture_output=True, text=True,
                              check=False)

    def make(self, name):
        done = self.run_tool(name)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def text(self, path):
        return (self.root / path).read_text()

    def json(self, path):
        return json.loads(self.text(path))

    def assert_refused(self, words, name):
        before = {path: path.read_bytes() for path in self.root.rglob("*") if path.is_file()}
        done = self.run_tool(name)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "")
        self.assertIn(words, done.stderr)
        self.assertEqual({path: path.read_bytes() for path in self.root.rglob("*") if path.is_file()}, before)

    def test_makes_a_command_with_everything_that_the_tree_asks_for(self):
        self.make("GPAGI")
        tree = Tree(self.root)
        self.assertEqual(tree.modules, {"GPAGI": "groups"})
        for check in (check_module_files, check_command_files_belong):
            self.assertEqual(list(check(tree)), [])
        self.assertEqual([line for line in check_rows(tree) if "GPAGI" in line], [])

    def test_tells_each_file_that_it_touches(self):
        self.assertEqual(self.make("GPAGI").splitlines(), [
            "made commands/groups/GPAGI.cpp", "made tests/commands/groups/GPAGI.transcript",
            "made data/forms/GPAGI.json", "made data/values/GPAGI.json", "made docs/commands/GPAGI.md",
            "entered it in entry/Commands.def", "entered it in data/generation-order.json",
            "entered it in tests/workbench/roads/groups_road_test.cpp"])

    def test_turns_the_row_of_a_planned_command_into_one_of_a_built_one(self):
        self.make("GPAGI")
        self.assertEqual(self.registry.read_text(), ROWS.replace("PLANNED(groups, GPAGI)", "COMMAND(groups, GPAGI)"))

    def test_the_form_has_the_columns_of_the_commands_table_as_parameters(self):
        self.make("GPAGI")
        form = self.json("data/forms/GPAGI.json")
        self.assertEqual(sorted(form), ["help", "parameters", "title"])
        self.assertEqual([parameter["name"] for parameter in form["parameters"]], ["GRP", "AGRP"])

    def test_the_form_says_the_table_where_it_has_another_name(self):
        self.make("EXTEI")
        self.assertEqual(self.json("data/forms/EXTEI.json")["table"], "EXTEIDIR")

    def test_the_form_of_a_template_has_the_columns_of_the_site_database(self):
        self.make("KSEXITEMPLATE")
        self.assertEqual(self.json("data/forms/KSEXITEMPLATE.json")["database"], "site")
        self.assertIn("extern const Module KSEXITEMPLATE{", self.text("commands/keyextensions/KSEXITemplate.cpp"))
        self.assertEqual(list(check_module_files(Tree(self.root))), [])

    def test_commands_of_a_family_share_a_road(self):
        self.make("GPAGI")
        self.make("GPGMI")
        road = self.text("tests/workbench/roads/groups_road_test.cpp")
        self.assertLess(road.index("TEST(GPAGIRoad, "), road.index("TEST(GPGMIRoad, "))
        self.assertEqual(road.count("}  // namespace cordboard::workbench\n"), 1)

    def test_generates_after_all_others(self):
        self.registry.write_text(ROWS + "PLANNED(keyextensions, ITNUITEMPLATE)\n")
        before = self.json("data/generation-order.json")
        self.make("GPAGI")
        self.make("ITNUITEMPLATE")
        self.assertEqual(self.json("data/generation-order.json"),
                         {"dynamic": [*before["dynamic"], "GPAGI"], "site": [*before["site"], "ITNUITEMPLATE"]})

    @unittest.skipUnless(shutil.which("clang-format"), "needs clang-format")
    def test_makes_code_that_is_formatted(self):
        for name in ("GPAGI", "KSEXITEMPLATE"):
            self.make(name)
        style = f"--style=file:{SOURCE / '.clang-format'}"
        done = subprocess.run(["clang-format", style, "--dry-run", "-Werror", *self.root.rglob("*.cpp")],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_refuses_a_name_that_is_no_command_and_offers_near_ones(self):
        self.assert_refused("GPAGY is not among the 5 commands of the exchange; did you mean GPAGI", "GPAGY")
        self.assert_refused("did you mean GPAGI", "gpagi")
        self.assert_refused("QQQQQ is not among the 5 commands of the exchange\n", "QQQQQ")

    def test_refuses_a_command_that_is_built(self):
        self.assert_refused("KSANI is built already: nothing was changed", "KSANI")
        self.make("GPAGI")
        self.assert_refused("GPAGI is built already: nothing was changed", "GPAGI")

    def test_refuses_to_overwrite_anything(self):
        (self.root / "docs/commands").mkdir(parents=True)
        (self.root / "docs/commands/GPAGI.md").write_text("# Written by hand\n")
        self.assert_refused("docs/commands/GPAGI.md is there already: nothing was changed", "GPAGI")

    def test_refuses_a_road_that_ends_otherwise(self):
        (self.root / "tests/workbench/roads").mkdir(parents=True)
        (self.root / "tests/workbench/roads/groups_road_test.cpp").write_text("// Nothing.\n")
        self.assert_refused("tests/workbench/roads/groups_road_test.cpp does not end as the others", "GPAGI")

    def test_says_how_it_is_used(self):
        usage = "Usage: tools/new-command NAME"
        for arguments in ((), ("groups", "GPAGI"), ("--force",)):
            done = self.run_tool(*arguments)
            self.assertEqual(done.returncode, 2)
            self.assertIn(usage, done.stderr)
        done = self.run_tool("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn(usage, done.stdout)


if __name__ == "__main__":
    unittest.main()
