"""The subcommand check: what it finds, what it says of it, and the forms in which it does."""
import json
import os
import re
import unittest

import jsonschema

from json_test import shipped_files
from support import (GROUPS, REGISTRY_MULTIPLEX, CheckTest, attribute, dictionary, element, group, in_registry_flavour,
                     key, label, multiplex, reference, schema_arguments, scheme)

TEXT = {"type": "object", "required": ["text"], "properties": {"text": {"type": "string", "minLength": 1}}}
LOCATION = {
    "type": "object", "required": ["physicalLocation"],
    "properties": {
        "id": {"type": "integer", "minimum": 0}, "message": TEXT,
        "physicalLocation": {
            "type": "object", "required": ["artifactLocation"], "additionalProperties": False,
            "properties": {
                "artifactLocation": {"type": "object", "required": ["uri"], "additionalProperties": False,
                                     "properties": {"uri": {"pattern": "^(file://)?([A-Za-z0-9._~/!$&'()*+,;=@-]|%[0-9A-F]{2})+$"}}},
                "region": {"type": "object", "required": ["startLine", "startColumn"], "additionalProperties": False,
                           "properties": {"startLine": {"type": "integer", "minimum": 1},
                                          "startColumn": {"type": "integer", "minimum": 1}}}}}},
    "additionalProperties": False}
# What the standard demands of the members that are written.
SARIF = {
    "type": "object", "required": ["version", "runs"], "additionalProperties": False,
    "properties": {
        "$schema": {"type": "string"}, "version": {"const": "2.1.0"},
        "runs": {"type": "array", "minItems": 1, "items": {
            "type": "object", "required": ["tool", "results"], "additionalProperties": False,
            "properties": {
                "columnKind": {"enum": ["utf16CodeUnits", "unicodeCodePoints"]},
                "tool": {"type": "object", "required": ["driver"], "properties": {"driver": {
                    "type": "object", "required": ["name", "version", "rules"], "additionalProperties": False,
                    "properties": {"name": {"type": "string"}, "version": {"type": "string"}, "rules": {
                        "type": "array", "uniqueItems": True, "items": {
                            "type": "object", "required": ["id", "shortDescription", "help", "defaultConfiguration"],
                            "additionalProperties": False,
                            "properties": {"id": {"type": "string"}, "shortDescription": TEXT, "fullDescription": TEXT,
                                           "help": TEXT, "defaultConfiguration": {
                                               "properties": {"level": {"enum": ["error", "warning", "note"]}}}}}}}}}},
                "results": {"type": "array", "items": {
                    "type": "object", "required": ["ruleId", "ruleIndex", "level", "message", "locations"],
                    "additionalProperties": False,
                    "properties": {
                        "ruleId": {"type": "string"}, "ruleIndex": {"type": "integer", "minimum": 0},
                        "level": {"enum": ["error", "warning", "note"]}, "message": TEXT,
                        "locations": {"type": "array", "minItems": 1, "items": LOCATION},
                        "relatedLocations": {"type": "array", "minItems": 1, "items": LOCATION}}}}}}}}}


