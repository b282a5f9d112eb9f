"""The subcommand diff: which changes it finds, how it classes them, and what it does with files that are no dumps."""
import copy
import json
import re
import unittest

import jsonschema

from json_test import shipped_files
from support import (REGISTRY_MULTIPLEX, SOURCE, ToolTest, attribute, dictionary, element, group, key, label, reference,
                     scheme)

SCHEMA = json.loads((SOURCE / "docs/diff.schema.json").read_text(encoding="utf-8"))


def of_element(number):
    return lambda dump: next(entry for entry in dump["elements"] if entry["label"] == label(number))


def of_set(number):
    return lambda dump: next(entry for entry in dump["sets"] if entry["key"] == key(number))


def set_property(find, name, value):
    return lambda dump: find(dump)["properties"].update({name: value})


def of_attribute(number, position):
    return lambda dump: of_set(number)(dump)["attributes"][position]


def new_attribute(status):
    return lambda dump: of_set(11)(dump)["attributes"].append({**of_attribute(11, 0)(dump), "element": label(2),
                                                               "localTag": None, "requiredStatus": status})


def retag(tag):
    """Another local tag, or none, for the attribute that set 11 has of its own."""
    def edit(dump):
        of_attribute(11, 1)(dump)["localTag"] = tag
        del dump["localTags"][0]
        if tag:
            dump["localTags"].append({"tag": tag, "label": label(4)})
    return edit


def status_of_refs(status):
    return lambda dump: of_attribute(12, 1)(dump).update(requiredStatus=status)


def newer(identifier):
    return identifier[:21] + "0D" + identifier[23:]


def other_version(identifier):
    """Another version byte wherever the identifier is."""
    def edit(dump):
        text = json.dumps(dump).replace(identifier, newer(identifier))
        dump.clear()
        dump.update(json.loads(text))
    return edit


