"""Command line, exit statuses and the standard streams."""
import fcntl
import os
import re
import signal
import struct
import subprocess
import termios
import time
import unittest

from support import ToolTest, attribute, dictionary, element, group, scheme

WRONG_USAGE = [
    ([], "a command is required: dump"),
    (["frobnicate"], "no such command: frobnicate\n"),
    (["--frobnicate"], "no such option: --frobnicate\n"),
    (["dupm", "--dictionary", "d.xsd"], "no such command: dupm; did you mean dump?"),
    (["--dictionary", "d.xsd", "dump"], "--dictionary comes after the command, as in 'mxf-metadict dump --dictionary'"),
    (["dump"], "--dictionary or --scheme"),
    (["dump", "--multiplex", "m.xsd"], "--dictionary or --scheme"),
    (["dump", "--dictionary"], "--dictionary: FILE is missing"),
    (["dump", "--output", "--dictionary=d.xsd"], "--output: FILE is missing\nmxf-metadict: try 'mxf-metadict dump --help'"),
    (["dump", "--output=", "--dictionary", "d.xsd"], "--output: FILE is missing"),
    (["report", "--title", "", "--dictionary", "d.xsd"], "--title: TEXT is missing"),
    (["help", "dump", "check"], "help takes one command, as in 'mxf-metadict help dump'"),
    (["help", "dupm"], "no such command: dupm; did you mean dump?"),
    (["diff", "--multiplex", "m.xsd", "--dictionary", "d.xsd"], "--multiplex: diff takes two dumps"),
    (["diff", "a", "b", "c"], "c: diff takes two dumps"),
    (["dump", "--dictionary", "d.xsd", "more.xsd"], "more.xsd; schemas are given with --dictionary, --scheme and"),
    (["dump", "--dictionary", "d.xsd", "--frobnicate"], "no such option: --frobnicate\n"),
    (["dump", "--dictionray", "d.xsd"], "no such option: --dictionray; did you mean --dictionary?"),
    (["dump", "--dictionry=d.xsd"], "no such option: --dictionry; did you mean --dictionary?"),
    (["dump", "d.xsd", "--SCHEME", "d.xsd"], "no such option: --SCHEME; did you mean --scheme?"),
    (["dump", "--do"], "no such option: --do; did you mean --documentation?"),
    (["check", "--dictionary", "d.xsd", "--keep-going"], "--keep-going is not needed: check always does that"),
    (["dump", "--dictionary", "d.xsd", "-q"], "no such option: -q\n"),
    (["dump", "--dictionary", "d.xsd", "--format", "xml"], "--format: there is no \"xml\", only text, json"),
    (["dump", "--dictionary", "d.xsd", "--multiplex", "m.xsd", "--multiplex", "n.xsd"], "--multiplex"),
    (["dump", "--dictionary", "d.xsd", "--output", "o", "--output", "p"], "--output is given 2 times"),
]


class CommandLine(ToolTest):
    def test_wrong_usage(self):
        self.write("d.xsd", dictionary(element(1)))
        for arguments, named in WRONG_USAGE:
            with self.subTest(arguments):
                status, output, errors = self.run_tool(*arguments)
                self.assertEqual((status, output), (2, b""))
                for line in errors.decode().splitlines():
                    self.assertTrue(line.startswith("mxf-metadict: "), line)
                self.assertIn(named, errors.decode())
        self.assertEqual(os.listdir(self.folder), ["d.xsd"])

    def test_help_and_version(self):
        for arguments in (["--help"], ["help"], ["dump", "--help"], ["help", "dump"]):
            with self.subTest(arguments):
                status, output, errors = self.run_tool(*arguments)
                self.assertEqual((status, errors), (0, b""))
                self.assertIn("Examples:\n  mxf-metadict dump --", output.decode())
                self.assertNotIn(b"\n\n\n", output)
                self.assertLessEqual(max(map(len, output.decode().splitlines())), 100)
        _, output, _ = self.run_tool("dump", "--help")
        for option in ("--format", "--output", "--color", "--quiet", "--multiplex", "--abstract-groups", "--documentation",
                       "--length-description", "--keep-going", "--dictionary", "--scheme"):
            self.assertIn(f"  {option} ", output.decode())
        version = f"mxf-metadict {os.environ['MXF_METADICT_VERSION']}\n".encode()
        for word in ("--version", "-v", "version"):
            self.assertEqual(self.run_tool(word), (0, version, b""))


