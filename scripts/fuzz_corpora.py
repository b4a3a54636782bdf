#!/usr/bin/env python3
"""Writes the made files of fuzz/corpus: small texts with a meaning, usual and odd,
for each target of the fuzzer. Files of other names (found by the fuzzer, or cut from
what ships) are left as they are."""
import pathlib

CORPUS = pathlib.Path(__file__).resolve().parent.parent / "fuzz/corpus"


def latin(text: str) -> bytes:
    return text.encode("cp1252")


def crlf(*lines: str) -> bytes:
    return latin("".join(line + "\r\n" for line in lines))


# What any text file may be, whatever it should hold.
TEXTS = {
    "empty": b"",
    "one_end": b"\r\n",
    "ends_only": b"\r\r\n\n\n\r",
    "no_last_end": crlf("un", "deux") + b"trois",
    "cr_only": b"un\rdeux\r",
    "lf_only": b"un\ndeux\n",
    "cr_cr_lf": b"un\r\r\ndeux\r\r\n",
    "utf8": "été €\r\nœuf ₂\r\n".encode(),
    "utf8_mark": "\ufeffété\r\n".encode(),
    "utf8_mark_only": b"\xef\xbb\xbf",
    "utf16_little": "\ufeffété\r\nfin\r\n".encode("utf-16-le"),
    "utf16_big": "\ufeffété\r\nfin\r\n".encode("utf-16-be"),
    "utf16_odd": b"\xff\xfea\0b",
    "utf16_mark_only": b"\xfe\xff",
    "utf16_lone_half": b"\xff\xfe\x00\xd8a\0\r\0\n\0",
    "cut_utf8": b"\xc3",
    "utf8_beside_page": b"\xc3\xa9\r\n\xe9\r\n",
    "undefined_in_page": b"\x81\x8d\x8f\x90\x9d\r\n",
    "zero_bytes": b"a\0b\r\n\0\r\n",
    "zeros": b"\0" * 64,
    "long_line": b"x" * 5000 + b"\r\n",
    "many_lines": b"\r\n" * 500,
    "tabs_and_blanks": b" \t \r\n\t\r\n",
    "control_characters": bytes(range(32)) + b"\x7f",
    "all_bytes": bytes(range(256)),
}

FORMULAS = [
    "", "H2O", "Fe{3+}", "SO4{2-}", "Al2(SO4)3", "CuSO4,5H2O", "CuSO4.5H2O", "((((", "))))", "Ca(OH)2", "[Cu(NH3)4]{2+}",
    "H0", "H00002", "C99999", "C2147483648", "h2o", "2H2O", "e{-}", "{+}", "{", "}", "{-}{+}", "X", "Xx2", "Uuo", "é",
    "H2O<aq>", "H2O<", "<g>", " H2O ", "Na Cl", "(H2O)0", "()3", "((H2O)2)3", "C6H12O6", "NH4{+}", "MnO4{-}", "H{99999+}",
    "H{+99999}", "(CH3)3(CH2)", "Fe{3-+}", "#", "K4[Fe(CN)6]", "C12H22O11,H2O", "H2O,,H2O", ",", ".", "D2O", "₂", "O{2−}",
]

BALANCING = [
    "H2;O2;;H2O;;", "Fe;O2;;Fe2O3;;", "KMnO4;HCl;;MnCl2;Cl2;H2O", "MnO4{-};Fe{2+};H{+};Mn{2+};Fe{3+};H2O",
    ";;;;;", "H2;;;H2;;", "H2;;;O2;;", "H2O;H2O;H2O;H2O;H2O;H2O", "C2H5OH;O2;;CO2;H2O;", "Al;Cl2;;AlCl3;;",
    "X;Y;;XY;;", "H2;O2;;;;", ";;;H2O;;", "Na{+};Cl{-};;NaCl;;", "e{-};H{+};;H2;;", "Ca3(PO4)2;SiO2;C;CaSiO3;CO;P4",
    "(((;)))", "CuSO4,5H2O;;;CuSO4;H2O;", "H99999;O99999;;H2O;;", "C;H;O;C;H;O", "Cr2O7{2-};H{+};I{-};Cr{3+};I2;H2O",
    "S8;O2;;SO3;;", "H2;O2;;H2O;H2O2;", "K4Fe(CN)6;KMnO4;H2SO4;KHSO4;Fe2(SO4)3;MnSO4", "Fe{3+};;;Fe{2+};;", "h2;o2;;h2o;;",
    "P;HNO3;H2O;H3PO4;NO;", "C6H12O6;O2;;CO2;H2O;", "Cu;HNO3;;Cu(NO3)2;NO;H2O", "N2;H2;;NH3;;", "H2{+};O2;;H2O;;", "He;;;He;;",
]

