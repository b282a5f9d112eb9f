"""The text format: for people, in 100 columns, UTF-8 in every locale."""
import os
import re
import unicodedata
import unittest

from json_test import shipped_files
from support import ToolTest, attribute, dictionary, element, group, key, label, reference, scheme


def columns(line):
    return sum(0 if unicodedata.combining(c) else 2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in line)


class Text(ToolTest):
    def text(self, *arguments):
        status, output, errors = self.run_tool("dump", *arguments)
        self.assertEqual((status, errors), (0, b""))
        text = output.decode("utf-8")
        for line in text.splitlines():
            self.assertLessEqual(columns(line), 100, line)
            self.assertEqual(line, line.rstrip())
        return text

    def section(self, text, title):
        start = text.index(f"\n{title}: ") + 1
        end = text.find("\n\n", start)
        return text[start:end if end >= 0 else len(text) - 1].split("\n")

    def test_shipped_schemas(self):
        text = self.text("--abstract-groups", "--documentation", "--length-description", *shipped_files("registry"))
        titles = [line.split(":")[0] for line in text.splitlines() if line and not line.startswith(" ")]
        self.assertEqual(titles, ["Multiplex namespace", "Files", "Elements", "Sets", "Local tags",
                                  "Unresolved references"])
        self.assertIn("\n  3C.0A  06.0E.2B.34.01.01.01.01.01.01.15.02.00.00.00.00  Instance UID\n", text)

    def test_elements_are_aligned_and_have_type_names(self):
        self.write("d.xsd", dictionary(element(1, "A"), element(2, "B", "UTF16String", name="A longer name"),
                                       element(3, "C", "Int8", documentation=" About\n  C. ")))
        lines = self.section(self.text("--documentation", "--dictionary", "d.xsd"), "Elements")
        self.assertEqual(lines, [
            "Elements: 3",
            "  Label                                            Type         Name",
            f"  {label(1)}  UInt32       A",
            f"  {label(2)}  UTF16String  A longer name",
            f"  {label(3)}  Int8         C",
            "      About C.",
        ])

    def test_sets_stand_below_their_base_with_what_they_add(self):
        self.write("d.xsd", dictionary(element(1, "A"), element(2, "B", "UTF16String"), element(3, "C", "UMID32"),
                                       reference(4, "R", "Derived", "Missing")))
        self.write("s.xsd", scheme(
            group(3, "Base", attribute("A", "Req", "01.02", "0"), attribute("R", "B.Effort")),
            group(1, "Derived", attribute("B", "Opt", value='say "x"'), base="Base"),
            group(2, "Further", attribute("C", "Opt", "01.03", "00." * 31 + "00"), base="Derived"),
            group(4, "Alone")))
        text = self.text("--dictionary", "d.xsd", "--scheme", "s.xsd")
        self.assertEqual(self.section(text, "Sets")[3:], [
            "      Tag    Name                                 Type                      Status    Value",
            f"  Base: 0+2                                          {key(3)}",
            "      01.02  A                                    UInt32                    Req       0",
            "      -      R                                    StrongReference to        B.Effort",
            "                                                  Derived",
            f"    Derived: 2+1                                     {key(1)}",
            '        -      B                                  UTF16String               Opt       "say \\"x\\""',
            f"      Further: 3+1                                   {key(2)}",
            "          01.03  C                                UMID32                    Opt",
            "                 Value:",
            "                 " + "00." * 27,
            "                 00.00.00.00.00",
            f"  Alone: 0+0                                         {key(4)}",
        ])
        self.assertTrue(text.endswith(
            "\nUnresolved references: 1\n  urn:x:groups\n  Element  Sets\n  R        Missing\n"))

    def test_whatever_the_texts_are_the_page_stays_in_form(self):
        names = ["W" * 300, "\u6f22\u5b57" * 80, "e\u0301" * 150, "\U0001f600 " * 70, "tab\tand\nline", "\u0085\u2028x",
                 "a\u202eb\u2066c"]
        self.write("d.xsd", dictionary(*(element(n, f"E{n}", name=name, documentation=name)
                                         for n, name in enumerate(names))))
        chain = [group(n, f"G{n}", attribute(f"E{n % len(names)}", value="7"), base=f"G{n - 1}" if n else None,
                       name=names[n % len(names)]) for n in range(30)]
        self.write("s.xsd", scheme(*chain))
        path = self.write("p" * 200, scheme())
        text = self.text("--documentation", "--quiet", "--dictionary", "d.xsd", "--scheme", "s.xsd", "--scheme", path)
        self.assertNotRegex(text, r"[\x00-\x09\x0B-\x1F\x7F-\x9F\u2028-\u202e\u2066-\u2069]")
        for name in names[:3]:
            self.assertIn(name[-20:], text)

    def test_colour_is_for_terminals_and_those_who_ask(self):
        self.write("d.xsd", dictionary(element(1, "A")))
        self.write("s.xsd", scheme(group(1, "G", attribute("A"))))
        files = ["dump", "--dictionary", "d.xsd", "--scheme", "s.xsd"]
        plain = self.run_tool(*files)[1]
        coloured = self.run_tool(*files, "--color=always", env={**os.environ, "NO_COLOR": "1"})[1]
        self.assertIn(b"\x1b[1mElements: 1\x1b[0m\n", coloured)
        self.assertEqual((re.sub(rb"\x1b\[[0-9;]+m", b"", coloured), b"\x1b" in plain), (plain, False))
        for options, variables, expected in (([], {}, coloured), (["--color", "never"], {}, plain),
                                             ([], {"NO_COLOR": ""}, coloured), ([], {"NO_COLOR": "1"}, plain),
                                             ([], {"TERM": "dumb"}, plain)):
            with self.subTest(options=options, variables=variables):
                environment = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "TERM")}
                self.assertEqual(self.on_terminal([*files, *options], {**environment, **variables}), expected)

        errors = self.run_tool("dump", "--dictionary", "absent.xsd", "--color", "always")[2]
        self.assertTrue(errors.startswith(b"\x1b[1mabsent.xsd:\x1b[0m \x1b[1;31merror:\x1b[0m absent.xsd file"), errors)

    def test_failures_stand_below_their_file(self):
        status, output, _ = self.run_tool("dump", "--keep-going", "--dictionary", "absent.xsd", "--dictionary",
                                          b"\xff.xsd")
        self.assertEqual(status, 1)
        self.assertEqual(self.section(output.decode("utf-8"), "Files"), [
            "Files: 2",
            "  Kind        File        Result",
            "  dictionary  absent.xsd  failed",
            "      absent.xsd file Not Found! [IOError]",
            "  dictionary  \ufffd.xsd       failed",
            "      \ufffd.xsd file Not Found! [IOError]",
        ])
        long = "folder_name/" * 4 + "long.name." * 2 + "xsd"  # in one piece, to be copied, as long as the page is wide enough
        output = self.run_tool("dump", "--keep-going", "--dictionary", long)[1].decode()
        self.assertIn(f"\n  dictionary  {long}  failed\n", output)


if __name__ == "__main__":
    unittest.main()
