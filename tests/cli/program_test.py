"""The program as its users run it: python3 program_test.py PROGRAM [the name of a class of tests below]."""
import contextlib
import json
import os
import pathlib
import pty
import random
import re
import resource
import shlex
import shutil
import signal
import sqlite3
import stat
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = ""
SOURCE = pathlib.Path(__file__).resolve().parents[2]
SCRIPTS = SOURCE / "cli" / "completion"
SUBCOMMANDS = ["new", "plants", "plant", "apply", "shell", "history", "undo", "redo", "values", "show", "generate",
               "export", "compare", "explain", "check", "used", "web", "commands", "help"]
DONE, USAGE, REFUSED, NOT_FOUND, TROUBLE = 0, 2, 3, 4, 5
NOBODY = 65534

PLAN = """\
# A hundred extensions, and what reaches the operators.
NANSI:NUMTYP=EX,NUMSE=100&&199;
NANSI:NUMTYP=AI,NUMSE=9;
"""
CATEGORY = b"EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;\n"
STEERING = "\033[2J\x9b\x7f"
LINES = "NANSI:NUMTYP=EX,NUMSE=100&&199;\nNANSI:NUMTYP=AI,NUMSE=9;\n"


def environment(**changes):
    return {**os.environ, **changes}


def cordboard(*arguments, given=b"", **options):
    """Runs the program; what it writes comes back as text."""
    options.setdefault("stdout", subprocess.PIPE)
    options.setdefault("stderr", subprocess.PIPE)
    if "stdin" not in options:
        options["input"] = given
    ran = subprocess.run([PROGRAM, *map(str, arguments)], timeout=120, **options)
    ran.stdout = (ran.stdout or b"").decode()
    ran.stderr = (ran.stderr or b"").decode()
    return ran


def until(happened):
    """Waits for something that another process does."""
    last = time.monotonic() + 60
    while not happened():
        assert time.monotonic() < last, "it does not happen"
        time.sleep(0.005)


def ended(process):
    """Whatever it does, it is gone, and with it what it was connected by."""
    process.kill()
    process.communicate()


