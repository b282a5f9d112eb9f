"""Which files are loaded, in which order, and what becomes of a failure."""
import json
import os
import re
import shutil
import subprocess
import unittest

import jsonschema

from json_test import SCHEMA
from support import (REGISTRY_MULTIPLEX, SOURCE, TOOL, URN_MULTIPLEX, ToolTest, attribute, dictionary, element, group, key,
                     label, multiplex, reference, scheme)


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
        self.assertRegex(errors, rb"\AsA\.xsd:1:\d+: error: .* \[NotFound\]\nsA\.xsd:1:\d+: note: Groups refer to elements, and n")

    def test_the_multiplex_decides_the_flavour(self):
        self.assertEqual(self.dump("--dictionary", "dA.xsd")["targetNamespace"], URN_MULTIPLEX)
        self.write("r.xsd", multiplex(REGISTRY_MULTIPLEX))
        _, output, _ = self.run_tool("dump", "--format", "json", "--keep-going", "--dictionary", "dA.xsd", "--multiplex",
                                     "r.xsd")
        result = json.loads(output)
        jsonschema.Draft202012Validator(SCHEMA).validate(result)
        self.assertEqual((result["targetNamespace"], result["elements"]), (REGISTRY_MULTIPLEX, []))
        self.assertEqual([load["error"] and load["error"]["class"] for load in result["loads"]], [None, "wrong-file"])

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
        status, output, errors = self.run_tool("dump", "--format", "json", "--keep-going", "--quiet", *arguments)
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

    def test_wrong_files_are_errors_and_replace_nothing(self):
        urn = "Leave out --multiplex, or give --multiplex with a schema of the target namespace " + URN_MULTIPLEX
        registry = "Add --multiplex r/multiplex.xsd"
        cases = [
            (["--dictionary", "r/d.xsd"], "declares no elements in the URN flavour, but 2 elements in the registry flavour",
             registry),
            (["--dictionary", "d.xsd", "--scheme", "r/s.xsd"],
             "declares no groups in the URN flavour, but 1 group in the registry flavour", registry),
            (["--dictionary", "d.xsd", "--scheme", "r/mixed.xsd"],
             "declares abstract groups only in the URN flavour, but 2 groups in the registry flavour", registry),
            (["--multiplex", "r/multiplex.xsd", "--dictionary", "d.xsd"],
             "declares no elements in the registry flavour, but 2 elements in the URN flavour", urn),
            (["--dictionary", "s.xsd"], "declares no elements, but 1 group", "Give it with --scheme"),
            (["--dictionary", "d.xsd", "--scheme", "r/d.xsd"], "declares no groups, but 2 elements",
             "Give it with --dictionary"),
            (["--dictionary", "d.xsd", "--scheme", "m.xsd"], "declares no groups, as it is a multiplex schema",
             "Give it with --multiplex"),
        ]
        self.write("r/mixed.xsd", (self.folder / "r/s.xsd").read_text().replace("</xs:schema>", "")
                   + group(2, "H").replace("urn:SMPTE:MXF:XMLInterface:Groups:", self.REGISTRY[
                       "urn:SMPTE:MXF:XMLInterface:Groups:"])
                   + group(3, "I").replace('type="g:IType"', 'type="g:IType" abstract="true"') + "</xs:schema>")
        self.write("good", "good")
        for arguments, text, remedy in cases:
            with self.subTest(arguments):
                error = f"{arguments[-1]}: error: {text} [wrong-file]\n"
                expected = error + f"{arguments[-1]}: note: {remedy}.\n"
                status, output, errors = self.run_tool("dump", *arguments, "--output", "good")
                self.assertEqual((status, output, errors.decode()), (1, b"", expected))
                self.assertEqual(self.run_tool("dump", "--quiet", *arguments), (1, b"", error.encode()))
                self.assertEqual((self.folder / "good").read_text(), "good")
                status, output, errors = self.run_tool("dump", "--keep-going", *arguments)
                self.assertIn(b" [wrong-file]\n", output)
        same = self.run_tool("dump", "--keep-going", "--dictionary", "r/d.xsd", "--scheme", "r/s.xsd")[2].decode()
        self.assertEqual((same.count("[wrong-file]"), same.count("note: Add --multiplex")), (2, 1))

    def test_the_installed_multiplex_is_advised_where_none_lies_beside(self):
        installed = self.folder.resolve() / "prefix/share/tesselmxf/schemas/registry/multiplex.xsd"
        tool = self.folder / "prefix/bin/mxf-metadict"
        for file, source in ((tool, TOOL), (installed, SOURCE / "schemas/registry/multiplex.xsd")):
            file.parent.mkdir(parents=True)
            shutil.copy(source, file)
        (self.folder / "r/multiplex.xsd").unlink()
        advice = subprocess.run([tool, "dump", "--dictionary", "r/d.xsd"], cwd=self.folder, stderr=subprocess.PIPE,
                                check=False, timeout=120).stderr.decode().splitlines()[1]
        self.assertEqual(advice, f"r/d.xsd: note: Add --multiplex {installed}.")
        self.assertEqual(len(self.dump("--multiplex", str(installed), "--dictionary", "r/d.xsd")["elements"]), 2)

    def test_warnings(self):
        there = "no declaration at its top level has the annotation that marks one, in either flavour"
        empty = "plain.xsd: error: no element was loaded from this file or those before it [empty-dictionary]\n"
        for arguments, expected, warning, error in (
                (["--dictionary", "plain.xsd"], 1, f"declares no elements: {there}", empty),
                (["--dictionary", "d.xsd", "--scheme", "plain.xsd"], 0, f"declares no groups: {there}", ""),
                (["--dictionary", "d.xsd", "--scheme", "abstract.xsd"], 0,
                 "declares abstract groups only: add --abstract-groups", "")):
            with self.subTest(arguments):
                status, output, errors = self.run_tool("dump", *arguments)
                self.assertEqual((status, errors.decode()), (expected, f"{arguments[-1]}: warning: {warning}\n{error}"))
                self.assertEqual(b"\nElements: " in output, not error)
                self.assertEqual(self.run_tool("dump", "--quiet", *arguments), (expected, output, error.encode()))

    def test_notes_on_a_multiplex_that_is_none(self):
        for name, note in (("d.xsd", "It declares 2 elements: give it with --dictionary."),
                           ("r/s.xsd", "It declares 1 group: give it with --scheme."),
                           ("plain.xsd", f"A multiplex schema has the target namespace {URN_MULTIPLEX} or "
                                         f"{REGISTRY_MULTIPLEX}, and nothing else of it matters: for schemas in the "
                                         "registry flavour, whatever their edition, give schemas/registry/multiplex.xsd of "
                                         "this program; for those in the URN flavour none is needed.")):
            status, output, errors = self.run_tool("dump", "--multiplex", name, "--dictionary", "d.xsd")
            self.assertEqual((status, output), (1, b""))
            self.assertEqual(errors.decode().splitlines()[1], f"{name}: note: {note}")


