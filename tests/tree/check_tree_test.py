#!/usr/bin/env python3
"""Shows on small trees that each check of check_tree.py finds what it looks for, and nothing in a good tree."""

import tempfile
import unittest
from pathlib import Path

from check_tree import complaints

ENTRY = "extern const Module {}{{}};\n"
TEST = "TEST(Works, Well) {}\n"

GOOD = {
    "script/Value.h": "#pragma once\n#include <string>\n",
    "script/List.cpp": '#include "script/List.h"\n\n#include <vector>\n',
    "shared/Usage.cpp": '#include "shared/Usage.h"\n#include "script/Value.h"\n',
    "entry/Commands.def": "// The commands.\nCOMMAND(keyextensions, EXCCS)\nCOMMAND(keyextensions, KSANI)\n"
                             "COMMAND(keyextensions, KSEXI)\nCOMMAND(keyextensions, KSEXITEMPLATE)\n",
    "entry/Registry.cpp": '#include "entry/Registry.h"\n#include "entry/Commands.def"\n',
    "commands/keyextensions/EXCCS.cpp": '#include "commands/keyextensions/KSANI.h"\n' + ENTRY.format("EXCCS"),
    "commands/keyextensions/KSANI.cpp": '#include "commands/keyextensions/KSANI.h"\n' + ENTRY.format("KSANI"),
    "commands/keyextensions/KSANI.h": '#include "shared/Usage.h"\n',
    "commands/keyextensions/KSEXI.cpp": '#include "commands/keyextensions/KSEXI_lists.h"\n' + ENTRY.format("KSEXI"),
    "commands/keyextensions/KSEXI_lists.cpp": '#include "commands/keyextensions/KSEXI_lists.h"\n',
    "commands/keyextensions/KSEXI_lists.h": "#include <string>\n",
    "commands/keyextensions/KSEXITemplate.cpp":
        '#include "commands/keyextensions/KSEXI_lists.h"\n' + ENTRY.format("KSEXITEMPLATE"),
    "workbench/dialect/Mapper.cpp": '#include <sqlite3.h>\n#include "script/Host.h"\n#include "workbench/dialect/Mapper.h"\n',
    "remote/Server.cpp": '#include "entry/CScript.h"\n#include "remote/Server.h"\n',
    "cli/Main.cpp": '#include "workbench/dialect/Mapper.h"\n#include "remote/Server.h"\n',
    "tests/script/List_test.cpp": TEST,
    "tests/shared/Usage_test.cpp": "TEST_P(Works, Well) {}\n",
    "tests/commands/keyextensions/EXCCS.transcript": "command EXCCS\n",
    "tests/commands/keyextensions/KSANI.transcript": "command KSANI\n",
    "tests/commands/keyextensions/KSEXI.transcript": "command KSEXI\n",
    "tests/commands/keyextensions/KSEXITemplate.transcript": "command KSEXITEMPLATE\n",
    **{f"data/forms/{name}.json": "{}\n" for name in ("EXCCS", "KSANI", "KSEXI", "KSEXITEMPLATE")},
    **{f"docs/commands/{name}.md": "# A page\n" for name in ("EXCCS", "KSANI", "KSEXI", "KSEXITEMPLATE")},
    "data/board-types.json": '{"31": {"title": "A board", "positions": 16}}',
    "docs/plants.md": "| 31 | A board | 16 |\n",
    "docs/picture.bin": "\0the " + "spec",
    "docs/architecture.md": "A part of the tree, in particular parts of it, 3 parts, specific to it.\n",
    "build/dev/other.cpp": "the " + "spec\n",
}