LINES = [
    "H2+O2=H2O/2,1,2", "", " ", "'remarque", "H2+O2=H2O", "H2 + O2 = H2O /2,1,2", "=", "==", "a=b=c/1,1,1", "/", "#", "=/",
    "=/#", "C<s>+O2<g>=CO2<g>/1,1,1#M6,V5.6,Q0", "C+O2=CO2/1,1,1#Q1", "C+O2=CO2/1,1,1#Q1,Q1,Q0,Q7", "C+O2=CO2/1,1,1#M,V,Q",
    "C+O2=CO2/1,1,1#Z1", "C+O2=CO2/1,1,1#Q1,5", "C+O2=CO2/0,0,0", "C+O2=CO2/99999,1,1", "C+O2=CO2/2147483648,1,1",
    "C+O2=CO2/-1,1,1", "C+O2=CO2/1.5,1,1", "C+O2=CO2/,,", "A+B+C=D+E+F/1,1,1,1,1,1", "A+B+C+D=E/1,1,1,1,1", "A=B+C+D+E/1,1,1,1,1",
    "Fe{3+}<aq>+Cu<s>=Fe{2+}<aq>+Cu{2+}<aq>/2,1,2,1", "Ag{+}+Cl{-}=AgCl/1,1,1", "A{=B/1,1", "A<g=B/1,1", "++=++/1,1",
    "H2+O2=H2O/2,1,2#Q0,Q0,Q0", "H2+O2=H2O/2,1,2#V1e9,V-1,M.", "H2+O2=H2O//2,1,2", "H2+O2=H2O/2,1,2##Q1", "é+è=ê/1,1,1",
]

EDITOR = {
    **{f"line_{number:02}": latin(line) + b"\r\n" for number, line in enumerate(LINES) if line},
    "head_of_three": crlf("'un", "'deux", "'trois", "H2+O2=H2O/2,1,2"),
    "comments_only": crlf("'un", "'deux"),
    "comment_behind_the_last": crlf("H2+O2=H2O/2,1,2", "'fin"),
    "two_comments_before_one": crlf("H2+O2=H2O/2,1,2", "'a", "'b", "C+O2=CO2/1,1,1"),
    "blank_before_the_apostrophe": crlf(" 'a", "H2+O2=H2O/2,1,2"),
    "no_end": latin("H2+O2=H2O/2,1,2"),
    "hundred": crlf(*["C+O2=CO2/1,1,1"] * 100),
}

