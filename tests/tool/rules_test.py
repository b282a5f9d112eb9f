"""Every rule of check finds what its example is made for, and docs/rules.md shows just that.

With the argument --write, and in the environment of the test, the section of the page is written anew."""
import json
import os
import re
import sys
import unittest

from support import SOURCE, ToolTest

PAGE = SOURCE / "docs/rules.md"
EXAMPLES = SOURCE / "examples/rules"
SECTION = re.compile(r"(?<=<!-- The rules of check: written by tests/tool/rules_test.py --write -->\n)"
                     r".*?(?=<!-- End of the rules of check -->)", re.DOTALL)


class Rules(ToolTest):
    def setUp(self):
        super().setUp()
        self.folder = SOURCE

    def arguments(self, rule):
        """Those of a check of the rule's example. Files of other names are imported ones."""
        self.folder = EXAMPLES / rule
        arguments = ["check"]
        for path in sorted(self.folder.iterdir()):
            kind = re.match("dictionary|scheme|", path.name).group()
            arguments += [f"--{kind}", path.name] if kind else []
        return arguments

    def check(self, rule, *options):
        """What check prints about the rule's example for programs."""
        _, output, errors = self.run_tool(*self.arguments(rule), *options)
        self.assertEqual(errors, b"")
        return json.loads(output)

    def console(self, rule):
        """The check of the rule's example as it looks on a terminal."""
        arguments = self.arguments(rule)
        output = self.on_terminal(arguments, {**os.environ, "LC_ALL": "C", "NO_COLOR": "1"}).decode()
        return f"$ mxf-metadict {' '.join(arguments)}\n{output}```\n"

    def rules(self):
        log = self.check("unused-element", "--format", "sarif")
        return log["runs"][0]["tool"]["driver"]["rules"]

    def section(self):
        text = ""
        for rule in self.rules():
            name, level = rule["id"], rule["defaultConfiguration"]["level"]
            text += f"\n### {name}\n\n{level.capitalize()}. {rule['shortDescription']['text']} {rule['help']['text']}\n"
            console = self.console(name)
            for path in sorted(self.folder.iterdir()):
                text += f"\n`{path.name}`:\n\n```xml\n{path.read_text(encoding='utf-8')}```\n"
            text += f"\n```console\n{console}"
        return text + "\n"

    def test_each_example_is_found_by_its_rule(self):
        rules = [rule["id"] for rule in self.rules()]
        self.assertEqual(sorted(path.name for path in EXAMPLES.iterdir()), sorted(rules))
        for rule in rules:
            with self.subTest(rule):
                found = {finding["rule"] for finding in self.check(rule, "--format", "json")["findings"]}
                self.assertIn(rule, found)
                if rule in ("load-failed", "wrong-file"):  # cannot be turned off
                    continue
                found = self.check(rule, "--format", "json", "--disable", rule)["findings"]
                self.assertNotIn(rule, {finding["rule"] for finding in found})

    def test_the_page_shows_the_rules_and_their_examples(self):
        self.assertEqual(SECTION.search(PAGE.read_text(encoding="utf-8")).group(), self.section())

    def test_the_readme_shows_what_a_user_sees(self):
        self.assertIn(self.console("shared-local-tag"), (SOURCE / "README.md").read_text(encoding="utf-8"))


if __name__ == "__main__":
    if sys.argv[1:] == ["--write"]:
        test = Rules()
        test.setUp()
        text = test.section()
        PAGE.write_text(SECTION.sub(lambda _: text, PAGE.read_text(encoding="utf-8")), encoding="utf-8")
    else:
        unittest.main()
