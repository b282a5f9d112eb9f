"""The source of our schemas, schemas/source, read and checked.

Source is the entry point. What it holds is free of contradictions: everything named is there, and no label, key or local
tag stands for two things. Nothing here knows how a schema document is written.
"""
import re
import tomllib
from dataclasses import dataclass, field
from pathlib import Path

SOURCE = Path(__file__).resolve().parent.parent / "schemas" / "source"
STATUSES = ("Req", "Opt", "D/req", "E/req", "B.Effort")
LABEL = re.compile(r"06\.0E\.2B\.34(\.[0-9A-F]{2}){12}")
TAG = re.compile(r"[0-9A-F]{2}\.[0-9A-F]{2}")


class SourceError(Exception):
    """The source contradicts itself; the message says where."""


@dataclass
class Element:
    name: str
    type: str
    label: str
    title: str
    description: str
    section: str

    @property
    def is_attribute(self):
        return self.type.startswith("@")


@dataclass
class Property:
    element: str
    status: str
    tag: str = ""
    distinguished: str = ""
    check: str = ""

    @property
    def is_mandatory(self):
        return self.status == "Req" and not self.check  # a check says when a required property is left out


@dataclass
class Group:
    name: str
    scheme: str
    section: str
    key: str
    title: str
    description: str
    base: str = ""
    abstract: bool = False
    properties: list = field(default_factory=list)


def read_toml(path):
    try:
        return tomllib.loads((SOURCE / path).read_text(encoding="utf-8"))
    except (OSError, tomllib.TOMLDecodeError) as error:
        raise SourceError(f"{path}: {error}") from error


def add_once(table, key, value, what):
    if key in table:
        raise SourceError(f"{what} {key} is given twice")
    table[key] = value


def read_element(name, row, section):
    return Element(name, *row, section)


def read_property(row):
    columns, extra = (row[:-1], row[-1]) if isinstance(row[-1], dict) else (row, {})
    return Property(*columns, **extra)


def read_group(name, table, scheme, section):
    """A group from its table, where `name` is the registry name; the table's own name is the XML name."""
    table = dict(table)
    properties = [read_property(row) for row in table.pop("properties", [])]
    return Group(name, scheme, section, title=table.pop("name"), properties=properties, **table)


def read_all(path, table, read, *where, what):
    for name, value in table.items():
        try:
            item = read(name, value, *where)
        except (TypeError, KeyError, IndexError) as error:
            raise SourceError(f"{path}: {what} {name} is not as it should be: {error}") from error
        yield name, item


class Source:
    """All that schemas/source says: the plan of the documents, types, elements and groups, in the order written."""

    def __init__(self):
        self.plan = read_toml("schemas.toml")
        self.types = read_toml(self.plan["types"]["source"])
        self.elements = {}
        self.groups = {}
        self.read_elements()
        self.read_groups()
        self.check()

    def read_elements(self):
        for path in self.plan["dictionary"]["sources"]:
            for section, rows in read_toml(path).items():
                for name, element in read_all(path, rows, read_element, section, what="element"):
                    add_once(self.elements, name, element, "element")

    def read_groups(self):
        for scheme, plan in self.plan["schemes"].items():
            for section, path in plan["sources"].items():
                for name, group in read_all(path, read_toml(path), read_group, scheme, section, what="group"):
                    if group.base and group.base not in self.groups:  # no cycles, and no base in a later document
                        raise SourceError(f"{path}: {name}: no group {group.base} before it to be its base")
                    add_once(self.groups, name, group, "group")

    def check(self):
        labels, keys, tags, used = {}, {}, {}, set()
        for element in self.elements.values():
            self.check_label(element.label, element.name)
            add_once(labels, element.label, element.name, "label")
        for group in self.groups.values():
            self.check_label(group.key, group.name)
            add_once(keys, group.key, group.name, "key")
            for prop in group.properties:
                self.check_property(group, prop, tags)
                used.add(prop.element)
        if unused := set(self.elements) - used:
            raise SourceError(f"no group has the elements {', '.join(sorted(unused))}")

    @staticmethod
    def check_label(text, name):
        if not LABEL.fullmatch(text):
            raise SourceError(f"{name}: not a label: {text}")

    def check_property(self, group, prop, tags):
        where = f"{group.name}, {prop.element}"
        if prop.element not in self.elements:
            raise SourceError(f"{where}: no such element")
        if prop.status not in STATUSES:
            raise SourceError(f"{where}: no such status: {prop.status}")
        if prop.tag and not TAG.fullmatch(prop.tag):
            raise SourceError(f"{where}: not a local tag: {prop.tag}")
        if prop.tag and tags.setdefault(prop.tag, prop.element) != prop.element:
            raise SourceError(f"{where}: tag {prop.tag} belongs to {tags[prop.tag]}")

    def line_of_bases(self, name):
        while name:
            yield name
            name = self.groups[name].base

    def concrete_groups(self, names, excluded):
        """The groups that can stand for one of the names: those derived from it, itself included, and not abstract."""
        for name in names | excluded:
            if name not in self.groups:
                raise SourceError(f"no group {name} to refer to")
        return [group for group in self.groups.values() if not group.abstract
                and names.intersection(self.line_of_bases(group.name))
                and not excluded.intersection(self.line_of_bases(group.name))]

    def length(self, type_name):
        """How many bytes a value takes, in words."""
        types = self.types
        if type_name in types["simple"]:
            return types["simple"][type_name][1]
        if type_name in types["extended"]:
            return self.length(types["extended"][type_name][0])
        if type_name in types["record"]:
            return types["record"][type_name][0]
        raise SourceError(f"no data type {type_name}")
