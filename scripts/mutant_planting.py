"""Where a small fault can be planted into a C++ source of ours, and which.

Knows the house's format (clang-format keeps it): a binary operator stands between
blanks, the angle brackets of a template do not. Comments, preprocessor lines, texts
between quotes and what only asserts are left alone.
"""
import dataclasses
import hashlib
import re

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*)
      | (?P<raw>(?:u8|u|U|L)?R"(?P<fence>[^ ()\\\t\n]*)\(.*?\)(?P=fence)"\w*)
      | (?P<text>(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*"\w*)
      | (?P<char>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')
      | (?P<number>\.?\d(?:[eEpP][+-]|'(?=\w)|[\w.])*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<blank>\s+)
      | (?P<sign><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)""",
    re.X | re.S | re.M,
)
OPENING = {"(": ")", "[": "]", "{": "}"}

# What a sign between blanks becomes: the rule's name and the other sign.
SWAPS = {
    "<": [("boundary", "<="), ("comparison", ">=")],
    "<=": [("boundary", "<"), ("comparison", ">")],
    ">": [("boundary", ">="), ("comparison", "<=")],
    ">=": [("boundary", ">"), ("comparison", "<")],
    "==": [("comparison", "!=")],
    "!=": [("comparison", "==")],
    "+": [("arithmetic", "-")],
    "-": [("arithmetic", "+")],
    "*": [("arithmetic", "/")],
    "/": [("arithmetic", "*")],
    "%": [("arithmetic", "/")],
    "+=": [("arithmetic", "-=")],
    "-=": [("arithmetic", "+=")],
    "*=": [("arithmetic", "/=")],
    "/=": [("arithmetic", "*=")],
    "&&": [("logic", "||")],
    "||": [("logic", "&&")],
    "&": [("logic", "|")],
    "|": [("logic", "&")],
}
STEPS = {"++": "--", "--": "++"}
ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "%=", "|=", "&=", "^=", "<<=", ">>=", "<<"}
# What stands between the parentheses of these is no behaviour.
ASSERTIONS = {"Q_ASSERT", "static_assert", "alignas", "noexcept", "decltype", "sizeof"}
# Left out, these change nothing but speed or a warning.
WITHOUT_EFFECT = {"reserve", "Q_UNUSED", "squeeze"}
# Words that begin a statement of another kind, or a declaration.
NO_STATEMENTS = {
    "auto", "case", "const", "constexpr", "delete", "do", "else", "for", "if", "return", "static", "switch", "try",
    "using", "while",
}
PLAIN_RETURNS = {"{}", "false", "true", "nullptr", "std::nullopt", "0"}
# A braced list outside of functions with more numbers than this is a table of data.
TABLE_SIZE = 100
# A constant that is nudged is seen by a test of what the constant decides.
REAL_FACTOR = 1.02


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self) -> int:
        return self.start + len(self.text)


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One fault: what is replaced by what, and how a person finds it."""

    path: str
    start: int
    end: int
    then: str
    rule: str
    line: int
    was_line: str
    then_line: str
    turn: int  # lines that read alike are told apart by their order

    @property
    def name(self) -> str:
        key = "\n".join([self.path, self.rule, self.was_line, self.then_line, str(self.turn)])
        return hashlib.sha1(key.encode()).hexdigest()[:10]

    def planted(self, source: str) -> str:
        return source[: self.start] + self.then + source[self.end :]


def tokens_of(source: str) -> list[Token]:
    """What the compiler reads: neither blanks nor comments nor directives."""
    found = []
    for match in TOKEN.finditer(source):
        kind = "text" if match.lastgroup == "fence" else match.lastgroup
        if kind == "raw":
            kind = "text"
        if kind not in ("blank", "comment", "directive"):
            found.append(Token(kind, match[0], match.start()))
    return found


class Planter:
    """Walks over one source and gathers what can be planted."""

    def __init__(self, path: str, source: str, with_texts: bool = False) -> None:
        self.path = path
        self.source = source
        self.with_texts = with_texts
        self.tokens = tokens_of(source)
        self.partner = self._partners()
        self.opening = {end: start for start, end in self.partner.items()}
        self.in_code = self._code_blocks()
        self.in_table = self._tables()
        self.found: list[tuple[int, int, str, str]] = []

    def mutants(self) -> list[Mutant]:
        skipped = self._asserted()
        for index, token in enumerate(self.tokens):
            if index in skipped:
                continue
            self._plant_sign(index, token)
            self._plant_constant(index, token)
            self._plant_condition(index, token)
            self._plant_choice(index, token)
            self._plant_return(index, token)
            self._plant_statement(index)
        return self._named(sorted(set(self.found)))

    # -- the shape of the source

    def _text(self, index: int) -> str:
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def _kind(self, index: int) -> str:
        return self.tokens[index].kind if 0 <= index < len(self.tokens) else ""

    def _partners(self) -> dict[int, int]:
        partner, open_ones = {}, []
        for index, token in enumerate(self.tokens):
            if token.kind != "sign":
                continue
            if token.text in OPENING:
                open_ones.append(index)
            elif token.text in OPENING.values() and open_ones:
                partner[open_ones.pop()] = index
        return partner

    def _code_blocks(self) -> set[int]:
        """The tokens that stand in the body of a function."""
        inside: set[int] = set()
        for index, end in self.partner.items():
            if self._text(index) == "{" and self._is_body(index):
                inside.update(range(index + 1, end))
        return inside

    def _is_body(self, index: int) -> bool:
        back = index - 1
        while back >= 0 and self._text(back) not in (";", "{", "}"):
            if self._text(back) in ("namespace", "class", "struct", "union", "enum", "extern", "=", "return"):
                return False
            if self._text(back) == ")":
                return True
            back -= 1
        return self._text(index - 1) in ("else", "do", "try", "]")

    def _tables(self) -> set[int]:
        """The tokens of tables of numbers, which are data rather than logic."""
        inside: set[int] = set()
        for index, end in self.partner.items():
            if self._text(index) != "{" or index in self.in_code or self._is_body(index):
                continue
            body = range(index + 1, end)
            if not any(at in self.in_code for at in body) and sum(self._kind(at) == "number" for at in body) > TABLE_SIZE:
                inside.update(body)
        return inside

    def _asserted(self) -> set[int]:
        skipped: set[int] = set()
        for index, token in enumerate(self.tokens):
            if token.text in ASSERTIONS and index + 1 in self.partner:
                skipped.update(range(index, self.partner[index + 1] + 1))
            # An attribute.
            if token.text == "[" and self._text(index + 1) == "[" and index in self.partner:
                skipped.update(range(index, self.partner[index] + 1))
        return skipped

    def _is_between_blanks(self, token: Token) -> bool:
        before = self.source[token.start - 1 : token.start]
        after = self.source[token.end : token.end + 1]
        return before.isspace() and after.isspace()

    def _span(self, first: int, last: int) -> tuple[int, int]:
        return self.tokens[first].start, self.tokens[last].end

    def _source(self, first: int, last: int) -> str:
        start, end = self._span(first, last)
        return self.source[start:end]

    def _end_of_expression(self, index: int, ends: tuple[str, ...]) -> int | None:
        """The first of the signs that follows at the same depth, from index on."""
        while index < len(self.tokens):
            text = self._text(index)
            if text in ends:
                return index
            if text in OPENING.values():
                return index if text in ends else None
            if text in OPENING:
                if index not in self.partner:
                    return None
                index = self.partner[index]
            index += 1
        return None

    def _add(self, first: int, last: int, then: str, rule: str) -> None:
        start, end = self._span(first, last)
        self.found.append((start, end, then, rule))

    # -- the rules

    def _plant_sign(self, index: int, token: Token) -> None:
        if token.kind != "sign":
            return
        if token.text in STEPS and index in self.in_code:
            self._add(index, index, STEPS[token.text], "arithmetic")
        if token.text not in SWAPS or not self._is_between_blanks(token):
            return
        # Texts are put together by "+" and by nothing else.
        beside = (self._kind(index - 1), self._kind(index + 1))
        if token.text in "+-" and "text" in beside:
            return
        for rule, then in SWAPS[token.text]:
            self._add(index, index, then, rule)

    def _plant_constant(self, index: int, token: Token) -> None:
        if token.kind == "word" and token.text in ("true", "false"):
            self._add(index, index, "false" if token.text == "true" else "true", "constant")
        elif token.kind == "char":
            then = "'^'" if "'~'" in token.text else "'~'"
            self._add(index, index, token.text[: token.text.index("'")] + then, "constant")
        elif token.kind == "number":
            for then in nudged(token.text):
                self._add(index, index, then, "data" if index in self.in_table else "constant")
        elif token.kind == "text" and self.with_texts and len(token.text) > 2 and '"' in token.text:
            quote = token.text.index('"')
            self._add(index, index, token.text[: quote + 1] + "~" + token.text[quote + 1 :], "text")

    def _plant_condition(self, index: int, token: Token) -> None:
        if token.text not in ("if", "while") or index + 1 not in self.partner:
            return
        first, last = index + 2, self.partner[index + 1] - 1
        for at in range(first, last + 1):
            if self._text(at) == ";":
                first = at + 1
        if first > last or any(self._text(at) == "=" for at in range(first, last + 1)):
            return
        self._add(first, last, f"!({self._source(first, last)})", "condition")

    def _plant_choice(self, index: int, token: Token) -> None:
        """The two ends of "a ? b : c" change places."""
        if token.text != "?" or not self._is_between_blanks(token):
            return
        colon = self._end_of_expression(index + 1, (":", "?"))
        if colon is None or self._text(colon) == "?":
            return
        end = self._end_of_expression(colon + 1, (";", ",", ")", "}", "]", "?", ":"))
        if end is None or self._text(end) in "?:" or end == colon + 1:
            return
        one, other = self._source(index + 1, colon - 1), self._source(colon + 1, end - 1)
        if one != other:
            self._add(index + 1, end - 1, f"{other} : {one}", "choice")

    def _plant_return(self, index: int, token: Token) -> None:
        if token.text != "return" or index not in self.in_code:
            return
        end = self._end_of_expression(index + 1, (";",))
        if end is None or end == index + 1:
            return
        what = self._source(index + 1, end - 1)
        if what in PLAIN_RETURNS or self._kind(index + 1) == "number" and end == index + 2:
            return
        if self._is_question(index + 1, end):
            self._add(index + 1, end - 1, f"!({what})", "return")
        else:
            self._add(index + 1, end - 1, "{}", "return")

    def _is_question(self, first: int, end: int) -> bool:
        """An expression that is true or false, as far as its outermost signs tell."""
        at, answer = first, self._text(first) == "!"
        while at < end:
            text = self._text(at)
            if text == "?":
                return False
            if text in ("&&", "||", "==", "!=", "<", "<=", ">", ">=") and self._is_between_blanks(self.tokens[at]):
                answer = True
            at = self.partner[at] + 1 if at in self.partner else at + 1
        return answer

    def _plant_statement(self, index: int) -> None:
        if index not in self.in_code or not self._begins_statement(index):
            return
        end = self._end_of_statement(index)
        if end is not None:
            self._add(index, end, ";", "statement")

    def _begins_statement(self, index: int) -> bool:
        before = self._text(index - 1)
        if before in (";", "{", "}", "else", "do"):
            return True
        if before == ":":
            return self._kind(index - 2) in ("word", "char", "number") and not self._is_in_choice(index - 1)
        if before != ")":
            return False
        return self._text(self.opening.get(index - 1, 0) - 1) in ("if", "for", "while")

    def _is_in_choice(self, colon: int) -> bool:
        at = colon - 1
        while at >= 0 and self._text(at) not in (";", "{", "}"):
            if self._text(at) == "?":
                return True
            if self._text(at) in ("case", "default"):
                return False
            at -= 1
        return True

    def _end_of_statement(self, index: int) -> int | None:
        """The semicolon of a call, an assignment, a step or a jump; not of a declaration."""
        first = self._text(index)
        if first in ("break", "continue", "throw") or (first == "return" and self._text(index + 1) == ";"):
            return self._end_of_expression(index, (";",))
        at, is_call = index + (first in ("Q_EMIT", "emit")), False
        name = ""
        while self._text(at) in ("*", "++", "--", "("):
            is_call = is_call or self._text(at) in STEPS
            if self._text(at) == "(":
                return None
            at += 1
        if self._kind(at) != "word" or self._text(at) in NO_STATEMENTS:
            return None
        at += 1
        while at < len(self.tokens):
            text = self._text(at)
            if text in ("::", ".", "->") and self._kind(at + 1) == "word":
                name = self._text(at + 1)
                at += 2
            elif text in ("(", "[") and at in self.partner:
                is_call = is_call or text == "("
                name = name or self._text(at - 1)
                at = self.partner[at] + 1
            elif text in STEPS:
                is_call = True
                at += 1
            elif text in ASSIGNMENTS:
                return self._end_of_expression(at, (";",))
            elif text == ";":
                return at if is_call and name not in WITHOUT_EFFECT and first not in ASSERTIONS else None
            else:
                return None
        return None

    # -- names

    def _named(self, found: list[tuple[int, int, str, str]]) -> list[Mutant]:
        mutants, turns = [], {}
        for start, end, then, rule in found:
            was_line, then_line = self._lines(start, end, then)
            key = (rule, was_line, then_line)
            turns[key] = turns.get(key, -1) + 1
            line = self.source.count("\n", 0, start) + 1
            mutants.append(Mutant(self.path, start, end, then, rule, line, was_line, then_line, turns[key]))
        return mutants

    def _lines(self, start: int, end: int, then: str) -> tuple[str, str]:
        first = self.source.rfind("\n", 0, start) + 1
        last = self.source.find("\n", end)
        last = len(self.source) if last < 0 else last
        was = self.source[first:last]
        now = self.source[first:start] + then + self.source[end:last]
        return " ".join(was.split()), " ".join(now.split())


def nudged(number: str) -> list[str]:
    """A whole number moved by one; any other by two percent."""
    plain = number.replace("'", "")
    if match := re.fullmatch(r"(0[xX][0-9a-fA-F]+|0|[1-9]\d*)([uUlLzZ]*)", plain):
        value, suffix = int(match[1], 0), match[2]
        return [f"{value + 1}{suffix}"] + ([f"{value - 1}{suffix}"] if value > 1 else [])
    if match := re.fullmatch(r"(\d*\.?\d*(?:[eE][+-]?\d+)?)([fFlL]?)", plain):
        value = float(match[1])
        text = f"{value * REAL_FACTOR if value else 1:.15g}"
        return [text + ("" if "." in text or "e" in text else ".0") + match[2]]
    return []


def mutants_of(path: str, source: str, with_texts: bool = False) -> list[Mutant]:
    return Planter(path, source, with_texts).mutants()