class ProgramTest(unittest.TestCase):
    """A folder for each test, with an exchange in which PLAN has been applied."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.shared = tempfile.TemporaryDirectory()
        cls.template = pathlib.Path(cls.shared.name, "template.cbx")
        assert cordboard("new", cls.template, "--release", "R7").returncode == DONE
        assert cordboard("apply", cls.template, "-", given=PLAN.encode()).returncode == DONE

    @classmethod
    def tearDownClass(cls):
        cls.shared.cleanup()

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        self.exchange = self.folder / "office.cbx"
        shutil.copy(self.template, self.exchange)

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def ends(self, code, *arguments, **options):
        """The program ends with this exit code."""
        ran = cordboard(*arguments, **options)
        self.assertEqual(ran.returncode, code, ran.stdout + ran.stderr)
        return ran

    def fails(self, code, message, *arguments, **options):
        """The program ends with this exit code, one line on standard error that holds the message, and no data."""
        ran = self.ends(code, *arguments, **options)
        self.assertEqual(ran.stdout, "")
        self.assertEqual(ran.stderr.count("\n"), 1, ran.stderr)
        self.assertTrue(ran.stderr.startswith("error: "), ran.stderr)
        self.assertIn(message, ran.stderr)

    def refuses(self, message, plan, *options):
        """Standard input is refused as a plan; its report has one line with the message, and the summary."""
        before = self.exchange.read_bytes()
        ran = self.ends(REFUSED, "apply", self.exchange, "-", *options, given=plan)
        self.assertEqual(ran.stdout, "")
        report, summary = ran.stderr.splitlines()
        self.assertTrue(report.startswith("error: standard input:"), report)
        self.assertIn(message, report)
        self.assertTrue(summary.startswith("plan: "), summary)
        self.assertEqual(self.exchange.read_bytes(), before)

    def applying(self, exchange):
        """An apply that holds the exchange and has performed a line, and waits for the end of standard input."""
        apply = subprocess.Popen([PROGRAM, "apply", exchange, "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE, text=True)
        self.addCleanup(ended, apply)
        apply.stdin.write("NANSI:NUMTYP=OI,NUMSE=900;\n# A line is performed when the one behind it is known.\n")
        apply.stdin.flush()
        until(pathlib.Path(f"{exchange}-journal").exists)
        return apply

    def generated(self):
        return self.ends(DONE, "generate", self.exchange).stdout

    def json(self, *arguments, code=DONE):
        return json.loads(self.ends(code, *arguments, "--json").stdout)


SECRET = "Tulip-4-\"you\""
SECRET_AS_TYPED = SECRET.replace('"', '""')


class Secrets(ProgramTest):
    """A password is shown to who asks for it, and printed where the exchange needs it."""

    def setUp(self):
        super().setUp()
        self.ends(DONE, "apply", self.exchange, "-", given=f"""\
            GEDII:DIR=150&&156,CUST=1;
            IPEXI:DIR=150,PASSW="{SECRET_AS_TYPED}";
            IPEXI:DIR=151;
            CXAKI:DIR=155,AUTKEY=Tulip-5;
            """.encode())

    def test_show_hides_them(self):
        lines = [line.split() for line in self.ends(DONE, "show", self.exchange, "IPEXI").stdout.splitlines()]
        self.assertEqual([line[1:] for line in lines], [["DIR", "PASSW"], ["150", "***"], ["151", "-"]])
        records = self.json("show", self.exchange, "IPEXI")["records"]
        self.assertEqual([record["PASSW"] for record in records], ["***", None])

    def test_show_tells_them_to_who_asks(self):
        self.assertIn(SECRET, self.ends(DONE, "show", self.exchange, "IPEXI", "--secrets").stdout)
        self.assertEqual(self.json("show", self.exchange, "IPEXI", "--secrets")["records"][0]["PASSW"], SECRET)

    def test_explain_hides_those_that_are_typed_and_those_that_are_read(self):
        for line in (f'IPEXI:DIR=152,PASSW="{SECRET_AS_TYPED}";', "edit IPEXI DIR=150:DIR=152;",
                     f'edit IPEXI DIR=150:PASSW="{SECRET_AS_TYPED}!";'):
            for options in ([], ["--json"]):
                told = self.ends(DONE, "explain", self.exchange, line, *options)
                self.assertNotIn("Tulip", told.stdout + told.stderr)
                self.assertIn("***", told.stdout)
                self.assertIn("Tulip", self.ends(DONE, "explain", self.exchange, line, "--secrets", *options).stdout)

    def test_explain_hides_them_in_statements_and_inserts(self):
        add = self.ends(DONE, "explain", self.exchange, "IPEXI:DIR=152,PASSW=Tulip;").stdout
        self.assertRegex(add, r'scSQLInsert\("IPEXI", \["CMDID", "DIR", "PASSW"\], \[\d+, "152", "\*\*\*"\]\)')
        edit = self.ends(DONE, "explain", self.exchange, "edit IPEXI DIR=150:PASSW=Tulip;").stdout
        self.assertIn("UPDATE IPEXI SET PASSW = '***'{NL}", edit)

    def test_explain_hides_them_in_lines_of_the_debug_window(self):
        edit = self.ends(DONE, "explain", self.exchange, "edit CXAKI DIR=155:AUTKEY=Tulip;").stdout
        self.assertNotIn("Tulip", edit)
        self.assertIn('scPrintToDebugWindow("NewValue for AUTKEY = ***")', edit)

    def test_explain_hides_them_by_their_place_and_not_by_what_they_are(self):
        line = "edit IPEXI DIR=150:DIR=152,PASSW={};"
        told = [self.ends(DONE, "explain", self.exchange, line.format(password)).stdout for password in ("IP", "Tulip")]
        self.assertIn("UPDATE GEDII SET TYPE = 'IP'", told[0])
        self.assertIn('scGetParamValue("PASSW")  ->  "***"', told[0])
        self.assertEqual(told[0], told[1])

    def never_told(self, line, *messages):
        """The line is refused, by apply and by explain, with these messages; nothing of "Tulip" is told."""
        for options in ([], ["--json"]):
            ran = self.ends(REFUSED, "apply", self.exchange, "-", *options, given=line.encode())
            self.assertNotIn("Tulip", ran.stdout + ran.stderr)
            for message in messages:
                self.assertIn(message, ran.stdout + ran.stderr)
            ran = cordboard("explain", self.exchange, line, *options)
            self.assertIn(ran.returncode, (REFUSED, USAGE))
            self.assertNotIn("Tulip", ran.stdout + ran.stderr)
            self.assertIn(messages[0], ran.stdout + ran.stderr)

    def test_messages_tell_no_password_that_is_refused(self):
        self.never_told("IPEXI:DIR=152,PASSW=Tulip'x;", "a value must not hold a quote character", "***")
        self.never_told("IPEXI:DIR=152,PASSW=Tulip,PASSW=Tulips;", "this parameter is given twice", "***")
        self.never_told("edit IPEXI PASSW=Tulip:DIR=152;", "there is no record of IPEXI with PASSW=***")

    def test_messages_tell_no_value_behind_a_name_that_there_is_not(self):
        self.never_told("IPEXI:DIR=152,PASWS=Tulip;", "there is no parameter PASWS in IPEXI. Did you mean PASSW?")
        self.never_told("IPEXI:DIR=152,passw=Tulip,passw=Tulips;", "there is no parameter passw in IPEXI.",
                        "this parameter is given twice")
        self.never_told("edit IPEXI PASWS=Tulip:DIR=152;", "a record of IPEXI has no PASWS. Did you mean PASSW?")
        self.never_told("edit IPEXI DIR=150:PASWS=Tulip;", "there is no parameter PASWS in IPEXI.")
        self.never_told("GEDII:DIR=156,PASSW=Tulip;", "there is no parameter PASSW in GEDII.")
        report = json.loads(cordboard("apply", self.exchange, "-", "--json", given=b"IPEXI:PASWS=Tulip;").stdout)
        problem = report["problems"][0]
        self.assertEqual((problem["parameter"], "value" in problem), ("PASWS", False))
        self.fails(NOT_FOUND, "has no PASWS", "show", self.exchange, "IPEXI", "PASWS=x")
        ran = self.ends(REFUSED, "values", self.exchange, "IPEXI", "DIR", "PASWS=Tulip")
        self.assertNotIn("Tulip", ran.stderr)

    def test_messages_tell_no_text_of_a_line_that_cannot_be_read(self):
        self.never_told("IPEXI:DIR=152,PASSW=red,Tulip#blue;", "an equals sign is missing at column 30")
        self.never_told('IPEXI:DIR=152,PASSW="red""Tu"Tulip;', "a comma or the semicolon is missing at column 30")
        self.never_told('IPEXI:DIR=152,PASSW="Tulip;', "a double quote is opened and not closed at column 21")
        self.never_told('Tulip";', "a colon is missing at column 6")
        self.fails(USAGE, "value 2 is not of the form NAME=value", "show", self.exchange, "IPEXI", "DIR=150", "Tulip")

    def test_a_file_that_others_can_read_is_told_of_once(self):
        warning = f"warning: others can read {self.exchange}, which holds passwords: chmod 600 {self.exchange}\n"
        line = b"edit IPEXI DIR=150:PASSW=Tulip;"
        self.assertNotIn("others can read", self.ends(DONE, "apply", self.exchange, "-", given=line).stderr)
        for mode in (0o640, 0o604):
            self.exchange.chmod(mode)
            for arguments in (["apply", self.exchange, "-"], ["apply", self.exchange, "-", "--dry-run", "--json"],
                              ["explain", self.exchange, line.decode()]):
                ran = self.ends(DONE, *arguments, given=line)
                told = json.loads(ran.stdout)["problems"] if "--json" in arguments else ran.stderr.splitlines()
                self.assertEqual(sum("others can read" in str(message) for message in told), 1, arguments)
                if "--json" not in arguments:
                    self.assertIn(warning, ran.stderr)
            self.assertEqual(self.ends(DONE, "show", self.exchange, "IPEXI").stderr, "")

    def test_a_file_that_others_can_read_is_told_of_when_the_first_is_written(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"delete IPEXI DIR=150;\ndelete CXAKI DIR=155;")
        self.exchange.chmod(0o644)
        self.assertNotIn("others", self.ends(DONE, "apply", self.exchange, "-", given=b"IPEXI:DIR=152;").stderr)
        ran = self.ends(DONE, "apply", self.exchange, "-", given=b"IPEXI:DIR=153,PASSW=Tulip;")
        self.assertEqual(ran.stderr.count("warning: others can read"), 1)

    def test_generate_writes_them_for_the_owner_of_the_file_alone(self):
        there = self.write("there.txt", "older lines\n" * 100)
        there.chmod(0o644)
        for out in (self.folder / "lines.txt", there):
            ran = self.ends(DONE, "generate", self.exchange, "-o", out, umask=0)
            self.assertEqual(stat.S_IMODE(out.stat().st_mode), 0o600)
            self.assertEqual(out.read_text(), self.generated())
            self.assertNotIn("warning", ran.stderr)
        self.assertIn("which its owner alone can read", " ".join(self.ends(DONE, "generate", "--help").stdout.split()))

    def test_generate_leaves_a_device_its_rights(self):
        before = os.stat("/dev/null").st_mode
        self.ends(DONE, "generate", self.exchange, "-o", "/dev/null")
        self.assertEqual(os.stat("/dev/null").st_mode, before)

    def test_generate_prints_them(self):
        self.assertIn(f'IPEXI:DIR=150,PASSW="{SECRET}";\n', self.generated())

    def test_help_says_so(self):
        self.assertIn("shown as ***", self.ends(DONE, "help", "IPEXI").stdout)
        secret = {entry["name"]: entry["secret"] for entry in self.json("help", "IPEXI")["parameters"]}
        self.assertEqual(secret, {"DIR": False, "PASSW": True})
        secret = [entry["name"] for entry in self.json("help", "CXAKI")["parameters"] if entry["secret"]]
        self.assertEqual(secret, ["AUTKEY", "AUTPAR"])
        for subcommand in ("show", "explain"):
            self.assertIn("--secrets", self.ends(DONE, subcommand, "--help").stdout)


class New(ProgramTest):
    def test_makes_an_exchange_and_says_so_on_standard_error(self):
        made = self.folder / "new.cbx"
        ran = self.ends(DONE, "new", made, "--release", "R6/1", "--plant", "example")
        self.assertEqual(ran.stdout, "")
        self.assertEqual(ran.stderr, f"made: {made}: release R6/1, plant example, 24 boards with 368 positions\n")
        self.assertEqual(self.json("show", made)["release"], "R6/1")

    def test_makes_the_file_for_its_owner_alone(self):
        made = self.folder / "new.cbx"
        self.ends(DONE, "new", made, "--release", "R7", umask=0)
        self.assertEqual(stat.S_IMODE(made.stat().st_mode), 0o600)
        writer = self.applying(made)
        rights = {path.name: stat.S_IMODE(path.stat().st_mode) for path in self.folder.glob("new.cbx*")}
        self.assertEqual(rights, {"new.cbx": 0o600, "new.cbx-journal": 0o600})
        writer.communicate(timeout=60)
        self.assertEqual(stat.S_IMODE(made.stat().st_mode), 0o600)

    def test_does_not_make_what_a_link_leads_to(self):
        (self.folder / "new.cbx").symlink_to(self.folder / "elsewhere.cbx")
        self.fails(REFUSED, "exists already", "new", self.folder / "new.cbx", "--release", "R7")
        self.assertFalse((self.folder / "elsewhere.cbx").exists())

    def test_leaves_an_existing_file_alone(self):
        before = self.exchange.read_bytes()
        self.fails(REFUSED, "exists already", "new", self.exchange, "--release", "R7")
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_takes_a_plant_of_the_user(self):
        plant = self.write("plant.json", '{"name": "mine", "locations": [], "lims": [], "boards": []}')
        ran = self.ends(DONE, "new", self.folder / "new.cbx", "--release", "R7", "--plant", plant)
        self.assertIn("plant mine, 0 boards with 0 positions", ran.stderr)

    def test_a_plant_that_there_is_not_is_not_found(self):
        new = self.folder / "new.cbx"
        self.fails(NOT_FOUND, "Did you mean example?", "new", new, "--release", "R7", "--plant", "exampel")
        self.assertFalse(new.exists())

    def test_a_plant_that_cannot_be_read_leaves_no_file(self):
        new = self.folder / "new.cbx"
        for content in (b" ", b"{", b"\xff\xfe", b'{"name": "x", "lims": [], "boards": []}'):
            plant = self.write("plant.json", content)
            self.fails(TROUBLE, "plant.json: ", "new", new, "--release", "R7", "--plant", plant)
        for path in (self.folder, self.write("empty.json", "")):
            self.fails(TROUBLE, "is empty or cannot be read", "new", new, "--release", "R7", "--plant", path)
        self.assertFalse(new.exists())

    def test_needs_one_of_the_four_releases(self):
        new = self.folder / "new.cbx"
        self.assertIn("--release is required", self.ends(USAGE, "new", new).stderr)
        self.assertIn("R9 not in {R6,R6/1,R7,R8}", self.ends(USAGE, "new", new, "--release", "R9").stderr)
        self.assertFalse(new.exists())

    def test_a_folder_that_there_is_not_is_trouble(self):
        self.fails(TROUBLE, "cannot be made", "new", self.folder / "nowhere" / "new.cbx", "--release", "R7")

    def test_a_disk_that_is_full_leaves_no_file(self):
        new = self.folder / "new.cbx"
        ran = self.ends(TROUBLE, "new", new, "--release", "R7", preexec_fn=no_file_beyond(100_000),
                        restore_signals=False)
        self.assertIn("new.cbx cannot be made: the disk is full", ran.stderr)
        self.assertEqual([path.name for path in self.folder.iterdir()], ["office.cbx"])


class Plants(ProgramTest):
    """What stands in the building: the plants that there are, and that of an exchange."""

    PIECE = """{"locations": [{"location": "MILL"}], "lims": [{"lim": 3, "location": "MILL"}],
                "boards": [{"lim": 3, "magazine": 0, "slot": 1, "type": "31"}],
                "trunkLines": [{"lim": 3, "tru": "3-01&&3-09"}], "routes": ["21"], "categories": 40}"""

    def test_those_of_the_program_are_listed(self):
        listed = self.json("plants")["plants"]
        self.assertEqual([plant["name"] for plant in listed], ["example", "large", "small"])
        self.assertEqual(listed[0], {"name": "example", "locations": 2, "lims": 2, "boards": 24, "positions": 368,
                                     "customers": 2, "trunkLines": 80, "routes": 20, "categories": 32})
        self.assertRegex(self.ends(DONE, "plants").stdout, r"(?m)^example +2 +2 +24 +368 +2 +80 +20 +32$")

    def test_one_of_the_program_is_printed_to_start_from(self):
        printed = self.ends(DONE, "plants", "small").stdout
        document = self.json("plants", "small")
        self.assertEqual(document, {**json.loads(printed), "problems": []})
        self.assertIn("plant small", self.ends(DONE, "new", self.folder / "new.cbx", "--release", "R7", "--plant",
                                               self.write("mine.json", printed)).stderr)
        self.fails(NOT_FOUND, "there is no built-in plant 'smal'. Did you mean small?", "plants", "smal")

    def test_that_of_an_exchange_is_shown_with_what_is_taken(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"""\
            EXCCS:CAT=1,TRAF=1,SERV_D6=1,CDIV_D1=1,ROC_D2=1;
            KSEXI:DIR=100&&102,ITYPE=3,EQU=next,CAT=1;
            """)
        self.exchange.chmod(0o400)
        text = self.ends(DONE, "plant", self.exchange).stdout
        self.assertTrue(text.startswith("Plant example, release R7\n\nLOCATION\nHQ        Head office\n"), text)
        self.assertRegex(text, r"(?m)^2    WORKS +Gatehouse of the works$")
        self.assertRegex(text, r"(?m)^001-0-10  31 +16 +3 +Line board for key telephones$")
        self.assertRegex(text, r"(?m)^002-0-10  31 +16 +0 +Line board for key telephones$")
        self.assertTrue(text.endswith("2    2-01&&2-40\n\nRoutes 1&&9&10&&20\nCategories 32\n"), text)

    def test_that_of_an_exchange_makes_the_same_again(self):
        self.ends(DONE, "plant", self.exchange, "add", self.write("piece.json", self.PIECE))
        plant = self.write("plant.json", self.ends(DONE, "plant", self.exchange, "--json").stdout)
        again = self.folder / "again.cbx"
        self.ends(DONE, "new", again, "--release", "R7", "--plant", plant)
        self.assertEqual(self.ends(DONE, "plant", again, "--json").stdout.encode(), plant.read_bytes())

    def test_an_exchange_grows(self):
        piece = self.write("piece.json", self.PIECE)
        ran = self.ends(DONE, "plant", self.exchange, "add", piece, "--board", "1-0-5=31", "--board", "003-0-02=113")
        self.assertEqual((ran.stdout, ran.stderr), ("", f"added: {self.exchange}: locations 1, lims 1, boards 3, "
                                                        "positions 32, trunkLines 9, routes 1, categories 40\n"))
        self.assertEqual(self.generated(), LINES)
        values = self.ends(DONE, "values", self.exchange, "KSEXI", "EQU", "ITYPE=3", "--limit", "17").stdout.split()
        self.assertEqual((values[0], values[16]), ("001-0-05-00", "001-0-10-00"))
        added = self.json("plant", self.exchange, "add", "--board", "003-0-99=59")
        self.assertEqual(added["added"]["boards"], [{"lim": 3, "magazine": 0, "slot": 99, "type": "59"}])
        self.assertEqual(added["problems"], [])

    def test_what_does_not_fit_is_refused_whole(self):
        piece = self.write("piece.json", self.PIECE)
        wrong = self.write("wrong.json", '{"routes": ["20&&22"], "boards": [{"lim": 4, "slot": 1, "type": "3"}]}')
        before = self.exchange.read_bytes()
        ran = self.ends(REFUSED, "plant", self.exchange, "add", piece, wrong, "--board", "001-0-10=31")
        lines = ran.stderr.splitlines()
        self.assertEqual(ran.stdout, "")
        self.assertTrue(lines.pop(2).startswith(f"error: {wrong}: boards[0].type: there is no board type '3'. Possible"))
        self.assertEqual(lines, [f"error: {wrong}: boards[0].lim: there is no LIM 4",
                                 f"error: {wrong}: boards[0]: the key \"magazine\" is missing",
                                 f"error: {wrong}: routes[0]: there already: 20&&21",
                                 "error: --board 001-0-10=31: boards[0].slot: there is a board in 001-0-10 already"])
        document = self.json("plant", self.exchange, "add", "--board", "001-0-10=31", code=REFUSED)
        self.assertEqual(document, {"problems": [{"severity": "error", "file": "--board 001-0-10=31",
                                                  "message": "boards[0].slot: there is a board in 001-0-10 already"}]})
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_what_is_added_has_to_be_given(self):
        self.fails(USAGE, "nothing is given to add", "plant", self.exchange, "add")
        self.fails(USAGE, "--board 001-0-12: a board is given as LIM-MAGAZINE-SLOT=TYPE, such as 001-0-12=31", "plant",
                   self.exchange, "add", "--board", "001-0-12")
        self.fails(NOT_FOUND, "there is no plant file 'nowhere.json'", "plant", self.exchange, "add", "nowhere.json")

    def test_a_plant_is_refused_with_all_that_is_wrong(self):
        plant = self.write("plant.json", '{"lims": [{"lim": 1, "location": "HQ"}],\n "boards": [{"lm": 1}]}')
        new = self.folder / "new.cbx"
        ran = self.ends(TROUBLE, "new", new, "--release", "R7", "--plant", plant)
        self.assertEqual(ran.stderr.splitlines(), [
            f"error: {plant}: the key \"name\" is missing", f"error: {plant}: the key \"locations\" is missing",
            f"error: {plant}: lims[0].location: there is no location 'HQ'",
            *(f"error: {plant}: boards[0]: the key \"{key}\" is missing" for key in ("lim", "magazine", "slot", "type")),
            f"error: {plant}: boards[0]: unknown key \"lm\". Did you mean lim?"])
        self.fails(TROUBLE, "parse error at line 2, column 1: ", "new", new, "--release", "R7", "--plant",
                   self.write("plant.json", "{\n"))
        self.assertFalse(new.exists())


def no_file_beyond(size):
    """Lets a process write files of this size at most, as on a disk that is full."""

    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

    return limit


class Apply(ProgramTest):
    def test_performs_a_plan(self):
        plan = self.write("more.plan", "NANSI:NUMTYP=OI,NUMSE=900;\ndelete NANSI NUMSE=9;\n")
        ran = self.ends(DONE, "apply", self.exchange, plan)
        self.assertEqual((ran.stdout, ran.stderr), ("", "plan: 2 done, 0 refused\nNANSI: 1 added, 1 removed\n"))
        self.assertEqual(self.generated(), "NANSI:NUMTYP=EX,NUMSE=100&&199;\nNANSI:NUMTYP=OI,NUMSE=900;\n")

    def test_several_plans_are_one(self):
        good = self.write("good.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        bad = self.write("bad.plan", "# nothing\nNANSI:NUMTYP=EC,NUMSE=1000;\n")
        ran = self.ends(REFUSED, "apply", self.exchange, good, bad)
        self.assertEqual(ran.stderr,
                         f"error: {bad}:2: NANSI, NUMSE=1000: The number is too long. Type EC takes at most 3 digits.\n"
                         "plan: 1 done, 1 refused; nothing was kept\n")
        self.assertEqual(self.generated(), LINES)

    def test_standard_input_is_a_plan_among_others(self):
        plan = self.write("more.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        self.ends(DONE, "apply", self.exchange, plan, "-", given=b"delete NANSI NUMSE=900;\n")
        self.assertEqual(self.generated(), LINES)

    def test_every_bad_line_is_reported_with_what_would_be_possible(self):
        plan = self.write("bad.plan", "NANSI:NUMTYP=XX,NUMSE=20;\nNANSI:NUMTIP=EX,NUMSE=20;\nNANSY:NUMSE=20;\n")
        lines = self.ends(REFUSED, "apply", self.exchange, plan).stderr.splitlines()
        self.assertIn(f"error: {plan}:1: NANSI, NUMTYP=XX: this value is not possible here. Possible: AC, AI, ",
                      lines[0])
        self.assertIn(f"error: {plan}:2: NANSI, NUMTIP: there is no parameter NUMTIP in NANSI. "
                      "Did you mean NUMTYP?", lines[1])
        self.assertIn(f"error: {plan}:2: NANSI, NUMTYP: this parameter has to be given", lines[2])
        self.assertEqual(lines[3], f"error: {plan}:3: NANSY: there is no command NANSY. Did you mean NANSI?")
        self.assertEqual(lines[4:], ["plan: 0 done, 3 refused; nothing was kept"])

    def test_keep_going_keeps_the_good_lines(self):
        plan = self.write("mixed.plan", "NANSI:NUMTYP=OI,NUMSE=900;\nNANSI:NUMTYP=OI,NUMSE=100;\n")
        ran = self.ends(REFUSED, "apply", self.exchange, plan, "--keep-going")
        self.assertEqual(ran.stderr.splitlines()[-2:], ["plan: 1 done, 1 refused", "NANSI: 1 added"])
        self.assertEqual(self.generated(), LINES + "NANSI:NUMTYP=OI,NUMSE=900;\n")

    def test_a_dry_run_keeps_nothing_and_reports_what_the_real_run_reports(self):
        plan = self.write("mixed.plan", "NANSI:NUMTYP=OI,NUMSE=900;\nNANSI:NUMTYP=OI,NUMSE=900;\nx\n")
        before = self.exchange.read_bytes()
        dry = self.ends(REFUSED, "apply", self.exchange, plan, "--dry-run", "--keep-going")
        self.assertEqual(self.exchange.read_bytes(), before)
        real = self.ends(REFUSED, "apply", self.exchange, plan, "--keep-going")
        *told, summary, counts = dry.stderr.splitlines()
        self.assertEqual([*told, "plan: 1 done, 2 refused", counts], real.stderr.splitlines())
        self.assertEqual(summary, "plan: 1 done, 2 refused; nothing was kept, since this is a dry run")
        self.assertEqual(counts, "NANSI: 1 added")

    def test_a_dry_run_of_a_good_plan_is_done(self):
        plan = self.write("good.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        self.ends(DONE, "apply", self.exchange, plan, "--dry-run")
        self.assertEqual(self.generated(), LINES)

    def test_json_reports_on_standard_output(self):
        plan = self.write("mixed.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n\nNANSI:NUMTYP=XX,NUMSE=1;\n")
        ran = self.ends(REFUSED, "apply", self.exchange, plan, "--json")
        self.assertEqual(ran.stderr, "")
        report = json.loads(ran.stdout)
        possible = report["problems"][0].pop("possible")
        self.assertEqual(possible[:2], ["AC", "AI"])
        self.assertGreater(report["problems"][0].pop("total"), len(possible))
        self.assertEqual(report, {"done": 1, "refused": 1, "kept": False, "state": None, "commands": [
            {"command": "NANSI", "added": 1, "changed": 0, "removed": 0, "standing": 0}], "problems": [
            {"severity": "error", "file": str(plan), "line": 3, "command": "NANSI", "parameter": "NUMTYP", "value": "XX",
             "message": "this value is not possible here"}]})
        good = self.write("good.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        self.assertEqual(self.json("apply", self.exchange, good), 
                         {"done": 1, "refused": 0, "kept": True, "state": 2, "problems": [],
                          "commands": [{"command": "NANSI", "added": 1, "changed": 0, "removed": 0, "standing": 0}]})

    def test_an_empty_plan_is_done(self):
        self.assertEqual(self.ends(DONE, "apply", self.exchange, "-").stderr,
                         "plan: 0 done, 0 refused; nothing was kept\n")

    def test_an_unterminated_line_is_refused(self):
        self.refuses("a semicolon is missing", b"NANSI:NUMTYP=OI,NUMSE=900\n")
        self.refuses("a semicolon is missing", b"NANSI:NUMTYP=OI,NUMSE=9")
        self.refuses("an equals sign is missing", b"NANSI:NUMTYP=OI,NUM")
        self.refuses("a double quote is opened and not closed", b'NANSI:NUMTYP="OI,NUMSE=900;\n')

    def test_a_value_with_a_quote_character_is_refused(self):
        self.refuses("must not hold a quote character", b"NANSI:NUMTYP=OI,NUMSE=9'0;\n")
        self.refuses("there is no record", b"delete NANSI NUMSE=' OR 1=1;\n")

    def test_a_line_of_a_megabyte_is_refused(self):
        self.refuses("the line is longer than", b"x" * (1 << 20))
        self.refuses("the line is longer than", b"NANSI:NUMTYP=OI,NUMSE=" + b"9" * (1 << 20) + b";\n")

    def test_bytes_that_are_not_text_are_refused(self):
        self.refuses("not UTF-8", b"NANSI:NUMTYP=\xff\xfe;\n")
        self.refuses("not UTF-8", "NANSI:NUMTYP=Zürich;\n".encode("latin-1"))
        self.refuses("zero character", b"NANSI:\0;\n")

    def test_random_bytes_are_refused_and_nothing_crashes(self):
        before = self.exchange.read_bytes()
        noise = self.write("noise.plan", random.Random(7).randbytes(300_000))
        ran = self.ends(REFUSED, "apply", self.exchange, noise, "--json")
        self.assertFalse(json.loads(ran.stdout)["kept"])
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_a_plan_that_there_is_not_is_not_found(self):
        self.fails(NOT_FOUND, "there is no plan file", "apply", self.exchange, self.folder / "nowhere.plan")

    def test_a_folder_is_no_plan(self):
        self.fails(TROUBLE, "cannot be read", "apply", self.exchange, self.folder)

    def test_a_plan_that_breaks_off_keeps_nothing(self):
        before = self.exchange.read_bytes()
        good = self.write("good.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        # Memory at address 0 cannot be read, and neither can a folder.
        self.fails(TROUBLE, "cannot be read to its end; nothing was kept", "apply", self.exchange, good,
                   "/proc/self/mem", "--keep-going")
        folder = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        self.fails(TROUBLE, "cannot be read to its end; nothing was kept", "apply", self.exchange, good, "-",
                   stdin=folder)
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_a_disk_that_is_full_keeps_nothing(self):
        size = self.exchange.stat().st_size
        before = self.generated()
        plan = "".join(f"NANSI:NUMTYP=EX,NUMSE={digit}0000&&{digit}4999;\n" for digit in range(1, 9))
        ran = cordboard("apply", self.exchange, "-", "--keep-going", given=plan.encode(),
                        preexec_fn=no_file_beyond(size + 20_000), restore_signals=False)
        self.assertEqual(ran.returncode, TROUBLE, ran.stderr)
        self.assertEqual(ran.stderr, f"error: {self.exchange}: the disk is full: no file may grow larger here; "
                                     "nothing was kept\n")
        self.assertEqual(self.generated(), before)


class Ensure(ProgramTest):
    def test_what_stands_is_left_alone_and_the_file_with_it(self):
        plan = self.write("office.plan", "NANSI:NUMTYP=EX,NUMSE=300&&304;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
                                         "KSEXI:DIR=300&&301,ITYPE=12,EQU=next,CAT=1;\n")
        self.ends(DONE, "apply", self.exchange, plan)
        before = self.exchange.read_bytes()
        ran = self.ends(DONE, "apply", self.exchange, plan, "--ensure")
        self.assertEqual(ran.stderr, "plan: 3 done, 0 refused\nEXCCS: 1 standing\nKSEXI: 2 standing\nNANSI: 5 standing\n")
        self.assertEqual(self.exchange.read_bytes(), before)
        more = self.write("more.plan", "KSEXI:DIR=300&&302,ITYPE=12,EQU=next,CAT=1,LANG=2;\n")
        report = self.json("apply", self.exchange, more, "--ensure", "--dry-run")
        self.assertEqual(report["commands"],
                         [{"command": "KSEXI", "added": 1, "changed": 2, "removed": 0, "standing": 0}])


class Refusals(ProgramTest):
    def test_a_refusal_tells_the_value_and_why(self):
        plan = self.write("bad.plan", "EXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
                                      "KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;\n"
                                      "GEDII:DIR=100&101&900;\n"
                                      "KSEXI:DIR=102,ITYPE=3,EQU=001-0-99-00,CAT=1;\n")
        lines = self.ends(REFUSED, "apply", self.exchange, plan).stderr.splitlines()
        self.assertIn(f"error: {plan}:3: GEDII, DIR=100&900: these values are not possible here: 100 is used by the key "
                      "extension DIR=100 (KSEXI); no series holds 900 (NANSI). Possible: 101, ", lines[0])
        self.assertIn("EQU=001-0-99-00: this value is not possible here: there is no board with the position "
                      "001-0-99-00. Possible: ", lines[1])
        problem = self.json("apply", self.exchange, plan, code=REFUSED)["problems"][0]
        self.assertEqual({name: problem[name] for name in ("line", "command", "parameter", "value", "message", "reason")},
                         {"line": 3, "command": "GEDII", "parameter": "DIR", "value": "100&900",
                          "message": "these values are not possible here",
                          "reason": "100 is used by the key extension DIR=100 (KSEXI); no series holds 900 (NANSI)"})

    def test_a_failure_of_the_rules_is_told_in_words_and_with_its_cause_on_demand(self):
        plan = self.write("twice.plan", "SYDAS:NTC=1;\nSYDAS:NTC=2;\n")
        said = f"error: {plan}:2: SYDAS: the rules of SYDAS found fewer or more values than they need; "
        told = self.ends(REFUSED, "apply", self.exchange, plan).stderr
        self.assertIn(said, told)
        self.assertNotIn("row set", told)
        told = self.ends(REFUSED, "apply", self.exchange, plan, "--debug").stderr
        self.assertIn(said, told)
        self.assertIn(" [SubscriptOutOfRange: no column 5 in the row set]\n", told)
        problem = self.json("apply", self.exchange, plan, "--debug", code=REFUSED)["problems"][0]
        self.assertEqual(problem["cause"], "SubscriptOutOfRange: no column 5 in the row set")

    def test_a_value_that_makes_a_wrong_line_is_warned_of_and_refused_by_strict(self):
        plan = self.write("wrong.plan", 'OPNEI:NEXGNO="1,2";\n')
        wrong = f"{plan}:1: OPNEI, NEXGNO=1,2: the sign , in this value makes a wrong command line, where it separates\n"
        self.assertEqual(self.ends(REFUSED, "apply", self.exchange, plan, "--strict").stderr,
                         "error: " + wrong + "plan: 0 done, 1 refused; nothing was kept\n")
        self.assertEqual(self.ends(DONE, "apply", self.exchange, plan).stderr,
                         "warning: " + wrong + "plan: 1 done, 0 refused\nOPNEI: 1 added\n")


class Data(ProgramTest):
    """The subcommands that print data: on standard output, and nothing on standard error."""

    def prints(self, text, *arguments):
        ran = self.ends(DONE, *arguments)
        self.assertEqual(ran.stderr, "")
        self.assertEqual(ran.stdout, text)

    def test_generate_prints_the_lines(self):
        self.prints(LINES, "generate", self.exchange)
        self.assertEqual(self.json("generate", self.exchange),
                         {"lines": [{"command": "NANSI", "text": line} for line in LINES.splitlines()], "without": [],
                          "problems": []})

    def test_generate_writes_the_lines_to_a_file(self):
        out = self.folder / "lines.txt"
        ran = self.ends(DONE, "generate", self.exchange, "-o", out)
        self.assertEqual((ran.stdout, ran.stderr), ("", f"lines: 2 written to {out}\n"))
        self.assertEqual(out.read_text(), LINES)

    def test_generate_is_stable_and_leaves_the_exchange_as_it_is(self):
        before = self.exchange.read_bytes()
        self.assertEqual(self.generated(), self.generated())
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_generated_lines_can_be_applied(self):
        other = self.folder / "other.cbx"
        self.ends(DONE, "new", other, "--release", "R7")
        self.ends(DONE, "apply", other, "-", given=self.generated().encode())
        self.assertEqual(self.ends(DONE, "generate", other).stdout, LINES)

    def test_generate_does_not_write_over_the_exchange(self):
        before = self.exchange.read_bytes()
        self.fails(USAGE, "over the exchange itself", "generate", self.exchange, "-o", self.exchange)
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_generate_takes_a_file_or_json(self):
        self.ends(USAGE, "generate", self.exchange, "-o", self.folder / "x", "--json")

    def test_show_lists_the_commands_with_their_records(self):
        text = self.ends(DONE, "show", self.exchange).stdout
        self.assertTrue(text.startswith("Release R7\n\nCOMMAND"), text)
        self.assertRegex(text, r"(?m)^NANSI +101 +Number series$")
        data = self.json("show", self.exchange)
        self.assertEqual(data["release"], "R7")
        self.assertIn({"command": "NANSI", "count": 101, "blank": 0, "title": "Number series"}, data["commands"])

    def test_show_tells_what_a_list_of_a_record_says(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"""\
            CLFOC:FORM=4,DATA="2-4-J&1-6-F",DESCRIPTION=Bills;
            CLFOC:FORM=5,DATA=1-20-M;
            """)
        self.assertEqual(self.ends(DONE, "show", self.exchange, "CLFOC").stdout, """\
