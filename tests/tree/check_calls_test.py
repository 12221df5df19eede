#!/usr/bin/env python3
"""Shows that check_calls.py finds calls that run up, and nothing else."""

import unittest

from check_calls import complaints, split


def found(*objects):
    return list(complaints({path: (set(defined.split()), set(needed.split())) for path, defined, needed in objects}))


class CheckCalls(unittest.TestCase):
    def test_calls_downwards_and_within_a_room_are_free(self):
        self.assertEqual(found(("script/Text.cpp", "Left", "malloc"), ("shared/Usage.cpp", "SetNumberUsed", "Left"),
                               ("shared/Record.cpp", "Record", "SetNumberUsed"),
                               ("commands/system/SYIDI.cpp", "SYIDI", "SetNumberUsed Left"),
                               ("entry/Registry.cpp", "Registry", "SYIDI"),
                               ("workbench/host/Session.cpp", "Session", "Registry Left")), [])

    def test_calls_upwards_are_found(self):
        for caller, callee in (("script/Text.cpp", "shared/Usage.cpp"), ("script/Text.cpp", "entry/Registry.cpp"),
                               ("shared/Usage.cpp", "commands/system/SYIDI.cpp"),
                               ("commands/system/SYIDI.cpp", "entry/Registry.cpp"),
                               ("script/Text.cpp", "workbench/text/Utf8.cpp"),
                               ("workbench/text/Utf8.cpp", "workbench/host/Session.cpp"),
                               ("remote/Serve.cpp", "workbench/host/Session.cpp"),
                               ("workbench/host/Session.cpp", "commands/system/SYIDI.cpp")):
            with self.subTest(caller=caller, callee=callee):
                self.assertEqual(found((caller, "", "Called"), (callee, "Called", "")),
                                 [f"{caller} uses Called of {callee}: calls run downwards only"])

    def test_a_command_uses_no_other_but_for_the_one_that_may(self):
        ksani = ("commands/keyextensions/KSANI.cpp", "KSANI", "")
        self.assertEqual(found(("commands/keyextensions/EXCCS.cpp", "EXCCS", "KSANI"), ksani), [])
        self.assertEqual(len(found(("commands/keyextensions/KSEXI.cpp", "KSEXI", "KSANI"), ksani)), 1)

    def test_a_template_uses_the_private_parts_of_its_command_alone(self):
        for template in ("ITNUITEMPLATE", "ITNUITemplate"):
            caller = (f"commands/keyextensions/{template}.cpp", template, "Called")
            part = ("commands/keyextensions/ITNUI_Edit.cpp", "Called", "")
            self.assertEqual(found(caller, part), [])
            for other in ("ITNUI", "KSEXI_Edit"):
                self.assertEqual(len(found(caller, (f"commands/keyextensions/{other}.cpp", "Called", ""))), 1)

    def test_private_parts_use_each_other_but_neither_their_command_nor_the_parts_of_another(self):
        caller = ("commands/groups/CBGMI_Edit.cpp", "", "Called")
        self.assertEqual(found(caller, ("commands/groups/CBGMI_Lists.cpp", "Called", "")), [])
        for other in ("CBGMI", "CHGMI_Lists"):
            self.assertEqual(len(found(caller, (f"commands/groups/{other}.cpp", "Called", ""))), 1)

    def test_a_command_with_a_name_of_two_words_is_no_private_part(self):
        for caller, callee in (("CS_CHGRI", "CS_GDNDI"), ("CS_CHGRI", "CS_GDNDI_Lists"), ("ROCAI", "ROCAI_IMPORT"),
                               ("ROCAI", "ROCAI_IMPORT_Edit"), ("ROCAI_Edit", "ROCAI_IMPORT")):
            with self.subTest(caller=caller, callee=callee):
                self.assertEqual(len(found((f"commands/groups/{caller}.cpp", "", "Called"),
                                           (f"commands/groups/{callee}.cpp", "Called", ""))), 1)

    def test_a_name_may_hold_blanks(self):
        self.assertEqual(split("cordboard::Left(std::basic_string_view<char>, long) T 0 1f"),
                         ("cordboard::Left(std::basic_string_view<char>, long)", "T"))
        self.assertEqual(split("cordboard::KSANI U         "), ("cordboard::KSANI", "U"))


if __name__ == "__main__":
    unittest.main()