# A change to the good tree (None takes the file away), and the one sentence that follows, by its beginning.
BAD = [
    ("docs/plants.md", "| 31 | A board | 8 |\n", "docs/plants.md: the board type 31 lacks its row | 31 | A board | 16 |"),
    ("script/List.cpp", "#include <sqlite3.h>\n", "script/List.cpp:1: the library includes nothing but"),
    ("script/List.cpp", "#include <string.h>\n", "script/List.cpp:1: the library includes nothing but"),
    ("script/List.cpp", "\n  # include<nlohmann/json.hpp>\n", "script/List.cpp:2: the library includes nothing but"),
    ("script/List.cpp", '#include "List.h"\n', "script/List.cpp:1: the library includes nothing but"),
    ("script/List.cpp", '#include "script"\n', "script/List.cpp:1: the library includes nothing but"),
    ("script/List.cpp", "#include HEADER\n", "script/List.cpp:1: the library includes nothing but"),
    ("script/List.cpp", '#include "shared/Usage.h"\n', "script/List.cpp:1: script/ may not include shared/Usage.h"),
    ("script/List.cpp", '#include "commands/X.h"\n', "script/List.cpp:1: script/ may not include commands/X.h"),
    ("script/List.cpp", '#include "cli/X.h"\n', "script/List.cpp:1: script/ may not include cli/X.h"),
    ("shared/Usage.cpp", '#include "commands/X.h"\n', "shared/Usage.cpp:1: shared/ may not include commands/X.h"),
    ("commands/keyextensions/KSANI.h", '#include "workbench/dialect/Mapper.h"\n',
     "commands/keyextensions/KSANI.h:1: commands/ may not include workbench/dialect/Mapper.h"),
    ("workbench/dialect/Mapper.cpp", '#include "cli/X.h"\n', "workbench/dialect/Mapper.cpp:1: workbench/ may not include cli/X.h"),
    ("workbench/dialect/Mapper.cpp", '#include "workbench/forms/Form.h"\n',
     "workbench/dialect/Mapper.cpp:1: workbench/dialect/ may not include workbench/forms/Form.h"),
    ("workbench/Form.cpp", "int x;\n", "workbench/Form.cpp: the file stands in no room of the workbench"),
    ("workbench/cellar/Form.cpp", "int x;\n", "workbench/cellar/Form.cpp: the file stands in no room of the workbench"),
    ("remote/Server.cpp", '#include "cli/X.h"\n', "remote/Server.cpp:1: remote/ may not include cli/X.h"),
    ("com/Object.cpp", '#include "cli/X.h"\n', "com/Object.cpp:1: com/ may not include cli/X.h"),
    ("commands/keyextensions/KSANI.h", '#include "commands/keyextensions/EXCCS.h"\n',
     "commands/keyextensions/KSANI.h:1: a command includes no other command's file, and not commands/keyextensions/E"),
    ("commands/keyextensions/KSANI.h", '#include "commands/keyextensions/KSEXI_lists.h"\n',
     "commands/keyextensions/KSANI.h:1: a command includes no other command's file"),
    ("commands/keyextensions/KSEXITemplate.cpp",
     '#include "commands/keyextensions/KSEXI.h"\n' + ENTRY.format("KSEXITEMPLATE"),
     "commands/keyextensions/KSEXITemplate.cpp:1: a command includes no other command's file"),
    ("commands/keyextensions/KSEXI_lists.cpp", '#include "commands/keyextensions/KSANI.h"\n',
     "commands/keyextensions/KSEXI_lists.cpp:1: a command includes no other command's file"),
    ("commands/keyextensions/EXCCS.cpp", '#include "commands/keyextensions/KSEXI_lists.h"\n' + ENTRY.format("EXCCS"),
     "commands/keyextensions/EXCCS.cpp:1: a command includes no other command's file"),
    ("tests/commands/keyextensions/KSEXI.transcript", None,
     "commands/keyextensions/KSEXI.cpp: the module lacks its transcript tests/commands/keyextensions/KSEXI.transcript"),
    ("tests/commands/keyextensions/KSEXITemplate.transcript", None,
     "commands/keyextensions/KSEXITemplate.cpp: the module lacks its transcript"),
    ("data/forms/KSEXI.json", None,
     "commands/keyextensions/KSEXI.cpp: the module lacks its form data/forms/KSEXI.json"),
    ("docs/commands/KSEXITEMPLATE.md", None,
     "commands/keyextensions/KSEXITemplate.cpp: the module lacks its page docs/commands/KSEXITEMPLATE.md"),
    ("shared/Usage.cpp", '#include "entry/Registry.h"\n', "shared/Usage.cpp:1: shared/ may not include entry/Registry.h"),
    ("entry/Commands.def", GOOD["entry/Commands.def"].replace("COMMAND(keyextensions, KSANI)\n", ""),
     "commands/keyextensions/KSANI.cpp: the module lacks its row COMMAND(keyextensions, KSANI)"),
    ("entry/Commands.def", GOOD["entry/Commands.def"] + "PLANNED(numberplan, NANSI)\n",
     "entry/Commands.def: the command NANSI of the family numberplan has no module"),
    ("entry/Commands.def", GOOD["entry/Commands.def"] + "COMMAND(numberplan, NANSI)\n",
     "entry/Commands.def: the row COMMAND(numberplan, NANSI) lacks its module commands/numberplan/NANSI.cpp"),
    ("commands/keyextensions/Helpers.cpp", "int x;\n", "commands/keyextensions/Helpers.cpp: the file has no table"),
    ("commands/routes/KSEXI_routes.h", "int x;\n", "commands/routes/KSEXI_routes.h: the file has no table"),
    ("script/Text.cpp", "int x;\n", "script/Text.cpp: the unit lacks its test tests/script/Text_test.cpp"),
    ("tests/shared/Usage_test.cpp", None, "shared/Usage.cpp: the unit lacks its test tests/shared/Usage_test.cpp"),
    ("tests/shared/Usage_test.cpp", "// TEST(Later, On)\n", "tests/shared/Usage_test.cpp: the test file has no TEST"),
    ("docs/guide.md", "Read\nParts" + " 2 and 3.\n", "docs/guide.md:2: "),
    ("docs/guide.md", "as part" + " 2.3 says\n", "docs/guide.md:1: "),
    ("script/Value.h", "// See the" + " spec.\n", "script/Value.h:1: "),
    ("tools/x", "# SPEC" + "IFICATION\n", "tools/x:1: "),
    ("docs/spec" + "ification.md", "", "docs/spec" + "ification.md (its name): "),
]


def complaints_about(files):
    with tempfile.TemporaryDirectory() as folder:
        for path, text in files.items():
            if text is not None:
                file = Path(folder) / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
        return complaints(folder)


class CheckTree(unittest.TestCase):
    def test_has_nothing_to_say_about_a_good_tree(self):
        self.assertEqual(complaints_about(GOOD), [])

    def test_says_one_sentence_about_each_broken_habit(self):
        for path, text, beginning in BAD:
            with self.subTest(path=path, text=text):
                found = complaints_about({**GOOD, path: text})
                self.assertEqual(len(found), 1, found)
                self.assertTrue(found[0].startswith(beginning), found[0])

    def test_says_what_lacks_when_a_module_is_gone(self):
        found = complaints_about({**GOOD, "commands/keyextensions/EXCCS.cpp": "int x;\n"})
        self.assertEqual(len(found), 2, found)
        self.assertIn("has no table extern const Module EXCCS", found[0])
        self.assertIn("the row COMMAND(keyextensions, EXCCS) lacks its module", found[1])


if __name__ == "__main__":
    unittest.main()
