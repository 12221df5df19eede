#!/usr/bin/env python3
"""Reads the object files of a build and says, one sentence each, where a room calls one above it. Includes alone do not
show that: a function can be declared below and defined above.

Usage: check_calls.py BUILD    exits with 1 when there is something to say, and with 2 when there are no object files
"""

import re
import subprocess
import sys
from pathlib import Path

from check_tree import ARROWS, COMMAND_THAT_INCLUDES_ANOTHER, WORKBENCH


ROOT = Path(__file__).resolve().parents[2]
COMMANDS = re.findall(r"^(?:COMMAND|PLANNED)\(\w+, (\w+)\)$", (ROOT / "entry/Commands.def").read_text(), re.MULTILINE)


def room(path):
    return path.split("/")[0]


def inner_room(path):
    return path.split("/")[1] if room(path) == "workbench" else None


def command_of(path):
    """The command that a file under commands/ belongs to: its name, or what its name begins with before "_"."""
    stem = Path(path).stem.upper()
    return max((name for name in COMMANDS if stem == name or stem.startswith(name + "_")), key=len, default=stem)


def may_call(caller, callee):
    """Whether the file `caller` may call what the file `callee` defines; both are paths of sources."""
    if caller == callee:
        return True
    if room(callee) not in ARROWS[room(caller)]:
        # The front door alone knows the commands, by their tables.
        return room(caller) == "entry" and room(callee) == "commands"
    if room(caller) == "workbench" and room(callee) == "workbench":
        return WORKBENCH.index(inner_room(callee)) <= WORKBENCH.index(inner_room(caller))
    if room(caller) == "commands" and room(callee) == "commands":
        command, other = command_of(caller), command_of(callee)
        # A template command may use the private parts of the command that it is a template of.
        own = other in (command, command.removesuffix("TEMPLATE"))
        return own and Path(callee).stem.startswith(other + "_") or \
            COMMAND_THAT_INCLUDES_ANOTHER.get(Path(caller).stem) == callee.replace(".cpp", ".h")
    return True


def complaints(objects):
    """`objects`: for each source its two sets of symbols, those that it defines and those that it needs."""
    definer = {symbol: path for path, (defined, _) in objects.items() for symbol in defined}
    for path, (_, needed) in sorted(objects.items()):
        for symbol in sorted(needed):
            other = definer.get(symbol)
            if other is not None and not may_call(path, other):
                yield f"{path} uses {symbol} of {other}: calls run downwards only"


def read_objects(build):
    objects = {}
    for file in sorted(Path(build).glob("CMakeFiles/*.dir/*/**/*.o")):
        path = "/".join(file.relative_to(build).parts[2:])[:-len(".o")]
        if room(path) not in ARROWS or not (ROOT / path).exists():  # a build keeps the objects of files that are gone
            continue
        symbols = subprocess.run(["nm", "--demangle", "--format=posix", "--extern-only", file], check=True,
                                 capture_output=True, text=True).stdout
        defined, needed = set(), set()
        for line in symbols.splitlines():
            name, kind = split(line)
            if kind == "U":
                needed.add(name)
            elif kind in "TBDR":  # not the weak ones, which come from headers
                defined.add(name)
        objects[path] = (defined, needed)
    return objects


def split(line):
    """The name and the kind in a line of nm: NAME KIND [VALUE [SIZE]], where a name may hold blanks."""
    match = re.fullmatch(r"(.*?) ([A-Za-z])(?: [0-9a-f]+){0,2}\s*", line)
    return match[1], match[2]


def main():
    objects = read_objects(sys.argv[1])
    if not objects:
        print("there are no object files in " + sys.argv[1])
        return 2
    found = list(complaints(objects))
    for sentence in found:
        print(sentence)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