RECORD = "DUPONT©19.2©60"
HIGH_SCORES = {
    "full_section": crlf("#chimie1.Equ", *[f"ELEVE{number}©{20 - number}©{60 + number}" for number in range(10)]),
    "eleven": crlf("#chimie1.Equ", *[f"ELEVE{number}©{20 - number}©60" for number in range(11)]),
    "other_case": crlf("#CHIMIE1.EQU", RECORD),
    "blank_header": crlf("# chimie1.Equ ", RECORD),
    "twice": crlf("#chimie1.Equ", RECORD, "#autre.Equ", RECORD, "#chimie1.Equ", RECORD),
    "before_any_header": crlf(RECORD, "#chimie1.Equ", RECORD),
    "header_alone": crlf("#chimie1.Equ"),
    "header_of_nothing": crlf("#", RECORD),
    "commas": crlf("#chimie1.Equ", "A©19,2©60,5"),
    "no_marks": crlf("#chimie1.Equ", "DUPONT 19 60"),
    "one_mark": crlf("#chimie1.Equ", "DUPONT©19"),
    "three_marks": crlf("#chimie1.Equ", "DUPONT©19©60©7"),
    "no_numbers": crlf("#chimie1.Equ", "DUPONT©a©b"),
    "huge_numbers": crlf("#chimie1.Equ", "A©1e300©99999999999999999999", "B©-5©-5"),
    "tiny_numbers": crlf("#chimie1.Equ", "A©0.0000001©0.0000001"),
    "no_name": crlf("#chimie1.Equ", "©19©60"),
    "blank_name": crlf("#chimie1.Equ", "   ©19©60"),
    "name_like_a_header": crlf("#chimie1.Equ", " #chimie1.Equ©19©60"),
    "long_name": crlf("#chimie1.Equ", "D" * 300 + "©19©60"),
    "empty_lines_between": crlf("", "#chimie1.Equ", "", RECORD, "", "#autre.Equ", ""),
    "equal_marks": crlf("#chimie1.Equ", "A©19©60", "B©19©60", "C©19©59"),
    "rising": crlf("#chimie1.Equ", "A©1©60", "B©2©60", "C©3©60"),
    "utf8": ("#chimie1.Equ\r\nŁukasz©19©60\r\n").encode(),
    "own_record": crlf("#chimie1.Equ", "Dupont©20©1"),
    "thirty_sections": crlf(*[line for number in range(30) for line in (f"#serie{number}.Equ", RECORD)]),
    "lone_high_half": "#chimie1.Equ\r\n".encode() + b"\xed\xa0\x80\xa9" + latin("©19©60\r\n"),
    "mark_first": crlf("©#chimie1.Equ", RECORD),
    "no_last_end": latin("#chimie1.Equ\r\n" + RECORD),
}

SETTINGS = {
    "no_section": crlf("PassWord=secret"),
    "two_of_a_name": crlf("[Options]", "a=1", "[Autre]", "[options]", "a=2"),
    "key_twice": crlf("[Options]", "Clé=1", "Clé=2"),
    "case": crlf("[OPTIONS]", "CLÉ=1"),
    "quotes": crlf("[Options]", 'Clé="a"', "b='c'", 'd="', 'e=""', "f=\"'x'\""),
    "blanks": crlf(" [Options] ", "  Clé  =  valeur  "),
    "unclosed": crlf("[Options", "Clé=1"),
    "closed_twice": crlf("[Opt]ions]", "Clé=1"),
    "empty_name": crlf("[]", "=", "=valeur"),
    "no_equals": crlf("[Options]", "Clé", "; note", "#"),
    "many_equals": crlf("[Options]", "Clé=a=b=c"),
    "long_value": crlf("[Options]", "Clé=" + "x" * 400),
    "work_file": crlf("[Fichier]", "Nom=Serie", "EnCours=1", "[1]", "Molecule1=H2"),
    "section_at_the_end": crlf("a=1", "[Options]"),
    "no_last_end": latin("[Options]\r\nClé=1"),
    "brackets_in_value": crlf("[Options]", "Clé=[Autre]"),
}


def work_file(*pairs: str, equations: int = 1) -> bytes:
    lines = ["[Fichier]", "Nom=Serie", "Type=EQU", "Entete=Titre", f"Nombre={equations}", "Numero=1", "Existant=0", "EnCours=1"]
    for number in range(1, equations + 1):
        lines += [f"[{number}]", "Molecule1=H2", "Molecule2=O2", "Molecule4=H2O", "Coeff1=2", "Coeff2=1", "Coeff4=2", "ECHEC=0"]
    for pair in pairs:
        key = pair.split("=")[0] + "="
        places = [at for at, line in enumerate(lines) if line.startswith(key)]
        if places:
            lines[places[0]] = pair
        else:
            lines.append(pair)
    return crlf(*lines)