FORM 4
DESCRIPTION Bills
ITEM   Position  Length  Kind
DATA2  1         6       F (Date)
DATA1  2         4       J (Time at which the call began)
Length in all: 10

FORM 5
ITEM   Position  Length  Kind
DATA1  1         20      M (Free text)
Length in all: 20
""")
        self.assertEqual(self.json("show", self.exchange, "CLFOC", "FORM=5")["records"][0]["DATA"], "1-20-M")

    def test_show_lists_the_records_of_both_tables_of_a_command(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"""\
            EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;
            KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;
            AUCOI:AUTH=1111,CHECK=1,CAT=1;
            AUCOI:AUTH=2222,DIR=100,CAT=1;
            """)
        lines = [line.split() for line in self.ends(DONE, "show", self.exchange, "AUCOI").stdout.splitlines()]
        self.assertEqual([line[2:4] for line in lines],
                         [["AUTH", "CHECK"], ["1111", "1"], ["AUTH", "DIR"], ["2222", "100"]])
        records = self.json("show", self.exchange, "AUCOI")["records"]
        self.assertEqual([record["AUTH"] for record in records], ["1111", "2222"])
        counted = {table["command"]: table["count"] for table in self.json("show", self.exchange)["commands"]}
        self.assertEqual(counted["AUCOI"], 2)

    def test_show_lists_the_records_of_a_command(self):
        lines = self.ends(DONE, "show", self.exchange, "NANSI").stdout.splitlines()
        self.assertEqual(lines[0].split(), ["CmdId", "NUMSE", "NUMTYP", "USED"])
        self.assertEqual(lines[-1].split()[1:], ["9", "AI", "False"])
        records = self.json("show", self.exchange, "NANSI")["records"]
        self.assertEqual(len(records), 101)
        self.assertEqual(list(records[0]), ["CmdId", "NUMSE", "NUMTYP", "USED"])
        self.assertEqual([records[0][name] for name in ("NUMSE", "NUMTYP", "USED")], ["100", "EX", False])
        self.assertIsInstance(records[0]["CmdId"], int)

    def test_show_selects_records_by_their_values(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"""\
            EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;
            KSEXI:DIR=100&&104,ITYPE=3,EQU=next,CAT=1;
            CHGMI:GRP=7,DIR=100&&102;
            CHGMI:GRP=8,DIR=103;
            """)
        lines = [line.split() for line in self.ends(DONE, "show", self.exchange, "CHGMI", "GRP=7").stdout.splitlines()]
        self.assertEqual(lines[0], ["CmdId", "NUMTYP", "GRP", "DIR"])
        self.assertEqual([line[3] for line in lines[1:]], ["100", "101", "102"])
        records = self.json("show", self.exchange, "CHGMI", "NUMTYP=EX", "DIR=103")["records"]
        self.assertEqual([record["GRP"] for record in records], ["8"])
        self.assertEqual(self.json("show", self.exchange, "CHGMI", "GRP=9")["records"], [])
        self.fails(NOT_FOUND, "a record of CHGMI has no GRPP. Did you mean GRP?", "show", self.exchange, "CHGMI",
                   "GRPP=7")
        self.fails(USAGE, "value 1 is not of the form NAME=value", "show", self.exchange, "CHGMI", "GRP")

    def test_show_selects_among_the_tables_that_have_the_parameter(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"""\
            EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;
            KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;
            AUCOI:AUTH=1111,CHECK=1,CAT=1;
            AUCOI:AUTH=2222,DIR=100,CAT=1;
            """)
        self.assertEqual([record["AUTH"] for record in self.json("show", self.exchange, "AUCOI", "CAT=1")["records"]],
                         ["1111", "2222"])
        self.assertEqual([record["AUTH"] for record in self.json("show", self.exchange, "AUCOI", "DIR=100")["records"]], ["2222"])

    def test_values_lists_what_may_be_given_now(self):
        lines = self.ends(DONE, "values", self.exchange, "NANSI", "NUMTYP").stdout.splitlines()
        self.assertEqual(lines[0], "AC\tAbbreviated number codes")
        data = self.json("values", self.exchange, "NANSI", "NUMTYP", "--limit", "1")["values"]
        self.assertEqual(data, [{"value": "AC", "description": "Abbreviated number codes"}])
        self.assertEqual(len(lines), len(self.json("values", self.exchange, "NANSI", "NUMTYP", "NUMSE=5")["values"]))

    def test_values_are_those_of_the_form_as_it_is_given(self):
        self.fails(REFUSED, "NANSI, NUMTYP=XX: this value is not possible here", "values", self.exchange, "NANSI",
                   "NUMTYP", "NUMTYP=XX")
        self.fails(USAGE, "value 1 is not of the form NAME=value", "values", self.exchange, "NANSI", "NUMTYP",
                   "NUMSE")
        self.fails(USAGE, "not UTF-8", "values", self.exchange, "NANSI", "NUMTYP", b"NUMSE=\xff".decode(
            errors="surrogateescape"))
        self.fails(USAGE, "--limit: -1 is not a whole number", "values", self.exchange, "NANSI", "NUMTYP", "--limit",
                   "-1")
        self.assertEqual(len(self.json("values", self.exchange, "NANSI", "NUMTYP", "--limit", "0")["values"]),
                         len(self.json("values", self.exchange, "NANSI", "NUMTYP")["values"]))

    def test_values_of_a_parameter_without_a_list_are_not_found(self):
        self.fails(NOT_FOUND, "no list of values for NUMSE", "values", self.exchange, "NANSI", "NUMSE")

    def test_explain_prints_every_call_and_undoes_the_action(self):
        before = self.exchange.read_bytes()
        ran = self.ends(DONE, "explain", self.exchange, "NANSI:NUMTYP=OI,NUMSE=900;")
        self.assertEqual(ran.stderr, "")
        lines = ran.stdout.splitlines()
        self.assertIn('scIsValueEqual("CP")  ->  False', lines)
        self.assertEqual(lines[-2:], ['scNANSIinitiate("900", "OI", out)  ->  True, Empty', "done"])
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_explain_tells_why_an_action_is_refused(self):
        ran = self.ends(REFUSED, "explain", self.exchange, "NANSI:NUMTYP=EC,NUMSE=1000;")
        self.assertEqual(ran.stdout.splitlines()[-1], "refused")
        self.assertEqual(ran.stderr, "error: NANSI, NUMSE=1000: The number is too long. Type EC takes at most 3 digits.\n")

    def test_explain_as_json(self):
        ran = self.ends(REFUSED, "explain", self.exchange, "NANSI:NUMTYP=EC,NUMSE=1000;", "--json")
        data = json.loads(ran.stdout)
        self.assertEqual(sorted(data), ["calls", "done", "problems"])
        self.assertFalse(data["done"])
        self.assertEqual(data["problems"], [{"severity": "error", "command": "NANSI", "parameter": "NUMSE", "value": "1000",
                                             "message": "The number is too long. Type EC takes at most 3 digits."}])
        self.assertIn({"call": 'scGetParamValue("NUMTYP")', "answer": '"EC"', "depth": 0}, data["calls"])

    def test_explain_needs_a_line_with_an_action(self):
        self.fails(USAGE, "a semicolon is missing", "explain", self.exchange, "NANSI:NUMTYP=EC")
        self.fails(USAGE, "the line holds no action", "explain", self.exchange, "# nothing")

    def test_commands_lists_all_commands_by_family(self):
        text = self.ends(DONE, "commands").stdout
        self.assertRegex(text, r"(?m)^Number plan *\n(\w+ .*\n)*NANSI +Number series\n(\w+ .*\n)*\nSystem data")
        listed = self.json("commands")["commands"]
        self.assertEqual(len(listed), 87)
        self.assertEqual(len({entry["command"] for entry in listed}), 87)
        entry = next(entry for entry in listed if entry["command"] == "NANSI")
        self.assertEqual(sorted(entry), ["command", "family", "help", "title"])
        self.assertEqual(entry["family"], "numberplan")

    def test_help_tells_the_parameters_of_a_command(self):
        text = self.ends(DONE, "help", "NANSI").stdout
        self.assertTrue(text.startswith("NANSI: Number series\n"), text)
        self.assertRegex(text, r"(?m)^NUMTYP +Number type +has to be given, list, check$")
        self.assertIn("Actions: add delete generate\n", text)
        data = self.json("help", "NANSI")
        self.assertEqual(sorted(data), ["actions", "command", "example", "help", "lines", "notes", "parameters", "problems",
                                        "templates", "title"])
        self.assertEqual(data["actions"], {"add": True, "edit": False, "delete": True, "generate": True})
        parameter = data["parameters"][0]
        self.assertEqual((parameter["name"], parameter["title"], parameter["releases"]), ("NUMTYP", "Number type", []))
        self.assertEqual([flag for flag, holds in parameter.items() if holds is True], ["check", "list", "mandatory"])

    def test_help_tells_digits_and_releases(self):
        text = self.ends(DONE, "help", "KSEXI").stdout
        self.assertRegex(text, "(?m)^SERV_D7D8_SUB1 .* list, digits 7 to 8 of SERV, added to SERV_D7D8_SUB2$")
        self.assertRegex(text, "(?m)^ADC_D11 .* list, digit 11 of ADC, only in R7 and R8$")
        self.assertIn("From a template of KSEXITEMPLATE, by its TEMPLATENAME: KSEXI from NAME:...;\n", text)
        self.assertEqual(self.json("help", "KSEXI")["templates"], "KSEXITEMPLATE")
        self.assertRegex(self.ends(DONE, "help", "KSMDI").stdout, "(?m)^DIRK_D6D7D8 .*, a part of DIRK$")
        self.assertRegex(self.ends(DONE, "help", "CLFOC").stdout, "(?m)^DATA1_D5 to .*, a part of DATA1 to DATA40$")

    def test_help_prints_the_page_of_a_command(self):
        page = self.ends(DONE, "help", "SYIDI", "--page").stdout
        self.assertTrue(page.startswith("# SYIDI: Identity of the exchange\n"), page)
        self.assertIn("Actions: add, edit, delete. One record for the whole exchange.\n", page)
        self.assertIn("| `EXGID` | Number of the exchange, of type EN | has to be given, list |\n", page)
        self.assertIn("What is possible now: `cordboard values FILE SYIDI EXGID`.\n", page)
        self.assertTrue(page.endswith("Record: table `SYIDI`, columns `CMDID`, `EXGID`, `NUMTYP`.\n"), page)
        self.ends(USAGE, "help", "SYIDI", "--page", "--json")

    def test_a_full_disk_behind_standard_output_is_trouble(self):
        for arguments in (["generate", self.exchange], ["show", self.exchange], ["commands", "--json"],
                          ["help", "NANSI"], ["values", self.exchange, "NANSI", "NUMTYP"], ["--help"]):
            with open("/dev/full", "wb") as full:
                ran = self.ends(TROUBLE, *arguments, stdout=full)
            self.assertEqual(ran.stderr, "error: standard output could not be written: the disk is full\n")

    def test_a_full_disk_behind_a_file_of_lines_is_trouble(self):
        self.fails(TROUBLE, "cannot be written to /dev/full", "generate", self.exchange, "-o", "/dev/full")
        self.fails(TROUBLE, "cannot be written to", "generate", self.exchange, "-o", self.folder / "nowhere" / "x")

    def test_a_closed_standard_output_is_trouble(self):
        ran = cordboard("generate", self.exchange, stdout=None, preexec_fn=lambda: os.close(1))
        self.assertEqual(ran.returncode, TROUBLE)
        self.assertEqual(self.generated(), LINES)


class ExchangeLines(ProgramTest):
    PLAN = """\