class Check(CheckTest):
    def test_both_places_of_clashes(self):
        versions = element(9, "Old", name="Same") + "\n" + element(9, "New", name="Same").replace(
            label(9), label(9).replace("34.01.01.01.01", "34.01.01.01.02"))
        self.write("d1.xsd", dictionary(element(1, "A", name="First"), "\n", versions))
        self.write("d2.xsd", dictionary("\n\n", element(2, "A", name="Second"), element(3, "C")))
        self.write("s1.xsd", scheme(group(7, "G", attribute("New", tag_text="80.01"), name="Sets")))
        self.write("s2.xsd", scheme("\n", group(8, "H", attribute("Old", tag_text="80.01"),
                                                attribute("C", tag_text="80.02"), name="Sets"),
                                    "\n\n", group(9, "G", attribute("C", tag_text="80.03"))
                                    .replace(key(9), key(7).replace("53.01.01", "53.01.02"))))
        clashes = [(finding["rule"], finding["place"], [other["place"] for other in finding["related"]])
                   for finding in self.findings("d1.xsd", "d2.xsd", "s1.xsd", "s2.xsd") if finding["related"]]
        a1, old, new, a2, g1, h, g2 = (self.place(*where) for where in (
            ("d1.xsd", '<xs:element name="A"'), ("d1.xsd", '<xs:element name="Old"'),
            ("d1.xsd", '<xs:element name="New"'), ("d2.xsd", '<xs:element name="A"'),
            ("s1.xsd", '<xs:element name="G"'), ("s2.xsd", '<xs:element name="H"'),
            ("s2.xsd", '<xs:element name="G"')))
        self.assertEqual(clashes, [
            ("shared-xml-name", a2, [a1]), ("shared-xml-name", g2, [g1]),
            ("shared-local-tag", self.place("s2.xsd", '<xs:element ref="e:Old"'),
             [self.place("s1.xsd", '<xs:element ref="e:New"')]),
            ("many-local-tags", self.place("s2.xsd", '<xs:element ref="e:C"><xs:annotation><xs:appinfo source="urn:SMPTE:'
                                           'MXF:XMLInterface:Groups:MetadataElementRequiredStatus">Req</xs:appinfo>'
                                           '<xs:appinfo source="urn:SMPTE:MXF:XMLInterface:Groups:LocalTag">80.03'),
             [self.place("s2.xsd", '<xs:element ref="e:C"')]),
            ("other-version", new, [old]), ("other-version", g2, [g1]),
            ("repeated-name", new, [old]), ("repeated-name", h, [g1])])

    def test_failures_to_load(self):
        self.write("d1.xsd", dictionary("\n", element(1, "A")))
        self.write("d2.xsd", dictionary("\n\n", element(1, "B")))
        self.write("d3.xsd", "<a>\n</b>")
        self.write("d4.xsd", dictionary(element(4, "D")))
        self.write("s1.xsd", scheme(group(1, "G", attribute("D"))))
        self.write("s2.xsd", scheme(group(1, "G", attribute("D"))))
        (self.folder / "dlink").symlink_to("d1.xsd")
        found = self.findings("d1.xsd", "dlink", "d1.xsd", "d2.xsd", "d3.xsd", "d4.xsd", "s1.xsd", "dx.xsd", "s2.xsd")
        for finding, before in zip(found, (".", ", before as d1.xsd.")):
            self.assertEqual((finding["related"], finding["remedy"]),
                             ([], "Leave one of the two out: this file is given twice" + before))
        del found[:2]
        self.assertEqual([finding["rule"] for finding in found], ["load-failed"] * 4)  # and not that A is unused
        self.assertEqual([finding["place"] for finding in found], [
            self.place("d2.xsd", "<xs:element"), {"path": "d3.xsd", "line": 2, "column": 3},
            {"path": "dx.xsd", "line": None, "column": None}, self.place("s2.xsd", "<xs:element")])
        self.assertEqual([other["place"] for other in found[0]["related"] + found[3]["related"]],
                         [self.place("d1.xsd", "<xs:element"), self.place("s1.xsd", "<xs:element")])
        self.assertIn(label(1), found[0]["message"])
        self.assertNotIn("d3.xsd", found[1]["message"])

    def test_what_a_failed_load_leads_to(self):
        self.write("d1.xsd", dictionary(element(1, "A", "NoType")))
        self.write("d2.xsd", dictionary(element(2, "B")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A"))))
        remedies = [finding["remedy"] for finding in self.findings("d1.xsd", "s.xsd", "d2.xsd")]
        self.assertEqual([remedy.startswith("First correct") for remedy in remedies], [False, True])
        remedies = [finding["remedy"] for finding in self.findings("s.xsd", "d2.xsd")]
        self.assertEqual([remedy.startswith("Groups refer") for remedy in remedies], [True])

    def test_a_reference_that_comes_after_its_set(self):
        self.write("d1.xsd", dictionary(element(1, "A")))
        self.write("d2.xsd", dictionary(reference(2, "R", "G", "None")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A"))))
        found = [finding for finding in self.findings("d1.xsd", "s.xsd", "d2.xsd")
                 if finding["rule"] == "unresolved-reference"]
        self.assertEqual([[other["place"]["path"] for other in finding["related"]] for finding in found], [["s.xsd"], []])
        self.assertIn("before the scheme", found[0]["remedy"])

    def test_values_are_lost_in_both_flavours_and_told_once(self):
        lost = attribute("T", value="1.0 &")
        self.write("d.xsd", dictionary(element(1, "T", "TimestampType"), element(2, "N")))
        self.write("s.xsd", scheme(group(1, "Base", "\n", lost, attribute("N", value="7")), group(2, "G", base="Base")))
        self.assertEqual([(f["place"], f["message"].rpartition(": ")[2]) for f in self.findings("d.xsd", "s.xsd")],
                         [(self.place("s.xsd", '<xs:element ref="e:T"'), "1.0 &")])
        self.write("m.xsd", multiplex(REGISTRY_MULTIPLEX))
        for name in ("d.xsd", "s.xsd"):
            self.write(name, in_registry_flavour((self.folder / name).read_text(encoding="utf-8")))
        self.assertEqual([finding["rule"] for finding in
                          self.findings("d.xsd", "s.xsd", options=["--multiplex", "m.xsd"])], ["lost-value"])

    def test_values_that_are_not_read_as_they_are_written(self):
        layout = "{" + ",".join(["{82,8}"] * 2 + ["{0,0}"] * 6) + "}"
        cases = (  # what is read, or nothing where that is what is written
            ("Boolean", "0", None), ("Boolean", " true", None), ("Boolean", "false", "true"), ("Boolean", "00", "true"),
            ("UInt8", "255", None), ("UInt8", "256", "0"), ("UInt8", "0x10", "0"), ("UInt8", "-1", "255"),
            ("Int16", " +7 ", None), ("Int16", "-32769", "32767"), ("Int32", "1.5", "1"), ("UInt64", "5 m", "5"),
            ("Length", "-1", None), ("Rational", "{25,-1}", None), ("Rational", "{1,2,3}", "1/2"),
            ("UTF16String", " {1 ", None), ("ISO7String", "a", None), ("UTF16", "a", None), ("UTF16", "ab", '"a"'),
            ("UUID", "12345678-1234-1234-1234-123456789abc", None), ("RGBALayout", layout, None),
            ("RGBALayout", layout.replace("82", "R"), None), ("RGBALayout", "zz", None), ("Items", "{1,2}", None),
            ("Items", "{}", None), ("Items", "{1}", "{}"), ("Items", "{1,2", "{}"), ("Items", "{1,300}", "{1, 44}"),
            ("Items", "{1,2,}", "{1, 2}"))
        unused = "{0 0, 0 0, 0 0, 0 0, 0 0, 0 0, 0 0, 0 0}"
        read = {layout.replace("82", "R"): unused.replace("0 0, 0 0", "0 8, 0 8", 1), "zz": unused}
        items = ('><xs:complexType><xs:complexContent><xs:extension base="t:Array"><xs:sequence><xs:element name="I" '
                 'type="t:UInt8"/></xs:sequence></xs:extension></xs:complexContent></xs:complexType></xs:element>')
        elements = [element(n, f"E{n}", kind) for n, (kind, _, _) in enumerate(cases)]
        elements = [text.replace("></xs:element>", items).replace(' type="t:Items"', "")
                    if "t:Items" in text else text for text in elements]
        self.write("d.xsd", dictionary(*elements))
        self.write("s.xsd", scheme(group(1, "G", *("\n" + attribute(f"E{n}", value=text)
                                                   for n, (_, text, _) in enumerate(cases)))))
        found = {finding["place"]["line"] - 2: finding["message"].partition(" and was read as ")[2]
                 for finding in self.findings("d.xsd", "s.xsd") if finding["rule"] == "doubtful-value"}
        self.assertEqual({n: found.get(n) for n in range(len(cases))},
                         {n: (value or read.get(text)) and f"{value or read[text]}."
                          for n, (_, text, value) in enumerate(cases)})
        self.write("s.xsd", scheme(group(1, "G", attribute("E4", value=""), attribute("E5", value="1<!-- -->2")
                                         .replace("&lt;", "<").replace("&gt;", ">"))))
        self.assertEqual([re.sub(".* set \"G\" ", "", finding["message"]) for finding in
                          self.findings("d.xsd", "s.xsd", options=["--rule", "doubtful-value"])],
                         ["is empty, and none was read.",
                          'is written "12", but only "1" of it is looked at, and was read as 1.'])

    def test_what_the_loader_passes_over(self):
        pack = '<xs:complexType name="Pack"><xs:sequence><xs:element ref="e:A"/></xs:sequence></xs:complexType>'
        self.write("d.xsd", dictionary(element(1, "A"), element(2, "B"), reference(3, "Id", "G_REF"), reference(4, "No")))
        self.write("s.xsd", scheme(
            group(1, "G", attribute("A"), '<xs:element ref="e:B"/><xs:element ref="e:None"/>', attribute("Id"),
                  attribute("No", tag_text="80.01", value="7").replace("LocalTag", "LocalTagg").replace("::", ":")),
            group(2, "H", '<xs:element ref="e:A"/>').replace("Groups:Name", "Dictionary:ElementName", 1), pack))
        found = self.findings("d.xsd", "s.xsd")
        groups = "urn:SMPTE:MXF:XMLInterface:Groups:"
        self.assertEqual([finding["remedy"] for finding in found if finding["rule"] == "unknown-annotation"],
                         [f'Did you mean "{groups}{name}"?' for name in ("LocalTag", ":DistinguishedValue")])
        self.assertEqual([finding["message"].split()[1] for finding in found
                          if finding["rule"] == "reference-without-status"], ['"B"', '"A"'])
        self.write("s.xsd", scheme(group(1, "G", attribute("Id"), attribute("No"))))
        self.assertEqual([finding["place"] for finding in self.findings("d.xsd", "s.xsd")
                          if finding["rule"] == "untargeted-reference"], [self.place("d.xsd", '<xs:element name="No"')])

    def test_declarations_that_are_not_found(self):
        """What stands beside a line in these files is what check says of it there."""
        lines = {"d.xsd": [
            ('<xs:include schemaLocation="./lost.xsd"/>', "The xs:include of lost.xsd is not followed."),
            ('<xs:include schemaLocation="./s.xsd"/>', None),
            (element(1, "A"), None), (element(2, "B"), None),
            (element(30, "K", Groups_Comments="for people"), None),
            (f'<xs:include schemaLocation="{self.folder}/s.xsd"/>', None),
            (f'<xs:import namespace="urn:z" schemaLocation="{self.folder}/s.xsd"/>', None),  # below this folder
            ("<xs:include/>", "The xs:include is not followed."),
            (element(3, "C").replace("Dictionary:ElementUL", "Other:Label"),
             '"C" has the annotation ElementName, but no ElementUL, and is not read.'),
            (element(4, "D").replace("SMPTE:MXF:XMLInterface:Dictionary:ElementUL", "Smpte:MXF:XMLInterface:Dictionary:ElementUL"),
             'The annotation "urn:Smpte:MXF:XMLInterface:Dictionary:ElementUL" is none that is read.'),
            (element(5, "E", Groups_LocalTag="80.01"), "LocalTag is read at references in types of groups only."),
            (f'<xs:complexType name="T"><xs:sequence>{element(6, "F")}</xs:sequence></xs:complexType>',
             "ElementUL is read at declarations of the top level only."),
        ], "s.xsd": [
            (group(1, "G", attribute("A"), '<xs:group ref="g:More"/>'), "The elements of an xs:group are no attributes of the set."),
            ('<xs:simpleType name="GType"/><xs:simpleType name="GType"/>', None),
            ('<xs:complexType name="GType"/>', 'Type "GType" is declared twice.'),
            (group(2, "H").replace("Groups:Key", "Other:Key"), '"H" has the annotation Name, but no Key, and is not read.'),
            (group(3, "I", attribute("B", tag_text="")), "The local tag has no text, and is as none."),
            (group(5, "L", attribute("B", tag_text="80.02").replace("</xs:appinfo>", "</xs:appinfo>"
             '<xs:appinfo source="urn:SMPTE:MXF:XMLInterface:Groups:LocalTag"/>', 1)), None),
            (group(4, "J").replace("Groups:Key", "Other:Key").replace("name=", 'abstract="true" name=', 1), None),
        ]}
        for name, make in (("d.xsd", dictionary), ("s.xsd", scheme)):
            self.write(name, make("\n", *(line + "\n" for line, _ in lines[name])))
        rules = ("incomplete-declaration", "not-read", "unknown-annotation", "wrong-import")
        found = self.findings("d.xsd", "s.xsd", options=[part for rule in rules for part in ("--rule", rule)])
        self.assertEqual(sorted((finding["place"]["path"], finding["place"]["line"], finding["message"]) for finding in found),
                         [(name, line, message) for name, told in lines.items()
                          for line, (_, message) in enumerate(told, 2) if message])

    def test_abstract_groups_without_keys_are_told_once(self):
        abstract = 'abstract="true" name="'
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("base.xsd", scheme(
            '<xs:element name="Bare" type="g:BareType" abstract="true"/>', "\n",
            group(1, "Keyed", base="Bare").replace('name="', abstract, 1), group(2, "G", base="Keyed"),
            '<xs:complexType name="BareType"/>'))
        self.write("heir.xsd", scheme(f'<xs:import namespace="{GROUPS}" schemaLocation="base.xsd"/>',
                                      group(3, "Own").replace('name="', abstract, 1), group(4, "H", base="Keyed")))
        found = self.findings("d.xsd", "base.xsd", "heir.xsd", options=["--rule", "lost-value"])
        self.assertEqual([(finding["rule"], finding["place"]["path"], finding["message"]) for finding in found], [
            ("left-out-abstract", "base.xsd", 'Abstract groups are left out though they have keys ("Keyed"), since group '
                                              '"Bare" has no key of the URN flavour.')])
        self.assertEqual([(other["place"]["path"], other["message"]) for other in found[0]["related"]],
                         [("heir.xsd", 'met while loading this file, which has "Own"')])

    def test_annotations_of_the_other_flavour(self):
        other = "http://www.smpte-ra.org/schemas/434/Groups/"
        old = "urn:SMPTE:MXF:XMLInterface:Groups:"
        self.write("d.xsd", dictionary(element(1, "A"), element(2, "B"), element(3, "C")))
        self.write("s.xsd", scheme(group(
            1, "G", attribute("A"), "\n", attribute("B").replace(f"{old}MetadataElement", f"{other}Property"), "\n",
            attribute("C", tag_text="80.01").replace(f"{old}LocalTag", f"{other}LocalTag"),
            attribute("A").replace(">Req<", f'>Req</xs:appinfo><xs:appinfo source="{other}PropertyRequiredStatus"><'))))
        found = self.findings("d.xsd", "s.xsd", options=["--disable", "unused-element", "--disable", "repeated-attribute"])
        self.assertEqual([(finding["rule"], finding["place"]["line"], finding["message"].rpartition(": ")[2])
                          for finding in found],
                         [("other-flavour", 2, "PropertyRequiredStatus."), ("other-flavour", 3, "LocalTag.")])

    def test_what_was_probably_meant(self):
        self.write("d.xsd", dictionary(element(1, "A"), reference(2, "R", "Bax", "None"),
                                       reference(3, "U", "Box").replace("g:Box", "zz:Box")))
        box = group(1, "Box", attribute("A"), attribute("R"), attribute("U"))
        self.write("s.xsd", scheme(box))
        found = self.findings("d.xsd", "s.xsd", options=["--rule", "unresolved-reference"])
        self.assertEqual(found[0]["remedy"], 'Did you mean "Box"?')
        self.assertIn("of no namespace", found[1]["message"])
        text = self.run_tool("check", *schema_arguments(["d.xsd", "s.xsd"]), "--rule", "unresolved-reference")[1]
        self.assertNotIn(b"\n      \n", text)

        self.write("base.xsd", scheme(group(1, "Box", attribute("A"))).replace("xs:schema ", "xs:schema xmlns:x='x' "))
        self.write("heir.xsd", scheme(f'<xs:import namespace="{GROUPS}" schemaLocation="base.xsd"/>',
                                      group(2, "Heir", base="Box")))
        found = self.findings("d.xsd", "heir.xsd", options=["--rule", "missing-base"])
        self.assertEqual([(finding["remedy"], finding["related"][0]["place"]["path"]) for finding in found],
                         [("Load base.xsd with --scheme, too.", "base.xsd")])

        self.write("d.xsd", dictionary(element(1, "A"), element(2, "B")).replace("XMLInterface:", "XMLInterfaces:"))
        remedies = {finding["rule"]: finding["remedy"] for finding in self.findings("d.xsd")}
        self.assertEqual(list(remedies)[:2], ["no-declarations", "empty-dictionary"])  # the reason first
        urn = "urn:SMPTE:MXF:XMLInterface:Dictionary:ElementUL"
        self.assertIn(f'annotate its elements with "{urn}"', remedies["no-declarations"])
        self.assertIn(f'Did you mean "{urn}"?', remedies["no-declarations"])
        self.assertNotIn("Give the schemas", remedies["empty-dictionary"])

    def test_identifiers_that_cannot_be(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A", tag_text="00.00")).replace(key(1), label(1)),
                                   group(2, "H", attribute("A", tag_text="80.01")).replace(key(2), ".".join(["00"] * 16))))
        found = self.findings("d.xsd", "s.xsd", options=["--rule", "impossible-identifier"])
        self.assertEqual(sorted(finding["message"].partition(":")[0] for finding in found), [
            'The key of "H" is all zeros.', 'The key of set "G" is the label of element "A"',
            'The local tag of "A" in set "G" is all zeros.'])

    def test_an_element_twice_in_a_set(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A", tag_text="80.01"), attribute("A", tag_text="80.02")),
                                   group(2, "H", base="G")))
        self.assertEqual([(finding["rule"], finding["remedy"][:29]) for finding in self.findings("d.xsd", "s.xsd")],
                         [("repeated-attribute", "Keep one of the two reference"),
                          ("many-local-tags", "Keep one of the two reference")])

    def test_exit_status_and_choice_of_rules(self):
        self.write("d.xsd", dictionary(reference(1, "R", "None"), element(2, "A"), element(3, "B")))
        self.write("s.xsd", scheme(group(1, "G", attribute("R"), attribute("A"))))
        files = schema_arguments(["d.xsd", "s.xsd"])
        for options, expected, rules in (
                ([], 0, ["unresolved-reference", "unused-element"]),
                (["--strict"], 1, ["unresolved-reference", "unused-element"]),
                (["--strict", "--disable", "unresolved-reference"], 0, ["unused-element"]),
                (["--rule", "unused-element", "--rule", "lost-value"], 0, ["unused-element"]),
                (["--rule", "lost-value", "--dictionary", "none.xsd"], 1, ["load-failed"])):
            with self.subTest(options):
                status, output, errors = self.run_tool("check", *files, *options)
                self.assertEqual((status, errors), (expected, b""))
                self.assertEqual(re.findall(r" \[([a-z-]+)\]$", output.decode(), re.MULTILINE), rules)
        status, _, errors = self.run_tool("check", *files, "--rule", "unusedelement")
        self.assertEqual(status, 2)
        self.assertIn(b"no such rule: unusedelement; did you mean unused-element?", errors)
        status, _, errors = self.run_tool("check", *files, "--dictionary", "none.xsd", "--disable", "load-failed")
        self.assertEqual(status, 2)
        self.assertIn(b"a file that was not loaded is always told: load-failed", errors)

    def test_text(self):
        self.write("d.xsd", dictionary(element(1, "A"), "\n", element(2, "B"), "\n", element(3, "C")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A"))))
        files = schema_arguments(["d.xsd", "s.xsd"])
        lines = ('d.xsd:2:1: note: No set uses element "B". [unused-element]\n'
                 'd.xsd:3:1: note: No set uses element "C". [unused-element]\n'
                 "    Add the element to a set, load the scheme that uses it, or take it out.\n")
        summary = "\nChecked 3 elements and 1 set of 2 files: 0 errors, 0 warnings, 2 notes.\n"
        self.assertEqual(self.run_tool("check", *files)[1].decode(), lines + summary)
        self.assertEqual(self.run_tool("check", *files, "--quiet")[1], b"")
        self.assertIn("\x1b[36mnote:\x1b[0m", self.run_tool("check", *files, "--color", "always")[1].decode())
        self.assertIn(b"No set was loaded", self.run_tool("check", "--dictionary", "d.xsd")[1])

    def test_text_for_people_is_short(self):
        path = "d" * 60 + ".xsd"
        self.write(path, dictionary(*(element(n, f"E{n}") for n in range(1, 9)), "\n", element(9, "Again"),
                                    *("\n" + reference(n, f"R{n}", "Missing", "Other") for n in (10, 11))))
        self.write("s.xsd", scheme(group(1, "G", *(attribute(name) for name in ("E1", "Again", "R10", "R11")))))
        files = schema_arguments([path, "s.xsd"])
        text = self.on_terminal(["check", *files], {**os.environ, "NO_COLOR": "1"}).decode()
        self.assertLessEqual(max(map(len, text.splitlines())), 100)
        # For programs each text is one line.
        self.run_tool("check", *files, "--output", "found")
        for lines in (self.run_tool("check", *files)[1].decode(), (self.folder / "found").read_text(encoding="utf-8")):
            self.assertEqual(lines.split(), text.split())
            self.assertRegex(lines, re.compile(rf'^{path}:3:1: warning: .*"R10" .* \[unresolved-reference\]$', re.MULTILINE))
        self.assertEqual(text.count(" note: "), 1)
        self.assertIn(f'{path}:1:', text)
        self.assertIn('"E2", "E3", "E4" and 4 more', " ".join(text.split()))
        self.assertEqual(text.count("urn:x:groups"), 1)
        strict = self.run_tool("check", *files, "--quiet", "--strict")[1].decode()
        self.assertEqual((strict.count(" warning: "), strict.count(" note: ")), (2, 0))
        self.assertEqual(self.run_tool("check", *files, "--quiet"), (0, b"", b""))
        found = self.findings(path, "s.xsd")
        self.assertEqual(len([finding for finding in found if finding["rule"] == "unused-element"]), 7)
        self.assertIn("urn:x:groups", found[1]["message"])

    def test_sarif(self):
        self.write("d.xsd", dictionary("\n", element(1, "A"), element(2, "B", name="A")))
        self.write("s \u00e4:%.xsd", scheme(group(1, "G", attribute("A"), attribute("None"))))
        _, output, _ = self.run_tool("check", *schema_arguments(["d.xsd", "s \u00e4:%.xsd", "dx.xsd"]),
                                     "--scheme", self.folder / "x", "--format", "sarif")
        log = json.loads(output)
        jsonschema.Draft202012Validator(SARIF).validate(log)
        run = log["runs"][0]
        for result in run["results"]:
            rule = run["tool"]["driver"]["rules"][result["ruleIndex"]]
            self.assertEqual((rule["id"], rule["defaultConfiguration"]["level"]), (result["ruleId"], result["level"]))
        physical = [location["physicalLocation"] for result in run["results"]
                    for location in result["locations"] + result.get("relatedLocations", [])]
        self.assertEqual([place["artifactLocation"]["uri"] for place in physical],
                         ["s%20%C3%A4%3A%25.xsd", "dx.xsd", f"file://{self.folder}/x", "d.xsd", "d.xsd"])
        self.assertEqual(["region" in place for place in physical], [True, False, False, True, True])

    def test_shipped_schemas_have_nothing_but_names_that_repeat(self):
        for flavour in ("registry", "urn"):
            status, output, errors = self.run_tool("check", *shipped_files(flavour), "--strict", "--format", "json")
            self.assertEqual((status, errors), (0, b""))
            self.assertEqual({finding["rule"] for finding in json.loads(output)["findings"]}, {"repeated-name"})


if __name__ == "__main__":
    unittest.main()
