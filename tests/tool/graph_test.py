"""The subcommand graph: which sets and arrows it draws, and that other programs can read them."""
import json
import re
import shutil
import subprocess
import unittest

import jsonschema

from json_test import shipped_files
from support import SOURCE, ToolTest, attribute, dictionary, group, key, reference, scheme

SCHEMA = json.loads((SOURCE / "docs/graph.schema.json").read_text(encoding="utf-8"))
AWKWARD = 'a"b\\N#9; <i>&amp; `c` \u00e9'


class Graph(ToolTest):
    """C -> B -> A are derived from each other; A refers to D, D weakly to E, E to C."""

    def setUp(self):
        super().setUp()
        weak = reference(2, "ToE", "E").replace("StrongRefHolder", "WeakRefHolder")
        self.write("d.xsd", dictionary(reference(1, "ToD", "D"), weak, reference(3, "ToC", "C")))
        self.write("s.xsd", scheme(
            group(1, "A", attribute("ToD")), group(2, "B", base="A"), group(3, "C", base="B"),
            group(4, "D", attribute("ToE")), group(5, "E", attribute("ToC"), name=AWKWARD)))
        self.files = ["--dictionary", "d.xsd", "--scheme", "s.xsd"]

    def graph(self, *options):
        status, output, errors = self.run_tool("graph", *self.files, *options)
        self.assertEqual((status, errors), (0, b""))
        return output.decode()

    def edges(self, *options):
        """The nodes, and the edges, as "CB" for an inheritance and "A-D" for a reference."""
        graph = json.loads(self.graph("--format", "json", *options))
        jsonschema.Draft202012Validator(SCHEMA).validate(graph)
        letters = {key(number): letter for number, letter in enumerate("ABCDE", 1)}
        dash = {"inheritance": "", "reference": "-"}
        return ("".join(letters[node["key"]] for node in graph["nodes"]),
                " ".join(letters[edge["from"]] + dash[edge["kind"]] + letters[edge["to"]] for edge in graph["edges"]))

    def test_what_is_drawn(self):
        for options, expected in [
                ([], ("ABCDE", "A-D BA CB D-E E-C")),
                (["--only", "inheritance"], ("ABCDE", "BA CB")),
                (["--only", "references"], ("ABCDE", "A-D B-D C-D D-E E-C")),  # inherited ones, too
                (["--set", "B"], ("ABCD", "A-D BA CB")),  # B refers to D as it inherits from A
                (["--set", "C"], ("ABCDE", "A-D BA CB E-C")),
                (["--set", key(2), "--depth", "2"], ("ABCDE", "A-D BA CB D-E E-C")),
                (["--set", "B", "--depth", "0"], ("B", "")),
                (["--set", "C", "--only", "inheritance", "--depth", "9"], ("ABC", "BA CB")),
                (["--set", "A", "--only", "inheritance", "--depth", "1"], ("AB", "BA")),
                (["--set", "D", "--only", "references"], ("ABCDE", "A-D B-D C-D D-E"))]:
            with self.subTest(options):
                self.assertEqual(self.edges(*options), expected)

    def test_dot(self):
        text = self.graph()
        self.assertIn(f'  "{key(3)}" -> "{key(2)}" [arrowhead=empty]\n', text)
        self.assertIn(f'  "{key(4)}" -> "{key(5)}" [label="ToE", arrowhead=vee, style=dashed]\n', text)
        self.assertIn('[label="a\\"b\\\\N#9; <i>&amp;amp; `c` \u00e9"]\n', text)
        if shutil.which("dot"):
            plain = subprocess.run(["dot", "-Tsvg"], input=text, check=True, capture_output=True, text=True).stdout
            self.assertIn(">a&quot;b\\N#9; &lt;i&gt;&amp;amp; `c` \u00e9</text>", plain)

    def test_mermaid(self):
        node = lambda number: "set" + key(number).replace(".", "")
        lines = self.graph("--format", "mermaid").splitlines()
        self.assertEqual(lines[:3], ["flowchart LR", "  classDef abstract stroke-dasharray: 5 5", f'  {node(1)}["A"]'])
        self.assertEqual(lines[6:], [
            f'  {node(5)}["a#quot;b#92;N#35;9; #lt;i#gt;#amp;amp; #96;c#96; \u00e9"]',
            f'  {node(1)} -->|"ToD"| {node(4)}', f"  {node(2)} ==> {node(1)}", f"  {node(3)} ==> {node(2)}",
            f'  {node(4)} -.->|"ToE"| {node(5)}', f'  {node(5)} -->|"ToC"| {node(3)}'])

    def test_a_set_that_is_not_there(self):
        self.write("s2.xsd", scheme(group(6, "F", name="Twin"), group(7, "G", name="Twin")))
        for name, expected in [("Z", 'no set is called "Z"'),
                               ("ToC", "no set is called \"ToC\", but an element: 'mxf-metadict explain' tells which "
                                "sets use it"),
                               ("TWIN", 'no set is called "TWIN"; did you mean ' + f"Twin ({key(6)}) or Twin ({key(7)})?"),
                               ("Twin", '2 sets are called "Twin": give the key of one, ' + f"{key(6)} or {key(7)}")]:
            status, output, errors = self.run_tool("graph", *self.files, "--scheme", "s2.xsd", "--set", name)
            self.assertEqual((status, output, errors.decode()), (1, b"", f"mxf-metadict: {expected}\n"))
        for options in ([], ["--set", "A"]):
            self.assertEqual(self.run_tool("graph", "--dictionary", "d.xsd", *options), (
                1, b"", b"mxf-metadict: no sets are loaded: give schemas of sets with --scheme\n"))
        for options, problem in ((["--depth", "2"], "--depth requires --set"), (["--set", "A", "--depth=-1"], "-1")):
            status, _, errors = self.run_tool("graph", *self.files, *options)
            self.assertEqual(status, 2)
            self.assertIn(problem, errors.decode())

    def test_the_shipped_schemas(self):
        self.files = shipped_files("urn")
        text = self.graph()
        self.assertEqual(len(re.findall(r"^  \"[^\"]+\" \[label=", text, re.MULTILINE)), 99)
        self.assertIn(", style=dashed]\n", text)
        jsonschema.Draft202012Validator(SCHEMA).validate(json.loads(self.graph("--format", "json")))


if __name__ == "__main__":
    unittest.main()
