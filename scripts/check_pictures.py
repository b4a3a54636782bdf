#!/usr/bin/env python3
"""Every picture that a page names is there, and every picture is named by a page."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
DOCS = ROOT / "docs" / "pictures"
MANUAL = ROOT / "data" / "help" / "manuel" / "images"
IN_MARKDOWN = re.compile(r"!\[[^\]]*\]\(([^)\s]+)\)|<img [^>]*?src=\"([^\"]+)\"")
IN_HTML = re.compile(r"<img [^>]*?src=\"images/([^\"]+)\"")


def pictures_of(page: pathlib.Path) -> set[pathlib.Path]:
    """The files of this house that a page of Markdown shows."""
    named = {first or second for first, second in IN_MARKDOWN.findall(page.read_text(encoding="utf-8"))}
    return {(page.parent / name).resolve() for name in named if "://" not in name}


def pages() -> list[pathlib.Path]:
    return sorted([*ROOT.glob("*.md"), *ROOT.glob("docs/**/*.md")])


def names_in_docs() -> set[str]:
    """The pictures of windows; drawings of other scripts are vectors."""
    shown = set().union(*(pictures_of(page) for page in pages()))
    return {path.name for path in shown if path.parent == DOCS and path.suffix == ".png"}


def names_in_manual() -> set[str]:
    return {name for page in MANUAL.parent.glob("*.html") for name in IN_HTML.findall(page.read_text(encoding="utf-8"))}


def faults() -> list[str]:
    found = []
    shown = set()
    for page in pages():
        shown |= pictures_of(page)
        found += [f"{page.relative_to(ROOT)} names {path.name}, which is not there" for path in sorted(pictures_of(page)) if not path.is_file()]
    found += [f"docs/pictures/{path.name} is named by no page" for path in sorted(DOCS.iterdir()) if path not in shown]
    there = {path.name for path in MANUAL.iterdir()}
    found += [f"the manual names {name}, which is not there" for name in sorted(names_in_manual() - there)]
    found += [f"data/help/manuel/images/{name} is named by no page" for name in sorted(there - names_in_manual())]
    return found


def main() -> int:
    found = faults()
    print("\n".join(found) if found else "pictures and pages fit")
    return bool(found)


if __name__ == "__main__":
    sys.exit(main())
