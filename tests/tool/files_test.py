"""Which files are loaded, in which order, and what becomes of a failure."""
import json
import os
import re
import unittest

from support import (REGISTRY_MULTIPLEX, URN_MULTIPLEX, ToolTest, attribute, dictionary, element, group, label,
                     multiplex, scheme)


class Order(ToolTest):
    def setUp(self):
        super().setUp()
        for number, name in ((1, "A"), (2, "B")):
            self.write(f"d{name}.xsd", dictionary(element(number, name)))
            self.write(f"s{name}.xsd", scheme(group(number, f"G{name}", attribute(name))))
        self.write("m.xsd", multiplex(URN_MULTIPLEX))

    def test_files_load_in_the_order_of_the_command_line_the_multiplex_first(self):
        # Each scheme needs the dictionary before it, and is refused before it.
        result = self.dump("--dictionary", "dA.xsd", "--scheme=sA.xsd", "--dictionary", "dB.xsd", "--scheme", "sB.xsd",
                           "--multiplex", "m.xsd")
        self.assertEqual([(load["kind"], load["path"]) for load in result["loads"]],
                         [("multiplex", "m.xsd"), ("dictionary", "dA.xsd"), ("scheme", "sA.xsd"),
                          ("dictionary", "dB.xsd"), ("scheme", "sB.xsd")])
        self.assertEqual(len(result["sets"]), 2)
        status, _, errors = self.run_tool("dump", "--scheme", "sA.xsd", "--dictionary", "dA.xsd")
        self.assertEqual(status, 1)
        self.assertRegex(errors, rb"\AsA\.xsd:1:\d+: error: .* \[NotFound\]\nsA\.xsd: note: groups refer to elements, and n")

    def test_the_multiplex_decides_the_flavour(self):
        self.assertEqual(self.dump("--dictionary", "dA.xsd")["targetNamespace"], URN_MULTIPLEX)
        self.write("r.xsd", multiplex(REGISTRY_MULTIPLEX))
        _, output, _ = self.run_tool("dump", "--format", "json", "--dictionary", "dA.xsd", "--multiplex", "r.xsd")
        result = json.loads(output)
        self.assertEqual((result["targetNamespace"], result["elements"]), (REGISTRY_MULTIPLEX, []))

    def test_options_reach_the_loader(self):
        self.write("d.xsd", dictionary(element(1, "A", documentation="About A.", Dictionary_Length="4 bytes")))
        self.write("s.xsd", scheme(group(1, "G").replace('type="g:GType"', 'type="g:GType" abstract="true"')))
        files = ("--dictionary", "d.xsd", "--scheme", "s.xsd")

        def found(*options):
            result = json.loads(self.run_tool("dump", "--format", "json", *files, *options)[1])
            properties = result["elements"][0]["properties"]
            return "Documentation" in properties, "LengthDescription" in properties, len(result["sets"])

        self.assertEqual(found(), (False, False, 0))
        self.assertEqual(found("--documentation"), (True, False, 0))
        self.assertEqual(found("--length-description"), (False, True, 0))
        self.assertEqual(found("--abstract-groups"), (False, False, 1))


