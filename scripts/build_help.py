#!/usr/bin/env python3
"""Compiles one help file from its sources.

    build_help.py --compiler chmcmd --work FOLDER SOURCES PROJECT RESULT.chm

SOURCES/style.css is common to all. SOURCES/PROJECT holds "projet.txt" with the
title, and either pages (*.html, their tree in "sommaire.txt", their pictures in
images/) or a glossary in one text file of entries, from which the pages are
made. A page tells its topic number and its index words in <meta> lines.
"""
import argparse
import html
import pathlib
import re
import shutil
import subprocess
import sys
import unicodedata

CODE_PAGE = "cp1252"  # of the lists and titles: what every reader of such files expects


class SourceFault(Exception):
    pass


UNITS = (
    r"%|°C|k?g(?:/mol)?|mol|L(?:/mol)?|h?Pa|k?m|m?s|points?|moles?|secondes?|minutes?|"
    r"(?:kilo|centi|milli)?mètres?|(?:kilo)?grammes?|litres?|euros?|ans|millions"
)


def typography(text: str) -> str:
    """No-break spaces where French asks for them, outside tags and examples.

    The sources are written with common blanks; every other character (’ − × …)
    stands in them as it is read.
    """
    made = []
    verbatim = 0
    for piece in re.split(r"(<[^>]*>)", text):
        if re.match(r"<(code|pre|style)\b", piece):
            verbatim += 1
        elif re.match(r"</(code|pre|style)>", piece):
            verbatim -= 1
        elif piece.startswith("<"):
            piece = re.sub(r'(?<= alt=")[^"]*', lambda words: spaced(words[0]), piece)
        elif not verbatim:
            piece = spaced(piece)
        made.append(piece)
    return "".join(made)


def spaced(words: str) -> str:
    words = re.sub(r" ([:;?!»])", "\u00a0\\1", words).replace("« ", "«\u00a0")
    return re.sub(rf"(\d) (?=(?:{UNITS})(?!\w)|\d{{3}}(?!\d))", "\\1\u00a0", words)


def boxed(text: str) -> str:
    """A note gets a box of its own: the viewer's text engine pads only tables."""
    box = '<table width="100%" cellspacing="0" cellpadding="8"><tr><td bgcolor="#FFF9E5">'
    return re.sub(r'<p class="note">(.*?)</p>', box + r"\1</td></tr></table>", text, flags=re.S)


class Page:
    def __init__(self, name: str, text: str):
        self.name = name
        self.text = boxed(typography(text))
        title = re.search(r"<title>(.*?)</title>", text, re.S)
        if not title or not title[1].strip():
            raise SourceFault(f"{name}: no title")
        self.title = typography(html.unescape(title[1].strip()))
        self.topics = [int(number) for number in self._meta("topic").split()]
        self.keywords = [typography(word.strip()) for word in self._meta("keywords").split(";") if word.strip()]

    def _meta(self, name: str) -> str:
        found = re.search(rf'<meta name="{name}" content="([^"]*)">', self.text)
        return html.unescape(found[1]) if found else ""


class Node:
    """One line of the contents: a page, or a heading over others."""

    def __init__(self, title: str, page: str = ""):
        self.title = title
        self.page = page
        self.children: list[Node] = []


def sort_key(text: str) -> str:
    return unicodedata.normalize("NFD", text).encode("ascii", "ignore").decode().lower()


def read_settings(path: pathlib.Path) -> dict[str, str]:
    pairs = (line.split(":", 1) for line in path.read_text(encoding="utf-8").splitlines() if ":" in line)
    return {key.strip(): value.strip() for key, value in pairs}


# ---- a manual: pages written by hand ---------------------------------------


def read_manual(folder: pathlib.Path) -> tuple[list[Page], list[Node]]:
    pages = {path.name: Page(path.name, path.read_text(encoding="utf-8")) for path in sorted(folder.glob("*.html"))}
    root = Node("")
    above = [root]
    for line in (folder / "sommaire.txt").read_text(encoding="utf-8").splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        level = (len(line) - len(line.lstrip())) // 2
        entry = line.strip()
        if entry.endswith(".html") and entry not in pages:
            raise SourceFault(f"sommaire.txt: {entry} is not there")
        node = Node(pages[entry].title, entry) if entry in pages else Node(entry)
        above = above[: level + 1]
        above[-1].children.append(node)
        above.append(node)
    return list(pages.values()), root.children


# ---- glossaries: pages made from entries -----------------------------------

ENTRY = re.compile(r"^\[(?P<name>[^\]]+)\]\s*$")
FIELDS = {"Nom", "Numéro", "Masse", "Famille", "Découverte", "Mots", "Dates", "Pays", "Époque", "Apport"}


