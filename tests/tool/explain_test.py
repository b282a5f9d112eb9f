"""The subcommand explain: what is found, by which texts, and what is told of it."""
import json
import re
import unittest

import jsonschema

from json_test import shipped_files
from support import SOURCE, ToolTest, attribute, dictionary, element, group, key, label, reference, scheme

SCHEMA = json.loads((SOURCE / "docs/explain.schema.json").read_text(encoding="utf-8"))


class Explain(ToolTest):
    """A base with two sets derived from it, one of which refers to the other."""

    def setUp(self):
        super().setUp()
        self.write("d.xsd", dictionary(
            "\n", element(1, "A", "UInt32", "Alpha Value", documentation="About\n alpha.", Dictionary_Length="4 bytes"),
            element(2, "Own"), reference(3, "Ref", "Leaf", "Gone"), element(4, "AlphaTrack", "UTF16String", "Track 1")))
        self.write("s.xsd", scheme(
            group(10, "Root", attribute("A", "Opt", "01.02", "7"), name="Root Set")
            .replace('type="g:RootType"', 'type="g:RootType" abstract="true"'),
            "\n\n", group(11, "Leaf", attribute("Own", "Req", "00.03"), base="Root", name="Leaf Set"),
            group(12, "Other", attribute("Ref", "E/req"), base="Root", name="Other Set")))
        self.files = ["--dictionary", "d.xsd", "--scheme", "s.xsd"]

    def explain(self, question, expected=0):
        status, output, errors = self.run_tool("explain", "--format=json", *self.files, "--", question)
        self.assertEqual((status, errors), (expected, b""))
        result = json.loads(output)
        jsonschema.Draft202012Validator(SCHEMA).validate(result)
        self.assertEqual(result["question"], question)
        return result

    def found(self, question):
        result = self.explain(question)
        return [entry["name"] for entry in result["elements"] + result["sets"]]

    def near(self, question):
        return [(miss["name"], miss["nearness"]) for miss in self.explain(question, 1)["nearMisses"]]

    def test_all_ways_to_ask(self):
        digits = label(1).replace(".", "").lower()
        for question in (label(1), label(1).lower(), digits, label(1).replace(".", " "), "Alpha Value", "A", "e:A",
                         "urn:smpte:ul:" + ".".join(digits[i:i + 8] for i in range(0, 32, 8)), "01.02", "0102", "0x0102",
                         "01 02", "01:02", "{01-02}", "{" + "-".join((digits[:8], digits[8:])) + "}",
                         "{" + digits[16:24] + "-" + digits[24:] + "-" + digits[:16] + "}"):
            with self.subTest(question):
                self.assertEqual(self.found(question), ["Alpha Value"])
        for question in (key(11), "Leaf Set", "Leaf", "g:Leaf"):
            self.assertEqual(self.found(question), ["Leaf Set"])

    def test_near_misses(self):
        version = label(1)[:21] + "0D" + label(1)[23:]
        wildcard = key(11)[:15] + "7F" + key(11)[17:]
        for question, expected in [
                (version, [("Alpha Value", "version")]),
                (wildcard, [("Leaf Set", "wildcard")]),
                (wildcard[:21] + "0D" + wildcard[23:], [("Leaf Set", "wildcard")]),
                ("ALPHA-value", [("Alpha Value", "case")]),
                (key(11)[:36] + "FF" + key(11)[38:], [("Leaf Set", "bytes")]),
                (key(11)[:20], [("Root Set", "part"), ("Leaf Set", "part"), ("Other Set", "part")]),
                (key(11)[18:], [("Leaf Set", "part")]),
                (key(11)[:20] + key(11)[23:], [("Leaf Set", "bytes")]), (key(11) + ".00", [("Leaf Set", "bytes")]),
                ("*set", [("Root Set", "pattern"), ("Leaf Set", "pattern"), ("Other Set", "pattern")]),
                ("al*a*ue", [("Alpha Value", "pattern")]), ("*fset*set", []),
                ("urn:x:track", []), ("x:track", [("Track 1", "part")]),
                ("Alhpa Value", [("Alpha Value", "spelling")]),
                ("alpha", [("Alpha Value", "part"), ("Track 1", "part")]),
                ("nothing like it", []), ("7F", []),
                ("*", [(name, "pattern") for name in ("Alpha Value", "Own", "Ref", "Track 1", "Root Set", "Leaf Set",
                                                      "Other Set")])]:
            with self.subTest(question):
                self.assertEqual(self.near(question), expected)
        for question in ("", " \t"):
            status, output, errors = self.run_tool("explain", question, *self.files)
            self.assertEqual((status, output), (2, b""))
            self.assertIn(b"nothing to explain", errors)

    def test_an_element(self):
        entry = self.explain("A")["elements"][0]
        root = {"key": key(10), "name": "Root Set"}
        use = {"localTag": "01.02", "requiredStatus": "Opt", "distinguishedValue": {"dataType": 18, "value": 7}}
        loaded = {"typeNotLoaded": None}
        uses = entry.pop("uses")
        for found in uses:
            self.assertEqual(found.pop("declaredAt")["path"], "s.xsd")
        self.assertEqual(uses, [
            {"set": root, **use, "inheritedFrom": None, **loaded},
            {"set": {"key": key(11), "name": "Leaf Set"}, **use, "inheritedFrom": root, **loaded},
            {"set": {"key": key(12), "name": "Other Set"}, **use, "inheritedFrom": root, **loaded}])
        self.assertEqual(entry, {
            "label": label(1), "name": "Alpha Value", "dataType": "UInt32", "dataSubType": None, "localTags": ["01.02"],
            "xmlName": "A", "xmlItemName": None, "xmlNamespace": "urn:x:elements", "length": "4 bytes",
            "documentation": "About\n alpha.", "declaredAt": {"path": "d.xsd", "line": 2, "column": 1}, "targets": [], "undeclaredTargets": []})
        entry = self.explain("Ref")["elements"][0]
        self.assertEqual(entry["targets"], [{"key": key(11), "name": "Leaf Set"}])
        self.assertEqual(entry["undeclaredTargets"], [{"name": "Gone", "namespace": "urn:x:groups"}])

    def test_a_set(self):
        entry = self.explain("Leaf")["sets"][0]
        root = {"key": key(10), "name": "Root Set"}
        self.assertEqual((entry["bases"], entry["missingBase"], entry["derived"], entry["abstract"]),
                         ([root], None, [], False))
        self.assertEqual([(a["element"]["name"], a["localTag"], a["inheritedFrom"]) for a in entry["attributes"]],
                         [("Alpha Value", "01.02", root), ("Own", "00.03", None)])
        self.assertEqual(entry["referencedBy"], [
            {"element": {"label": label(3), "name": "Ref"}, "target": {"key": key(11), "name": "Leaf Set"},
             "sets": [{"key": key(12), "name": "Other Set"}]}])
        entry = self.explain("Root Set")["sets"][0]
        self.assertEqual(([heir["name"] for heir in entry["derived"]], entry["abstract"]),
                         (["Leaf Set", "Other Set"], True))

    def test_attributes_come_from_the_base_that_adds_them(self):
        self.write("s.xsd", scheme(group(1, "Top", attribute("A")), group(2, "Middle", attribute("Own"), base="Top"),
                                   group(3, "Low", attribute("AlphaTrack"), base="Middle")))
        attributes = self.explain("Low")["sets"][0]["attributes"]
        self.assertEqual([origin and origin["name"] for origin in (a["inheritedFrom"] for a in attributes)],
                         ["Top", "Middle", None])

    def test_attributes_of_a_base_that_is_not_loaded_come_from_its_file(self):
        self.write("base.xsd", scheme(group(10, "Root", attribute("A"))))
        self.write("s.xsd", scheme('<xs:import namespace="urn:x:groups" schemaLocation="base.xsd"/>',
                                   group(11, "Leaf", attribute("Own"), base="Root"), group(12, "Sub", base="Leaf")))
        for question, expected in (("Leaf", [["Own"], ["Alpha", "Value", "RootType"]]),
                                   ("Sub", [["Alpha", "Value", "RootType"], ["Own", "Leaf"]])):
            lines = self.run_tool("explain", question, *self.files)[1].decode().splitlines()
            found = [line.split() for line in lines if line.startswith("  -  ")]
            self.assertEqual([[cell for cell in cells if cell not in ("-", "UInt32", "Req")] for cells in found], expected)
        origin = self.explain("Leaf")["sets"][0]["attributes"][0]["declaredAt"]
        self.assertEqual(origin["path"], "base.xsd")  # as it would be typed, and not ./base.xsd

    def test_abstract_groups_without_key_are_done_without(self):
        self.write("s.xsd", (self.folder / "s.xsd").read_text()
                   .replace(f'<xs:appinfo source="urn:SMPTE:MXF:XMLInterface:Groups:Key">{key(10)}</xs:appinfo>', ""))
        status, output, errors = self.run_tool("explain", "Leaf", *self.files)
        warning = ('s.xsd:1:%d: warning: abstract groups of s.xsd are left out, since group "Root" has no key of the URN '
                   "flavour; sets that extend them are shown without these bases\n"
                   % (1 + (self.folder / "s.xsd").read_text().index('<xs:element name="Root"')))
        self.assertEqual((status, errors.decode()), (0, warning))
        lines = [" ".join(line.split()) for line in output.decode().splitlines()]
        self.assertEqual((lines[2], lines[7:13]), ("Derived from RootType (not loaded)", [
            "Own attributes: 1", "Tag Name Type Status Value", "00.03 Own UInt32 Req", "", "Inherited attributes: 1",
            "Tag Name Type Status Value From"]))
        self.assertEqual(lines[13], "01.02 Alpha Value UInt32 Opt 7 RootType")
        status, output, errors = self.run_tool("explain", "--format=json", "--quiet", "Leaf", *self.files)
        self.assertEqual((status, errors), (0, b""))
        result = json.loads(output)
        jsonschema.Draft202012Validator(SCHEMA).validate(result)
        self.assertEqual([(a["inheritedFrom"], a["typeNotLoaded"]) for a in result["sets"][0]["attributes"]],
                         [(None, "RootType"), (None, None)])
        self.write("s.xsd", scheme(re.sub('<xs:element name="Root".*?</xs:element>', "", group(10, "Root", attribute("A"))),
                                   group(11, "Leaf", base="Root")))
        status, output, errors = self.run_tool("explain", "Leaf", *self.files)
        self.assertEqual((status, errors), (0, b""))
        self.assertIn(b"  Derived from   RootType (a type without a group)\n", output)

    def test_text(self):
        status, output, errors = self.run_tool("explain", "Leaf Set", *self.files)
        self.assertEqual((status, errors), (0, b""))
        self.assertEqual(output.decode().splitlines(), [
            "Set: Leaf Set",
            f"  Key            {key(11)}",
            "  Derived from   Root Set (abstract)",
            "  XML name       Leaf",
            "  Namespace      urn:x:groups",
            "  Declared at    s.xsd:3:1",
            "",
            "Own attributes: 1",
            "  Tag    Name  Type    Status  Value",
            "  00.03  Own   UInt32  Req",
            "",
            "Inherited attributes: 1",
            "  Tag    Name         Type    Status  Value  From",
            "  01.02  Alpha Value  UInt32  Opt     7      Root Set",
            "",
            "Referenced by elements: 1",
            "  Element  Type             In sets    As",
            "  Ref      StrongReference  Other Set  Leaf Set"])
        _, output, _ = self.run_tool("explain", "A", *self.files)
        self.assertIn("\nUsed by sets: 1\n  Set                  Tag    Status  Value\n"
                      "  Root Set (abstract)  01.02  Opt     7\n      inherited by Leaf Set, Other Set\n",
                      output.decode())
        status, output, _ = self.run_tool("explain", "Gone", *self.files)
        self.assertEqual((status, output), (1, b'Nothing is called "Gone", and nothing comes near it.\n'))
        self.write("d.xsd", dictionary(*(element(n, f"Number{n}") for n in range(17))))
        lines = self.run_tool("explain", label(0)[:11], *self.files[:2])[1].decode().splitlines()
        self.assertEqual((lines[0], len(lines), lines[-1]), (
            'Nothing is called "06.0E.2B.34"; it has 4 bytes, and labels and keys have 16. These come near it:', 15,
            "  and 5 more"))
        self.assertEqual(json.loads(self.run_tool("explain", "--format=json", "Numb", *self.files[:2])[1])["furtherNearMisses"], 5)
        self.write("d.xsd", dictionary())
        self.assertEqual(self.run_tool("explain", "A", "--keep-going", *self.files[:2])[1],
                         b'Nothing is called "A": no elements and no sets are loaded.\n')

    def test_all_of_the_shipped_schemas(self):
        self.files = shipped_files("registry")
        for question, kind in (("Material Package", "sets"), ("3C.0A", "elements"), ("Track", "sets")):
            self.assertEqual(len(self.explain(question)[kind]), 1)


if __name__ == "__main__":
    unittest.main()
