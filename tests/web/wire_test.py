#!/usr/bin/env python3
"""cordboard web on the wire: requests that are forged, malformed, huge or slow are refused, and change nothing.

Usage: wire_test.py PROGRAM [unittest arguments]
"""

import os
import pathlib
import random
import re
import socket
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

PROGRAM = ""
# Under sanitizers each request takes long, and what is freed is kept for a while: for a short while here.
SANITIZED = "CORDBOARD_SANITIZED" in os.environ
ENVIRONMENT = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=4"}
PLAN = "NANSI:NUMTYP=EX,NUMSE=100&&119;\n"


class Wire(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.file = pathlib.Path(cls.folder.name) / "office.cbx"
        cls.program("new", cls.file, "--release", "R7")
        cls.program("apply", cls.file, "-", text=PLAN)
        cls.process = subprocess.Popen([PROGRAM, "web", str(cls.file)], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                       text=True, env=ENVIRONMENT)
        entrance = urllib.parse.urlsplit(cls.process.stdout.readline().strip())
        cls.host, cls.port, cls.token = entrance.netloc, entrance.port, entrance.query.removeprefix("token=")
        cls.cookie = f"cordboard-{cls.port}={cls.token}"
        cls.form = dict(re.findall(r'name="([^"]*)" value="([^"]*)"',
                                   cls.answer(cls, cls.get("/form?command=NANSI"))[1]))

    @classmethod
    def tearDownClass(cls):
        cls.process.terminate()
        _, told = cls.process.communicate(timeout=20)
        cls.folder.cleanup()
        # Nothing that was sent has made the program complain.
        assert "error" not in told and cls.process.returncode == 0, (cls.process.returncode, told)

    @staticmethod
    def program(*arguments, text=None):
        return subprocess.run([PROGRAM, *map(str, arguments)], input=text, capture_output=True, text=True,
                              check=True).stdout

    @classmethod
    def request(cls, method, target, headers=(), body=b"", **changes):
        given = {"Host": cls.host, "Cookie": cls.cookie}
        if method == "POST":
            given |= {"Origin": "http://" + cls.host, "Content-Type": "application/x-www-form-urlencoded",
                      "Content-Length": str(len(body))}
        given |= {name.replace("_", "-"): value for name, value in changes.items()}
        lines = [f"{method} {target} HTTP/1.1", *(f"{name}: {value}" for name, value in given.items()
                                                  if value is not None), *headers]
        return "\r\n".join(lines).encode("latin-1") + b"\r\n\r\n" + body

    @classmethod
    def get(cls, target, **changes):
        return cls.request("GET", target, **changes)

    @classmethod
    def post(cls, target, fields, **changes):
        return cls.request("POST", target, body=urllib.parse.urlencode(fields).encode(), **changes)

    def adding(self, **changes):
        """A form that would add numbers."""
        return {**self.form, "v.NUMTYP": "EX", "v.NUMSE": "500&&509", **changes}

    def answer(self, raw, wait=20):
        """The status and the text of the answer; a status of 0 where the connection is closed without one."""
        with socket.create_connection(("127.0.0.1", self.port), timeout=wait) as connection:
            try:
                connection.sendall(raw)
                connection.shutdown(socket.SHUT_WR)
                told = b""
                while piece := connection.recv(65536):
                    told += piece
            except OSError:
                return 0, ""
        return int(told.split(b" ", 2)[1]) if told else 0, told.decode("utf-8", "replace")

    def assert_refused(self, raw, *statuses):
        status, text = self.answer(raw)
        self.assertIn(status, statuses, (raw, text[:500]))

    def tearDown(self):
        self.assertEqual(self.program("generate", self.file), PLAN)
        self.assertEqual(self.program("history", self.file).count("\n"), 3)

    def test_a_browser_comes_in_by_the_token_and_by_it_alone(self):
        status, text = self.answer(self.get("/?token=" + self.token, Cookie=None))
        self.assertEqual(status, 303)
        self.assertIn("HttpOnly; SameSite=Strict", text)
        self.assertNotIn(self.token, re.search("Location: (.*)", text)[1])
        self.assertEqual(self.answer(self.get("/"))[0], 200)
        for raw in (self.get("/", Cookie=None), self.get("/?token=", Cookie=None),
                    self.get("/?token=" + self.token[:-1], Cookie=None),
                    self.get("/?token=" + "0" * len(self.token), Cookie=None),
                    self.get("/form?command=NANSI&token=" + self.token, Cookie=None),
                    self.get("/style.css", Cookie=None),
                    self.get("/", Cookie=f"cordboard-{self.port}="),
                    self.get("/", Cookie=f"cordboard-1={self.token}"),
                    self.get("/", Cookie=f"x=cordboard-{self.port}={self.token}"),
                    self.request("GET", "/", headers=["Cookie: a=b"])):
            self.assert_refused(raw, 403)

    def test_another_name_of_this_machine_is_refused(self):
        for host in ("evil.example", "evil.example:%d" % self.port, "127.0.0.1", "127.0.0.1:1", "[::1]:%d" % self.port,
                     "0.0.0.0:%d" % self.port, self.host + ".evil.example", "", None):
            self.assert_refused(self.get("/", Host=host), 421)
            self.assert_refused(self.get("/?token=" + self.token, Host=host, Cookie=None), 421)
        self.assert_refused(self.request("GET", "/", headers=["Host: " + self.host]), 400, 421)
        self.assertEqual(self.answer(self.get("/", Host="localhost:%d" % self.port))[0], 200)

    def test_a_change_comes_from_a_page_of_this_site_alone(self):
        good = self.adding()
        for origin in (None, "null", "http://evil.example", "https://" + self.host, "http://127.0.0.1",
                       "http://localhost:%d" % self.port, "http://" + self.host + "/"):
            self.assert_refused(self.post("/act", good, Origin=origin), 403)
        for proof in ("", "0" * 32, self.token):
            self.assert_refused(self.post("/act", {**good, "proof": proof}), 403)
        self.assert_refused(self.post("/act", {name: value for name, value in good.items() if name != "proof"}), 403)
        for kind in (None, "text/plain", "application/x-www-form-urlencoded2", "multipart/form-data; boundary=x", "application/json"):
            self.assert_refused(self.post("/act", good, Content_Type=kind), 415)
        self.assert_refused(self.post("/act", good, Cookie=None), 403)
        # In the address nothing is taken.
        self.assert_refused(self.get("/act?" + urllib.parse.urlencode(good)), 405)
        for method in ("PUT", "DELETE", "OPTIONS", "HEAD", "TRACE", "PATCH", "BREW"):
            self.assert_refused(self.request(method, "/act?" + urllib.parse.urlencode(good)), 405, 400)

    def test_a_value_that_is_more_than_a_value_is_refused(self):
        line = "500&&509;\nNANSI:NUMTYP=EX,NUMSE=600&&609"
        for changes in ({"v.NUMSE": line}, {"mark": "x\n" + line}, {"from": line}, {"of": "NUMSE=" + line},
                        {"command": "NANSI\n" + line}, {"shown": "%"}, {"v.NUMSE": "5\0"}):
            self.assert_refused(self.post("/act", self.adding(**changes)), 400, 403, 404, 409)

    def test_malformed_requests_are_refused(self):
        for raw in (b"\r\n\r\n", b"GET\r\n\r\n", b"GET / HTTP/9.9\r\n\r\n", b"\0" * 100, b"\xff" * 1000,
                    b"GET  / HTTP/1.1\r\n\r\n", b"GET / HTTP/1.1\r\nHost\r\n\r\n", b"GET / HTTP/1.1\nHost: x\n\n",
                    self.get("//evil.example/"), self.get("http://evil.example/"), self.get("*"), self.get("/%"),
                    self.get("/../../etc/passwd"), self.get("/%2e%2e/etc/passwd"), self.get("/style.css/../secret"),
                    self.get("/records?command=%zz"), self.get("/form?command=" + "%00" * 10),
                    self.post("/act", {}, Content_Length="-1"), self.post("/act", {}, Content_Length="x"),
                    self.post("/act", {}, Content_Length="5", Transfer_Encoding="chunked"),
                    self.request("POST", "/act", headers=["Content-Length: 3"], body=b"abcd")):
            self.assert_refused(raw, 0, 400, 403, 404, 405, 421)

    def test_a_header_cannot_be_split(self):
        status, text = self.answer(self.get("/form?command=%0d%0aSet-Cookie:%20evil=1"))
        self.assertEqual(status, 404)
        self.assertNotIn("\nSet-Cookie: evil", text)

    def test_huge_requests_are_refused(self):
        many = "&".join(f"a{number}=1" for number in range(3000))
        for raw in (self.get("/" + "a" * 100000), self.request("GET", "/", headers=["X: " + "a" * 100000]),
                    self.request("GET", "/", headers=[f"X{number}: 1" for number in range(10000)]),
                    self.request("POST", "/act", body=b"a" * (2 << 20)),
                    self.post("/act", {}, Content_Length=str(1 << 40)),
                    self.request("POST", "/act", body=many.encode())):
            self.assert_refused(raw, 0, 400, 413)

    def test_slow_and_idle_connections_keep_nobody_waiting(self):
        idle = [socket.create_connection(("127.0.0.1", self.port)) for _ in range(40)]
        for each in idle[:20]:
            each.sendall(b"POST /act HTTP/1.1\r\nHost: " + self.host.encode() + b"\r\nContent-Le")
        self.assertEqual(self.answer(self.get("/"))[0], 200)
        # Of too many the last ones are told so.
        more = [socket.create_connection(("127.0.0.1", self.port)) for _ in range(40)]
        self.assertEqual(self.answer(self.get("/"))[0], 503)
        for each in idle + more:
            each.close()
        status = 503
        while status == 503:  # until the server has seen that they are gone
            status = self.answer(self.get("/"))[0]
        self.assertEqual(status, 200)

    def test_a_slow_request_is_ended(self):
        with socket.create_connection(("127.0.0.1", self.port), timeout=60) as slow:
            slow.sendall(b"GET / HTTP/1.1\r\n")
            self.assertEqual(slow.recv(1000), b"")

    def test_every_answer_forbids_embedding_and_foreign_scripts(self):
        for raw in (self.get("/"), self.get("/nothing"), self.get("/", Host="x"), self.get("/page.js"),
                    self.post("/act", {})):
            text = self.answer(raw)[1]
            for header in ("Content-Security-Policy: default-src 'none'; style-src 'self'; script-src 'self'",
                           "frame-ancestors 'none'", "X-Frame-Options: DENY", "X-Content-Type-Options: nosniff",
                           "Cache-Control: no-store", "Referrer-Policy: same-origin"):
                self.assertIn(header, text)

    def test_memory_stays_as_it_is(self):
        form = self.post("/form", self.adding())

        def memory(requests):
            for _ in range(requests):
                self.assertEqual(self.answer(form)[0], 200)
            status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
            return int(re.search(r"VmRSS:\s+(\d+) kB", status)[1])

        before = memory(20)
        self.assertLess(memory(200 if SANITIZED else 1000), before + (20000 if SANITIZED else 2000))

    def test_whatever_is_sent_is_answered_and_changes_nothing(self):
        """Good requests with some bytes changed, cut off or doubled."""
        chance = random.Random(20261122)
        good = [self.get("/"), self.get("/form?command=NANSI"), self.post("/form", self.adding(proof="x")),
                self.post("/values", {**self.adding(proof="x"), "parameter": "NUMSE"}),
                self.post("/act", self.adding(proof="x")), self.get("/delete?command=NANSI&of=NUMSE%3D100")]
        for _ in range(300):
            raw = bytearray(chance.choice(good))
            for _ in range(chance.choice((1, 1, 2, 10))):
                place = chance.randrange(len(raw))
                what = chance.randrange(4)
                if what == 0:
                    raw[place] = chance.randrange(256)
                elif what == 1:
                    del raw[place:place + chance.randrange(1, 20)]
                elif what == 2:
                    raw[place:place] = raw[place:place + chance.randrange(1, 50)]
                else:
                    raw[place:place] = bytes(chance.randrange(256) for _ in range(5))
                if not raw:
                    break
            status, text = self.answer(bytes(raw))
            self.assertIn(status, (0, 200, 303, 400, 403, 404, 405, 409, 413, 415, 421), bytes(raw))
        self.assertEqual(self.answer(self.get("/"))[0], 200)


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
