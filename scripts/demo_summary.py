"""Tells in words what a dictionary holds: reads the JSON of "mxf-metadict dump" from the standard input.

main is the entry point.
"""
import json
import signal
import sys
from collections import Counter, defaultdict

CLASSES = {
    "MetaSimpleElement": "hold one value",
    "MetaCollection": "hold a list of values",
    "MetaReferenceElement": "refer to one set",
    "MetaReferenceCollection": "refer to a list of sets",
}


def name_of(declared_set):
    return declared_set["properties"]["name"]


def is_abstract(declared_set):
    return declared_set["properties"]["abstract"] == "true"


def print_loads(dump):
    print("Loaded, in this order:")
    for load in dump["loads"]:
        print(f"  {load['kind']:<11} {load['path']}")


def print_elements(elements):
    print(f"\n{len(elements)} elements, the fields that metadata is made of. Of these")
    counts = Counter(element["class"] for element in elements)
    for name, meaning in CLASSES.items():
        print(f"  {counts[name]:>4} {meaning}")


def print_sets(sets):
    abstract = sum(map(is_abstract, sets))
    print(f"\n{len(sets)} sets, the records that group elements; {abstract} are abstract, bases that no file contains.")
    print("Below its base each, with its number of attributes: inherited + own.\n")
    rows = list(tree_rows(sets))
    width = max((len(name) for name, _, _ in rows), default=0)
    for name, inherited, own in rows:
        print(f"{name:<{width}} {inherited:>3} + {own}")


def tree_rows(sets):
    """Name with indentation, number of inherited attributes and of own ones, each set after its base."""
    keys = {declared_set["key"] for declared_set in sets}
    derived = defaultdict(list)
    for declared_set in sets:
        base = declared_set["properties"]["baseGroupUL"]
        derived[base if base in keys else None].append(declared_set)

    def rows_below(base, inherited, depth):
        for declared_set in sorted(derived[base], key=name_of):
            count = len(declared_set["attributes"])
            name = "  " * depth + name_of(declared_set) + (" (abstract)" if is_abstract(declared_set) else "")
            yield name, inherited, count - inherited
            yield from rows_below(declared_set["key"], count, depth + 1)

    return rows_below(None, inherited=0, depth=1)


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # a reader such as head may stop early
    dump = json.load(sys.stdin)
    print_loads(dump)
    print_elements(dump["elements"])
    print_sets(dump["sets"])
    print(f"\n{len(dump['localTags'])} local tags, the two-byte names that elements have inside a file.")


if __name__ == "__main__":
    main()
