"""Writes a file as Doxygen is to read it, its INPUT_FILTER: doxygen_filter.py FILE, run in the root of the source tree.

A header is without the members that mean what they mean in every class, which Doxygen would want documented. A page is
without links to files that are no pages: those to headers lead to their listing, all others become plain text.
"""
import re
import sys
from pathlib import Path

LANGUAGE_MEMBERS = re.compile(r"^.*(?:\(const \w+(?:<[\w, ]+>)?&\) = default;|operator (?:new|delete)).*$", re.MULTILINE)
LINK = re.compile(r"\[([^\]]*)\]\((?!https?:|#)([^)]+)\)")


def link_between_pages(match):
    text, target = match.groups()
    path = Path(target.split("#")[0])
    if path.suffix == ".md":
        return match[0]
    return f"[{text}]({path.stem}_8h_source.html)" if path.suffix == ".h" else text


def main():
    path = Path(sys.argv[1])
    text = path.read_text(encoding="utf-8")
    if path.suffix == ".md":
        text = LINK.sub(link_between_pages, text)
    else:
        text = LANGUAGE_MEMBERS.sub("", text)
    sys.stdout.write(text)


if __name__ == "__main__":
    main()
