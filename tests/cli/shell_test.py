"""cordboard shell, at a terminal and without one: python3 shell_test.py PROGRAM [a class of tests below]."""
import os
import pathlib
import re
import signal
import subprocess
import sys
import unittest

import program_test
from program_test import CATEGORY, DONE, NOT_FOUND, REFUSED, TROUBLE, ProgramTest, cordboard, environment, until
from terminal import Terminal


class ShellTest(ProgramTest):
    def states(self):
        """What has changed the exchange, the newest last, without its beginning and the plan of the template."""
        return [state["plans"] or state["kind"] for state in reversed(self.json("history", self.exchange)["states"])][2:]


class Piped(ShellTest):
    """Standard input is a file or a pipe."""

    def shell(self, code, lines, *options, **how):
        ran = self.ends(code, "shell", self.exchange, *options, given=lines, **how)
        return ran.stdout.splitlines(), ran.stderr.splitlines()

    def test_each_line_is_kept_at_once_and_one_that_is_refused_leaves_the_others(self):
        told, problems = self.shell(REFUSED, b"""\
# A comment.
NANSI:NUMTYP=EX,NUMSE=200;
NANSI:NUMTYP=EX,NUMSE=3;
NANSI:NUMTYP=EX,

  NUMSE=201;   # in two rows
NANSI:NUMTYP=EX,NUM\\
SE=202;
hisstory
NANSI:NUMTYP=EX,NUMSE=\xff;
show \xff
delete NANSI NUMSE=2\x000;
""" + b"NANSI:NUMTYP=EX,NUMSE=" + b"4" * 70000 + b";\n" + b"values NANSI NUMTYP=CP NUMTYP\nNANSI:NUMTYP=EX,NUMSE=203")
        self.assertEqual(told, [f"standard input:{row}: NANSI NUMSE={number} added: NUMTYP=EX"
                                for row, number in ((2, 200), (4, 201), (7, 202))])
        self.assertEqual(problems, [
            "error: standard input:3: NANSI, NUMSE=3: The number is too short. Type EX takes at least 2 digits.",
            "error: standard input:9: there is no word hisstory. Did you mean history?",
            "error: standard input:10: the line is not UTF-8 text",
            "error: standard input:11: the line is not UTF-8 text",
            "error: standard input:12: the line holds a zero character",
            "error: standard input:13: the line is longer than 65536 bytes",
            "error: standard input:14: there is no parameter NUMTYP=CP in NANSI.",
            "error: standard input:15: the line is not ended: a semicolon is missing"])
        self.assertEqual(self.states(), [["standard input"]] * 3)

    def test_it_stops_at_the_first_that_is_refused_where_that_is_asked(self):
        _, problems = self.shell(REFUSED, b"NANSI:NUMTYP=EX,NUMSE=3;\nNANSI:NUMTYP=EX,NUMSE=200;\n", "--stop")
        self.assertEqual(len(problems), 1)
        self.assertEqual(self.states(), [])

    def test_words_do_what_the_subcommands_do(self):
        lines = b"show NANSI NUMTYP=AI\ngenerate NANSI\nvalues NANSI NUMSE NUMTYP=EX\nused 150\ncommands\nhistory 1\n" \
                b"help NANSI NUMTYP\nhelp try\n"
        told, _ = self.shell(REFUSED, lines)
        expected = [self.ends(DONE, "show", self.exchange, "NANSI", "NUMTYP=AI").stdout,
                    self.generated(),
                    self.ends(DONE, "used", self.exchange, "150").stdout,
                    self.ends(DONE, "commands").stdout,
                    self.ends(DONE, "history", self.exchange, "1").stdout,
                    self.ends(DONE, "help", "NANSI", "NUMTYP").stdout,
                    "try [again]\n    begin a trial: "]
        at = 0
        for text in expected:
            found = "\n".join(told).find(text.rstrip("\n"), at)
            self.assertGreaterEqual(found, at, text)
            at = found + len(text) - 1

    def test_what_is_tried_is_seen_and_kept_as_one(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY)
        told, problems = self.shell(DONE, b"""\
try
NANSI:NUMTYP=EX,NUMSE=200&&209;
KSEXI:DIR=205,ITYPE=12,EQU=next,CAT=1;
delete NANSI NUMSE=200;
undo
redo
undo
used 205
history
keep third floor
save lines.plan
undo
try
read lines.plan
drop
""".replace(b"lines.plan", os.fsencode(self.folder / "lines.plan")))
        self.assertIn("number 205 of type EX, in use", told)
        self.assertEqual(self.states()[1:], [["standard input"], "undo"])
        state = self.json("history", self.exchange, "3")["states"][0]
        self.assertEqual((state["message"], state["lines"], state["added"]), ("third floor", 2, 11))
        self.assertEqual((self.folder / "lines.plan").read_text(),
                         "NANSI:NUMTYP=EX,NUMSE=200&&209;\nKSEXI:DIR=205,ITYPE=12,EQU=next,CAT=1;\n")
        self.assertIn("taken back: delete NANSI NUMSE=200;", problems)

    def test_a_trial_that_is_not_ended_is_dropped(self):
        before = self.exchange.read_bytes()
        _, problems = self.shell(REFUSED, b"try\nNANSI:NUMTYP=EX,NUMSE=200;\nquit\n")
        self.assertEqual(problems, ["warning: the trial was not ended: 1 line is dropped"])
        _, problems = self.shell(DONE, b"try\n")
        self.assertEqual(problems, [])
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_it_only_reads_where_that_is_asked_and_in_the_past(self):
        before = self.exchange.read_bytes()
        lines = b"NANSI:NUMTYP=EX,NUMSE=200;\ntry\nNANSI:NUMTYP=EX,NUMSE=200;\nkeep\ndrop\nundo\n"
        for name, option in ((self.exchange, ["--read-only"]), (f"{self.exchange}@0", [])):
            ran = self.ends(REFUSED, "shell", name, *option, given=lines)
            self.assertEqual(re.findall(r":(\d): nothing is kept in this shell", ran.stderr), ["1", "4", "6"])
        self.assertEqual(self.exchange.read_bytes(), before)

    def test_lines_that_belong_together_are_performed_as_one_plan(self):
        self.ends(DONE, "apply", self.exchange, "-", given=CATEGORY)
        together = b"KSEXI:DIR=100,ITYPE=12,EQU=next,CAT=1;\n" \
                   b"KSFKC:DIR=100,KEY=1,FCN=TNS;\\\nKSANI:DIR=100,KEY=1,ADN=101,CAT=1;\n"
        told, _ = self.shell(DONE, together)
        self.assertEqual(self.states()[1:], [["standard input"]] * 2)
        self.assertEqual(self.json("history", self.exchange, "4")["states"][0]["lines"], 2)
        # By itself the first of them makes a record, which the second removes.
        self.assertEqual([line for line in told if "KSFKC" in line], [])
        told, _ = self.shell(REFUSED, b"undo\ntry\n" + together.replace(b"\\", b"")[together.index(b"KSFKC"):])
        self.assertEqual(len([line for line in told if "KSFKC" in line]), 2)

    def test_a_file_that_is_not_there_or_held_and_the_end_of_standard_output(self):
        self.fails(NOT_FOUND, "there is no file", "shell", self.folder / "nowhere.cbx")
        self.applying(self.exchange)
        _, problems = self.shell(TROUBLE, b"NANSI:NUMTYP=EX,NUMSE=200;\nhelp\nNANSI:NUMTYP=EX,NUMSE=3;\n", "--wait", "0")
        self.assertRegex(problems[0], r"^error: standard input:1: .* is held by .*; nothing was kept$")
        with open("/dev/full", "wb") as full:
            self.ends(TROUBLE, "shell", self.exchange, given=b"commands\ncommands\n", stdout=full)

    def test_a_file_that_vanishes_and_a_full_disk_keep_nothing(self):
        _, problems = self.shell(TROUBLE, b"NANSI:NUMTYP=EX,NUMSE=200;\n",
                                 preexec_fn=program_test.no_file_beyond(self.exchange.stat().st_size // 2))
        self.assertRegex(problems[0], "^error: standard input:1: .*: .*; nothing was kept$")
        self.assertEqual(self.states(), [])
        shell = self.piped()
        shell.stdin.write("NANSI:NUMTYP=EX,NUMSE=200;\n")
        shell.stdin.flush()
        self.assertIn("added", shell.stdout.readline())
        self.exchange.rename(self.folder / "moved.cbx")
        told, problems = shell.communicate("NANSI:NUMTYP=EX,NUMSE=201;\nshow NANSI\ntry\nused 100\nhelp try\n")
        self.assertEqual(problems.splitlines(), [f"error: standard input:{row}: there is no file {self.exchange}"
                                                 for row in (2, 3, 4, 5)])
        self.assertIn("begin a trial", told)
        self.assertEqual(list(self.folder.glob("office.cbx*")), [])

    def piped(self):
        shell = subprocess.Popen([program_test.PROGRAM, "shell", self.exchange], stdin=subprocess.PIPE,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(program_test.ended, shell)
        return shell

    def test_a_signal_ends_it(self):
        shell = self.piped()
        shell.stdin.write("try\nNANSI:NUMTYP=EX,NUMSE=200;\n")
        shell.stdin.flush()
        self.assertIn("added", shell.stdout.readline())
        shell.send_signal(signal.SIGTERM)
        self.assertEqual(shell.wait(60), 128 + signal.SIGTERM)
        self.assertIn("1 line is dropped", shell.stderr.read())
        self.assertEqual(self.states(), [])


class Typing(ShellTest):
    """At a terminal."""

    def shell(self, *options, **terminal):
        self.state = self.folder / "state"
        shell = Terminal([program_test.PROGRAM, "shell", str(self.exchange), *options],
                         **{"XDG_STATE_HOME": str(self.state), "HOME": str(self.folder), **terminal})
        self.addCleanup(shell.close)
        shell.wait_for_row("office>")
        return shell

    def test_tab_completes_what_may_be_typed_where_it_stands(self):
        shell = self.shell(columns=100)
        shell.type("NANS\t")
        shell.wait_for_row("office> NANSI:")
        shell.type("\tTYP\t")
        shell.wait_for_row("office> NANSI:NUMTYP=")
        shell.type("\t")
        shell.wait(lambda: "\nEX  Extension numbers\n" in shell.shown())
        shell.type("EX,NUM\t")  # the one that is not given yet
        shell.wait_for_row("office> NANSI:NUMTYP=EX,NUMSE=")
        self.assertEqual(shell.enter("200;\r", "office>"), "NANSI NUMSE=200 added: NUMTYP=EX")
        for typed, row in (("sh\tNANSI NUMT\tA\t", "show NANSI NUMTYP=AI"),
                           ("delete NANSI NUMSE=2\t", "delete NANSI NUMSE=200"),
                           ("values KSEXI IT\t", "values KSEXI ITYPE"),
                           (f"read {self.folder}/off\t", f"read {self.folder}/office.cbx"),
                           ("undo 2\t", "undo 2"), ("nothing N\t", "nothing N")):
            shell.type(typed)
            shell.wait_for_row("office> " + row)
            shell.enter("\x03", "office>")
        shell.type("KSEXI:DIR=1\t")
        shell.wait(lambda: "\n100  101  102" in shell.shown())
        shell.wait_for_row("office> KSEXI:DIR=1")
        shell.enter("\x03", "office>")
        shell.enter("try\r", "office (trial)>")
        shell.enter("NANSI:NUMTYP=EX,NUMSE=201;\r", "office (trial, 1 line)>")
        shell.type("delete NANSI NUMSE=20\t")
        shell.wait(lambda: "\n200  201\n" in shell.shown())
        shell.enter("\x03", "office (trial, 1 line)>")

    def test_a_mark_stands_under_what_is_refused(self):
        shell = self.shell(columns=60)
        shown = shell.enter("NANSI:NUMTYP=XX,NUMSE=200;\r", "office>")
        self.assertTrue(shown.startswith(" " * len("office> NANSI:NUMTYP=") + "^^\nerror: NANSI, NUMTYP=XX: "), shown)
        shown = shell.enter("NANSI:NUMTYP=EX,,NUMSE=200;\r", "office>")
        self.assertTrue(shown.startswith(" " * len("office> NANSI:NUMTYP=EX,") + "^\nerror: a parameter name"), shown)
        shown = shell.enter("NANSI:NUMSE=200&201&202&203&204&205&206&207&208,NUMTYP=XX;\r", "office>")
        self.assertIn("\n  ANSI:NUMSE=200&201&202&203&204&205&206&207&208,NUMTYP=XX;\n" + " " * 56 + "^^\nerror: ", shown)
        # A password is not shown once more.
        shown = shell.enter("IPEXI:DIR=150,\r", "...>")
        shown = shell.enter("PASSW=Tulip,CUST=77;\r", "office>")
        self.assertIn("error: IPEXI", shown)
        self.assertNotIn("Tulip", shown)
        self.assertEqual(self.states(), [])

    def test_bytes_that_are_no_characters_make_no_line(self):
        shell = self.shell()
        for typed in (b"NANSI:NUMTYP=EX,NUMSE=2\xfc00;\r", b"NANSI:NUMTYP=EX,NUMSE=200;\xff\r", b"show \xfc\r"):
            shell.type(typed)
            shell.wait(lambda: "error: the line is not UTF-8 text" in shell.shown())
            shell.enter("commands\r", "office>")
        self.assertEqual(self.states(), [])

    def test_it_ends_with_the_code_of_what_was_refused_where_it_is_to_stop(self):
        shell = self.shell("--stop")
        shell.type("NANSI:NUMTYP=XX;\r")
        self.assertEqual(shell.end(), REFUSED)

    def test_a_word_may_end_as_a_line_does(self):
        shell = self.shell()
        shell.enter("NANSI:NUMTYP=EX,NUMSE=200;\r", "office>")
        self.assertIn("200", shell.enter("show NANSI NUMSE=200;\r", "office>"))
        shell.enter("NANSI:NUMTYP=EX,NUMSE=201;\r", "office>")
        shell.enter("undo 2\r", "office>")
        self.assertIn("undo of 2, 3", shell.enter("undo 2 --with-later\r", "office>"))

    def test_lines_go_on_and_ctrl_c_and_ctrl_d_drop_what_is_typed(self):
        shell = self.shell()
        shell.enter("NANSI:NUMTYP=EX,\r", "...>")
        shell.enter("\r", "...>")
        shell.enter("NUMSE=2\x03", "office>")
        shell.enter("NANSI:NUMTYP=EX,\r", "...>")
        shell.type("NUM\t")
        shell.wait_for_row("...> NUMSE=")
        shell.enter("\x03", "office>")
        shell.enter("NANSI:NUMTYP=EX,\r", "...>")
        shell.enter("\x04", "office>")
        shell.type("show")
        shell.wait_for_row("office> show")
        shell.resize(60)
        shell.enter("\x03", "office>")
        shell.enter("NANSI:NUMTYP=EX\r", "...>")
        self.assertEqual(shell.enter(",NUMSE=20\\\r", "...>"), "")
        self.assertEqual(shell.enter("0;\r", "office>"), "NANSI NUMSE=200 added: NUMTYP=EX")
        shell.type("\x04")
        self.assertEqual(shell.end(), DONE)
        self.assertEqual(self.states(), [["shell"]])

    def test_ctrl_c_ends_what_is_being_done_and_not_the_shell(self):
        holder = self.applying(self.exchange)
        shell = self.shell("--wait", "60")
        row = shell.screen.row
        shell.type("NANSI:NUMTYP=EX,NUMSE=200;\r")
        shell.wait(lambda: shell.screen.row > row)
        self.assertIn("error: interrupted; nothing was kept", shell.enter("\x03", "office>"))
        program_test.ended(holder)
        shell.enter("NANSI:NUMTYP=EX,NUMSE=200;\r", "office>")
        self.assertEqual(self.states(), [["shell"]])

    def test_what_was_typed_comes_again_and_secrets_are_not_kept(self):
        shell = self.shell()
        for line in ("show NANSI NUMSE=150", "show IPEXI PASSW=Tulip", "IPEXI:DIR=150,PASSW=Tulip;",
                     "IPEXI:DIR=150,PASW=Tulip;", "IPEXI:DIR=150,PASSW==Tulip;;", "commands", "show IPEXI DIR=150"):
            shell.enter(line + "\r", "office>")
        shell.type("\x1b[A\x1b[A")
        shell.wait_for_row("office> commands")
        shell.type("\x03")
        shell.wait_for_row("office>", below=shell.screen.row)
        shell.type("quit\r")
        self.assertEqual(shell.end(), DONE)
        kept = self.state / "cordboard" / "shell-history"
        self.assertEqual(kept.read_text(), "show NANSI NUMSE=150\ncommands\nshow IPEXI DIR=150\nquit\n")
        self.assertEqual([path.stat().st_mode & 0o777 for path in (kept, kept.parent)], [0o600, 0o700])
        kept.chmod(0o644)
        shell = self.shell()
        shell.type("\x12NUMSE")
        shell.wait(lambda: "show NANSI NUMSE=150" in shell.shown())
        shell.enter("\r", "office>")
        self.assertIn("\n150 ", shell.shown().replace("  ", " ").replace(" 150", "\n150"))
        self.assertEqual(kept.stat().st_mode & 0o777, 0o600)

    def test_a_trial_is_kept_or_dropped_and_one_that_is_stale_can_be_tried_again(self):
        shell = self.shell()
        shell.enter("try\r", "office (trial)>")
        shell.enter("NANSI:NUMTYP=EX,NUMSE=200;\r", "office (trial, 1 line)>")
        shell.enter("NANSI:NUMTYP=EX,NUMSE=201;\r", "office (trial, 2 lines)>")
        self.ends(DONE, "apply", self.exchange, "-", "-m", "meanwhile", given=b"NANSI:NUMTYP=EX,NUMSE=201;\n")
        shown = shell.enter("keep\r", "office (trial, 2 lines)>")
        self.assertIn("nothing was kept, and 2 lines are still there", shown.replace("\n", ""))
        self.assertRegex(shown, "state 2: apply standard input, by .*: meanwhile")
        shown = shell.enter("try again\r", "office (trial, 1 line)>")
        self.assertIn("left out of the trial: NANSI:NUMTYP=EX,NUMSE=201;", shown)
        shell.enter("\x04", "keep, drop or stay?")
        shell.enter("stay\r", "office (trial, 1 line)>")
        shell.enter("quit\r", "keep, drop or stay?")
        shell.type("keep\r")
        self.assertEqual(shell.end(), DONE)
        self.assertEqual(self.states(), [["standard input"], ["shell"]])

    def test_a_narrow_terminal_and_one_that_goes_away(self):
        shell = self.shell(columns=20)
        shell.type("NANSI:NUMTYP=EX,NUMSE=200;")
        shell.wait_for_row("=EX,NUMSE=200;")
        row = shell.screen.row
        shell.type("\r")
        shell.wait_for_row("office>", below=row)
        shell.type("com\t")
        shell.wait_for_row("office> commands")
        shell.enter("\x03", "office>")
        shell.type("NANSI:\t")
        shell.wait_for_row("office> NANSI:NUM")
        shell.type("\t")
        shell.wait(lambda: "\nNUMTYP=" in shell.shown())
        self.assertEqual(self.states(), [["shell"]])
        os.kill(shell.pid, signal.SIGHUP)
        self.assertEqual(shell.end(), 128 + signal.SIGHUP)

    def test_the_session_on_the_page(self):
        page = (program_test.SOURCE / "docs" / "shell.md").read_text()
        session = re.search(r"(?m)^    \$ cordboard shell office.cbx\n((    .*\n|\n)+)", page)[1]
        expected = [line[4:] for line in session.rstrip("\n").split("\n")]
        shell = self.shell(columns=120)
        prompt = re.compile(r"(office[^>]*|\.\.\.)>")
        prompts = [prompt.match(line)[0] for line in expected if prompt.match(line)] + ["office>"]
        typed = [line[prompt.match(line).end() + 1:] for line in expected if prompt.match(line)]
        for line, after in zip(typed[:-1], prompts[1:]):
            shell.enter(line + "\r", after)
        shell.type(typed[-1] + "\r")
        self.assertEqual(shell.end(), DONE)
        made = re.sub(r"by \w+ at \S+Z", "by anna at 2025-02-28T16:05:12Z", shell.shown()).rstrip("\n")
        self.assertEqual(made.split("\n"), expected)


if __name__ == "__main__":
    program_test.PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