def read_entries(path: pathlib.Path) -> list[dict[str, str]]:
    """Entries begin with [name]; then lines "Field: value"; then the text."""
    entries: list[dict[str, str]] = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("#"):
            continue
        if match := ENTRY.match(line):
            entries.append({"name": match["name"], "text": "", "line": str(number)})
        elif (match := re.match(r"^(\w+) : (.+)$", line)) and match[1] in FIELDS and not entries[-1]["text"]:
            entries[-1][match[1]] = match[2].strip()
        elif line.strip():
            entries[-1]["text"] += line.strip() + "\n"
        elif entries and entries[-1]["text"]:
            entries[-1]["text"] += "\n"
    return entries


def needed(entry: dict[str, str], field: str) -> str:
    if field not in entry:
        raise SourceFault(f"line {entry['line']}, {entry['name']}: no field {field}")
    return entry[field]


def number_of(roman: str) -> int:
    values = [{"I": 1, "V": 5, "X": 10}[digit] for digit in roman]
    return sum(-value if value < max(values[place:]) else value for place, value in enumerate(values))


def year_of(dates: str) -> int:
    """For the order within a period: the first number, negative before our era."""
    if century := re.match(r"([IVX]+)\^e\^ siècle", dates):
        return number_of(century[1]) * 100 - 50
    year = int(re.search(r"\d+", dates)[0])
    return -year if "av. J.-C." in dates else year


def words_of(entry: dict[str, str]) -> list[str]:
    return [word.strip() for word in entry.get("Mots", "").split(";") if word.strip()]


def marked_up(text: str) -> str:
    """Plain text with _2_ for an index, ^2+^ for an exponent and [[name]] for a link."""
    body = html.escape(" ".join(text.split()), quote=False)
    body = re.sub(r"_([0-9nxr]+)_", r"<sub>\1</sub>", body)
    body = re.sub(r"\^([^^ ]+)\^", r"<sup>\1</sup>", body)
    return re.sub(r"\[\[([^\]|]+)\|([^\]]+)\]\]", r'<a href="\1">\2</a>', body)


def paragraphs(text: str) -> str:
    return "\n".join(f"<p>{marked_up(paragraph)}</p>" for paragraph in re.split(r"\n\s*\n", text.strip()))


def page_text(title: str, keywords: list[str], body: str) -> str:
    return f"""<!DOCTYPE html>
<html lang="fr">
<head>
<meta charset="utf-8">
<title>{html.escape(title)}</title>
<meta name="keywords" content="{html.escape("; ".join(keywords))}">
<link rel="stylesheet" type="text/css" href="style.css">
</head>
<body>
{body}
</body>
</html>
"""


def table(rows: list[tuple[str, str]]) -> str:
    cells = "\n".join(f"<tr><th>{html.escape(name)}</th><td>{value}</td></tr>" for name, value in rows)
    return f'<table class="fiche" cellspacing="0" cellpadding="5">\n{cells}\n</table>'


def neighbours(names: list[tuple[str, str]], place: int, home: str) -> str:
    links = []
    if place > 0:
        links.append(f'<a href="{names[place - 1][0]}">« {html.escape(names[place - 1][1])}</a>')
    links.append(f'<a href="accueil.html">{home}</a>')
    if place + 1 < len(names):
        links.append(f'<a href="{names[place + 1][0]}">{html.escape(names[place + 1][1])} »</a>')
    return '<p class="suite">' + " &nbsp;·&nbsp; ".join(links) + "</p>"