LEAF_A, LEAF_B, LEAF_C, OTHER_REFS = (f"{key(n)} {label(m)}" for n, m in ((11, 1), (11, 2), (11, 4), (12, 3)))
LEAF = {"key": key(11), "name": "Leaf Set"}
SEVEN, EIGHT = ({"dataType": 18, "value": value} for value in (7, 8))
OTHER_FORM = "new.json: error: not a dump as this version writes it: "
# An edit of the dump that Diff.setUp() makes, the changes that it is, and the kinds of those that undoing it is.
EDITS = [
    (lambda d: d["elements"].pop(4), [("element-removed", label(5), "UInt32", None)], "element-added"),
    (lambda d: of_element(1)(d).update(dataType=17), [("data-type-changed", label(1), "UInt32", "UInt16")],
     "data-type-changed"),
    (lambda d: of_element(1)(d).update({"class": "MetaCollection", "dataType": 0, "dataSubType": 18}),
     [("data-type-changed", label(1), "UInt32", "Array of UInt32")], "data-type-changed"),
    (lambda d: of_element(3)(d).update(dataSubType=30),
     [("item-type-changed", label(3), "Batch of StrongReference", "Batch of WeakReference")], "item-type-changed"),
    (lambda d: of_element(3)(d)["allowedSets"].remove(key(11)), [("allowed-set-removed", label(3), LEAF, None)],
     "allowed-set-added"),
    (set_property(of_element(3), "UnresolvedMetaMetadataSetsRefs", "[Gone,urn:x:groups];[More,u];"),
     [("undeclared-set-added", label(3), None, {"name": "More", "namespace": "u"})], "undeclared-set-removed"),
    (lambda d: d["sets"].pop(2), [("set-removed", key(12), None, None)], "set-added"),
    (set_property(of_set(12), "baseGroupUL", ""),
     [("base-changed", key(12), {"key": key(10), "name": "Root Set"}, None)], "base-changed"),
    (set_property(of_set(11), "abstract", "true"), [("set-made-abstract", key(11), None, None)], "set-made-concrete"),
    (lambda d: of_set(12)(d)["attributes"].pop(), [("attribute-removed", OTHER_REFS, "E/req", None)],
     "required-attribute-added"),
    (new_attribute("Opt"), [("attribute-added", LEAF_B, None, "Opt")], "attribute-removed"),
    (new_attribute("B.Effort"), [("attribute-added", LEAF_B, None, "B.Effort")], "attribute-removed"),
    (new_attribute("D/req"), [("required-attribute-added", LEAF_B, None, "D/req")], "attribute-removed"),
    (new_attribute("Req"), [("required-attribute-added", LEAF_B, None, "Req")], "attribute-removed"),
    (lambda d: of_set(11)(d)["attributes"].reverse(), [("attribute-order-changed", key(11), "Alpha, C", "C, Alpha")],
     "attribute-order-changed"),
    (lambda d: (other_version(label(1))(d), other_version(key(11))(d)),
     [("version-changed", label(1), label(1), newer(label(1))), ("version-changed", key(11), key(11), newer(key(11)))],
     "version-changed version-changed"),
    # Of two that differ in nothing else, neither is the one that was there.
    (lambda d: (other_version(key(12))(d), d["sets"].append({**of_set(10)(d), "key": key(12)[:21] + "0F" + key(12)[23:]})),
     [("set-removed", key(12), None, None), ("set-added", newer(key(12)), None, None),
      ("set-added", key(12)[:21] + "0F" + key(12)[23:], None, None)],
     "set-added set-removed set-removed"),
    (lambda d: (of_element(1)(d).update(dataType=17), of_attribute(11, 0)(d).update(
        distinguishedValue={"dataType": 17, "value": 7})), [("data-type-changed", label(1), "UInt32", "UInt16")],
     "data-type-changed"),
    (status_of_refs("Req"), [("requirement-added", OTHER_REFS, "E/req", "Req")], "requirement-removed"),
    (status_of_refs("D/req"), [("requirement-added", OTHER_REFS, "E/req", "D/req")], "requirement-added"),
    (status_of_refs("B.Effort"), [("requirement-removed", OTHER_REFS, "E/req", "B.Effort")], "requirement-added"),
    (lambda d: of_attribute(11, 0)(d).update(distinguishedValue=EIGHT),
     [("distinguished-value-changed", LEAF_A, SEVEN, EIGHT)], "distinguished-value-changed"),
    (lambda d: of_attribute(11, 0)(d).update(distinguishedValue=None),
     [("distinguished-value-changed", LEAF_A, SEVEN, None)], "distinguished-value-changed"),
    (set_property(of_attribute(11, 1), "RequiresSemanticsValidation", "yes"),
     [("semantics-validation-changed", LEAF_C, "", "yes")], "semantics-validation-changed"),
    (retag("00.09"), [("local-tag-changed", LEAF_C, "00.03", "00.09")], "local-tag-changed"),
    (retag("01.02"), [("local-tag-reused", label(4), {"label": label(1), "name": "Alpha"}, "01.02"),
                      ("local-tag-changed", LEAF_C, "00.03", "01.02")], "local-tag-changed"),
    (retag(None), [("local-tag-removed", LEAF_C, "00.03", None)], "local-tag-added"),
    (lambda d: d["localTags"].pop(), [("local-tag-removed", label(1), "01.02", None)], "local-tag-added"),
    (set_property(of_element(1), "XMLTagName", "Z"), [("xml-name-changed", label(1), "A", "Z")], "xml-name-changed"),
    (lambda d: of_element(1)(d)["properties"].pop("XMLTagName"), [("xml-name-changed", label(1), "A", None)],
     "xml-name-added"),
    (set_property(of_element(3), "XMLChildTagName", "Z"), [("xml-item-name-changed", label(3), "Leaf", "Z")],
     "xml-item-name-changed"),
    (set_property(of_attribute(11, 1), "XMLNamespaceURI", "u"),
     [("xml-namespace-changed", LEAF_C, "urn:x:groups", "u")], "xml-namespace-changed"),
    (set_property(of_set(11), "name", "\ud83d\U0001f600"), [("name-changed", key(11), "Leaf Set", "\ud83d\U0001f600")],
     "name-changed"),
    (set_property(of_element(2), "XMLDefaultPrefix", "p"), [("prefix-changed", label(2), "e", "p")], "prefix-changed"),
    (set_property(of_element(2), "Documentation", "Other."),
     [("documentation-changed", label(2), "About B.", "Other.")], "documentation-changed"),
    (lambda d: of_element(2)(d)["properties"].pop("LengthDescription"),
     [("length-description-changed", label(2), "4", None)], "length-description-changed"),
]


