"""A terminal on which a program runs: what is typed there, and what its screen shows."""
import errno
import fcntl
import os
import pty
import re
import select
import struct
import termios
import time
import unicodedata

PATIENCE = 60


class Screen:
    """The rows of a terminal of the kind that TERM=vt100 and its like describe, with all that have left it above."""

    def __init__(self, columns):
        self.columns = columns
        self.rows = [[]]
        self.row = self.column = 0
        self.rest = ""

    def text(self, row):
        return "".join(self.rows[row]).rstrip() if row < len(self.rows) else ""

    def show(self, text):
        text = self.rest + text
        while text:
            match = re.match(r"\x1b(\[[?0-9;]*[ -/]*[@-~]|[()].|[^\[()])", text)
            if not match and text[0] == "\x1b":
                break  # the rest of it is still to come
            if match:
                self.steer(match[1])
                text = text[match.end():]
            else:
                self.put(text[0])
                text = text[1:]
        self.rest = text

    def go(self, row):
        self.row = max(row, 0)
        while len(self.rows) <= self.row:
            self.rows.append([])

    def put(self, sign):
        if sign == "\r":
            self.column = 0
        elif sign == "\n":
            self.go(self.row + 1)
        elif sign == "\b":
            self.column = max(self.column - 1, 0)
        elif sign == "\t":
            self.column = min(self.column // 8 * 8 + 8, self.columns - 1)
        elif sign >= " " and not unicodedata.combining(sign):
            if self.column == self.columns:
                self.go(self.row + 1)
                self.column = 0
            cells = self.rows[self.row]
            cells.extend(" " * (self.column + 1 - len(cells)))
            cells[self.column] = sign
            self.column += 1

    def steer(self, code):
        cells = self.rows[self.row]
        number = int(re.sub(r"\D", "", code.split(";")[0]) or 1)
        how = code[-1] if code[0] == "[" else ""
        if how == "A":
            self.go(self.row - number)
        elif how == "B":
            self.go(self.row + number)
        elif how == "C":
            self.column = min(self.column + number, self.columns - 1)
        elif how == "D":
            self.column = max(self.column - number, 0)
        elif how == "G":
            self.column = number - 1
        elif how == "K":
            del cells[self.column:]
        elif how == "J":
            del cells[self.column:]
            del self.rows[self.row + 1:]
        elif how == "P":
            del cells[self.column:self.column + number]
        elif how == "@":
            cells[self.column:self.column] = " " * number
        elif how not in ("", "m", "h", "l"):
            raise AssertionError(f"a terminal that is not known so well: {code!r}")


class Terminal:
    """A program at a terminal. Whatever is waited for has to come: nothing sleeps."""

    def __init__(self, arguments, columns=100, rows=30, **environment):
        self.screen = Screen(columns)
        self.pid, self.file = pty.fork()
        if self.pid == 0:
            fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))
            os.execvpe(arguments[0], arguments, {**os.environ, "TERM": "xterm", "NO_COLOR": "1", **environment})
        self.exit_code = None

    def read(self):
        """Takes what the program has written; gives false where it has ended."""
        ready, _, _ = select.select([self.file], [], [], PATIENCE)
        if not ready:
            raise AssertionError("nothing comes any more; the screen shows:\n" + self.shown())
        try:
            written = os.read(self.file, 65536)
        except OSError as error:
            if error.errno != errno.EIO:
                raise
            written = b""
        self.screen.show(written.decode(errors="replace"))
        return written != b""

    def shown(self, first=0):
        return "\n".join(self.screen.text(row) for row in range(first, len(self.screen.rows)))

    def wait(self, happens):
        last = time.monotonic() + PATIENCE
        while not happens():
            if time.monotonic() > last or not self.read():
                raise AssertionError("it does not happen; the screen shows:\n" + self.shown())

    def type(self, text):
        data = text if isinstance(text, bytes) else text.encode()
        while data:
            data = data[os.write(self.file, data):]

    def wait_for_row(self, text, below=-1):
        """Until the cursor stands in such a row."""
        self.wait(lambda: self.screen.row > below and self.screen.text(self.screen.row) == text.rstrip())

    def enter(self, text, prompt):
        """Types a text and what ends it, and gives what is shown until the prompt comes below."""
        row = self.screen.row
        self.type(text)
        self.wait_for_row(prompt, below=row)
        return "\n".join(self.screen.text(each) for each in range(row + 1, self.screen.row))

    def resize(self, columns, rows=30):
        self.screen.columns = columns
        fcntl.ioctl(self.file, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))

    def end(self):
        """Waits for the end of the program and gives its exit code."""
        while self.read():
            pass
        self.exit_code = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
        return self.exit_code

    def close(self):
        if self.exit_code is None:
            os.kill(self.pid, 9)
            os.waitpid(self.pid, 0)
        os.close(self.file)
