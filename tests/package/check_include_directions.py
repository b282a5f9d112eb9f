"""Checks that includes point one way, tools -> loader -> XML utilities -> model: check_include_directions.py SOURCE_DIR

Entry point: main. MAY_INCLUDE is what is checked.
"""
import re
import sys
from pathlib import Path

# The loader's public header is the folder include; its implementation, src, reaches XQilla through the DOM only.
MAY_INCLUDE = {
    "model": {"model"},
    "xmlutils": {"xmlutils", "model", "xercesc", "xqilla"},
    "include": {"include", "model"},
    "src": {"src", "include", "xmlutils", "model", "xercesc"},
    "tools": {"tools", "include", "xmlutils", "model", "xercesc", "xqilla"},
}
INCLUDE_ROOTS = ("model/include", "model/src", "xmlutils/include", "xmlutils/src", "include", "tools")
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


def owner(source_dir, including_file, included):
    """Folder that an included header belongs to; None for the standard library and the like."""
    library = included.split("/")[0]
    if library in ("xercesc", "xqilla"):
        return library
    for folder in (including_file.parent, *(source_dir / root for root in INCLUDE_ROOTS)):
        path = (folder / included).resolve()
        if path.is_file():
            return path.relative_to(source_dir).parts[0]
    return None


def violations(source_dir):
    for folder, allowed in MAY_INCLUDE.items():
        files = [path for path in sorted((source_dir / folder).rglob("*")) if path.suffix in (".h", ".cpp")]
        if not files:
            yield f"{folder}: no source files"
        for path in files:
            for included in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if (owned_by := owner(source_dir, path, included)) not in allowed | {None}:
                    yield f"{path.relative_to(source_dir)}: includes {included}, which belongs to {owned_by}"


def main():
    found = list(violations(Path(sys.argv[1]).resolve()))
    print("\n".join(found))
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