class ErrorLines(ToolTest):
    """PATH:LINE:COLUMN: error: message [Class], and nothing on the standard output."""

    NO_XS_PREFIX = ('<s:schema xmlns:s="http://www.w3.org/2001/XMLSchema" xmlns:g="urn:x:groups" '
                    'targetNamespace="urn:x:groups"/>')

    def check(self, arguments, pattern):
        status, output, errors = self.run_tool("dump", "--quiet", *arguments)
        self.assertEqual((status, output), (1, b""))
        self.assertRegex(errors.decode(), re.compile(rf"\A{pattern}\n\Z"))

    def test_classes_and_codes(self):
        self.write("malformed.xsd", "<xs:schema\n")
        self.write("none.xsd", self.NO_XS_PREFIX)
        self.write("other.xsd", "<m xmlns='urn:x' targetNamespace='urn:x:other'/>")
        self.write("twice.xsd", dictionary(element(1, "A"), "\n\n ", element(1, "B")))
        self.write("imports.xsd", scheme(group(1, "G", base="B"))
                   .replace("<xs:element", '<xs:import namespace="urn:x:b" schemaLocation="malformed.xsd"/><xs:element', 1)
                   .replace("g:BType", "b:BType").replace("xmlns:g=", 'xmlns:b="urn:x:b" xmlns:g='))
        cases = [
            ("--dictionary", "absent.xsd", r"absent\.xsd: error: absent\.xsd file Not Found! \[IOError\]"),
            ("--dictionary", "malformed.xsd", r"malformed\.xsd:2:1: error: [^:]+ \[ParseError\]"),
            ("--dictionary", "none.xsd", r"none\.xsd:1:1: error: XQillaException:: .+ \[ParseError\]"),
            ("--dictionary", "twice.xsd", r"twice\.xsd:3:2: error: [0-9A-F.]{47} \[MetaElementAlreadyLoaded\]"),
            ("--scheme", "none.xsd", r"none\.xsd:1:1: error: .+ \[XQillaException\]"),
            ("--scheme", "imports.xsd", r"malformed\.xsd:2:1: error: [^:]+ \[SAXParseException\]"),
        ]
        for option, name, expected in cases:
            with self.subTest(expected):
                self.check([option, name], expected)

    def test_a_message_of_many_lines_is_one_line(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A", status="a\nb\u2028c\u00e9\u0085d\u202e"))))
        self.check(["--dictionary", "d.xsd", "--scheme", "s.xsd"],
                   r"s\.xsd:1:\d+: error: Unknown required status: a b cé d\ufffd \[InvalidValue\]")

    def test_nothing_is_loaded_after_a_failure(self):
        self.write("malformed.xsd", "<")
        self.check(["--dictionary", "absent.xsd", "--dictionary", "malformed.xsd"], r"absent\.xsd: error: .*")


class StandardStreams(ToolTest):
    """Output that did not arrive is a failure."""

    def setUp(self):
        super().setUp()
        self.write("d.xsd", dictionary(*(element(n, f"E{n}") for n in range(1, 9))))
        self.arguments = ["dump", "--dictionary", "d.xsd"]

    def check(self, arguments, error, **options):
        status, _, errors = self.run_tool(*arguments, **options)
        self.assertEqual(status, 1)
        self.assertEqual(errors.decode(), f"mxf-metadict: standard output: {error}\n")

    def test_full_device(self):
        with open("/dev/full", "wb") as full:
            self.check(self.arguments, "No space left on device", stdout=full)
            self.check(["--help"], "No space left on device", stdout=full)

    def test_closed_output(self):
        self.check(self.arguments, "Bad file descriptor", preexec_fn=lambda: os.close(1))

    def test_reader_that_is_gone(self):
        reader, writer = os.pipe()
        os.close(reader)
        try:
            self.check(self.arguments, "Broken pipe", stdout=writer,
                       preexec_fn=lambda: signal.signal(signal.SIGPIPE, signal.SIG_IGN), restore_signals=False)
        finally:
            os.close(writer)

    def waiting(self, reader):
        """How many bytes can be read from a pipe."""
        return struct.unpack("i", fcntl.ioctl(reader, termios.FIONREAD, bytes(4)))[0]

    def test_reader_that_is_slower_than_a_non_blocking_pipe(self):
        self.write("many.xsd", dictionary(*(element(n, f"E{n}") for n in range(1, 2000))))
        reader, writer = os.pipe()
        os.set_blocking(writer, False)
        tool = subprocess.Popen([os.environ["MXF_METADICT"], "dump", "--dictionary", "many.xsd"], cwd=self.folder,
                                stdout=writer)
        capacity = fcntl.fcntl(writer, fcntl.F_GETPIPE_SZ)
        os.close(writer)
        while tool.poll() is None and self.waiting(reader) < capacity:
            time.sleep(0.01)
        with open(reader, "rb") as output:
            text = output.read()
        self.assertEqual(tool.wait(timeout=60), 0)
        self.assertEqual(text.count(b"\n  06."), 1999)

    def test_messages_do_not_get_into_the_output_when_there_is_no_error_stream(self):
        status, _, _ = self.run_tool("dump", "--format", "json", "--keep-going", "--output", "o.json", "--dictionary",
                                     "absent.xsd", preexec_fn=lambda: os.close(2))
        self.assertEqual(status, 1)
        self.assertTrue((self.folder / "o.json").read_text().startswith("{\n"))


if __name__ == "__main__":
    unittest.main()
