#!/usr/bin/env python3
"""Walks the tree and says, one sentence each, where a habit of the project is broken.

Usage: check_tree.py [ROOT]    exits with 1 when there is something to say
"""

import json
import os
import re
import sys
from pathlib import Path

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
    clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint
    cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
    memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
    strstream syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector version
""".split())

# What a file of each room may include, as first folder. The program sees everything.
ARROWS = {
    "script": {"script"},
    "shared": {"shared", "script"},
    "commands": {"commands", "shared", "script"},
    "entry": {"entry", "script"},
    "workbench": {"workbench", "entry", "script"},
    "web": {"web", "workbench", "entry", "script"},
    "remote": {"remote", "entry", "script"},
    "com": {"com", "entry", "script"},
}
LIBRARY = ("script", "shared", "commands", "entry")

# The rooms within the workbench, from the lowest: each includes itself and those before it.
WORKBENCH = ("text", "system", "data", "dialect", "database", "history", "exchange", "forms", "host", "actions", "plans")
ROOMS = {*ARROWS, "cli"}

# The category command runs the delete of the additional number command.
COMMAND_THAT_INCLUDES_ANOTHER = {"EXCCS": "commands/keyextensions/KSANI.h"}

# The one module whose name is not its command's.
MODULE_OF_COMMAND = {"KSEXITEMPLATE": "KSEXITemplate"}
COMMAND_OF_MODULE = {module: command for command, module in MODULE_OF_COMMAND.items()}

FORBIDDEN_WORDS = re.compile(r"\bparts? [0-9]+(\.[0-9]+)?\b|\bthe spec\b|specificatio[n]", re.IGNORECASE)

SKIPPED_FOLDERS = {".git", "build", "__pycache__"}


class Tree:
    def __init__(self, root):
        self.root = Path(root)
        self.paths = []  # relative to the root, with forward slashes
        for folder, folders, files in os.walk(self.root):
            folders[:] = sorted(name for name in folders if name not in SKIPPED_FOLDERS)
            self.paths += [(Path(folder) / name).relative_to(self.root).as_posix() for name in sorted(files)]
        self.present = set(self.paths)
        self.modules = {}  # the name of each command module: its family
        for path in self.paths:
            match = re.fullmatch(r"commands/(\w+)/(\w+)\.cpp", path)
            if match and self.has_entry(path, match[2]):
                self.modules[match[2]] = match[1]

    def text(self, path):
        return (self.root / path).read_bytes().decode(errors="replace")

    def has_entry(self, path, module):
        command = COMMAND_OF_MODULE.get(module, module)
        return re.search(rf"^extern const Module {command}\{{", self.text(path), re.MULTILINE) is not None

    def owner(self, stem):
        """The module that a file under commands/ belongs to: its own name, or what stands before "_"."""
        owners = [module for module in self.modules if stem == module or stem.startswith(module + "_")]
        return max(owners, key=len, default=None)

    def rows(self, kind="COMMAND"):
        """The rows of the registry: (family, command)."""
        text = self.text("entry/Commands.def") if "entry/Commands.def" in self.present else ""
        return re.findall(rf"^{kind}\((\w+), (\w+)\)$", text, re.MULTILINE)

    def includes(self, path):
        """The included names in a source file: (line number, bracket, name); the name is None where there is none."""
        for number, line in enumerate(self.text(path).splitlines(), start=1):
            if re.match(r"\s*#\s*include\b", line):
                match = re.match(r'\s*#\s*include\s*([<"])([^>"]+)[>"]', line)
                yield (number, match[1], match[2]) if match else (number, "", None)


def room(path):
    return path.split("/")[0]


def is_source(path):
    return path.endswith((".h", ".cpp", ".def"))


def check_library_includes(tree):
    """The library stands on the standard library alone."""
    for path in tree.paths:
        if room(path) not in LIBRARY or not is_source(path):
            continue
        for line, bracket, name in tree.includes(path):
            if bracket == "<" and name in STANDARD_HEADERS:
                continue
            if bracket == '"' and "/" in name and room(name) in ROOMS:
                continue  # check_arrows says whether it may
            yield f'{path}:{line}: the library includes nothing but the C++20 standard library and its own ' \
                  f'"script/..", "shared/..", "commands/..", and not {name or "a computed name"}'


def check_arrows(tree):
    """Rooms include downwards only."""
    for path in tree.paths:
        allowed = ARROWS.get(room(path))
        if allowed is None or not is_source(path):
            continue
        for line, bracket, name in tree.includes(path):
            if bracket == '"' and room(name) in ROOMS and room(name) not in allowed:
                yield f"{path}:{line}: {room(path)}/ may not include {name}: arrows run downwards only"


def check_workbench_arrows(tree):
    """The rooms of the workbench include downwards only."""
    def inner(path):
        return path.split("/")[1] if path.startswith("workbench/") and path.count("/") == 2 else None

    for path in tree.paths:
        if room(path) != "workbench" or not is_source(path):
            continue
        if inner(path) not in WORKBENCH:
            yield f"{path}: the file stands in no room of the workbench: {', '.join(WORKBENCH)}"
            continue
        for line, bracket, name in tree.includes(path):
            if bracket == '"' and inner(name) in WORKBENCH and WORKBENCH.index(inner(name)) > WORKBENCH.index(inner(path)):
                yield f"{path}:{line}: workbench/{inner(path)}/ may not include {name}: arrows run downwards only"


def check_commands_apart(tree):
    """A command includes no other command's file."""
    for path in tree.paths:
        if not re.fullmatch(r"commands/\w+/\w+\.(h|cpp)", path):
            continue
        owner = tree.owner(Path(path).stem)
        for line, bracket, name in tree.includes(path):
            if bracket != '"' or room(name) != "commands":
                continue
            other_stem = Path(name).stem
            other = tree.owner(other_stem)
            own = other is not None and other == owner
            named = owner is not None and COMMAND_THAT_INCLUDES_ANOTHER.get(owner) == name
            # A template command may use the private parts of the command that it is a template of.
            template = other is not None and other != other_stem and (owner or "").upper() == other + "TEMPLATE"
            if not (own or named or template):
                yield f"{path}:{line}: a command includes no other command's file, and not {name}"