class KeepGoing(ToolTest):
    def dump_with_failures(self, *arguments):
        status, output, errors = self.run_tool("dump", "--format", "json", "--keep-going", *arguments)
        self.assertEqual(status, 1)
        result = json.loads(output)
        failed = [load for load in result["loads"] if load["error"]]
        lines = errors.decode().splitlines()
        self.assertEqual(len(lines), len(failed))
        for load, line in zip(failed, lines):
            error = load["error"]
            place = ":".join(str(error[part]) for part in ("path", "line", "column")) if error["path"] else load["path"]
            self.assertTrue(line.startswith(f"{place}: error: "), line)
            self.assertTrue(line.endswith(f" [{error['class']}]"), line)
        return result

    def column(self, name, text):
        return 1 + (self.folder / name).read_text(encoding="utf-8").index(text)

    def test_failures_stand_among_the_loads(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("again.xsd", dictionary(element(1, "A")))
        self.write("e.xsd", dictionary(element(2, "B")))
        self.write("none.xsd", '<s:schema xmlns:s="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:x:n"/>')
        self.write("s.xsd", scheme(group(1, "G", attribute("A", status="one\ntwo"))))
        result = self.dump_with_failures("--dictionary", "d.xsd", "--dictionary", "again.xsd", "--scheme", "none.xsd",
                                         "--scheme", "s.xsd", "--dictionary", "absent.xsd", "--dictionary", "e.xsd")
        errors = [load["error"] for load in result["loads"]]
        first = {"path": "again.xsd", "line": 1, "column": self.column("again.xsd", "<xs:element")}
        self.assertEqual(errors[1], {"class": "MetaElementAlreadyLoaded", "code": 44, "message": label(1), **first})
        self.assertEqual((errors[2]["class"], errors[2]["code"]), ("XQillaException", None))
        attribute_place = {"path": "s.xsd", "line": 1, "column": self.column("s.xsd", "<xs:element ref")}
        self.assertEqual(errors[3], {"class": "InvalidValue", "code": 16,
                                     "message": "Unknown required status: one\ntwo", **attribute_place})
        self.assertEqual(errors[4], {"class": "IOError", "code": 26, "message": "absent.xsd file Not Found!",
                                     "path": None, "line": None, "column": None})
        self.assertEqual((errors[0], errors[5]), (None, None))
        self.assertEqual([element["label"] for element in result["elements"]], [label(1), label(2)])

    def test_a_failing_multiplex_leaves_the_first_flavour(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        result = self.dump_with_failures("--multiplex", "absent.xsd", "--dictionary", "d.xsd")
        self.assertEqual((result["targetNamespace"], len(result["elements"])), (URN_MULTIPLEX, 1))

    def test_without_failures_it_changes_nothing(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        self.assertEqual(self.dump("--keep-going", "--dictionary", "d.xsd"), self.dump("--dictionary", "d.xsd"))


class KindAndFlavour(ToolTest):
    """A file that is not what it was given as, or that adds nothing: what to do, on the standard error stream."""

    REGISTRY = {"urn:SMPTE:MXF:XMLInterface:Dictionary:": "http://www.smpte-ra.org/schemas/434/Dictionary/",
                "urn:SMPTE:MXF:XMLInterface:Groups:": "http://www.smpte-ra.org/schemas/434/Groups/"}

    def setUp(self):
        super().setUp()
        (self.folder / "r").mkdir()
        for name, text in (("d.xsd", dictionary(element(1, "A"), element(2, "B"))), ("s.xsd", scheme(group(1, "G")))):
            self.write(name, text)
            for urn, registry in self.REGISTRY.items():
                text = text.replace(urn, registry)
            self.write("r/" + name, text)
        self.write("abstract.xsd", scheme(group(2, "G").replace('type="g:GType"', 'type="g:GType" abstract="true"')))
        self.write("m.xsd", multiplex(URN_MULTIPLEX))
        self.write("r/multiplex.xsd", multiplex(REGISTRY_MULTIPLEX))
        self.write("plain.xsd", dictionary('<xs:element name="A"/>'))

    def test_warnings(self):
        there = "no declaration at its top level has the annotation that marks one, in either flavour"
        cases = [
            (["--dictionary", "r/d.xsd"], 1, "r/d.xsd: warning: declares no elements in the URN flavour, but 2 elements "
             "in the registry flavour: add --multiplex r/multiplex.xsd"),
            (["--dictionary", "d.xsd", "--scheme", "r/s.xsd"], 1, "r/s.xsd: warning: declares no groups in the URN "
             "flavour, but 1 group in the registry flavour: add --multiplex r/multiplex.xsd"),
            (["--multiplex", "r/multiplex.xsd", "--dictionary", "d.xsd"], 1, "d.xsd: warning: declares no elements in "
             "the registry flavour, but 2 elements in the URN flavour: leave out --multiplex, or give --multiplex with "
             f"a schema of the target namespace {URN_MULTIPLEX}"),
            (["--dictionary", "s.xsd"], 1, "s.xsd: warning: declares no elements, but 1 group: give it with --scheme"),
            (["--dictionary", "d.xsd", "--scheme", "r/d.xsd"], 1,
             "r/d.xsd: warning: declares no groups, but 2 elements: give it with --dictionary"),
            (["--dictionary", "d.xsd", "--scheme", "m.xsd"], 1,
             "m.xsd: warning: declares no groups, as it is a multiplex schema: give it with --multiplex"),
            # These may be meant so, but nothing at all is not.
            (["--dictionary", "plain.xsd"], 1, f"plain.xsd: warning: declares no elements: {there}"),
            (["--dictionary", "d.xsd", "--scheme", "plain.xsd"], 0, f"plain.xsd: warning: declares no groups: {there}"),
            (["--dictionary", "d.xsd", "--scheme", "abstract.xsd"], 0,
             "abstract.xsd: warning: declares abstract groups only: add --abstract-groups"),
        ]
        for arguments, expected, warning in cases:
            with self.subTest(arguments):
                status, output, errors = self.run_tool("dump", *arguments)
                self.assertEqual((status, errors.decode()), (expected, warning + "\n"))
                self.assertIn(b"\nElements: ", output)
                self.assertEqual(self.run_tool("dump", "--quiet", *arguments), (expected, output, b""))

    def test_notes_on_a_multiplex_that_is_none(self):
        for name, note in (("d.xsd", "it declares 2 elements: give it with --dictionary"),
                           ("r/s.xsd", "it declares 1 group: give it with --scheme"),
                           ("plain.xsd", f"a multiplex schema has the target namespace {URN_MULTIPLEX} or "
                                         f"{REGISTRY_MULTIPLEX}")):
            status, output, errors = self.run_tool("dump", "--multiplex", name, "--dictionary", "d.xsd")
            self.assertEqual((status, output), (1, b""))
            self.assertEqual(errors.decode().splitlines()[1], f"{name}: note: {note}")


class Paths(ToolTest):
    """Every file that the system can hold can be loaded, and is named as it was given. The locale is C."""

    PATHS = [b"two  blanks.xsd", b"100%.xsd", b"%41.xsd", b"a;b,c.xsd", b"[a].xsd", b"[a,b]", b"{}", b"-dash.xsd",
             b"quote\".xsd", b"back\\slash.xsd", b"#x?y", b"line\nbreak.xsd", "\u00e4\u6f22\U0001f600.xsd".encode(),
             b"invalid\xff\xc3.xsd", b"n" * 255]

    def test_paths(self):
        folder = os.fsencode(self.folder)
        for path in self.PATHS:
            with self.subTest(path):
                with open(os.path.join(folder, path), "w", encoding="utf-8") as file:
                    file.write(dictionary(element(1)))
                result = self.dump(b"--dictionary=" + path)
                self.assertEqual(result["loads"][0]["path"].encode("utf-8", "surrogateescape"), path)
                self.assertEqual(len(result["elements"]), 1)

    def test_error_lines_name_the_file_by_its_bytes(self):
        for path in (b"absent \xff%41.xsd", "\u00e4\u6f22\U0001f600.xsd".encode()):
            status, output, errors = self.run_tool("dump", "--dictionary", path)
            self.assertEqual((status, output), (1, b""))
            self.assertEqual(errors, path + b": error: " + path + b" file Not Found! [IOError]\n")


if __name__ == "__main__":
    unittest.main()
