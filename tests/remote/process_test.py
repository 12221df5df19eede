"""The remote host as a process: python3 process_test.py <the server's command, word by word>."""
import json
import pathlib
import subprocess
import sys
import unittest

SERVER = []
EXAMPLE = pathlib.Path(__file__).parents[2] / "examples" / "remote-host-python" / "host.py"

ADD_OBJECT = b'{"jsonrpc":"2.0","id":1,"method":"AddObject","params":[]}\n'
RUN = (b'{"jsonrpc":"2.0","id":2,"method":"Run","params":{"Definition":1,"oaRelease":"R7","FunctionName":"StatCheck",'
       b'"CmdName":"NANSI","CmdId":0,"ParamList":["NUMTYP"]}}\n')


def serve(given):
    return subprocess.run(SERVER, input=given, capture_output=True, timeout=60)


def started():
    return subprocess.Popen(SERVER, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)


class RemoteHost(unittest.TestCase):
    def test_example_host_adds_a_number_series_and_prints_the_line(self):
        example = subprocess.run([sys.executable, str(EXAMPLE), *SERVER], capture_output=True, text=True, timeout=60)
        self.assertEqual(example.stdout, "NANSI:NUMTYP=EX,NUMSE=100&&199;\n")
        self.assertEqual(example.stderr, "")
        self.assertEqual(example.returncode, 0)

    def test_end_of_input_ends_with_status_0(self):
        for given in (b"", ADD_OBJECT, ADD_OBJECT + RUN, ADD_OBJECT + RUN[:40]):
            self.assertEqual(serve(given).returncode, 0)

    def test_a_failed_run_does_not_end_the_process(self):
        lines = serve(RUN + ADD_OBJECT).stdout.splitlines()
        self.assertEqual(json.loads(lines[0])["error"]["data"], {"cause": "NoHost"})
        self.assertEqual(json.loads(lines[1])["result"], None)

    def test_standard_output_holds_nothing_but_protocol(self):
        given = bytes(range(256)) * 4 + b"\nhello\n[[[[\n\n" + ADD_OBJECT + b'{"id":"h7","result":{}}\n'
        served = serve(given)
        self.assertEqual(served.returncode, 0)
        answers = [json.loads(line) for line in served.stdout.splitlines()]
        self.assertEqual([answer["id"] for answer in answers], [None] * (len(answers) - 1) + [1])
        self.assertEqual({answer["error"]["code"] for answer in answers[:-1]}, {-32700})
        self.assertIn(b"h7", served.stderr)

    def test_texts_are_utf_8_both_ways(self):
        served = serve('{"jsonrpc":"2.0","id":"Åsa 电话","method":"AddObject"}\n'.encode())
        self.assertEqual(served.stdout.decode(), '{"jsonrpc":"2.0","id":"Åsa 电话","result":null}\n')

    def test_each_message_is_written_at_once(self):
        with started() as server:
            for request in (ADD_OBJECT, RUN):
                server.stdin.write(request)
                server.stdin.flush()
                self.assertIn("id", json.loads(server.stdout.readline()))
            server.stdin.close()
            self.assertEqual(server.wait(timeout=60), 0)

    def test_a_peer_that_goes_away_while_a_run_waits_ends_it_with_status_0(self):
        with started() as server:
            server.stdin.write(ADD_OBJECT + RUN)
            server.stdin.flush()
            server.stdout.readline()
            server.stdout.readline()
            server.stdout.close()
            server.stdin.close()
            self.assertEqual(server.wait(timeout=60), 0)

    @unittest.skipIf(sys.platform == "win32", "a closed pipe shows otherwise there")
    def test_a_peer_that_no_longer_reads_ends_the_process_with_status_5(self):
        with started() as server:
            server.stdout.close()
            server.stdin.write(ADD_OBJECT)
            server.stdin.close()
            self.assertEqual(server.wait(timeout=60), 5)


if __name__ == "__main__":
    SERVER = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
