#!/usr/bin/env python3
"""A host for Cordboard: adds a number series and prints the lines for the exchange.

    python3 host.py [the server's command, word by word]        default: cordboard serve

It keeps two tables in memory, NANSI and NANSIBlockedRange, and answers the operations that the number series command
asks for. docs/remote-host.md tells what goes over the wire.
"""
import json
import re
import subprocess
import sys

EMPTY = {"empty": True}


class Host:
    """The host's side: a form, the tables, and one method for each operation, which gives the result to answer with."""

    def __init__(self):
        self.form = {}  # the parameters as the user typed them
        self.nansi = {}  # the number type by number
        self.blocked = []  # the ranges: Start, End, Numtyp
        self.built = []  # the lines for the exchange

    def scGetParamValue(self, name):
        return {"return": self.form.get(name, EMPTY)}

    def scNANSIinitiate(self, numse, numtyp, _out):
        start, _, end = numse.partition("&&")
        end = end or start
        numbers = [str(number).zfill(len(start)) for number in range(int(start), int(end) + 1)]
        if any(number in self.nansi for number in numbers):
            return {"return": False, "out": 60010}  # the message code: a number is in use
        self.nansi.update((number, numtyp) for number in numbers)
        self.blocked.append((start, end, numtyp))
        return {"return": True}

    def scRunQuery(self, sql, *_):
        if sql.startswith("SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange"):
            rows = list(dict.fromkeys(self.blocked))
            return {"return": True, "out": [list(column) for column in zip(*rows)]}  # [column][row]
        insert = re.fullmatch(r"INSERT INTO BuiltCmd VALUES \((\d+),'(.*)'\)", sql)
        if insert:
            self.built.append(insert.group(2))
        return {"return": insert is not None}  # any other statement fails

    def scErrorMessage(self, _first, _second, _third, context, code, *arguments):
        print(f"{context}: message {code}", *arguments, file=sys.stderr)
        return {}

    def scPrintToDebugWindow(self, line):
        return {}


class Library:
    """The library's side: a process that is asked, and that asks the host while it works."""

    def __init__(self, command, host):
        self.host = host
        self.asked = 0
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8")

    def send(self, message):
        self.process.stdin.write(json.dumps({"jsonrpc": "2.0", **message}) + "\n")
        self.process.stdin.flush()

    def ask(self, method, params):
        """Sends a request, serves the library's own until the answer comes, and gives the result."""
        self.asked += 1
        self.send({"id": self.asked, "method": method, "params": params})
        for line in self.process.stdout:
            message = json.loads(line)
            if "method" in message:
                self.send({"id": message["id"], **self.perform(message["method"], message["params"])})
            elif "error" in message:
                raise RuntimeError(message["error"]["message"])
            else:
                return message["result"]
        raise RuntimeError("the server ended")

    def perform(self, operation, arguments):
        method = getattr(self.host, operation, None)
        if method is None:
            return {"error": {"code": -32601, "message": f"this host has no {operation}"}}
        return {"result": method(*arguments)}

    def run(self, function, command, parameters):
        return self.ask("Run", {"Definition": 1, "oaRelease": "R7", "FunctionName": function, "CmdName": command,
                                "CmdId": 0, "ParamList": parameters})

    def end(self):
        self.process.stdin.close()
        return self.process.wait()


def main(command):
    host = Host()
    library = Library(command or ["cordboard", "serve"], host)
    library.ask("AddObject", [])
    host.form = {"NUMTYP": "EX", "NUMSE": "100&&199"}
    if not library.run("SetInfo", "NANSI", ["CMDID", "NUMSE", "NUMTYP", "USED"]):
        sys.exit("the number series was not added")
    library.run("GenerateCmd", "NANSI", ["12"])
    print(*host.built, sep="\n")
    return library.end()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