WORK_FILES = {
    "usual": work_file(),
    "three": work_file(equations=3),
    "last_shown": work_file("Numero=3", equations=3),
    "progress": work_file("Type=AVT", "MVQ1=Q1.5", "Etat1=g"),
    "existing": work_file("Existant=1"),
    "finished": work_file("EnCours=0"),
    "unknown_flag": work_file("EnCours=2"),
    "no_count": work_file("Nombre="),
    "count_of_0": work_file("Nombre=0"),
    "negative_count": work_file("Nombre=-3"),
    "huge_count": work_file("Nombre=99999999999"),
    "count_of_text": work_file("Nombre=beaucoup"),
    "count_above_the_sections": work_file("Nombre=40"),
    "number_above_the_count": work_file("Numero=9"),
    "number_of_0": work_file("Numero=0"),
    "broken_number": work_file("Numero=1.9", equations=3),
    "unknown_type": work_file("Type=XYZ"),
    "head_of_lines": work_file("Entete=un\\ndeux\\\\trois"),
    "head_ends_in_a_stroke": work_file("Entete=un\\"),
    "long_comment": work_file("Comment=" + "x" * 250, "Comment.2=" + "y" * 250, "Comment.3=z"),
    "pieces_with_a_gap": work_file("Comment=" + "x" * 254, "Comment.3=z"),
    "quotes": work_file('Comment="a"', "Molecule1=' H2 '"),
    "failed": work_file("ECHEC=1"),
    "odd_failed": work_file("ECHEC=oui"),
    "all_slots": work_file(*[f"Molecule{slot}=Fe{{3+}}" for slot in range(1, 7)]),
    "no_equation": crlf("[Fichier]", "EnCours=1", "Nombre=2"),
    "only_the_flag": crlf("[Fichier]", "EnCours=1"),
    "sections_out_of_order": crlf("[2]", "Molecule1=C", "[Fichier]", "EnCours=1", "Nombre=2", "[1]", "Molecule1=H2"),
    "others_sections": work_file() + crlf("[Options]", "PassWord=secret", "[01]", "Molecule1=X", "[1 ]", "Molecule1=Y"),
    "two_of_a_section": work_file() + crlf("[1]", "Molecule1=He"),
    "lower_case": work_file().lower(),
    "utf8": work_file().decode("cp1252").replace("Titre", "Łódź").encode(),
    "utf16": b"\xff\xfe" + work_file().decode("cp1252").encode("utf-16-le"),
    "cut": work_file(equations=3)[:120],
    "zeros_at_the_end": work_file() + b"\0" * 40,
}

VERSIONS = {
    "usual": b"Version=4.1.0\r\n", "older": b"Version=3.9", "equal": b"Version=4.0.0", "no_equals": b"4.1",
    "two_equals": b"Version=4.1=5", "equals_only": b"=", "value_on_two_lines": b"Version=4.\r\n1\r\n", "blanks": b"  Version = 4.1  ",
    "page": b"<html><body>Connexion = refus\xc3\xa9e</body></html>", "long_page": b"<a href=x>" * 200, "text": b"Version=bient\xc3\xb4t",
    "minus": b"Version=-4.1", "exponent": b"Version=9e99", "huge": b"Version=" + b"9" * 32, "longer_than_a_version": b"Version=" + b"9" * 33,
    "points_only": b"Version=....", "comma": b"Version=4,1", "tab": b"Version=\t4.1", "before": b"a\r\nb\r\nVersion=4.1", "zero_byte": b"Version=4\0.1",
    "utf8_cut": b"Version=4.1\xc3", "arabic_digits": "Version=٤.١".encode(), "wide_digits": "Version=４.１".encode(), "plus": b"Version=+4.1",
}