def read_atoms(folder: pathlib.Path) -> tuple[list[Page], list[Node]]:
    entries = read_entries(folder / "atomes.txt")
    names = [(entry["name"].lower() + ".html", needed(entry, "Nom")) for entry in entries]
    pages = []
    for place, entry in enumerate(entries):
        symbol, name = entry["name"], entry["Nom"]
        rows = [
            ("Symbole", f"<b>{symbol}</b>"),
            ("Numéro atomique", needed(entry, "Numéro")),
            ("Masse molaire", needed(entry, "Masse") + " g/mol"),
            ("Famille", html.escape(needed(entry, "Famille"))),
            ("Découverte", html.escape(needed(entry, "Découverte"))),
        ]
        body = f"<h1>{html.escape(name)} <span class=\"symbole\">{symbol}</span></h1>\n" + table(rows) + "\n"
        body += paragraphs(entry["text"]) + "\n" + neighbours(names, place, "Tous les éléments")
        pages.append(Page(names[place][0], page_text(f"{name} ({symbol})", [name, f"{symbol} ({name})"] + words_of(entry), body)))
    cells = "".join(
        f'<tr><td>{entry["Numéro"]}</td><td><b>{entry["name"]}</b></td>'
        f'<td><a href="{file}">{html.escape(name)}</a></td><td>{html.escape(entry["Famille"])}</td></tr>\n'
        for entry, (file, name) in zip(entries, names)
    )
    intro = (folder / "accueil.txt").read_text(encoding="utf-8")
    title, text = intro.split("\n", 1)
    head = "<tr><th>N°</th><th>Symbole</th><th>Élément</th><th>Famille</th></tr>\n"
    body = f'<h1>{title}</h1>\n{paragraphs(text)}\n<table class="liste" cellspacing="0" cellpadding="4">\n{head}{cells}</table>'
    pages.insert(0, Page("accueil.html", page_text(title, ["éléments, liste des"], body)))
    by_number = Node("Par numéro atomique")
    by_number.children = [Node(f'{e["Numéro"]} – {n} ({e["name"]})', f) for e, (f, n) in zip(entries, names)]
    by_family = Node("Par famille")
    for family in dict.fromkeys(entry["Famille"] for entry in entries):
        node = Node(family)
        node.children = [Node(n, f) for e, (f, n) in zip(entries, names) if e["Famille"] == family]
        by_family.children.append(node)
    return pages, [Node(title, "accueil.html"), by_number, by_family]


def read_scientists(folder: pathlib.Path) -> tuple[list[Page], list[Node]]:
    entries = sorted(read_entries(folder / "scientifiques.txt"), key=lambda entry: sort_key(entry["name"]))
    file_of = {entry["name"]: re.sub(r"[^a-z]+", "_", sort_key(entry["name"])) + ".html" for entry in entries}
    names = [(file_of[entry["name"]], entry["name"]) for entry in entries]
    pages = []
    for place, entry in enumerate(entries):
        name = entry["name"]
        rows = [
            ("Dates", marked_up(needed(entry, "Dates"))),
            ("Pays", html.escape(needed(entry, "Pays"))),
            ("Apport", html.escape(needed(entry, "Apport"))),
        ]
        body = f"<h1>{html.escape(name)}</h1>\n" + table(rows) + "\n" + paragraphs(entry["text"]) + "\n"
        body += neighbours(names, place, "Tous les scientifiques")
        pages.append(Page(names[place][0], page_text(name, [name] + words_of(entry), body)))
    cells = "".join(
        f'<tr><td><a href="{file}">{html.escape(name)}</a></td><td>{marked_up(entry["Dates"])}</td>'
        f'<td>{html.escape(entry["Apport"])}</td></tr>\n'
        for entry, (file, name) in zip(entries, names)
    )
    title, text = (folder / "accueil.txt").read_text(encoding="utf-8").split("\n", 1)
    head = "<tr><th>Nom</th><th>Dates</th><th>Apport</th></tr>\n"
    body = f'<h1>{title}</h1>\n{paragraphs(text)}\n<table class="liste" cellspacing="0" cellpadding="4">\n{head}{cells}</table>'
    pages.insert(0, Page("accueil.html", page_text(title, ["scientifiques, liste des"], body)))
    alphabetical = Node("Par ordre alphabétique")
    alphabetical.children = [Node(name, file) for file, name in names]
    by_time = Node("Par époque")
    for period in dict.fromkeys(e["Époque"] for e in sorted(entries, key=lambda e: needed(e, "Époque"))):
        node = Node(period)
        inside = sorted((e for e in entries if e["Époque"] == period), key=lambda e: year_of(e["Dates"]))
        # The contents know no exponents.
        node.children = [Node(f'{e["name"]} ({e["Dates"].replace("^", "")})', file_of[e["name"]]) for e in inside]
        by_time.children.append(node)
    return pages, [Node(title, "accueil.html"), alphabetical, by_time]


READERS = {"manuel": read_manual, "atomes": read_atoms, "scientifiques": read_scientists}

# ---- the project for the compiler ------------------------------------------


def sitemap_entry(title: str, page: str) -> str:
    local = f'<param name="Local" value="{page}">' if page else ""
    name = html.escape(typography(title))
    return f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{name}">{local}</OBJECT>\n'


def contents(nodes: list[Node]) -> str:
    if not nodes:
        return ""
    inside = "".join(sitemap_entry(node.title, node.page) + contents(node.children) for node in nodes)
    return f"<UL>\n{inside}</UL>\n"