def check_module_files(tree):
    """Every module has its transcript, its row, its form and its page."""
    rows = set(tree.rows())
    for module, family in tree.modules.items():
        command = COMMAND_OF_MODULE.get(module, module)
        path = f"commands/{family}/{module}.cpp"
        if (family, command) not in rows:
            yield f"{path}: the module lacks its row COMMAND({family}, {command}) in entry/Commands.def"
        for what, needed in (("transcript", f"tests/commands/{family}/{module}.transcript"),
                             ("form", f"data/forms/{command}.json"),
                             ("page", f"docs/commands/{command}.md")):
            if needed not in tree.present:
                yield f"{path}: the module lacks its {what} {needed}"


def check_command_files_belong(tree):
    """A file under commands/<family>/ is a module, or a private part of one in the same family."""
    for path in tree.paths:
        match = re.fullmatch(r"commands/(\w+)/(\w+)\.(h|cpp)", path)
        if match and tree.modules.get(tree.owner(match[2])) != match[1]:
            yield f"{path}: the file has no table extern const Module {match[2]}, and its name begins with " \
                  f"no command of commands/{match[1]}/ and \"_\""


def check_rows(tree):
    """Every command of the exchange has a row that is built, and its module."""
    for family, command in tree.rows("PLANNED"):
        yield f"entry/Commands.def: the command {command} of the family {family} has no module"
    for family, command in tree.rows():
        module = MODULE_OF_COMMAND.get(command, command)
        if tree.modules.get(module) != family:
            yield f"entry/Commands.def: the row COMMAND({family}, {command}) lacks its module " \
                  f"commands/{family}/{module}.cpp with the table extern const Module {command}"


def check_unit_tests(tree):
    """Every unit of script/ and shared/ has its test."""
    for path in tree.paths:
        match = re.fullmatch(r"(script|shared)/(\w+)\.cpp", path)
        if match and f"tests/{match[1]}/{match[2]}_test.cpp" not in tree.present:
            yield f"{path}: the unit lacks its test tests/{match[1]}/{match[2]}_test.cpp"


def check_tests_test(tree):
    """A test file has tests."""
    for path in tree.paths:
        if path.startswith("tests/") and path.endswith("_test.cpp"):
            if not re.search(r"^(TYPED_)?TEST(_F|_P)?\(", tree.text(path), re.MULTILINE):
                yield f"{path}: the test file has no TEST"


def check_words(tree):
    """The project speaks for itself: it refers to no document outside of it."""
    for path in tree.paths:
        text = tree.text(path)
        if "\0" in text:
            continue
        for number, line in enumerate([path] + text.splitlines()):
            match = FORBIDDEN_WORDS.search(line)
            if match:
                place = f"{path}:{number}" if number else f"{path} (its name)"
                yield f'{place}: "{match[0]}" must not stand in the project: say what the rule is'


def check_board_types(tree):
    """The page of plants tells every type of board as it is."""
    path = "data/board-types.json"
    for name, board in (json.loads(tree.text(path)) if path in tree.present else {}).items():
        row = f"| {name} | {board['title']} | {board['positions']} |"
        if row not in tree.text("docs/plants.md").splitlines():
            yield f"docs/plants.md: the board type {name} lacks its row {row}"


CHECKS = (check_library_includes, check_arrows, check_workbench_arrows, check_commands_apart, check_module_files, check_command_files_belong,
          check_rows, check_unit_tests, check_tests_test, check_words, check_board_types)


def complaints(root):
    tree = Tree(root)
    return [sentence for check in CHECKS for sentence in check(tree)]


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = complaints(root)
    for sentence in found:
        print(sentence)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