TIPS = {
    "usual": crlf("Pensez à compter les atomes.", "La charge se conserve aussi."),
    "one": crlf("Une seule astuce"),
    "empty_ones": crlf("", "un", "", "deux", ""),
    "markup": crlf("<b>gras</b> &amp; <img src=x>", "%1 %2 %n"),
    "long": crlf("x" * 3000),
    "hundred": crlf(*[f"Astuce {number}" for number in range(100)]),
}

JOURNALS = {
    "usual": crlf("", "*" * 38, "Nom élève :DUPONT", "Prénom élève :Paul", "Classe élève :3B", "*" * 38,
                  "Nom du fichier : Serie1.Equ - 2 équations", "Jour et Heure :05/03/2016 14:07:12", "-" * 38, "  N°1 : ",
                  "2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5", " -------> Note : 20,00/20 - Temps écoulé : 12,30 s"),
    "two_pupils": crlf("*" * 38, "Nom élève :A", "*" * 38, "Nom élève :B"),
    "torn_at_the_end": crlf("Nom élève :DUPONT") + b"2 H2 + 1 O2 -",
    "nul_at_the_end": crlf("Nom élève :DUPONT") + b"\0" * 100,
    "nul_in_the_middle": crlf("Nom élève :DUPONT") + b"\0" * 20 + crlf("Classe élève :3B"),
    "mark_behind_the_first_line": crlf("un") + b"\xff\xfe" + crlf("deux"),
}


def help_files() -> dict[str, bytes]:
    """The small help file, damaged in its heads, in its directory and at its end."""
    small = (CORPUS / "help_reader/small.chm").read_bytes()
    made = {f"cut_at_{length}": small[:length] for length in (0, 4, 0x40, 0x60, 0x70, 0xB4, 0x200, 0x1000, len(small) // 2, len(small) - 1)}
    packing = small.index(b"LZXC") - 4
    places = {"version": 4, "directory": 0x48, "data": 0x58, "list_head": 0x80, "block": 0x88, "root": 0x94, "first": 0x98, "last": 0x9C, "blocks": 0xA4, "free": 0xD0,
              "frames": packing + 0x0C, "window": packing + 0x10}
    for name, place in places.items():
        for word, number in (("zero", 0), ("most", 0xFFFFFFFF), ("one_more", (int.from_bytes(small[place : place + 4], "little") + 1) % 2**32)):
            made[f"{name}_{word}"] = small[:place] + number.to_bytes(4, "little") + small[place + 4 :]
    return made


def numbered(name: str, texts: list[str], ending: bytes = b"") -> dict[str, bytes]:
    made = {}
    for number, text in enumerate(texts):
        try:
            made[f"{name}_{number:02}"] = latin(text) + ending
        except UnicodeEncodeError:
            made[f"{name}_{number:02}"] = text.encode() + ending
    return made


def main() -> None:
    corpora = {
        "balancing": numbered("made", BALANCING),
        "editor": EDITOR,
        "formula": numbered("made", FORMULAS),
        "help_reader": help_files(),
        "high_scores": HIGH_SCORES | {name: TEXTS[name] for name in ("empty", "cr_cr_lf", "utf16_little", "zeros", "all_bytes")},
        "line_reader": numbered("made", LINES),
        "settings": SETTINGS | {name: TEXTS[name] for name in TEXTS if not name.startswith("ma")},
        "text_file": TEXTS | JOURNALS,
        "tips": TEXTS | TIPS,
        "version": VERSIONS | {name: TEXTS[name] for name in ("empty", "zeros", "all_bytes", "utf8_mark", "utf16_little", "one_end", "long_line")},
        "work_file": WORK_FILES | {name: TEXTS[name] for name in ("empty", "all_bytes", "utf16_odd")},
    }
    for target, files in corpora.items():
        folder = CORPUS / target
        folder.mkdir(parents=True, exist_ok=True)
        for name, content in files.items():
            (folder / name).write_bytes(content)
        print(f"{target}: {sum(1 for _ in folder.iterdir())} files")


if __name__ == "__main__":
    main()
