"""Checks that the guide and the README show the examples as they are: check_code_blocks.py SOURCE_DIR

Every code block of docs/guide, but for commands to type, and every C++ block of the README is made of whole lines of a file
in examples/ that the text above it links to; a line "..." stands for lines left out. Entry point: main.
"""
import re
import sys
from pathlib import Path

BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(((?:[^)]*/)?examples/[^)]+)\)")
COMMANDS = "console"
CODE = "cpp"


def shows(block, text):
    """Whether the pieces of the block are in the text, in order."""
    start = 0
    for piece in re.split(r"^\.\.\.\n", block, flags=re.MULTILINE):
        found = ("\n" + text).find("\n" + piece, start)
        if found < 0:
            return False
        start = found + len(piece)
    return True


def faults(page, is_checked):
    text = page.read_text(encoding="utf-8")
    linked = None
    done = 0
    for block in BLOCK.finditer(text):
        if links := LINK.findall(text, done, block.start()):
            linked = (page.parent / links[-1]).resolve()
        done = block.end()
        if not is_checked(block[1]):
            continue
        line = text.count("\n", 0, block.start()) + 1
        if linked is None or not linked.is_file():
            yield f"{page}:{line}: no file in examples/ is linked above this code"
        elif not shows(block[2], linked.read_text(encoding="utf-8")):
            yield f"{page}:{line}: this code is not in {linked}"


def main():
    source = Path(sys.argv[1])
    pages = sorted((source / "docs" / "guide").glob("*.md"))
    if not any(BLOCK.search(page.read_text(encoding="utf-8")) for page in pages):
        sys.exit("no code in docs/guide")
    readme = source / "README.md"
    if not any(block[1] == CODE for block in BLOCK.finditer(readme.read_text(encoding="utf-8"))):
        sys.exit("no C++ in README.md")
    found = [fault for page in pages for fault in faults(page, lambda language: language != COMMANDS)]
    found += faults(readme, lambda language: language == CODE)
    sys.exit("\n".join(found) or None)


if __name__ == "__main__":
    main()