class Explanations(ToolTest):
    """What a failure means, beside the text of the library: the same for every command."""

    def notes(self, *names, options=()):
        arguments = [part for name in names for part in ("--dictionary" if name.startswith("d") else "--scheme", name)]
        return [line.partition(" note: ")[2] for line in
                self.run_tool("dump", "--keep-going", *options, *arguments)[2].decode().splitlines() if " note: " in line]

    def test_each_has_its_note(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        good = element(2, "B")
        elements = {
            "An element with this label": good + good, 'Neither a label nor a key: " 06"': good.replace(label(2), " 06"),
            "Neither a label nor a key: " + f'"{label(2)[3:]}". Write a label or key as 16 bytes of two hexadecimal digits, '
            "joined by dots; this has 15.": good.replace(label(2), label(2)[3:]),
            'The element has the type "t:Nothing", which is no data type; types that a schema names':
                element(2, "B", "Nothing"),
            'The type inside the element extends "t:Nothing"': reference(2, "B").replace("StrongRefHolder", "Nothing"),
            'The element has the type "t:Array" itself; write an anonymous type': element(2, "B", "Array"),
            'The element within the collection has the type "t:Nothing"': reference(2, "B").replace(
                "StrongRefHolder", "Array").replace("<xs:choice></xs:choice>", '<xs:sequence><xs:element name="I" '
                                                    'type="t:Nothing"/></xs:sequence>'),
            "It is empty, but for blanks. Write a label": good.replace(label(2), " "),
            "Dictionary:ElementName": good.replace("ElementName", "Name"),
            "Dictionary:ElementUL": good.replace(label(2), "")}
        abstract = group(1, "G").replace('type="g:GType"', 'type="g:GType" abstract="true"')
        groups = {
            "A required status is Req, Opt, D/req, E/req or B.Effort, exactly so, and not \"Req \"":
                group(1, "G", attribute("A", "Req ")),
            "Take out the blanks": group(1, "G", attribute("A", "Req ")),
            "such as 80.01.": group(1, "G", attribute("A", tag_text="1")),
            "a set with this key".capitalize(): group(1, "G") + group(1, "H"),
            "in the annotation urn:SMPTE:MXF:XMLInterface:Groups:Key": group(1, "G").replace(key(1), ""),
            "With --abstract-groups every": abstract.replace(key(1), ""),
            'Write the base as "g:HType"': group(1, "G", base="H").replace('base="g:', 'base="') + group(2, "H"),
            "Declare the type, or import": group(1, "G", base="Other"),
            "The xs:include at line 2 is not followed: declare the type in this file":
                '\n<xs:include schemaLocation="o.xsd"/>' + group(1, "G", base="Other"),
            "The xs:redefine at line 1 is not followed":
                '<xs:redefine schemaLocation="o.xsd"/>' + group(1, "G").replace('name="GType"', 'name="Other"'),
            "The type stands inside the group: move its": re.sub(
                ' type=.*?(<xs:annotation>.*)</xs:element>(.*) name="GType"(.*)', r">\1\2\3</xs:element>", group(1, "G")),
            "Give the group a type": group(1, "G").replace(' type="g:GType"', ""),
            "correct the reference": group(1, "G", attribute("None"))}
        for expected, text in elements.items():
            self.write("d2.xsd", dictionary(text))
            self.assertIn(expected, " ".join(self.notes("d.xsd", "d2.xsd")))
        for expected, text in groups.items():
            self.write("s.xsd", scheme(text))
            self.assertIn(expected, " ".join(self.notes("d.xsd", "s.xsd", options=["--abstract-groups"])))
        (self.folder / "d").mkdir()
        os.mkfifo(self.folder / "dfifo")
        (self.folder / "dloop").symlink_to("dloop")
        (self.folder / "dlink").symlink_to("dx")
        for name, expected in (("d", "directory"), ("dx", "is not there"), ("dfifo", "only regular files are read"),
                               ("dloop", "is a loop of symbolic links"), ("dlink", "a symbolic link to a file that is not")):
            self.assertIn(expected, " ".join(self.notes(name)))
        for kind, root, note in (("--dictionary", "schema xmlns='http://www.w3.org/2001/XMLSchema'", "the root must bind"),
                                 ("--scheme", "x:schema xmlns:x='http://www.w3.org/2001/XMLSchema'", "the root must bind"),
                                 ("--dictionary", "html", 'The file is no XML Schema: its root is "html".'),
                                 ("--dictionary", "schema xmlns='u'", 'its root is "schema" of namespace u.')):
            self.write("n.xsd", f"<!-- -->\n <{root} targetNamespace='urn:x'/>")
            errors = self.run_tool("dump", kind, "n.xsd")[2].decode()
            self.assertRegex(errors, r"\An\.xsd:2:2: error: .*No namespace for prefix 'xs'.*\nn\.xsd:2:2: note: .*" + note)

    def test_what_a_reference_that_leads_nowhere_says(self):
        bare = element(2, "Bare").replace("ElementUL", "Elements")
        self.write("d.xsd", dictionary(element(1, "A"), "\n", bare, element(3, "Count"), element(4, "Counter")))
        good = scheme(group(1, "G", attribute("A")))
        for text, note in (
                (good.replace('xmlns:e="urn:x:elements"', 'xmlns:e="urn:x:other"'),
                 'Here e stands for "urn:x:other". An element "A" is loaded in the namespace "urn:x:elements": bind e to '
                 "that at the root of the schema."),
                (good.replace("e:A", "q:A"), 'The prefix q is not bound at the root of the schema. An element "A" is loaded '
                 'in the namespace "urn:x:elements": write the reference with the prefix e.'),
                (good.replace("e:A", "A"), 'The reference has no prefix, and no default namespace counts. An element "A" is '
                 'loaded in the namespace "urn:x:elements": write the reference with the prefix e.'),
                (good.replace("e:A", "e:Bare"), "It is declared at d.xsd:2:1 without a label: give it one there, in the "
                 "annotation urn:SMPTE:MXF:XMLInterface:Dictionary:ElementUL."),
                (good.replace("e:A", "e:Couter"), 'Did you mean "e:Counter"? Load the schema that declares the element before '
                 "this one, or correct the reference."),
                (good.replace("e:A", "e:B"), 'Load the schema that declares the element before this one, or correct '
                 'the reference. Here e stands for "urn:x:elements".')):
            self.write("s.xsd", text)
            self.assertEqual(self.notes("d.xsd", "s.xsd"), [note])

    def test_what_the_bytes_of_a_file_are(self):
        good = dictionary(element(1, "A", documentation="\u6f22\U0001f600"))
        declared = '<?xml version="1.0" encoding="UTF-8"?>\r\n'
        lines = "<!-- {} -->\r\n".format("\u6f22\U0001f600" * 3000) * 3  # the parser decodes far ahead of them
        for content, note in (
                (b"", "d.xsd:1:1: note: The file is empty."),
                (b" \n", "note: The file holds nothing but blanks."),
                (b"PK\3\4", "note: The file is no XML: it does not begin with"),
                ((declared + good).encode("utf-16"), "note: The file is in UTF-16, but its first line declares utf-8: "),
                (declared.replace("8", "16").encode() + b"<\xfc/>", "d.xsd:2:2: note: The first byte that is not UTF-8"),
                ((declared + lines).encode() + "\u6f22\U0001f600<\xfc".encode("utf-8")[:-2] + b"\xfc/>",
                 "d.xsd:5:5: note: The first byte that is not UTF-8 is here: FC hex"),
                (b"<a>\r\xed\xa0\x80</a>", "d.xsd:2:1: note: The first byte that is not UTF-8 is here: ED hex"),
                (b"<a>\xc3</a>", "d.xsd:1:4: note: The first byte that is not UTF-8 is here: C3 hex"),
                (b"<a>\xc3</a>", "note: Save the file as UTF-8, or declare its encoding"),
                (declared.replace("UTF-8", "ISO-8859-1").encode() + b"<\xfc>", "note: Correct the XML."),
                ((declared.replace("8", "16") + "<a>").encode("utf-16"), "note: Correct the XML."),
                (b"<a>" * 300 + b"\xfc", "d.xsd:1:772: note: The file is refused since it exceeds a limit"),
                (b"<xs:a/>", 'note: Bind the prefix at the root of the schema: xmlns:xs="http://www.w3.org/2001/XMLSchema".'),
                (b"<xsd:a/>", 'xmlns:xsd="http://www.w3.org/2001/XMLSchema", and the prefix xs, by which'),
                (b"<a q:b=''/>", 'xmlns:q="its namespace".'),
                (b"<!DOCTYPE a [<!ENTITY b ''>]><a>" + b"&b;" * 10001 + b"</a>", "note: The file is refused since it")):
            with self.subTest(note):
                (self.folder / "d.xsd").write_bytes(content)
                self.assertIn(note, self.run_tool("dump", "--dictionary", "d.xsd")[2].decode("utf-8", "replace"))

    def test_one_fault_of_an_import_is_told_once(self):
        (self.folder / "i").mkdir()
        self.write("i/b.xsd", scheme("<x>"))
        self.write("d.xsd", dictionary(element(1, "A")))
        for name in "ab":
            self.write(f"i/s{name}.xsd", scheme('<xs:import namespace="urn:x:b" schemaLocation="./b.xsd"/>'
                                                + group(1, "G", base="B").replace('"g:BType', '"b:BType'))
                       .replace("xmlns:e=", 'xmlns:b="urn:x:b" xmlns:e='))
        files = ["--keep-going", "--dictionary", "d.xsd", "--scheme", "i/sa.xsd", "--scheme", "i/sb.xsd"]
        lines = self.run_tool("dump", *files)[2].decode().splitlines()
        self.assertRegex(lines[0], r"^i/b\.xsd:1:\d+: error: .* \[SAXParseException\]$")
        place = lines[0].partition(": error")[0]
        self.assertEqual(lines[1:], [
            f"{place}: note: Correct the XML of the imported schema.",
            "i/sa.xsd: note: The error was met while loading this file, which needs the other one.",
            f"i/sb.xsd: error: stopped by the error at {place}, which is told above [SAXParseException]"])
        found = json.loads(self.run_tool("check", "--format", "json", *files[1:])[1])["findings"]
        self.assertEqual([[other["place"]["path"] for other in finding["related"]] for finding in found],
                         [["i/sa.xsd", "i/sb.xsd"]])

    def test_the_rest_is_left_out_unless_asked_for(self):
        notes = self.run_tool("dump", "--dictionary", "absent", "--dictionary", "b", "--dictionary", "c")[2]
        self.assertIn(b"absent: note: Nothing is printed, and 2 more files were not looked at; --keep-going", notes)


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
            status, output, errors = self.run_tool("dump", "--quiet", "--dictionary", path)
            self.assertEqual((status, output), (1, b""))
            self.assertEqual(errors, path + b": error: " + path + b" file Not Found! [IOError]\n")


if __name__ == "__main__":
    unittest.main()