class Diff(ToolTest):
    """Leaf and Other derive from Root; Other refers to Leaf."""

    def setUp(self):
        super().setUp()
        self.write("d.xsd", dictionary(
            element(1, "A", name="Alpha"), element(2, "B", documentation="About B.", Dictionary_Length="4"),
            reference(3, "Refs", "Leaf", "Gone"), element(4, "C"),
            element(5, "D", documentation="D.", Dictionary_Length="5")))
        self.write("s.xsd", scheme(
            group(10, "Root", attribute("A", "Opt", "01.02", "7"), name="Root Set")
            .replace('type="g:RootType"', 'type="g:RootType" abstract="true"'),
            group(11, "Leaf", attribute("C", "Opt", "00.03"), base="Root", name="Leaf Set"),
            group(12, "Other", attribute("Refs", "E/req"), base="Root")))
        self.files = ["--dictionary", "d.xsd", "--scheme", "s.xsd"]
        self.old = self.full_dump()
        of_element(3)(self.old).update({"class": "MetaReferenceCollection", "dataType": 1, "dataSubType": 29})
        set_property(of_element(3), "XMLChildTagName", "Leaf")(self.old)

    def full_dump(self):
        return self.dump("--abstract-groups", "--documentation", "--length-description", *self.files)

    def diff(self, old, new, *options):
        self.write("old.json", json.dumps(old))
        self.write("new.json", json.dumps(new))
        return self.run_tool("diff", "old.json", "new.json", *options)

    def changes(self, old, new):
        """Kind, subject, old and new value of each change but the repeated ones; checks form, classes and status."""
        status, output, errors = self.diff(old, new, "--format=json")
        self.assertEqual(errors, b"")
        result = json.loads(output)
        jsonschema.Draft202012Validator(SCHEMA).validate(result)
        told = [change for change in result["changes"] if change["sameAs"] is None]
        classes = [change["class"] for change in told]
        for change in told:
            self.assertEqual(change["class"], self.rules()[change["kind"]][0])
        self.assertEqual(result["summary"], {name: classes.count(name) for name in ("breaking", "compatible")})
        self.assertEqual(status, 1 if "breaking" in classes else 0)
        return [(change["kind"], " ".join(subject[name] for subject, name in
                                          ((change["set"], "key"), (change["element"], "label")) if subject),
                 change["old"], change["new"]) for change in told]

    def rules(self):
        """Class and sentence by kind, as the help has them."""
        text = self.run_tool("diff", "--help")[1].decode()
        return {kind: (name, sentence) for kind, name, sentence in
                re.findall(r"^  ([a-z-]+) +(breaking|compatible) +(.*)$", text, re.MULTILINE)}

    def test_every_kind_of_change(self):
        seen = set()
        for edit, expected, undone in EDITS:
            with self.subTest(expected):
                new = copy.deepcopy(self.old)
                edit(new)
                self.assertEqual(self.changes(self.old, new), expected)
                back = [change[0] for change in self.changes(new, self.old)]
                self.assertEqual(back, undone.split())
                seen.update(back, (change[0] for change in expected))
        self.assertEqual(seen, set(self.rules()))
        self.assertEqual(self.changes(self.old, self.old), [])

    def test_documents_have_the_rules_of_the_help(self):
        text = (SOURCE / "docs/rules.md").read_text(encoding="utf-8")
        rows = re.findall(r"^\| `([a-z-]+)` \| (breaking|compatible) \| (.*) \|$", text, re.MULTILINE)
        self.assertEqual([(kind, *rest) for kind, rest in self.rules().items()], rows)
        self.assertEqual(SCHEMA["$defs"]["change"]["properties"]["kind"]["enum"], list(self.rules()))

    def test_text(self):
        new = copy.deepcopy(self.old)
        for number in (10, 11, 12):
            of_attribute(number, 0)(new).update(requiredStatus="Req", distinguishedValue=None)
        new["elements"].pop()
        retag("01.02")(new)
        set_property(of_element(2), "Documentation", "Other.")(new)
        set_property(of_element(2), "LengthDescription", "8")(new)
        set_property(of_element(3), "UnresolvedMetaMetadataSetsRefs", "[Nope,u];")(new)
        other_version(label(3))(new)
        expected = [
            "Old: old.json (5 elements, 3 sets)", "New: new.json (4 elements, 3 sets)", "",
            "Elements that differ: 4",
            f"  B                                                  {label(2)}",
            "      compatible  documentation: changed",
            "      compatible  length: 4 -> 8",
            f"  Refs                                               {label(3)}",
            "      compatible  version byte: 01 -> 0D",
            "      compatible  undeclared set removed: Gone of namespace urn:x:groups",
            "      compatible  undeclared set added: Nope of namespace u",
            f"  C                                                  {label(4)}",
            "      breaking    local tag reused: 01.02, which stood for Alpha",
            f"  D                                                  {label(5)}",
            "      breaking    element removed: UInt32", "",
            "Sets that differ: 2",
            f"  Root Set                                           {key(10)}",
            "      breaking    Alpha: required status: Opt -> Req",
            "                    the same in 2 other sets: Leaf Set, Other",
            "      breaking    Alpha: distinguished value: 7 -> none",
            "                    the same in 2 other sets: Leaf Set, Other",
            f"  Leaf Set                                           {key(11)}",
            "      breaking    C: local tag: 00.03 -> 01.02", "", "5 breaking changes, 5 compatible changes."]
        status, output, errors = self.diff(self.old, new)
        self.assertEqual((status, errors, output.decode().splitlines()), (1, b"", expected))
        self.assertEqual(self.diff(self.old, new, "--quiet")[1].decode().splitlines(), expected[3:])
        self.assertIn(b"\x1b[1;31mbreaking\x1b[0m", self.diff(self.old, new, "--color=always")[1])
        self.assertEqual(self.diff(self.old, self.old, "--quiet")[1], b"No changes.\n")

    def test_dumps_that_do_not_go_together(self):
        plain, full = self.dump(*self.files), self.full_dump()
        abstract = self.dump("--abstract-groups", *self.files)
        for old, new, names in ((plain, full, "new.json old.json"), (abstract, plain, "old.json new.json")):
            expected = "{}: error: was dumped with --abstract-groups, and {} without: ".format(*names.split())
            status, output, errors = self.diff(old, new)
            self.assertEqual((status, output, errors.decode()[:len(expected)]), (2, b"", expected))
        undocumented = {**copy.deepcopy(abstract), "options": full["options"]}
        self.assertIn("documentation-changed", {change[0] for change in self.changes(full, undocumented)})
        self.assertEqual(self.diff(full, abstract, "--quiet"), (0, b"No changes.\n", b""))
        for dump in (plain, full):  # of versions that did not tell
            del dump["options"]
        registry = {**copy.deepcopy(plain), "targetNamespace": REGISTRY_MULTIPLEX, "more": 1}
        registry["loads"][0]["error"] = {"class": "NotFound", "code": 31, "message": ""}
        for old, new, expected, kinds in [
                (plain, full, ["new.json: warning: was dumped with --documentation and",
                                   "new.json: warning: was dumped with --length-description and",
                                   "new.json: warning: holds abstract sets and"],
                 {"set-added", "base-changed"}),
                (plain, registry, ["new.json: warning: comes of schemas in the registry flavour, and old.json in",
                                   "new.json: warning: was dumped although schemas failed to load",
                                   "new.json: warning: has members that this version does not know and does not "
                                   "compare: more"],
                 set())]:
            status, output, errors = self.diff(old, new, "--format=json")
            for line, start in zip(errors.decode().splitlines(), expected, strict=True):
                self.assertEqual(line[:len(start)], start)
            self.assertEqual({change["kind"] for change in json.loads(output)["changes"]}, kinds)
            self.assertEqual((status, self.diff(old, new, "--quiet")[2]), (1 if kinds else 0, b""))

    def test_what_is_no_dump(self):
        dump = json.dumps(self.old)
        spoilt = copy.deepcopy(self.old)
        of_attribute(11, 1)(spoilt)["localTag"] = "3c.0a"
        twice = {**self.old, "elements": self.old["elements"] * 2}
        for text, expected in [
                ("", "new.json: error: the file is empty"),
                (dictionary(element(1)), "new.json: error: this is XML"),
                (self.run_tool("dump", *self.files)[1].decode(), "new.json: error: this is output for people"),
                (dump[:99], "new.json:1:100: error: no JSON dump: syntax error while parsing"),
                ('{\n  "\u00e9" 5', 'new.json:2:7: error: no JSON dump: syntax error while parsing object separator'),
                (dump + "}", f"new.json:1:{len(dump) + 1}: error: no JSON dump: "),
                ('["\\ud83d" "\\ud83d"]', "new.json:1:18: error: no JSON dump: "),
                ("[" * 1000000, "new.json: error: no JSON dump: it is nested deeper than 16 levels"),
                ('{"a":' * 17, "new.json: error: no JSON dump: it is nested deeper than 16 levels"),
                (json.dumps({str(n): n for n in range(65)}), "new.json: error: no JSON dump: an object has more than"),
                ("[" + "0," * 4000000 + "0]", "new.json: error: no JSON dump: it has more than 4000000 values"),
                ("1e999", "new.json:1:5: error: no JSON dump: "),
                ("[]", f"{OTHER_FORM}it is not an object"),
                ('{"nodes": [], "edges": []}', f'{OTHER_FORM}it has no member "ta'),
                (json.dumps(spoilt), f"{OTHER_FORM}/sets/1/attributes/1/localTag is not in upper-case hexadecimal digits"),
                (json.dumps(spoilt).replace("3c.0a", "3C.0"), f"{OTHER_FORM}/sets/1/attributes/1/localTag is not 2 bytes "),
                (json.dumps(twice), f"{OTHER_FORM}/elements/5 is not the only element of its label"),
                (dump.replace('"dataType": 18', '"dataType": 35', 1),
                 f"{OTHER_FORM}/elements/0/dataType is not the number of a data type, 0 to 34")]:
            with self.subTest(expected):
                self.write("old.json", dump)
                self.write("new.json", text)
                status, output, errors = self.run_tool("diff", "old.json", "new.json")
                lines = errors.decode().splitlines()
                self.assertEqual((status, output, len(lines)), (2, b"", 2))
                self.assertEqual(lines[0][:len(expected)], expected)
                self.assertIn("new.json: note: ", lines[1])
                self.assertLess(len(lines[0]), 200)
        self.assertEqual(self.run_tool("diff", "absent", ".", "--quiet"),
                         (2, b"", b"absent: error: No such file or directory\n.: error: Is a directory\n"))
        self.assertEqual(self.run_tool("diff", "/dev/zero", "old.json", "--quiet"),
                         (2, b"", b"/dev/zero: error: larger than 64 MiB, too large for a dump\n"))
        self.assertEqual(self.run_tool("diff", "old.json", "old.json", "--output", "absent/o")[0], 2)

    def test_the_shipped_schemas(self):
        urn, registry = (self.dump(*shipped_files(flavour)) for flavour in ("urn", "registry"))
        status, output, _ = self.diff(urn, registry, "--format=json")
        self.assertEqual((status, json.loads(output)["changes"]), (0, []))
        self.assertEqual(json.loads(output)["new"]["elements"], len(registry["elements"]))


if __name__ == "__main__":
    unittest.main()
