"""The manual page and the completion for bash: both have everything that --help has."""
import os
import re
import shutil
import subprocess
import unittest
from pathlib import Path

from support import ToolTest

PAGE = Path(os.environ["MXF_METADICT_MANUAL_PAGE"])
SCRIPT = Path(os.environ["MXF_METADICT_COMPLETION"])


def declared(text, section):
    """The words at the start of the lines of a help's section."""
    body = re.search(rf"^{section}:\n((?:  .*\n)+)", text, re.MULTILINE)
    return re.findall(r"^  (\S+)", body.group(1), re.MULTILINE) if body else []


class Manual(ToolTest):
    def helps(self):
        """The options by subcommand, "" for the tool itself, as --help has them."""
        text = self.run_tool("--help")[1].decode()
        commands = declared(text, "Commands")
        self.assertIn("dump", commands)
        options = {"": re.findall(r"^  (?:-[hv],)?(--[a-z-]+)", text, re.MULTILINE)}
        for command in commands:
            text = self.run_tool(command, "--help")[1].decode()
            options[command] = re.findall(r"^  (?:-[hv],)?(--[a-z-]+)", text, re.MULTILINE)
            self.assertLessEqual({"--help", "--format", "--output", "--color", "--quiet"}, set(options[command]))
            self.assertIn(f"\nExamples:\n  mxf-metadict {command} ", text)
            self.assertLessEqual(max(map(len, text.splitlines())), 100)
        return options

    def completions(self, *words):
        """What the script completes the last word to."""
        words = " ".join(f"'{word}'" for word in ("mxf-metadict", *words))
        done = subprocess.run(
            ["bash", "--norc", "-c", f'source "$1"; COMP_WORDS=({words}); COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1)); '
             'complete -p mxf-metadict >/dev/null && _mxf_metadict && printf "%s\\n" "${COMPREPLY[@]}"', "bash", SCRIPT],
            check=True, capture_output=True, text=True)
        self.assertEqual(done.stderr, "")
        return done.stdout.split()

    def test_every_option_is_in_both(self):
        page = PAGE.read_text(encoding="utf-8").replace("\\-", "-")
        for command, options in self.helps().items():
            start = page.index(f".SS {command}\n" if command else ".SH OPTIONS\n")
            section = page[start:re.compile(r"^\.S[HS] ", re.MULTILINE).search(page, start + 1).start()]
            for option in options:
                self.assertRegex(section, rf"(?m)^(\\fB-[hv]\\fR, )?\\fB{option}\\fR")
            words = [command, "--"] if command else ["--"]
            self.assertCountEqual(self.completions(*words), options)

    def test_completion_of_subcommands_and_values(self):
        self.assertEqual(self.completions("du"), ["dump"])
        self.assertEqual(self.completions("graph", "--only", ""), ["inheritance", "references"])
        self.assertIn("shared-local-tag", self.completions("check", "--disable", ""))
        for words in (["diff", "o"], ["diff", ""], ["explain", ""], ["dump", "--dictionary", "--"]):
            self.assertEqual(self.completions(*words), [])  # so that bash completes file names
        self.assertEqual(self.completions("dump", "--dictionary", "d.xsd", "--format", ""), ["text", "json"])
        self.assertEqual(self.completions("dump", "--format", "=", "j"), ["json"])
        self.assertEqual(self.completions("dump", "--color", "="), ["auto", "always", "never"])

    def test_the_page_is_sound(self):
        page = PAGE.read_text(encoding="utf-8")
        self.assertIn(f"mxf\\-metadict {os.environ['MXF_METADICT_VERSION']}", page)
        self.assertIn("dictionary.xsd \\e\n", page)  # a line of an example that goes on
        self.assertIn(".SH ENVIRONMENT\nWithout \\-\\-color, text", page)
        self.assertIn(".nf\nRules:\n  load\\-failed ", page)  # a list keeps its lines
        if shutil.which("groff"):
            done = subprocess.run(["groff", "-man", "-ww", "-z", "-Tutf8", PAGE], check=True, capture_output=True)
            self.assertEqual(done.stderr, b"")


if __name__ == "__main__":
    unittest.main()
