"""What the tests of mxf-metadict share: running the tool, and schemas of which a test writes only what it is about."""
import json
import os
import pty
import re
import subprocess
import tempfile
import threading
import unittest
from pathlib import Path
from xml.sax.saxutils import escape, quoteattr

import jsonschema

TOOL = os.environ["MXF_METADICT"]
SOURCE = Path(os.environ["TESSELMXF_SOURCE_DIR"])
CHECK_SCHEMA = json.loads((SOURCE / "docs/check.schema.json").read_text(encoding="utf-8"))

ELEMENTS = "urn:x:elements"
GROUPS = "urn:x:groups"
URN_MULTIPLEX = "urn:SMPTE:S377M"
REGISTRY_MULTIPLEX = "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004"


def label(number):
    return f"06.0E.2B.34.01.01.01.01.00.00.00.00.00.00.{number // 256:02X}.{number % 256:02X}"


def key(number):
    return f"06.0E.2B.34.02.53.01.01.00.00.00.00.00.00.{number // 256:02X}.{number % 256:02X}"


def annotation(documentation="", **sources):
    """Annotations of the URN flavour; a source is written with "_" for ":", as in Groups_Key."""
    entries = "".join(f'<xs:appinfo source="urn:SMPTE:MXF:XMLInterface:{name.replace("_", ":", 1)}">{escape(text)}'
                      "</xs:appinfo>" for name, text in sources.items() if text is not None)
    text = f"<xs:documentation>{escape(documentation)}</xs:documentation>" if documentation else ""
    return f"<xs:annotation>{text}{entries}</xs:annotation>"


def element(number, tag="Element", data_type="UInt32", name=None, **more):
    notes = annotation(Dictionary_ElementUL=label(number), Dictionary_ElementName=name or tag, **more)
    return f'<xs:element name={quoteattr(tag)} type="t:{data_type}">{notes}</xs:element>'


def reference(number, tag, *groups):
    items = "".join(f'<xs:element ref="g:{group}"/>' for group in groups)
    return (f"<xs:element name={quoteattr(tag)}>"
            + annotation(Dictionary_ElementUL=label(number), Dictionary_ElementName=tag)
            + '<xs:complexType><xs:complexContent><xs:extension base="t:StrongRefHolder"><xs:choice>' + items
            + "</xs:choice></xs:extension></xs:complexContent></xs:complexType></xs:element>")


def attribute(tag, status="Req", tag_text=None, value=None):
    # This flavour writes the distinguished value's source with two colons.
    return (f'<xs:element ref="e:{tag}">'
            + annotation(Groups_MetadataElementRequiredStatus=status, Groups_LocalTag=tag_text,
                         **{"Groups_:DistinguishedValue": value}) + "</xs:element>")


def group(number, tag, *attributes, base=None, name=None):
    content = "<xs:sequence>" + "".join(attributes) + "</xs:sequence>"
    if base:
        content = (f'<xs:complexContent><xs:extension base="g:{base}Type">' + content
                   + "</xs:extension></xs:complexContent>")
    return (f'<xs:element name="{tag}" type="g:{tag}Type">'
            + annotation(Groups_Key=key(number), Groups_Name=name or tag) + "</xs:element>"
            + f'<xs:complexType name="{tag}Type">{content}</xs:complexType>')


def schema(target, *declarations):
    return (f'<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:e="{ELEMENTS}" xmlns:g="{GROUPS}" '
            f'xmlns:t="urn:x:types" xmlns:m="{target}" targetNamespace="{target}">{"".join(declarations)}</xs:schema>')


def dictionary(*elements):
    return schema(ELEMENTS, *elements)


def scheme(*groups):
    return schema(GROUPS, *groups)


def multiplex(target):
    return schema(target)


def in_registry_flavour(text):
    text = text.replace("Groups::D", "Groups:D").replace("Groups:MetadataElement", "Groups:Property")
    return re.sub("urn:SMPTE:MXF:XMLInterface:(Dictionary|Groups):", r"http://www.smpte-ra.org/schemas/434/\1/", text)


def schema_arguments(files):
    return [part for name in files for part in ("--dictionary" if name.startswith("d") else "--scheme", name)]


class ToolTest(unittest.TestCase):
    """Each test has a folder of its own, in which the tool runs."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, text):
        (self.folder / name).write_text(text, encoding="utf-8")
        return name

    def run_tool(self, *arguments, **options):
        """Runs the tool in the C locale; gives its exit status, and its output and error streams as bytes."""
        options.setdefault("env", {**os.environ, "LC_ALL": "C"})
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        done = subprocess.run([TOOL, *arguments], cwd=self.folder, check=False, timeout=120, **options)
        return done.returncode, done.stdout, done.stderr

    def on_terminal(self, arguments, environment):
        """What the tool writes when its standard output is a terminal, as bytes."""
        terminal, end = pty.openpty()
        parts = []

        def read():
            try:
                while part := os.read(terminal, 4096):
                    parts.append(part)
            except OSError:  # how Linux says that the other end is closed
                pass

        reader = threading.Thread(target=read)
        reader.start()
        try:
            self.run_tool(*arguments, stdout=end, env=environment)
        finally:
            os.close(end)
            reader.join()
            os.close(terminal)
        return b"".join(parts).replace(b"\r\n", b"\n")

    def dump(self, *arguments):
        """The JSON of a run that succeeds without a message."""
        status, output, errors = self.run_tool("dump", "--format", "json", *arguments)
        self.assertEqual((status, errors), (0, b""))
        return json.loads(output)


class CheckTest(ToolTest):
    """Runs check, and gives what it finds as its JSON has it."""

    def findings(self, *names, options=()):
        _, output, errors = self.run_tool("check", *schema_arguments(names), "--format", "json", *options)
        self.assertEqual(errors, b"")
        result = json.loads(output)
        jsonschema.Draft202012Validator(CHECK_SCHEMA).validate(result)
        return result["findings"]

    def place(self, name, text):
        before = (self.folder / name).read_text(encoding="utf-8").partition(text)[0]
        return {"path": name, "line": before.count("\n") + 1, "column": len(before) - (before.rfind("\n") + 1) + 1}
