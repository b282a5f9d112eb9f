"""The subcommand check: what it tells of files that were not loaded, or not in full, and of why."""
import re
import unittest

from support import (GROUPS, CheckTest, attribute, dictionary, element, group, in_registry_flavour, multiplex, reference,
                     schema_arguments, scheme)


class CheckLoading(CheckTest):
    def test_base_types_that_have_no_group_by_their_name(self):
        plain = '<xs:complexType name="PlainType" abstract="true"/>'
        keyed = group(1, "Keyed").replace('name="', 'abstract="true" name="', 1)
        heir = group(2, "Heir", base="Plain") + plain
        misspelled = group(3, "A") + group(4, "B", base="A").replace('base="g:', 'base="')
        write = 'Write the base as "g:AType", just as group "A" writes its type'
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("base.xsd", scheme(keyed))
        declare = "Declare a group of that type, with a key: "
        for text, rules, remedy in (
                (heir, [], ""),
                (heir + f'<xs:import namespace="{GROUPS}" schemaLocation="base.xsd"/>', ["left-out-abstract"], declare),
                (heir + keyed, ["left-out-abstract"], declare), (misspelled, ["missing-base"], write),
                (misspelled + keyed, ["left-out-abstract"], write)):
            self.write("s.xsd", scheme(text))
            found = self.findings("d.xsd", "s.xsd", options=["--disable", "unused-element"])
            self.assertEqual([(finding["rule"], finding["remedy"][:len(remedy)]) for finding in found],
                             [(rule, remedy) for rule in rules])
            notes = self.run_tool("explain", "Keyed", *schema_arguments(["d.xsd", "s.xsd"]))[2].decode()
            self.assertEqual(notes.count(" are left out, since no group has "), len(rules))

    def test_a_misspelled_base_is_told_once_and_where_it_is_written(self):
        extension = '<xs:extension base="AType"'
        keyed = group(9, "Keyed").replace('name="', 'abstract="true" name="', 1)
        files = ["d.xsd", "s1.xsd", "s2.xsd"]
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("base.xsd", scheme(group(1, "A"), "\n", group(2, "B", base="A").replace('base="g:', 'base="')))
        for own, rule in (("", "missing-base"), (keyed, "left-out-abstract")):
            for number in (1, 2):
                self.write(files[number], scheme(f'<xs:import namespace="{GROUPS}" schemaLocation="base.xsd"/>',
                                                 group(number + 2, "X", base="B"), own))
            found = [finding for finding in self.findings(*files) if "Write the base" in finding["remedy"]]
            self.assertEqual([(finding["rule"], finding["place"]) for finding in found],
                             [(rule, self.place("base.xsd", extension))])
            self.assertIn('since no group has the base type "AType" of "BType"', found[0]["message"])
            self.assertEqual([other["place"]["path"] for other in found[0]["related"]], files[1:])

    def test_a_wrong_root_is_told_once(self):
        for root, rules in (("svg", ["load-failed"]), ("xs:svg xmlns:xs='urn:x'", ["wrong-root", "empty-dictionary"])):
            self.write("d.xsd", f"<{root} targetNamespace='urn:x'/>")
            self.assertEqual([finding["rule"] for finding in self.findings("d.xsd") if finding["rule"] != "no-declarations"],
                             rules)

    def test_only_prefixes_that_can_be_bound_are_to_be_bound(self):
        for text, remedy in (("<p:a/>", 'Bind the prefix at the root of the schema: xmlns:p="its namespace".'),
                             ("<a xmlns:xml='urn:x'/>", "Correct the XML."),
                             ("<a xmlns:xmlns='urn:x'/>", "Correct the XML.")):
            self.write("d.xsd", text)
            self.assertEqual([finding["remedy"] for finding in self.findings("d.xsd")], [remedy])

    def test_nothing_is_told_of_a_flavour_that_is_not_known(self):
        self.write("m.xsd", multiplex("urn:x:none"))
        self.write("d1.xsd", dictionary(element(1, "A"), reference(2, "R", "H")))
        self.write("d2.xsd", in_registry_flavour(dictionary(element(3, "B"))))
        self.write("s1.xsd", scheme(group(1, "G", attribute("A"), attribute("R"), attribute("A").replace(
            "urn:SMPTE:MXF:XMLInterface:Groups:MetadataElement", "http://www.smpte-ra.org/schemas/434/Groups/Property"))))
        self.write("s2.xsd", in_registry_flavour(scheme(group(2, "H", attribute("B")))))
        self.write("s3.xsd", scheme(group(3, "I", attribute("B"))))
        self.write("s4.xsd", scheme(group(4, "J", attribute("Nowhere"))))
        self.write("s5.xsd", scheme(group(5, "K", attribute("B"))).replace('ref="e:B"', 'ref="g:B"'))
        options = ["--multiplex", "m.xsd"]
        for names, told in ((["d1.xsd", "s1.xsd"], "all was examined in the URN flavour."),
                            (["d1.xsd", "d2.xsd", "s1.xsd", "s2.xsd", "s3.xsd", "s4.xsd", "s5.xsd"],
                             "3 files of another flavour, or that need one, were not examined.")):
            found = self.findings(*names, options=options)
            others = [("load-failed", name) for name in names[5:]] or [("unresolved-reference", "d1.xsd")]
            self.assertEqual([(finding["rule"], finding["place"]["path"]) for finding in found],
                             [("load-failed", "m.xsd")] + others)
            self.assertTrue(found[0]["remedy"].endswith(told), found[0]["remedy"])
        status, _, errors = self.run_tool("dump", "--keep-going", *options, *schema_arguments(names))
        self.assertEqual((status, re.findall(r"^([^\s:]+)\S*: (error|warning|note):", errors.decode(), re.MULTILINE)),
                         (1, [("m.xsd", "error"), ("m.xsd", "note"), ("d2.xsd", "note"), ("s4.xsd", "error"),
                              ("s4.xsd", "note"), ("s5.xsd", "error"), ("s5.xsd", "note")]))


if __name__ == "__main__":
    unittest.main()