def index(pages: list[Page]) -> str:
    words: dict[str, list[Page]] = {}
    for page in pages:
        for word in page.keywords:
            words.setdefault(word, []).append(page)
    lines = []
    for word in sorted(words, key=sort_key):
        targets = "".join(
            f'<param name="Name" value="{html.escape(page.title)}"><param name="Local" value="{page.name}">'
            for page in words[word]
        )
        lines.append(
            f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{html.escape(word)}">{targets}</OBJECT>\n'
        )
    return "<UL>\n" + "".join(lines) + "</UL>\n"


def sitemap(body: str) -> str:
    return f'<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<HTML><HEAD></HEAD><BODY>\n{body}</BODY></HTML>\n'


def project(settings: dict[str, str], pages: list[Page], others: list[str], result: str) -> str:
    numbered = [(page.topics[0], page) for page in pages if page.topics]
    files = "\n".join([page.name for page in pages] + others)
    alias = "\n".join(f"T{number}={page.name}" for number, page in numbered)
    numbers = "\n".join(f"#define T{number} {number}" for number, _ in numbered)
    return f"""[OPTIONS]
Title={settings["Titre"]}
Compatibility=1.1 or later
Compiled file={result}
Contents file=sommaire.hhc
Index file=index.hhk
Default topic={settings["Accueil"]}
Default Window=principale
Language=0x40c French (France)
Full-text search=No
Binary TOC=No
Binary Index=No

[WINDOWS]
principale="{settings["Titre"]}","sommaire.hhc","index.hhk","{settings["Accueil"]}","{settings["Accueil"]}",,,,,0x63520,260,0x384e,,,,,,,,0

[FILES]
{files}

[ALIAS]
{alias}

[MAP]
{numbers}
"""


def check(pages: list[Page], others: list[str]) -> None:
    """Every link and picture of every page is there, every topic stands once."""
    present = {page.name for page in pages} | set(others)
    topics: dict[int, str] = {}
    for page in pages:
        if len(page.topics) > 1:
            raise SourceFault(f"{page.name}: one topic number a page")
        for topic in page.topics:
            if topic in topics:
                raise SourceFault(f"topic {topic}: {topics[topic]} and {page.name}")
            topics[topic] = page.name
        for link in re.findall(r'(?:href|src)="([^"]+)"', page.text):
            if link.startswith("ms-its:"):
                continue
            target, _, anchor = link.partition("#")
            if target and target not in present:
                raise SourceFault(f"{page.name}: {target} is not there")
            if anchor and not any(
                p.name == (target or page.name) and f'name="{anchor}"' in p.text for p in pages
            ):
                raise SourceFault(f"{page.name}: no place {link}")


def compile_project(compiler: str, work: pathlib.Path, result: pathlib.Path) -> None:
    output = subprocess.run(
        [compiler, "--no-html-scan", "projet.hhp"], cwd=work, capture_output=True, text=True, errors="replace"
    )
    compiled = work / result.name
    told = output.stdout + output.stderr
    if output.returncode != 0 or "Error" in told or "corrupt" in told or not compiled.is_file():
        raise SourceFault(f"{compiler} did not compile {work}:\n{told}")
    content = bytearray(compiled.read_bytes())
    content[0x28] = 0x11  # where the second class id differs from the first, which chmcmd writes twice
    result.write_bytes(content)
    compiled.unlink()


def build(arguments: argparse.Namespace) -> None:
    sources = pathlib.Path(arguments.sources)
    folder = sources / arguments.project
    result = pathlib.Path(arguments.result)
    work = pathlib.Path(arguments.work)
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    settings = read_settings(folder / "projet.txt")
    pages, tree = READERS[arguments.project](folder)
    others = ["style.css"] + sorted(f"images/{path.name}" for path in (folder / "images").glob("*.png"))
    check(pages, others)
    for page in pages:
        (work / page.name).write_text(page.text, encoding="utf-8")
    shutil.copy(sources / "style.css", work)
    if len(others) > 1:
        shutil.copytree(folder / "images", work / "images")
    for name, text in (
        ("sommaire.hhc", sitemap(contents(tree))),
        ("index.hhk", sitemap(index(pages))),
        ("projet.hhp", project(settings, pages, others, result.name)),
    ):
        (work / name).write_text(text, encoding=CODE_PAGE, errors="xmlcharrefreplace")
    compile_project(arguments.compiler, work, result)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--compiler", default="chmcmd")
    parser.add_argument("--work", required=True)
    parser.add_argument("sources")
    parser.add_argument("project", choices=sorted(READERS))
    parser.add_argument("result")
    try:
        build(parser.parse_args())
    except (SourceFault, OSError) as fault:
        print(f"build_help.py: {fault}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
