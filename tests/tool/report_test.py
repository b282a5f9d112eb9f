"""The subcommand report, as a document: what it says, and that it is sound without scripts. browser_test.py uses it."""
import unittest
from html.parser import HTMLParser

from json_test import shipped_files
from support import ToolTest, attribute, dictionary, element, group, key, label, reference, scheme

VOID = {"meta", "link", "input"}


class Page(HTMLParser):
    """The elements of a page in their order, each as tag, attributes and text; complains of tags that do not match."""

    def __init__(self, html):
        super().__init__()
        self.elements, self.open, self.faults = [], [], []
        self.feed(html)
        self.close()
        self.faults += [f"<{item['tag']}> is open" for item in self.open]
        self.ids = [item["id"] for item in self.elements if "id" in item]
        self.links = [item["href"] for item in self.elements if item["tag"] == "a"]

    def handle_starttag(self, tag, attrs):
        item = {**dict(attrs), "tag": tag, "text": "", "path": tuple(parent["tag"] for parent in self.open)}
        self.elements.append(item)
        if tag not in VOID:
            self.open.append(item)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop()["tag"] != tag:
            self.faults.append(f"</{tag}> at {self.getpos()}")

    def handle_data(self, data):
        for item in self.open:
            item["text"] += data + " "

    def text(self, anchor):
        """The text of the element with an id, with single blanks."""
        return " ".join(next(item["text"] for item in self.elements if item.get("id") == anchor).split())


class Report(ToolTest):
    def page(self, *arguments):
        status, output, errors = self.run_tool("report", *arguments)
        self.assertEqual((status, errors), (0, b""))
        page = Page(output.decode())
        self.assertEqual(page.faults, [])
        self.assertCountEqual(page.ids, set(page.ids))
        self.assertLessEqual({link[1:] for link in page.links}, set(page.ids))
        self.assertNotRegex(output.decode(), r"(?i)(src|href)\s*=\s*[\"']?(https?:|//)|@import|url\(")
        return page

    def test_the_shipped_schemas(self):
        for flavour in ("registry", "urn"):
            page = self.page(*shipped_files(flavour))
            self.assertEqual([sum(anchor.startswith(kind) for anchor in page.ids) for kind in ("set-", "element-")],
                             [99, 432])

    def test_sets_and_elements(self):
        weak = reference(2, "ToGone", "Gone").replace("StrongRefHolder", "WeakRefHolder")
        self.write("d.xsd", dictionary(element(1, "One", documentation="All\nof it."), weak, reference(3, "ToBase", "Base"),
                                       element(4, "Alone"), element(5, "Five", "UInt8")))
        self.write("s.xsd", scheme(
            group(1, "Base", attribute("One", tag_text="3C.0A", value="7"), attribute("ToGone", "Opt")),
            group(2, "Middle", attribute("Five"), base="Base"), group(3, "Leaf", base="Middle"),
            group(4, "Holder", attribute("ToBase", "D/req"))))
        page = self.page("--dictionary", "d.xsd", "--scheme", "s.xsd", "--title", "The <title>")
        self.assertEqual([item["text"].strip() for item in page.elements if item["tag"] in ("title", "h1")],
                         ["The <title>"] * 2)
        cases = [
            (f"set-{key(1)}", ["Base of Middle", "Referred to by ToBase StrongReference in Holder",
                               "Own attributes 2", "3C.0A One UInt32 = 7 Req", "WeakReference to Gone (not declared) Opt"]),
            (f"set-{key(3)}", ["Derived from Middle Base", "ToBase StrongReference in Holder as Base",
                               "Adds no attributes", "Inherited attributes 3", "From Base 3C.0A One", "From Middle – Five"]),
            (f"element-{label(1)}", ["All of it.", "Local tag 3C.0A", "Used by Base 3C.0A Req = 7",
                                     "and by inheritance 2 Middle Leaf", "d.xsd:1:"]),
            (f"element-{label(3)}", ["Type StrongReference to Base"]),
            (f"element-{label(4)}", ["Alone unused", "Used by no set"]),
            ("tags", ["Local tags 1", "3C.0A One"]),
            ("overview", ["4 sets", "5 elements 1 of them in no set", "dictionary d.xsd scheme s.xsd"]),
        ]
        for anchor, texts in cases:
            for text in texts:
                self.assertIn(text, page.text(anchor))
        tree = {item["href"][5:]: item["path"].count("ul") for item in page.elements if item["tag"] == "a"
                and "nav" in item["path"] and item["href"].startswith("#set-")}
        self.assertEqual(tree, {key(1): 1, key(2): 2, key(3): 3, key(4): 1})
        self.assertEqual([item["data-kind"] for item in page.elements if "data-kind" in item],
                         ["Value", "Value", "Value", "Reference", "Reference"])

    def test_little_and_faulty_schemas(self):
        self.write("d.xsd", dictionary(element(1, "One")))
        page = self.page("--dictionary", "d.xsd")
        self.assertIn("No sets were loaded.", page.text("sets"))
        self.assertIn("No element has a local tag.", page.text("tags"))
        status, output, _ = self.run_tool("report", "--dictionary", "d.xsd", "--scheme", "<gone>", "--keep-going")
        self.assertEqual(status, 1)
        self.assertIn("scheme <gone> could not be loaded: ", Page(output.decode()).text("overview"))
        self.write("again.xsd", dictionary("\n", element(1, "Again")))
        self.write("s.xsd", scheme(group(1, "A", base="Keyless"), group(2, "Keyless").replace("Groups:Key", "Groups:No")
                                   .replace('type="', 'abstract="true" type="')))
        self.write("none.xsd", scheme())
        output = self.run_tool("report", "--dictionary", "d.xsd", "--dictionary", "again.xsd", "--scheme", "s.xsd",
                               "--scheme", "none.xsd", "--keep-going")[1].decode()
        overview = Page(output).text("overview")
        for text in ("again.xsd could not be loaded: again.xsd:2:1: An element with this label is declared already: "
                     f"{label(1)} [MetaElementAlreadyLoaded]; d.xsd:1:", "none.xsd declares no groups: ",
                     's.xsd loaded without abstract groups: s.xsd:1:'):
            self.assertIn(text, overview)

    def test_the_tree_of_a_long_chain(self):
        deep = [group(n, f"G{n}", base=f"G{n - 1}" if n > 1 else None) for n in range(1, 61)]
        self.write("d.xsd", dictionary(element(1, "One")))
        self.write("s.xsd", scheme(*deep))
        page = self.page("--dictionary", "d.xsd", "--scheme", "s.xsd")
        self.assertLess(max(len(item["path"]) for item in page.elements), 40)  # browsers stop nesting somewhere


if __name__ == "__main__":
    unittest.main()
