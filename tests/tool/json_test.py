"""The JSON format: the documented schema, the order of everything, and values."""
import json
import unittest

import jsonschema

from support import SOURCE, ToolTest, attribute, dictionary, element, group, key, label, reference, scheme

NO_PLACE = {"path": None, "line": None, "column": None}
SCHEMA = json.loads((SOURCE / "docs/dump.schema.json").read_text(encoding="utf-8"))


def violations(document):
    return [f"{error.json_path}: {error.message}" for error in
            jsonschema.Draft202012Validator(SCHEMA).iter_errors(document)]


def shipped_files(flavour):
    folder = SOURCE / "schemas" / flavour
    return ["--multiplex", folder / "multiplex.xsd", "--dictionary", folder / "dictionary.xsd",
            "--scheme", folder / "groups.xsd", "--scheme", folder / "descriptive.xsd"]


class Format(ToolTest):
    def test_shipped_schemas_give_what_is_documented(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)
        for flavour in ("registry", "urn"):
            for options in ([], ["--abstract-groups", "--documentation", "--length-description"]):
                with self.subTest(flavour=flavour, options=options):
                    result = self.dump(*shipped_files(flavour), *options)
                    self.assertEqual(violations(result), [])
                    self.assertTrue(result["elements"] and result["sets"] and result["localTags"])

    def test_the_schema_is_strict(self):
        self.write("d.xsd", dictionary(element(1, "A"), reference(2, "R", "G")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A", tag_text="3C.0A", value="5"))))
        files = ("--dictionary", "d.xsd", "--scheme", "s.xsd")
        self.assertEqual(violations(self.dump(*files)), [])
        spoilers = [
            lambda d: d.pop("localTags"),
            lambda d: d.update(more=1),
            lambda d: d["loads"][0].update(kind="group"),
            lambda d: d["loads"][0].update(error={**NO_PLACE, "class": "NotFound", "code": 16, "message": ""}),
            lambda d: d["loads"][0].update(error={**NO_PLACE, "class": "NotFound", "code": None, "message": ""}),
            lambda d: d["loads"][0].update(error={**NO_PLACE, "class": "NotFound", "code": 31, "message": "", "line": 1}),
            lambda d: d["elements"][0].update(label=label(1).lower()),
            lambda d: d["elements"][0].update({"class": "MetaCollection"}),
            lambda d: d["elements"][0].update(dataType=24),
            lambda d: d["elements"][0]["properties"].update(UnresolvedMetaMetadataSetsRefs=""),
            lambda d: d["elements"][1]["properties"].pop("UnresolvedMetaMetadataSetsRefs"),
            lambda d: d["sets"][0]["attributes"][0].update(requiredStatus="req"),
            lambda d: d["sets"][0]["attributes"][0].update(localTag="3C0A"),
            lambda d: d["sets"][0]["attributes"][0]["distinguishedValue"].update(value="5"),
            lambda d: d["sets"][0]["attributes"][0]["distinguishedValue"].update(value=2**32),
            lambda d: d["sets"][0]["properties"].update(baseGroupUL="no key"),
        ]
        for number, spoil in enumerate(spoilers):
            document = self.dump(*files)
            spoil(document)
            with self.subTest(number):
                self.assertNotEqual(violations(document), [])

    def test_order_of_members_and_entries(self):
        self.write("d.xsd", dictionary(element(9, "B"), element(3, "A"), reference(5, "R", "H", "Gone", "G")))
        self.write("s.xsd", scheme(
            group(8, "H", attribute("B", tag_text="02.01"), attribute("A", tag_text="01.09")),
            group(4, "G", attribute("A", tag_text="01.02"), attribute("R", status="B.Effort"))))
        result = self.dump("--dictionary", "d.xsd", "--scheme", "s.xsd")
        self.assertEqual(list(result), ["targetNamespace", "options", "loads", "elements", "sets", "localTags"])
        self.assertEqual(list(result["loads"][0]), ["kind", "path", "error"])
        self.assertEqual([list(entry) for entry in result["elements"]],
                         [["label", "class", "dataType", "dataSubType", "allowedSets", "properties"]] * 3)
        self.assertEqual([entry["label"] for entry in result["elements"]], [label(3), label(5), label(9)])
        self.assertEqual([list(entry) for entry in result["sets"]], [["key", "attributes", "properties"]] * 2)
        self.assertEqual([entry["key"] for entry in result["sets"]], [key(4), key(8)])
        for entry in result["sets"] + result["elements"]:
            self.assertEqual(list(entry["properties"]), sorted(entry["properties"]))
        self.assertEqual(list(result["sets"][0]["attributes"][0]),
                         ["element", "requiredStatus", "localTag", "distinguishedValue", "properties"])
        self.assertEqual([entry["element"] for entry in result["sets"][1]["attributes"]], [label(9), label(3)])
        self.assertEqual([(entry["tag"], entry["label"]) for entry in result["localTags"]],
                         [("01.02", label(3)), ("01.09", label(3)), ("02.01", label(9))])
        self.assertEqual(result["elements"][1]["allowedSets"], [key(4), key(8)])
        self.assertEqual(result["elements"][1]["properties"]["UnresolvedMetaMetadataSetsRefs"], "[Gone,urn:x:groups];")

    def test_values_from_schemas(self):
        cases = [
            ("UInt64", "18446744073709551615", {"dataType": 19, "value": 2**64 - 1}),
            ("Boolean", "true", {"dataType": 2, "value": True}),
            ("Rational", "{25,1}", {"dataType": 15, "numerator": 25, "denominator": 1}),
            ("UTF16String", "\u00e9 \U0001f600", {"dataType": 26, "value": "\u00e9 \U0001f600"}),
            ("UTF16Char", "\U0001f600", {"dataType": 25, "value": "\ud83d"}),  # one code unit, half a character
        ]
        self.write("d.xsd", dictionary(*(element(n, f"E{n}", kind) for n, (kind, _, _) in enumerate(cases))))
        self.write("s.xsd", scheme(group(1, "G", *(attribute(f"E{n}", value=text)
                                                   for n, (_, text, _) in enumerate(cases)))))
        _, output, _ = self.run_tool("dump", "--format", "json", "--dictionary", "d.xsd", "--scheme", "s.xsd")
        result = json.loads(output)
        self.assertEqual([entry["distinguishedValue"] for entry in result["sets"][0]["attributes"]],
                         [expected for _, _, expected in cases])
        self.assertEqual(violations(result), [])
        self.assertIn('"value": "\u00e9 \U0001f600"\n', output.decode("utf-8"))
        self.assertIn(b'"value": "\\ud83d"\n', output)


if __name__ == "__main__":
    unittest.main()
