#!/usr/bin/env python3
"""The module needs nothing but the system, and exports what an in-process server must: imports_test.py cordboard.dll"""
import re
import subprocess
import sys
import unittest

MODULE = ""
SYSTEM = {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "user32.dll"}
EXPORTS = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]


def headers():
    return subprocess.run(["x86_64-w64-mingw32-objdump", "-p", MODULE], capture_output=True, text=True,
                          check=True).stdout


class Module(unittest.TestCase):
    def test_it_imports_the_systems_own_libraries_alone(self):
        imports = {name.lower() for name in re.findall(r"DLL Name: (\S+)", headers())}
        self.assertIn("oleaut32.dll", imports)
        self.assertLessEqual(imports, SYSTEM)

    def test_it_exports_four_functions(self):
        table = headers().split("[Ordinal/Name Pointer] Table")[1]
        self.assertEqual(sorted(re.findall(r"^\s*\[ *\d+\] (?:\+base\[ *\d+\] +[0-9a-f]+ )?(\S+)$", table, re.M)), EXPORTS)


if __name__ == "__main__":
    MODULE = sys.argv.pop()
    unittest.main()