NANSI:NUMTYP=EX,NUMSE=200&&209;
EXCCS:CAT=1,TRAF=11,SERV_D1=1,CDIV_D1=1,ROC_D2=1;
KSEXI:DIR=200&&201,ITYPE=3,EQU=next,CAT=1;
KSFKC:DIR=200&&201,KEY=1,FCN=PCK;
ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=01020304;
"""

    def test_they_are_read_by_a_new_exchange_which_has_them_then(self):
        self.ends(DONE, "apply", self.exchange, "-", given=self.PLAN.encode())
        lines, copy = self.folder / "office.lines", self.folder / "copy.cbx"
        self.ends(DONE, "generate", self.exchange, "-o", lines)
        self.ends(DONE, "new", copy, "--release", "R7")
        ran = self.ends(DONE, "apply", copy, lines, "--json")
        report = json.loads(ran.stdout)
        self.assertEqual(sum(command["added"] for command in report.pop("commands")), 117)
        self.assertEqual(report, {"done": 12, "refused": 0, "kept": True, "state": 1, "problems": []})
        self.assertEqual(self.ends(DONE, "generate", copy).stdout, lines.read_text())

    def test_a_value_that_follows_from_the_record_otherwise_is_a_warning(self):
        line = b"ROCAI:ROU=1,PROTOCOL=CAS,MARKET=DE,SEL=1000000001,SIG=9,TRAF=01,TRM=2,SERV=1000,NODG=4;"
        ran = self.ends(DONE, "apply", self.exchange, "-", given=line)
        self.assertEqual(ran.stderr, "warning: standard input:1: ROCAI, SIG=9: the exchange's line will have "
                                     "100100000030 here, which follows from the record\n"
                                     "plan: 1 done, 0 refused\nROCAI: 1 added\n")

    def test_the_help_names_what_lines_have_and_leave_out(self):
        lines = json.loads(self.ends(DONE, "help", "IVMAI", "--json").stdout)["lines"]
        self.assertEqual(lines, {"derived": ["EQU"], "untold": ["BPOS", "NOIND"], "from": ""})
        self.assertIn("\nLines of the exchange come from the records of ICFUI.\n", self.ends(DONE, "help", "ICFUC").stdout)


class BadFile(ProgramTest):
    """What is given as FILE and is no exchange that can be used: one clear error, for every subcommand."""

    def each(self, file):
        return (["apply", file, "-"], ["show", file], ["show", file, "NANSI"], ["generate", file],
                ["values", file, "NANSI", "NUMTYP"], ["explain", file, "NANSI:NUMTYP=OI,NUMSE=900;"], ["check", file])

    def check(self, code, message, file):
        before = file.read_bytes() if os.path.isfile(file) else None
        for arguments in self.each(file):
            with self.subTest(arguments=arguments):
                self.fails(code, message, *arguments)
        if before is not None:
            self.assertEqual(file.read_bytes(), before)

    def test_a_missing_file_is_not_found_and_not_made(self):
        missing = self.folder / "nowhere.cbx"
        self.check(NOT_FOUND, f"there is no file {missing}", missing)
        self.assertFalse(missing.exists())

    def test_a_text_is_not_an_exchange(self):
        self.check(TROUBLE, "is not an exchange", self.write("text.cbx", "NANSI:NUMTYP=EX;\n" * 100))

    def test_an_empty_file_is_not_an_exchange(self):
        self.check(TROUBLE, "is not an exchange", self.write("empty.cbx", ""))

    def test_a_folder_is_not_an_exchange(self):
        self.check(TROUBLE, "is not an exchange", self.folder)

    def test_another_database_is_not_an_exchange(self):
        other = self.folder / "other.cbx"
        with sqlite3.connect(other) as connection:
            connection.execute("CREATE TABLE t (a)")
        connection.close()
        self.check(TROUBLE, "is not an exchange", other)

    def test_an_exchange_of_another_version_is_not_opened(self):
        connection = sqlite3.connect(self.exchange)
        connection.execute("PRAGMA user_version = 99")
        connection.close()
        self.check(TROUBLE, "was made by another version", self.exchange)

    def test_a_damaged_exchange_is_not_opened(self):
        damaged = self.write("damaged.cbx", self.exchange.read_bytes()[:5000])
        self.check(TROUBLE, "damaged.cbx is damaged (", damaged)

    def test_a_name_that_is_too_long_is_trouble(self):
        self.check(TROUBLE, "File name too long", self.folder / ("x" * 300))


class ReadOnly(ProgramTest):
    """A user who may read the exchange and not write it."""

    def setUp(self):
        super().setUp()
        self.folder.chmod(0o755)
        self.as_reader = {}
        if os.geteuid() == 0:
            self.as_reader = {"user": NOBODY, "extra_groups": []}
            try:
                if cordboard("--version", **self.as_reader).returncode != DONE:
                    self.skipTest("another user cannot run the program")
            except PermissionError:
                self.skipTest("another user cannot run the program")

    def each_reads(self):
        """Every subcommand that reads does so, and leaves the folder as it is."""
        before = sorted(self.folder.iterdir()), self.exchange.read_bytes()
        plan = b"NANSI:NUMTYP=OI,NUMSE=900;\n"
        for arguments in (["show"], ["values", "NANSI", "NUMTYP"], ["generate"], ["explain", "NANSI:NUMTYP=OI,NUMSE=900;"],
                          ["apply", "-", "--dry-run"], ["check"]):
            self.ends(DONE, arguments[0], self.exchange, *arguments[1:], given=plan, **self.as_reader)
        ran = self.ends(DONE, "generate", self.exchange, **self.as_reader)
        self.assertEqual((ran.stdout, ran.stderr), (LINES, ""))
        ran = self.ends(TROUBLE, "shell", self.exchange, given=b"try\n" + plan + b"drop\n" + plan, **self.as_reader)
        self.assertIn("standard input:2: NANSI NUMSE=900 added", ran.stdout)
        self.assertRegex(ran.stderr, r"^dropped: 1 line\nerror: standard input:4: .*may not be written.*\n$")
        self.assertEqual((sorted(self.folder.iterdir()), self.exchange.read_bytes()), before)

    def test_reading_needs_no_other_right_and_leaves_nothing(self):
        self.exchange.chmod(0o444)
        for rights in (0o555, 0o777):
            self.folder.chmod(rights)
            self.addCleanup(self.folder.chmod, 0o755)
            self.each_reads()

    def test_what_a_killed_writer_left_is_in_no_readers_way(self):
        self.exchange.chmod(0o644)
        writer = self.applying(self.exchange)
        self.each_reads()
        ended(writer)
        self.assertEqual(len(list(self.folder.iterdir())), 2)
        for rights in (0o555, 0o777):
            self.folder.chmod(rights)
            self.addCleanup(self.folder.chmod, 0o755)
            self.each_reads()
        self.folder.chmod(0o755)
        self.ends(DONE, "apply", self.exchange, "-", given=b"NANSI:NUMTYP=OI,NUMSE=900;\n")
        self.assertEqual(list(self.folder.iterdir()), [self.exchange])

    def test_no_plan_is_applied_where_the_file_or_its_folder_may_not_be_written(self):
        before = self.exchange.read_bytes()
        apply = ["apply", self.exchange, "-"]
        line = b"NANSI:NUMTYP=OI,NUMSE=900;"
        self.exchange.chmod(0o444)
        self.folder.chmod(0o777)
        self.fails(TROUBLE, "may not be written", *apply, given=line, **self.as_reader)
        self.exchange.chmod(0o666)
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        self.fails(TROUBLE, f"the folder {self.folder} may not be written", *apply, given=line, **self.as_reader)
        self.fails(TROUBLE, "cannot be made", "new", self.folder / "new.cbx", "--release", "R7", **self.as_reader)
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_a_file_that_may_not_be_read_is_trouble(self):
        self.exchange.chmod(0)
        self.folder.chmod(0o777)
        self.fails(TROUBLE, f"{self.exchange}: Permission denied", "show", self.exchange, **self.as_reader)

    def test_a_folder_that_may_not_be_entered_is_trouble(self):
        self.folder.chmod(0)
        self.addCleanup(self.folder.chmod, 0o755)
        self.fails(TROUBLE, "Permission denied", "show", self.exchange, **self.as_reader)


class Processes(ProgramTest):
    """Several processes at one file, and those that come to no good end."""

    LINE = b"NANSI:NUMTYP=EX,NUMSE=200&&299;\n"

    def apply(self, *options, given=LINE, code=DONE, **further):
        return self.ends(code, "apply", self.exchange, "-", *options, given=given, **further)

    def alone(self):
        """Nothing stands beside the exchange."""
        return list(self.folder.iterdir()) == [self.exchange]

    def test_one_writes_and_the_others_read_and_are_told_who_it_is(self):
        first = self.applying(self.exchange)
        told = self.apply("--wait", "0", code=TROUBLE).stderr
        self.assertRegex(told, rf"^error: {self.exchange} is held by \S.* \(process {first.pid}, \w*cordboard apply\) "
                               r"since [-0-9 ]*\d\d:\d\d; nothing was kept\n$")
        self.assertEqual(self.generated(), LINES)
        self.assertIn("nothing was kept, since this is a dry run", self.apply("--dry-run").stderr)
        waiting = subprocess.Popen([PROGRAM, "apply", self.exchange, "-", "--wait", "60"], stdin=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        self.addCleanup(ended, waiting)
        waiting.stdin.write(self.LINE)
        waiting.stdin.flush()
        self.assertEqual(first.communicate(timeout=60)[1], "plan: 1 done, 0 refused\nNANSI: 1 added\n")
        self.assertEqual(waiting.communicate(timeout=60)[1],
                         b"plan: 1 done, 0 refused\nNANSI: 100 added\n")
        self.assertEqual(self.generated().count("\n"), 4)
        self.assertTrue(self.alone())

    def test_who_waits_for_the_first_line_keeps_nobody_out(self):
        waiting = subprocess.Popen([PROGRAM, "apply", self.exchange, "-"], stdin=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        self.addCleanup(ended, waiting)
        until(lambda: held_back(waiting))
        self.apply("--wait", "0")
        self.assertEqual(waiting.communicate(b"delete NANSI NUMSE=9;\n", timeout=60)[1],
                         b"plan: 1 done, 0 refused\nNANSI: 1 removed\n")
        self.assertIn("200&&299", self.generated())

    def test_a_signal_ends_an_apply_which_has_kept_nothing(self):
        before = self.exchange.read_bytes()
        for how in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            apply = self.applying(self.exchange)
            apply.send_signal(how)
            told = apply.stderr.read()
            self.assertEqual(apply.wait(timeout=60), 128 + how)
            self.assertEqual(told, "error: interrupted; nothing was kept\n")
            self.assertTrue(self.alone())
        waiting = subprocess.Popen([PROGRAM, "apply", self.exchange, "-", "--json"], stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE)
        self.addCleanup(ended, waiting)
        until(lambda: held_back(waiting))
        waiting.send_signal(signal.SIGINT)
        self.assertEqual(waiting.wait(timeout=60), 130)
        self.assertEqual(json.load(waiting.stdout)["problems"],
                         [{"severity": "error", "message": "interrupted; nothing was kept"}])
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_a_signal_ends_a_line_that_takes_long_and_the_waiting_for_another_process(self):
        for busy, plan in ((False, b"NANSI:NUMTYP=EX,NUMSE=200000&&299999;\n"), (True, self.LINE)):
            holder = self.applying(self.exchange) if busy else None
            apply = subprocess.Popen([PROGRAM, "apply", self.exchange, "-", "--wait", "600"], stdin=subprocess.PIPE,
                                     stderr=subprocess.PIPE)
            self.addCleanup(ended, apply)
            apply.stdin.write(plan)
            apply.stdin.close()
            until(lambda: held_back(apply))
            if not busy:
                until(pathlib.Path(f"{self.exchange}-journal").exists)
            apply.send_signal(signal.SIGINT)
            self.assertEqual(apply.wait(timeout=60), 130)
            self.assertEqual(apply.stderr.read(), b"error: interrupted; nothing was kept\n")
            apply.stdin = None
            if holder:
                ended(holder)
        self.assertEqual(self.generated(), LINES)

    def test_an_apply_that_is_killed_at_any_moment_has_kept_all_or_nothing(self):
        plan = self.write("long.plan", "".join(f"NANSI:NUMTYP=EX,NUMSE={n}00&&{n}99;\n" for n in range(200, 260)))
        took = time.monotonic()
        self.ends(DONE, "apply", self.exchange, plan)
        took = time.monotonic() - took
        new = self.generated()
        moments = 8
        for moment in range(moments + 1):
            shutil.copy(self.template, self.exchange)
            apply = subprocess.Popen([PROGRAM, "apply", self.exchange, plan], stderr=subprocess.DEVNULL)
            time.sleep(took * moment / moments)
            ended(apply)
            self.assertIn(self.generated(), (LINES, new))
            self.ends(DONE, "apply", self.exchange, "-", given=b"NANSI:NUMTYP=OI,NUMSE=900;\n")
            self.assertIn(self.generated(), [lines + "NANSI:NUMTYP=OI,NUMSE=900;\n" for lines in (LINES, new)])
            self.assertFalse(pathlib.Path(f"{self.exchange}-journal").exists())

    def test_of_several_that_make_an_exchange_at_once_one_does(self):
        new = self.folder / "new.cbx"
        makers = [subprocess.Popen([PROGRAM, "new", new, "--release", release], stderr=subprocess.PIPE)
                  for release in ("R6", "R7", "R8")]
        told = [maker.communicate(timeout=60)[1].decode() for maker in makers]
        self.assertEqual(sorted(maker.returncode for maker in makers), [DONE, REFUSED, REFUSED])
        made = next(text for text in told if text.startswith("made: "))
        self.assertIn("release " + self.json("show", new)["release"] + ",", made)
        self.assertEqual(sum("exists already" in text for text in told), 2)
        self.ends(DONE, "check", new)

    def test_what_is_killed_while_it_makes_a_file_stands_in_nobodys_way(self):
        out = self.write("lines.txt", "old\n")
        for name, arguments in (("new.cbx", ["new", self.folder / "new.cbx", "--release", "R7"]),
                                ("lines.txt", ["generate", self.exchange, "-o", out])):
            for moment in range(8):
                maker = subprocess.Popen([PROGRAM, *arguments], stderr=subprocess.DEVNULL)
                time.sleep(moment * 0.01)
                ended(maker)
                if name == "lines.txt":
                    self.assertIn(out.read_text(), ("old\n", LINES))
                elif (self.folder / name).exists():
                    self.ends(DONE, "check", self.folder / name)
                    (self.folder / name).unlink()
            self.ends(DONE, *arguments)
        self.assertEqual(out.read_text(), LINES)

    def test_the_old_file_of_lines_stays_where_the_new_one_has_no_room(self):
        out = self.write("lines.txt", "old\n")
        ran = self.ends(TROUBLE, "generate", self.exchange, "-o", out, preexec_fn=no_file_beyond(10),
                        restore_signals=False)
        self.assertIn("lines.txt: the disk is full", ran.stderr)
        self.assertEqual(out.read_text(), "old\n")
        self.assertEqual(len(list(self.folder.iterdir())), 2)

    def test_a_file_that_may_not_grow_is_a_full_disk(self):
        with open(self.folder / "out", "wb") as out:
            ran = self.ends(TROUBLE, "generate", self.exchange, stdout=out, preexec_fn=no_file_beyond(10))
        self.assertIn("standard output could not be written: the disk is full", ran.stderr)

    def test_what_was_kept_is_told_also_where_the_report_cannot_be_written(self):
        for report in ("--json", "--verbose"):
            shutil.copy(self.template, self.exchange)
            with open("/dev/full", "wb") as full:
                ran = self.ends(TROUBLE, "apply", self.exchange, "-", report, given=self.LINE, stdout=full)
            self.assertEqual(ran.stderr, "plan: 1 done, 0 refused\nNANSI: 100 added\n"
                                         "error: standard output could not be written: the disk is full\n")
            self.assertIn("200&&299", self.generated())

    def test_check_tells_whether_a_file_is_whole(self):
        ran = self.ends(DONE, "check", self.exchange)
        self.assertEqual((ran.stdout, ran.stderr), ("", f"checked: {self.exchange}: release R7, nothing is damaged, everything fits "
                                                "together\n"))
        connection = sqlite3.connect(self.exchange)
        page = connection.execute("SELECT rootpage FROM sqlite_master WHERE name = 'NANSIBlockedRange'").fetchone()[0]
        size = connection.execute("PRAGMA page_size").fetchone()[0]
        connection.close()
        content = bytearray(self.exchange.read_bytes())
        content[(page - 1) * size:page * size] = b"\xff" * size
        damaged = self.write("damaged.cbx", bytes(content))
        report = self.json("check", damaged, code=TROUBLE)
        self.assertIn("damaged", json.dumps(report["problems"]))
        self.assertIn("put a copy from before in its place", json.dumps(report["problems"]))
        self.fails(TROUBLE, "put a copy from before in its place", "apply", damaged, "-", given=self.LINE)
        self.assertEqual(damaged.read_bytes(), bytes(content))


def held_back(process):
    """Whether a process holds SIGINT back, as it does when it is ready for its plan."""
    status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
    blocked = int(next(line for line in status.splitlines() if line.startswith("SigBlk:")).split()[1], 16)
    return blocked >> (signal.SIGINT - 1) & 1


class Usage(ProgramTest):
    def test_the_help_of_the_program_lists_its_subcommands_and_exit_codes(self):
        for arguments in (["--help"], ["-h"], ["help"]):
            text = self.ends(DONE, *arguments).stdout
            for name in SUBCOMMANDS:
                self.assertRegex(text, rf"(?m)^  {name}\b")
            self.assertIn("Exit codes: 0 done, 1 a fault of the program, 2 usage, 3 refused or different, 4 not found, "
                          "5 file or database trouble.", text.replace("\n", " "))

    def test_every_subcommand_has_a_help_of_its_own(self):
        for name in SUBCOMMANDS:
            ran = self.ends(DONE, name, "--help")
            self.assertEqual(ran.stderr, "")
            self.assertIn(f"cordboard {name} [OPTIONS]", ran.stdout)
            self.assertEqual("FILE" in ran.stdout, name not in ("plants", "commands", "help"), ran.stdout)
            self.assertEqual("--json" in ran.stdout, name != "web", ran.stdout)

    def test_the_name_of_another_subcommand_is_an_argument(self):
        self.fails(NOT_FOUND, "there is no file show", "generate", "show")
        self.assertIn("cordboard show [OPTIONS]", self.ends(DONE, "help", "show").stdout)
        self.assertIn("cordboard serve [OPTIONS]", self.ends(DONE, "serve", "--help").stdout)

    def test_the_version_is_told(self):
        told = self.ends(DONE, "--version").stdout
        self.assertRegex(told, r"^cordboard \d+\.\d+\.\d+ \(([\w.-]+, )?(Debug|Release|\w*), SQLite 3\.\d+\.\d+\)\n$")

    def test_a_subcommand_is_needed(self):
        self.fails(USAGE, "a subcommand is required; see cordboard --help")
        self.fails(USAGE, "FILE is required; see cordboard show --help", "show")

    def test_a_mistyped_subcommand_gets_the_nearest_one(self):
        self.fails(USAGE, "there is no subcommand aply. Did you mean apply? See cordboard --help", "aply",
                   self.exchange)
        self.fails(USAGE, "there is no subcommand office.cbx.", "office.cbx")

    def test_missing_and_surplus_arguments_are_usage(self):
        for arguments in (["new"], ["apply"], ["apply", self.exchange], ["values", self.exchange, "NANSI"], ["show"],
                          ["generate"], ["explain", self.exchange], ["commands", "x"], ["help", "NANSI", "NUMSE", "x"],
                          ["show", self.exchange, "NANSI", "x"], ["show", self.exchange, "--nothing"], ["--nothing"]):
            ran = self.ends(USAGE, *arguments)
            self.assertEqual(ran.stdout, "")
            self.assertRegex(ran.stderr, r"^error: .*[; ][sS]ee cordboard( [a-z]+)? --help\n$")

    def test_with_json_what_goes_wrong_is_a_document(self):
        for code, message, arguments in ((USAGE, "--limit", ["values", "x", "NANSI", "NUMTYP", "--limit", "x"]),
                                         (USAGE, "there is no subcommand aply", ["aply"]),
                                         (NOT_FOUND, "there is no file nowhere.cbx", ["show", "nowhere.cbx"]),
                                         (REFUSED, "there is no parameter NUMSI",
                                          ["values", self.exchange, "NANSI", "NUMTYP", "NUMSI=5"])):
            ran = self.ends(code, *arguments, "--json")
            self.assertEqual(ran.stderr, "")
            document = json.loads(ran.stdout)
            self.assertEqual(list(document), ["problems"])
            self.assertEqual([problem["severity"] for problem in document["problems"]], ["error"])
            self.assertIn(message, document["problems"][0]["message"])

    def test_an_unknown_command_gets_the_nearest_one(self):
        message = "there is no command NANSY. Did you mean NANSI?"
        for arguments in (["help", "NANSY"], ["show", self.exchange, "NANSY"],
                          ["values", self.exchange, "NANSY", "NUMTYP"], ["explain", self.exchange, "NANSY:;"]):
            self.fails(NOT_FOUND, message, *arguments)

    def test_an_unknown_parameter_gets_the_nearest_one(self):
        self.fails(NOT_FOUND, "there is no parameter NUMTIP in NANSI. Did you mean NUMTYP?", "values", self.exchange,
                   "NANSI", "NUMTIP")
        self.fails(REFUSED, "there is no parameter NUMSI in NANSI. Did you mean NUMSE?", "values", self.exchange,
                   "NANSI", "NUMTYP", "NUMSI=5")


class Readme(ProgramTest):
    """The README shows what happens."""

    def test_its_commands_give_what_it_shows(self):
        text = (SOURCE / "README.md").read_text()
        shown = text[text.index("\n## A taste\n"):text.index("\n## Where to look\n")]
        path = environment(PATH=f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}")
        plan = self.folder / "office.plan"
        self.exchange.unlink()
        blocks = re.findall(r"(?m)^    \$ (.*)\n((?:    (?!\$).+\n)*)", shown)
        for command, output in blocks:
            lines = [line.removeprefix("    ") for line in output.splitlines()]
            if command.startswith("cat "):
                plan.write_text("\n".join(lines))
                continue
            ran = subprocess.run(command, shell=True, cwd=self.folder, env=path, capture_output=True, text=True)
            told = (ran.stdout + ran.stderr).splitlines()
            self.assertEqual([line for line in lines if line not in told], [], told)
            if ran.returncode == REFUSED:  # it goes on without the line that is refused
                first, _, *rest = plan.read_text().splitlines()
                plan.write_text("\n".join([first, *rest]))
        self.assertEqual([command.split()[1] for command, _ in blocks], ["new", "office.plan", "apply", "apply", "generate"])
        commands = re.findall(r"(?m)^    (cordboard .*)$", shown)
        self.assertGreater(len(commands), 5)
        for command in commands:
            ran = subprocess.run(command, shell=True, cwd=self.folder, env=path, capture_output=True, text=True)
            self.assertEqual(ran.returncode, DONE, command)
            self.assertNotEqual(ran.stdout + ran.stderr, "", command)


class Help(ProgramTest):
    """What is told of the program, of commands and of their parameters, in all its forms."""

    def test_help_on_a_command_has_its_example_and_its_notes(self):
        text = self.ends(DONE, "help", "KSEXI").stdout
        self.assertRegex(text, r"(?m)^    KSEXI:DIR=.*;$")
        self.assertIn("\nDIR and EQU go in pairs; EQU=next takes free positions.", text)
        data = self.json("help", "KSEXI")
        self.assertTrue(data["example"].startswith("KSEXI:DIR="), data["example"])
        self.assertTrue(data["notes"].startswith("`DIR` and `EQU` go in pairs"), data["notes"])

    def test_help_on_a_parameter_has_its_fixed_values_and_where_the_others_come_from(self):
        text = self.ends(DONE, "help", "KSEXI", "ADC_D11").stdout
        self.assertRegex(text, r"^KSEXI ADC_D11: Calls of the terminal\n\nlist, digit 11 of ADC, only in R7 and R8\n")
        self.assertRegex(text, r"\nFixed values, R7 and R8:\n  0  \w")
        text = self.ends(DONE, "help", "KSEXI", "EQU").stdout
        self.assertIn("It goes in step with DIR: as many values of each.\n", text)
        self.assertIn("Its values follow from what the exchange holds; those that are possible now: "
                      "cordboard values FILE KSEXI EQU\n", text)
        self.assertIn("Its parts can be given one by one: SERV_D1, SERV_D2, SERV_D3D4_SUB1,",
                      self.ends(DONE, "help", "KSEXI", "SERV").stdout)
        data = self.json("help", "NANSI", "NUMTYP")
        self.assertEqual((data["command"], len(data["parameters"])), ("NANSI", 1))
        self.assertEqual(data["parameters"][0]["traits"], "has to be given, list, check")
        extensions, = [value for value in data["values"] if value["value"] == "EX"]
        self.assertEqual((extensions["description"], len(extensions["releases"])), ("Extension numbers", 4))
        self.fails(NOT_FOUND, "there is no parameter NUMTIP in NANSI. Did you mean NUMTYP?", "help", "NANSI", "NUMTIP")

    def test_help_on_a_subcommand_is_its_own_help_and_a_guide_is_printed(self):
        self.assertEqual(self.ends(DONE, "help", "apply").stdout, self.ends(DONE, "apply", "--help").stdout)
        data = self.json("help", "apply")
        self.assertEqual(data["usage"], "cordboard apply [OPTIONS] FILE PLAN...")
        self.assertIn(["--check-only", "--dry-run"], [argument["names"] for argument in data["arguments"]])
        self.assertEqual([sub["name"] for sub in self.json("help")["subcommands"] if sub["name"] in SUBCOMMANDS],
                         SUBCOMMANDS)
        self.assertTrue(self.ends(DONE, "help", "plans").stdout.startswith("# Plans\n"))
        self.assertTrue(self.ends(DONE, "help", "check", "--page").stdout.startswith("# Check\n"))
        self.fails(NOT_FOUND, "there is no command aplly. Did you mean apply?", "help", "aplly")

    def test_manual_pages_are_made_of_the_same_and_are_well_formed(self):
        self.ends(DONE, "man", "--pages", self.folder / "man")
        names = sorted(path.name for path in (self.folder / "man").rglob("*.*"))
        self.assertLessEqual({"cordboard.1", *(f"cordboard-{name}.1" for name in SUBCOMMANDS)}, set(names))
        self.assertEqual(len([name for name in names if name.endswith(".7")]), 87)
        self.assertNotIn("cordboard-man.1", names)
        page = (self.folder / "man/man1/cordboard-apply.1").read_text()
        self.assertEqual(page, self.ends(DONE, "man", "apply").stdout)
        self.assertRegex(page, r'^\.TH "cordboard\\-apply" 1 .*\n\.SH NAME\ncordboard\\-apply \\- Perform ')
        self.assertIn(".TP\n\\fB\\-\\-check\\-only, \\-\\-dry\\-run\\fR\ntry everything and keep nothing\n", page)
        for path in (self.folder / "man").rglob("cordboard*"):
            self.assertNotRegex(path.read_text(), r"`|\*\*\w", path)
        if shutil.which("groff"):
            pages = [path for path in (self.folder / "man").rglob("*") if path.is_file()]
            for begin in range(0, len(pages), 20):
                ran = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z", *pages[begin:begin + 20]],
                                     capture_output=True, check=True)
                self.assertEqual(ran.stderr, b"")
        self.fails(NOT_FOUND, "there is no command NANSY. Did you mean NANSI?", "man", "NANSY")


class Completion(ProgramTest):
    """What a shell completes to, by the program's own answer and in the shells."""

    def answer(self, *words):
        ran = self.ends(DONE, "complete", "--", *words)
        self.assertEqual(ran.stderr, "")
        return ran.stdout.splitlines()

    def words(self, *words):
        return [line.split("\t")[0] for line in self.answer(*words)]

    def test_subcommands_and_options(self):
        self.assertEqual(self.answer("ap"), ["apply\tPerform the actions of plan files: all of them, or none"])
        self.assertEqual(self.words("apply", self.exchange, "-", "--dry"), ["--dry-run"])
        self.assertLessEqual(set(SUBCOMMANDS), set(self.words("")))
        self.assertNotIn("complete", self.words(""))
        self.assertEqual(self.words("new", "x.cbx", "--release", "R6/"), ["R6/1"])
        self.assertEqual(self.words("new", "x.cbx", "--plant", "exam"), [":files", "example"])
        self.assertEqual(self.words("apply", "--json", ""), [":files"])
        self.assertEqual(self.words("undo", self.exchange, ""), ["1", "0"])
        self.assertEqual(self.words("generate", self.exchange, "-o", ""), [":files"])

    def test_commands_parameters_and_values(self):
        self.assertEqual(self.words("values", self.exchange, "NANS"), ["NANSI"])
        self.assertEqual(self.words("values", self.exchange, "NANSI", "NUMT"), ["NUMTYP"])
        self.assertEqual(self.words("help", "apl"), [])
        self.assertEqual(self.words("help", "NANSI", "NUMS"), ["NUMSE"])
        self.assertEqual(self.words("values", self.exchange, "NANSI", "NUMSE", "NUMT"), ["NUMTYP="])
        self.assertEqual(self.answer("values", self.exchange, "NANSI", "NUMSE", "NUMTYP=EX"),
                         ["NUMTYP=EX\tExtension numbers"])
        # Numbers that are free: those of the series; stored ones: the series itself.
        self.assertEqual(self.words("values", self.exchange, "KSEXI", "EQU", "DIR=10")[0], "DIR=100")
        self.assertEqual(self.words("show", self.exchange, "NANSI", "NUMTYP=EX", "NUMSE=1")[0][:9], "NUMSE=100")

    def test_a_line_of_a_plan(self):
        self.assertEqual(self.words("explain", self.exchange, "NANS"), ["NANSI:"])
        self.assertEqual(self.words("explain", self.exchange, "NANSI:NUMTYP=EX,NU"),
                         ["NANSI:NUMTYP=EX,NUMSE="])
        self.assertEqual(self.words("explain", self.exchange, "KSEXI:DIR=100&&10")[:2],
                         ["KSEXI:DIR=100&&100", "KSEXI:DIR=100&&101"])
        self.assertEqual(self.words("explain", self.exchange, "delete NANSI NUMTYP=A"), ["delete NANSI NUMTYP=AI"])

    def test_nothing_is_said_where_nothing_is_known_and_secrets_are_not_told(self):
        plan = b"GEDII:DIR=150,CUST=1;\nIPEXI:DIR=150,PASSW=Tulip;"
        self.ends(DONE, "apply", self.exchange, "-", given=plan)
        for words in (["nothing", ""], ["show", self.folder / "nowhere", "NANSI", "NUMTYP="],
                      ["values", self.exchange, "NOTHING", ""], ["values", self.exchange, "NANSI", "NUMSE", "X=1"],
                      ["show", self.exchange, "IPEXI", "PASSW="], ["explain", self.exchange, "edit IPEXI PASSW="]):
            self.assertEqual(self.answer(*words), [])
        self.assertEqual(self.words("show", self.exchange, "IPEXI", "DIR="), ["DIR=150"])

    def test_in_bash(self):
        """The script in a real bash, which has taken the lines apart at "=" and ":" as it does."""
        cases = [
            (["cordboard", " va"], ["values"]),
            (["cordboard", " new", " x.cbx", " --rel"], ["--release"]),
            (["cordboard", " show", " "], ["option default"]),
            (["cordboard", " values", " office.cbx", " NANSI", " NUMSE", " NUMT"], ["option nospace", "NUMTYP="]),
            (["cordboard", " values", " office.cbx", " NANSI", " NUMSE", " NUMTYP", "=", "C"], ["CP"]),
            (["cordboard", " show", " ./office.cbx", " NANSI", " NUMTYP", "="], ["AI", "EX"]),
            (["cordboard", " explain", " office.cbx", ' "NANS'], ["option nospace", "NANSI:", "NANSI: "]),
            (["cordboard", " explain", " office.cbx", ' "NANSI:NUMTYP=C'], ["NANSI:NUMTYP=CP"]),
        ]
        script = f"""
            source {shlex.quote(str(SCRIPTS / "cordboard.bash"))}
            compopt() {{ echo "option $2"; }}
            complete_line() {{
              COMP_LINE=$1 COMP_POINT=${{#1}} COMP_TYPE=$2 COMP_WORDS=("${{@:3}}") COMP_CWORD=$(($# - 3)) COMPREPLY=()
              _cordboard
              printf '%s\\n' "${{COMPREPLY[@]}}" .
            }}
            """
        calls = [shlex.join(["complete_line", "".join(pieces), "9", *(piece.lstrip(" ") for piece in pieces)])
                 for pieces, _ in cases]
        # The list after a second tabulator has descriptions.
        calls.append(calls[4].replace(" 9 ", " 63 ").replace("=C", "=").replace(" C", " ''"))
        ran = subprocess.run(["bash", "-c", script + "\n".join(calls)], cwd=self.folder, capture_output=True, text=True,
                             env=environment(PATH=f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"), timeout=60)
        self.assertEqual(ran.stderr, "")
        replies = [reply.strip("\n").split("\n") for reply in ran.stdout.split("\n.\n")]
        self.assertEqual(replies[:len(cases)], [expected for _, expected in cases])
        self.assertIn("EX  Extension numbers", replies[len(cases)])

    @unittest.skipUnless(shutil.which("zsh"), "there is no zsh")
    def test_in_zsh(self):
        """The script in a real zsh, where what adds a reply is replaced."""
        script = f"""
            compadd() {{ print -r -- "$@[-1] ${{(P)@[-1]}}" }}
            words=(cordboard values office.cbx NANSI NUMSE $1) CURRENT=6 PREFIX=$1
            source {shlex.quote(str(SCRIPTS / "cordboard.zsh"))}
            """
        for typed, expected in (("NUMT", "done \non NUMTYP=\n"), ("NUMTYP=C", "done NUMTYP=CP\non \n")):
            ran = subprocess.run(["zsh", "-fc", script, "zsh", typed], cwd=self.folder, capture_output=True, text=True,
                                 env=environment(PATH=f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"))
            self.assertEqual((ran.stdout, ran.stderr), (expected, ""))


class Terminal(ProgramTest):
    """Standard error on a terminal, and with `data` standard output as well."""

    def on_terminal(self, *arguments, given=b"", data=False, **changes):
        leader, follower = pty.openpty()
        changed = {name: value for name, value in environment(**changes).items() if value is not None}
        apply = subprocess.Popen([PROGRAM, *map(str, arguments)], stdin=subprocess.PIPE,
                                 stdout=follower if data else subprocess.DEVNULL, stderr=follower, env=changed)
        os.close(follower)
        apply.stdin.write(given)
        apply.stdin.close()
        written = b""
        try:
            while piece := os.read(leader, 4096):
                written += piece
        except OSError:
            pass  # the other end is closed
        os.close(leader)
        apply.wait(timeout=60)
        return written.decode()

    def test_the_first_word_of_a_message_is_in_colour(self):
        text = self.on_terminal("show", self.folder / "nowhere.cbx", NO_COLOR=None)
        self.assertTrue(text.startswith("\033[31merror\033[0m: there is no file "), text)
        self.assertIn("\033[31merror", self.on_terminal("show", self.folder / "nowhere.cbx", NO_COLOR=""))

    def test_no_color_takes_the_colours_away(self):
        text = self.on_terminal("show", self.folder / "nowhere.cbx", NO_COLOR="1")
        self.assertTrue(text.startswith("error: there is no file "), text)

    def test_a_dumb_terminal_has_no_colours(self):
        text = self.on_terminal("show", self.folder / "nowhere.cbx", NO_COLOR=None, TERM="dumb")
        self.assertTrue(text.startswith("error: there is no file "), text)

    def test_control_characters_do_not_reach_it(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY)
        connection = sqlite3.connect(self.exchange)
        connection.execute("UPDATE EXCCS SET DESCRIPTION = ?, TRAF = ? WHERE CAT = '1'", (STEERING, "1\n1"))
        connection.commit()
        connection.close()
        for arguments in (["show", self.exchange, "EXCCS", "CAT=1"],
                          ["values", self.exchange, "KSEXITEMPLATE", "CAT"],
                          ["generate", self.exchange, "EXCCS"]):
            shown = self.on_terminal(*arguments, data=True)
            self.assertEqual([character for character in shown if character < " " or "\x7f" <= character < "\xa0"],
                             [character for character in shown if character in "\r\n\t"], shown)
        self.assertIn("1\\n1", self.on_terminal("show", self.exchange, "EXCCS", "CAT=1", data=True))
        self.assertIn("\\u001b[2J\\u009b\\u007f",
                      self.on_terminal("show", self.exchange, "EXCCS", "CAT=1", data=True))
        self.assertIn(STEERING, self.ends(DONE, "show", self.exchange, "EXCCS", "CAT=1").stdout, "data stays as it is")
        self.assertIn("no command NAN\\u001b[2JSI", self.ends(NOT_FOUND, "help", "NAN\033[2JSI").stderr)

    def test_without_a_terminal_there_are_no_colours(self):
        ran = self.ends(NOT_FOUND, "show", self.folder / "nowhere.cbx", env=environment(NO_COLOR=""))
        self.assertNotIn("\033", ran.stderr)

    def test_a_long_plan_shows_its_progress(self):
        plan = b"# a comment\n" * 1200
        text = self.on_terminal("apply", self.exchange, "-", given=plan, NO_COLOR="1")
        self.assertTrue(text.startswith("0 lines\r       \r"), text)
        self.assertTrue(text.endswith("\rplan: 0 done, 0 refused; nothing was kept\r\n"), text)
        self.assertEqual(self.on_terminal("apply", self.exchange, "-", "--json", given=plan), "")


class Generate(ProgramTest):
    def test_commands_without_lines_are_told_once(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"SYTDS:PGIV=3;\nNACDS:NUM=12,CDCAT=3;\n")
        ran = self.ends(DONE, "generate", self.exchange)
        self.assertEqual(ran.stdout, LINES)
        self.assertEqual(ran.stderr, "note: the records of 2 commands give no lines, by the rules of the exchange: "
                                     "NACDS, SYTDS\n")
        document = self.json("generate", self.exchange)
        self.assertEqual(document["without"], ["NACDS", "SYTDS"])
        self.assertEqual([problem["severity"] for problem in document["problems"]], ["note"])

    def test_gives_the_lines_of_some_commands(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY + b"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;\n"
                                                           b"KSFKC:DIR=100,KEY=1,FCN=DND;\nSYTDS:PGIV=3;\n")
        ran = self.ends(DONE, "generate", self.exchange, "KSFKC", "NANSI")
        self.assertEqual((ran.stdout, ran.stderr), (LINES + "KSFKC:DIR=100,KEY=1,FCN=TNS;\n"
                                                            "KSFKC:DIR=100,KEY=1,FCN=DND;\n", ""))
        self.assertEqual([line["text"] for line in self.json("generate", self.exchange, "KSFKC")["lines"]],
                         ["KSFKC:DIR=100,KEY=1,FCN=TNS;", "KSFKC:DIR=100,KEY=1,FCN=DND;"])
        self.assertIn("records of 1 command give", self.ends(DONE, "generate", self.exchange, "SYTDS").stderr)
        self.fails(NOT_FOUND, "Did you mean NANSI?", "generate", self.exchange, "NANSY")
        self.fails(USAGE, "KSEXITEMPLATE has templates: give --templates; see cordboard generate --help", "generate",
                   self.exchange, "KSEXITEMPLATE")


class Export(ProgramTest):
    def test_is_a_plan_that_makes_the_exchange_again(self):
        more = b'SYTDS:PGIV=3;\nGESPI:CSP=0,DESCRIPTION="Mill, gate 2";\nGEDII:DIR=150,CUST=1,LIC=1;\nIPEXI:DIR=150,PASSW=Tulip4;\n'
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY + more)
        out = self.folder / "office.plan"
        ran = self.ends(DONE, "export", self.exchange, "-o", out, umask=0)
        self.assertEqual((ran.stdout, out.stat().st_mode & 0o777), ("", 0o600))
        plan = out.read_text()
        self.assertTrue(plan.startswith("# An exchange of the plant example, release R7. It is made again by\n"), plan)
        self.assertIn('GESPI:CSP=0,DESCRIPTION="Mill, gate 2";\n', plan)
        self.assertIn("IPEXI:DIR=150,PASSW=Tulip4;\n", plan)
        self.assertIn(LINES, plan)
        copy = self.folder / "copy.cbx"
        self.ends(DONE, "new", copy, "--release", "R7")
        self.ends(DONE, "apply", copy, out)
        ran = self.ends(DONE, "export", copy)
        self.assertEqual((ran.stdout, ran.stderr), (plan, ""))
        self.assertEqual([line["text"] for line in self.json("export", copy, "SYTDS")["lines"]], ["SYTDS:PGIV=3;"])
        self.fails(USAGE, "cannot be written over the exchange itself", "export", self.exchange, "-o", self.exchange)

    def test_a_table_is_read_as_it_was_written(self):
        plan = CATEGORY + b'GESPI:CSP=0,DESCRIPTION="Mill, ""gate"" 2";\nKSEXI:DIR=100&&102,ITYPE=3,EQU=next,CAT=1;\n'
        self.ends(DONE, "apply", self.exchange, "-", given=plan)
        table = self.folder / "table.csv"
        self.ends(DONE, "export", self.exchange, "--csv", "KSEXI", "-o", table)
        heading, *rows = table.read_text().splitlines()
        self.assertEqual(heading, "DIR,ITYPE,EQU,CAT")
        self.assertEqual([row[:4] for row in rows], ["100,", "101,", "102,"])
        self.assertEqual(self.ends(DONE, "export", self.exchange, "--csv", "GESPI").stdout,
                         'CSP,DESCRIPTION\n0,"Mill, ""gate"" 2"\n')
        self.ends(DONE, "apply", self.exchange, "-", given=b"delete KSEXI DIR=100&&102;\n")
        self.ends(DONE, "apply", self.exchange, table, "--command", "KSEXI")
        self.assertEqual(self.ends(DONE, "export", self.exchange, "--csv", "KSEXI").stdout, table.read_text())
        bad = self.write("bad.csv", "DIR,ITYPE,EQU,CAT\r\n103,3,next,9\r\n104,3,\"next,1\r\n")
        told = self.ends(REFUSED, "apply", self.exchange, bad, "--command", "KSEXI").stderr
        self.assertIn("bad.csv:2: KSEXI, CAT=9: ", told)
        self.assertIn("bad.csv:3: a double quote is opened and not closed in its line at column 7\n", told)
        self.fails(NOT_FOUND, "there is no command KSEXY", "apply", self.exchange, bad, "--command", "KSEXY")

    def test_what_cannot_be_made_again_is_told(self):
        self.ends(DONE, "apply", self.exchange, "-", given=b"GEDII:DIR=150,CUST=1,LIC=1;\n")
        with contextlib.closing(sqlite3.connect(self.exchange)) as database, database:
            database.execute("UPDATE GEDII SET CUST = '77'")
        ran = self.ends(REFUSED, "export", self.exchange)
        self.assertIn("\n# GEDII:DIR=150,CUST=77,LIC=1;\n#   CUST=77: this value is not possible here", ran.stdout)
        self.assertIn("warning: 1 record cannot be made again by any line; comments at the end", ran.stderr)
        self.assertIn("the table GEDII differs, in 1 row\n", ran.stderr)
        problem, *tables = self.json("export", self.exchange, "NANSI", "GEDII", code=REFUSED)["problems"]
        self.assertEqual((problem["severity"], problem["command"]), ("warning", "GEDII"))
        self.assertIn("GEDII:DIR=150,CUST=77,LIC=1;", problem["message"])
        self.assertEqual([each["severity"] for each in tables], ["warning"] * len(tables))


class Compare(ProgramTest):
    def test_tells_records_lines_and_the_plan(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY + b"SYTDS:PGIV=3;\nGEDII:DIR=150,CUST=1,LIC=1;\n")
        other = self.folder / "new.cbx"
        shutil.copy(self.exchange, other)
        ran = self.ends(DONE, "compare", self.exchange, other)
        self.assertEqual((ran.stdout, ran.stderr), ("", "records: the same in both\n"))
        self.ends(DONE, "apply", other, "-", given=b"edit SYTDS:PGIV=4;\ndelete GEDII DIR=150;\nNANSI:NUMTYP=EX,NUMSE=700;\n")
        ran = self.ends(REFUSED, "compare", self.exchange, other)
        self.assertEqual(ran.stdout, "GEDII DIR=150 removed: CUST=1, LIC=1\nNANSI NUMSE=700 added: NUMTYP=EX\n"
                                     "SYTDS changed: PGIV 3 -> 4\n")
        self.assertEqual(ran.stderr, "records: 1 added, 1 changed, 1 removed\n")
        self.assertEqual(self.ends(REFUSED, "compare", other, self.exchange, "SYTDS").stdout, "SYTDS changed: PGIV 4 -> 3\n")
        self.ends(DONE, "compare", self.exchange, other, "KSEXI")
        self.assertEqual(self.ends(REFUSED, "compare", f"{other}@1", other, "SYTDS").stdout, "SYTDS added: PGIV=4\n")
        self.assertEqual(self.ends(REFUSED, "compare", self.exchange, other, "--lines").stdout, "+NANSI:NUMTYP=EX,NUMSE=700;\n")
        ran = self.ends(DONE, "compare", self.exchange, other, "--plan")
        plan = self.write("changes.plan", ran.stdout)
        self.ends(DONE, "apply", self.exchange, plan)
        self.ends(DONE, "compare", self.exchange, other)

    def test_what_no_record_tells_is_told_as_well(self):
        other = self.folder / "new.cbx"
        shutil.copy(self.exchange, other)
        with contextlib.closing(sqlite3.connect(other)) as database, database:
            database.execute("UPDATE Equipment SET USED = 1 WHERE EQU = '001-0-10-00'")
        ran = self.ends(REFUSED, "compare", self.exchange, other)
        self.assertEqual(ran.stderr, "note: the table Equipment differs in 1 row, though no record does\n"
                                     "records: the same in both\n")
        other.unlink()
        self.ends(DONE, "new", other, "--release", "R8")
        notes = self.json("compare", self.exchange, other, code=REFUSED)["problems"]
        self.assertEqual(notes, [{"severity": "note", "message": "the releases differ: R7 and R8"}])
        ran = self.ends(REFUSED, "compare", self.exchange, other, "--plan")
        self.assertEqual(ran.stderr, "error: the releases differ: R7 and R8, and no plan changes that\n")
        self.fails(USAGE, "with --plan no commands are given", "compare", self.exchange, other, "NANSI", "--plan")


class Show(ProgramTest):
    def test_blank_rows_are_counted_apart(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY)
        self.assertRegex(self.ends(DONE, "show", self.exchange).stdout,
                         r"(?m)^EXCCS +1 +Extension categories \(and 31 blank rows\)$")
        counted = {entry["command"]: (entry["count"], entry["blank"])
                   for entry in self.json("show", self.exchange)["commands"]}
        self.assertEqual((counted["EXCCS"], counted["NANSI"]), ((1, 31), (101, 0)))

    def test_the_identifier_is_called_the_same_everywhere(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY + b"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;")
        CmdId = self.json("show", self.exchange, "KSEXI", "DIR=101")["records"][0]["CmdId"]
        records = self.json("show", self.exchange, "KSEXI", f"CmdId={CmdId}")["records"]
        self.assertEqual([record["DIR"] for record in records], ["101"])

    def test_the_width_of_a_column_does_not_tell_of_a_secret(self):
        def shown(key):
            self.ends(DONE, "apply", self.exchange, "-", given=f"edit CXAKI DIR=155:AUTKEY={key};".encode())
            return self.ends(DONE, "show", self.exchange, "CXAKI").stdout

        self.ends(DONE, "apply", self.exchange, "-", given=b"GEDII:DIR=155,CUST=1;\nCXAKI:DIR=155,AUTKEY=Tulip;")
        self.assertEqual(shown("Tulip-" * 5), shown("T"))

    def test_many_records_take_no_more_memory(self):
        connection = sqlite3.connect(self.exchange)
        connection.execute("DELETE FROM EXCCS")
        connection.executemany("INSERT INTO EXCCS (CmdId, CAT, DESCRIPTION) VALUES (?, ?, ?)",
                               [(number, str(number), "x" * 1000) for number in range(20_000)])
        connection.commit()
        connection.close()
        few, many = (self.memory("show", self.exchange, "EXCCS", *selection, "--json")
                     for selection in (["CAT=1"], []))
        self.assertLess(many - few, 30_000, "kilobytes, of records that have 20,000")

    def test_a_selection_takes_several_values(self):
        for selection, numbers in (("NUMSE=105&&107", ["105", "106", "107"]), ("NUMSE=9&120&777", ["120", "9"])):
            records = self.json("show", self.exchange, "NANSI", selection)["records"]
            self.assertEqual([record["NUMSE"] for record in records], numbers)

    def test_a_list_that_breaks_off_is_a_document_all_the_same(self):
        connection = sqlite3.connect(self.exchange)
        connection.executemany("INSERT INTO EXCCS (CmdId, CAT, DESCRIPTION) VALUES (?, ?, ?)",
                               [(number, str(number), "x" * 1000) for number in range(6000)])
        connection.commit()
        connection.close()
        content = self.exchange.read_bytes()
        self.exchange.write_bytes(content[:-200_000] + bytes(200_000))
        document = self.json("show", self.exchange, "EXCCS", code=TROUBLE)
        self.assertEqual(len(document["records"]), 5000)
        self.assertIn("is damaged", document["problems"][0]["message"])

    def memory(self, *arguments):
        """The most that the program has in memory at once, in kilobytes. A sanitizer keeps what is freed."""
        ran = subprocess.Popen([PROGRAM, *map(str, arguments)], stdout=subprocess.DEVNULL,
                               env=environment(ASAN_OPTIONS="quarantine_size_mb=1"))
        _, status, usage = os.wait4(ran.pid, 0)
        ran.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(ran.returncode, DONE)
        return usage.ru_maxrss


class Values(ProgramTest):
    def setUp(self):
        super().setUp()
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY + b"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;")

    def test_of_a_record_that_is_edited(self):
        # Positions that suit the instrument of the record, and the new one.
        of = [self.json("values", self.exchange, "KSEXI", "EQU", "--of", "DIR=100", *given, "--limit", "1")["values"]
              for given in ([], ["ITYPE=12"])]
        added = [self.json("values", self.exchange, "KSEXI", "EQU", *given, "--limit", "1")["values"]
                 for given in (["ITYPE=3"], ["ITYPE=12"])]
        self.assertEqual(of, added)
        self.assertNotEqual(*of)
        self.fails(NOT_FOUND, "there is no record of KSEXI with DIR=101", "values", self.exchange, "KSEXI", "EQU",
                   "--of", "DIR=101")
        self.fails(REFUSED, "records of NANSI cannot be changed", "values", self.exchange, "NANSI", "NUMTYP", "--of",
                   "NUMSE=9")

    def test_where_nothing_is_possible_the_reason_is_told(self):
        ran = self.ends(DONE, "values", self.exchange, "GHGMI", "GRP")
        self.assertEqual((ran.stdout, ran.stderr),
                         ("", "note: GHGMI, GRP: no value is possible at present: there is nothing in GHGRI\n"))
        document = self.json("values", self.exchange, "GHGMI", "DIR")
        self.assertEqual(document["values"], [])
        self.assertEqual(document["problems"],
                         [{"severity": "note", "command": "GHGMI", "parameter": "DIR",
                           "message": "no value is possible at present; it depends on GRP (not given)"}])


class SmallThings(ProgramTest):
    def test_one_is_not_several(self):
        plant = self.write("plant.json", """{"name": "one", "locations": [{"location": "HQ", "description": "x"}],
            "lims": [{"lim": 1, "location": "HQ"}], "boards": [{"lim": 1, "magazine": 0, "slot": 10, "type": "31"}]}""")
        ran = self.ends(DONE, "new", self.folder / "one.cbx", "--release", "R7", "--plant", plant)
        self.assertIn("1 board with 16 positions", ran.stderr)

    def test_a_mistake_of_notation_tells_how_it_is_written(self):
        plan = b"EDIT SYTDS:PGIV=3;\nEXCCS:CAT=1,DESCRIPTION=Mill, gate 2;\n"
        verb, comma, _ = self.ends(REFUSED, "apply", self.exchange, "-", given=plan).stderr.splitlines()
        self.assertTrue(verb.endswith("the word edit is written in small letters"), verb)
        self.assertTrue(comma.endswith("; a value that holds a comma stands in double quotes"), comma)

    def test_every_complaint_about_usage_says_where_help_is(self):
        for arguments in (["show", self.exchange, "NANSI", "x"], ["explain", self.exchange, "# nothing"],
                          ["values", self.exchange, "NANSI", "NUMTYP", "--limit", "x"]):
            ran = self.ends(USAGE, *arguments)
            told = ran.stderr or json.loads(ran.stdout)["problems"][0]["message"]
            self.assertTrue(told.rstrip().endswith(f"; see cordboard {arguments[0]} --help"), told)


class History(ProgramTest):
    """States of an exchange, back and forth, and a state of the past wherever one is read."""

    LINE = b"NANSI:NUMTYP=OI,NUMSE=900;\n"

    def test_states_are_listed_taken_back_and_brought_again(self):
        self.ends(DONE, "apply", self.exchange, "-", "-m", "the door", given=self.LINE)
        listed = self.ends(DONE, "history", self.exchange).stdout.splitlines()
        self.assertRegex(listed[1], r"^2 +\S+Z +\S+ +apply standard input +1 +1 +0 +0 +the door$")
        self.assertEqual([line.split()[0] for line in listed], ["STATE", "2", "1", "0"])
        shown = self.ends(DONE, "history", self.exchange, "2")
        self.assertEqual(shown.stdout, "NANSI NUMSE=900 added: NUMTYP=OI\n")
        self.assertRegex(shown.stderr, r"^state 2: apply standard input, by \S+ at \S+, 1 line, 1 record added: the door\n$")
        self.assertEqual(self.ends(DONE, "history", self.exchange, "2", "--plans").stdout,
                         "# standard input\n" + self.LINE.decode())
        self.assertRegex(self.ends(DONE, "undo", self.exchange).stderr, r"^state 3: undo of 2, .*, 1 record removed\n$")
        self.assertEqual(self.generated(), LINES)
        self.fails(REFUSED, "2 was taken back already", "undo", self.exchange, "2")
        self.fails(NOT_FOUND, "there is no state 7; there are 0 to 3", "history", self.exchange, "7")
        self.ends(DONE, "redo", self.exchange)
        self.assertEqual(self.generated(), LINES + self.LINE.decode())
        self.fails(REFUSED, "there is nothing to bring again", "redo", self.exchange)
        self.fails(REFUSED, "1 is not the last: 2 came after it", "undo", self.exchange, "1")
        self.ends(DONE, "undo", self.exchange, "1", "--with-later")
        self.assertEqual(self.generated(), "")

    def test_a_state_of_the_past_is_read_and_not_written(self):
        self.ends(DONE, "apply", self.exchange, "-", given=self.LINE)
        past = f"{self.exchange}@1"
        self.assertEqual(self.ends(DONE, "generate", past).stdout, LINES)
        self.assertEqual(len(self.json("show", past, "NANSI")["records"]), 101)
        self.fails(USAGE, "cannot be written", "apply", past, "-", given=self.LINE)
        self.fails(USAGE, "over the exchange itself", "generate", past, "-o", self.exchange)
        self.fails(NOT_FOUND, "there is no state 9", "show", f"{self.exchange}@9")
        pathlib.Path(past).write_bytes(self.exchange.read_bytes())
        self.assertEqual(self.ends(DONE, "generate", past).stdout, LINES + self.LINE.decode())

    def test_a_saved_plan_does_what_was_shown_or_nothing(self):
        saved = self.folder / "saved.plan"
        tried = ("apply", self.exchange, "-", "--dry-run", "--save", saved)
        self.assertIn("was not written", self.ends(REFUSED, *tried, given=b"NANSI:NUMTYP=XX,NUMSE=1;\n").stderr)
        self.assertFalse(saved.exists())
        self.ends(DONE, *tried, given=self.LINE)
        head, text = saved.read_bytes().split(b"\n", 1)
        self.assertRegex(head, rb"^# saved by cordboard: tried on state 1 of office.cbx, key \w+, sum \w+$")
        self.assertEqual(text, self.LINE)
        edited = self.write("edited.plan", head + b"\n" + self.LINE.replace(b"900", b"901"))
        self.fails(REFUSED, "edited.plan was changed after it was saved; nothing was kept", "apply", self.exchange, edited)
        self.fails(REFUSED, "the options are others now", "apply", self.exchange, saved, "--ensure")
        self.fails(REFUSED, "saved to be applied alone", "apply", self.exchange, saved, edited)
        self.assertEqual(self.generated(), LINES)
        self.ends(DONE, "apply", self.exchange, saved)
        self.assertEqual(self.generated(), LINES + self.LINE.decode())
        self.fails(REFUSED, "saved.plan was tried on state 1 of office.cbx, and the exchange", "apply", self.exchange, saved)

    def test_what_another_program_wrote_ends_it(self):
        connection = sqlite3.connect(self.exchange)
        connection.execute("DELETE FROM [ROUTE] WHERE rowid = 1")
        connection.commit()
        connection.close()
        self.assertIn("warning: another program, or an older cordboard,", self.ends(DONE, "history", self.exchange).stderr)
        self.fails(REFUSED, "another program, or an older cordboard,", "undo", self.exchange)

    def test_an_undo_that_is_killed_has_taken_back_all_or_nothing(self):
        plan = self.write("long.plan", "".join(f"NANSI:NUMTYP=EX,NUMSE={n}00&&{n}99;\n" for n in range(200, 240)))
        self.ends(DONE, "apply", self.exchange, plan)
        applied = self.exchange.read_bytes()
        new = self.generated()
        took = time.monotonic()
        self.ends(DONE, "undo", self.exchange)
        took = time.monotonic() - took
        for moment in range(1, 5):
            self.exchange.write_bytes(applied)
            undo = subprocess.Popen([PROGRAM, "undo", self.exchange], stderr=subprocess.DEVNULL)
            time.sleep(took * moment / 5)
            ended(undo)
            states = len(self.json("history", self.exchange)["states"])
            self.assertEqual(self.generated(), {3: new, 4: LINES}[states])
            self.ends(DONE, "undo" if states == 3 else "redo", self.exchange)
            self.assertEqual(self.generated(), {3: LINES, 4: new}[states])


class Check(ProgramTest):
    """What does not fit together, and what refers to what."""

    def test_check_prints_the_plan_that_mends_what_it_finds(self):
        made = self.write("made.plan", "NANSI:NUMTYP=EX,NUMSE=200;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
                                       "KSEXI:DIR=200,ITYPE=3,EQU=next,CAT=1;\n"
                                       "KSFKC:DIR=200,KEY=1,FCN=TNS,DIG=9;\ndelete KSEXI DIR=200;\n")
        self.ends(DONE, "apply", self.exchange, made)
        before = self.exchange.read_bytes()
        ran = self.ends(REFUSED, "check", self.exchange)
        self.assertEqual(ran.stdout, "# function key DIR=200,KEY=1 (KSFKC), DIR: there is no key extension 200 (KSEXI)\n"
                                     "delete KSFKC DIR=200,KEY=1;\n")
        self.assertEqual(ran.stderr, f"checked: {self.exchange}: release R7, nothing is damaged, 1 finding; the lines "
                                     "mend all of them\n")
        self.assertEqual(self.exchange.read_bytes(), before)
        self.ends(DONE, "apply", self.exchange, "-", given=ran.stdout.encode())
        self.assertEqual(self.json("check", self.exchange)["findings"], [])

    def test_used_tells_what_refers_to_a_thing(self):
        made = self.write("made.plan", "NANSI:NUMTYP=EX,NUMSE=200&&201;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
                                       "KSEXI:DIR=200,ITYPE=3,EQU=next,CAT=1;\n")
        self.ends(DONE, "apply", self.exchange, made)
        self.assertEqual(self.ends(DONE, "used", self.exchange, "200").stdout,
                         "number 200 of type EX, in use\n  taken by the key extension DIR=200 (KSEXI) as DIR\n"
                         "key extension 200\n")
        self.assertEqual(self.ends(DONE, "used", self.exchange, "201", "number").stdout, "number 201 of type EX, free\n")
        self.fails(NOT_FOUND, "has no thing 999, and nothing refers to one", "used", self.exchange, "999")
        self.fails(NOT_FOUND, "nothing is called nummer. Did you mean number?", "used", self.exchange, "1", "nummer")


class Slips(ProgramTest):
    """What a slip of the hand must not cost."""

    def test_no_lines_are_written_over_an_exchange_or_a_plan_that_is_read(self):
        other = self.folder / "other.cbx"
        shutil.copy(self.exchange, other)
        plan = self.write("a.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        before = other.read_bytes(), plan.read_bytes()
        for words in (["export", self.exchange, "-o", other], ["generate", self.exchange, "-o", other],
                      ["apply", self.exchange, plan, "--check-only", "--save", other]):
            self.fails(USAGE, "other.cbx, which is an exchange", *words)
        self.fails(USAGE, "from which it is read", "apply", self.exchange, plan, "--dry-run", "--save", plan)
        self.assertEqual((other.read_bytes(), plan.read_bytes()), before)

    def test_an_empty_argument_is_not_taken_for_none(self):
        for words in (["undo", self.exchange, ""], ["used", self.exchange, ""], ["export", self.exchange, "--csv", ""]):
            self.fails(USAGE, "an argument is empty", *words)
        self.fails(USAGE, "--keep takes a number from 1 on", "history", self.exchange, "--keep", "0")

    def test_a_full_disk_is_told_however_long_ago_it_was_full(self):
        plan = self.write("a.plan", "NANSI:NUMTYP=EX,NUMSE=1000&&3999;\n")
        self.ends(DONE, "apply", self.exchange, plan)
        with open("/dev/full", "wb") as full:
            ran = cordboard("compare", self.exchange, f"{self.exchange}@0", stdout=full)
        self.assertEqual(ran.returncode, TROUBLE)
        self.assertIn("error: standard output could not be written: the disk is full\n", ran.stderr)

    def test_a_message_is_one_line(self):
        plan = self.write("a.plan", "NANSI:NUMTYP=OI,NUMSE=900;\n")
        for message in ("a\nb", "\x1b[31mred", b"\xff"):
            self.fails(USAGE, "it is not one line of UTF-8 text", "apply", self.exchange, plan, "-m",
                       os.fsdecode(message))
        self.ends(DONE, "apply", self.exchange, plan, "-m", "")


class JsonPage(ProgramTest):
    """docs/json.md shows what the program prints: each example has the names and kinds of the real document."""

    def setUp(self):
        super().setUp()
        self.exchange.unlink()
        (self.folder / "cordboard").symlink_to(PROGRAM)
        self.page = (pathlib.Path(__file__).parents[2] / "docs" / "json.md").read_text()

    def examples(self):
        return re.findall(r"(?m)^    \$ (.*)\n\n((?:    .*\n)+)", self.page)

    def assert_fits(self, shown, printed, where):
        self.assertEqual(type(shown), type(printed), where)
        if isinstance(shown, dict):
            self.assertEqual(sorted(shown), sorted(printed), where)
            for name in shown:
                self.assert_fits(shown[name], printed[name], f"{where}, {name}")
        elif isinstance(shown, list):
            self.assertEqual(bool(shown), bool(printed), where)
            for element in shown:
                self.assertTrue(any(self.fits(element, other) for other in printed), f"{where}: {element}")

    def fits(self, shown, printed):
        try:
            self.assert_fits(shown, printed, "")
            return True
        except AssertionError:
            return False

    def test_its_examples_are_those_of_the_program(self):
        path = f"{self.folder}:{os.environ['PATH']}"
        for line, shown in self.examples():
            ran = subprocess.run(["sh", "-c", line], cwd=self.folder, env=environment(PATH=path), timeout=120,
                                 capture_output=True, text=True)
            self.assertEqual(ran.stderr, "", line)
            self.assert_fits(json.loads(shown), json.loads(ran.stdout), line)

    def test_it_has_an_example_of_every_subcommand_that_prints_data(self):
        listed = re.findall(r"(?m)^  ([a-z]+) ", self.ends(DONE, "--help").stdout.split("Subcommands:")[1])
        self.assertIn("show", listed)
        shown = {re.search(r"cordboard ([a-z]+) ", line)[1] for line, _ in self.examples()}
        self.assertEqual(sorted(shown), sorted(set(listed) - {"serve", "shell", "web"}))


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
