"""Finds places in C++ text where the code can be broken on purpose, and writes the broken form beside the right one.

All mutants of a file live in one text: each is a choice at run time, `Mutant(17) ? broken : right`, so one build holds
them all. Nothing is parsed; tokens, brackets and the layout of clang-format (blanks around binary operators, none
around those of a type) tell enough, and what does not compile after all is dropped by the caller.
"""

import hashlib
import re
from dataclasses import dataclass

TOKEN = re.compile(r"""
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n\\]|\\.)*)
  | (?P<string>(?:u8|u|U|L)?R"(?P<tag>[^(\s]*)\(.*?\)(?P=tag)"|(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*")
  | (?P<char>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')
  | (?P<number>\d(?:'?[\w.])*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<op><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\w\s])
""", re.X | re.S | re.M)

LEVEL = {"*": 10, "/": 10, "%": 10, "+": 9, "-": 9, "<<": 8, ">>": 8, "<": 7, "<=": 7, ">": 7, ">=": 7, "==": 6, "!=": 6,
         "&": 5, "^": 4, "|": 3, "&&": 2, "||": 1}
ASSIGN = {"=", "+=", "-=", "*=", "/=", "%=", "|=", "&=", "^=", "<<=", ">>="}
SWAPS = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
         "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["*"], "|": ["&"], "&": ["|"],
         "+=": ["-="], "-=": ["+="]}
ENDS = {";", ",", "?", ":", "return", "case", "else", "co_return", "throw"}
OPEN, CLOSE = {"(": ")", "[": "]", "{": "}"}, {")": "(", "]": "[", "}": "{"}


@dataclass
class Token:
    kind: str
    text: str
    at: int
    end: int
    code: bool = False  # inside a function's body


@dataclass
class Mutant:
    """Bytes [at, end) of a file, to become `text` with the mutant's number in place of %d."""
    file: str
    line: int
    last_line: int
    at: int
    end: int
    kind: str
    change: str
    text: str
    rank: str = ""
    number: int = 0


class Source:
    def __init__(self, name, text):
        self.name, self.text = name, text
        self.tokens = [Token(m.lastgroup if m.lastgroup != "tag" else "string", m.group(), m.start(), m.end())
                       for m in TOKEN.finditer(text) if m.lastgroup != "skip" and not m.group("skip")]
        self.partner = {}
        self.mark_blocks()

    def mark_blocks(self):
        """Pairs the brackets and marks the tokens inside bodies of functions."""
        stack, blocks, start = [], [False], 0
        for i, token in enumerate(self.tokens):
            token.code = blocks[-1]
            if token.text in OPEN:
                stack.append(i)
            elif token.text in CLOSE and stack:
                self.partner[i], self.partner[stack[-1]] = stack[-1], i
                stack.pop()
            if token.text == "{":
                head = {t.text for t in self.tokens[start:i]}
                declares = head & {"class", "struct", "enum", "union", "namespace"} and ")" not in head
                blocks.append(not declares and (blocks[-1] or ")" in head))
            elif token.text == "}" and len(blocks) > 1:
                blocks.pop()
            if token.text in "{};":
                start = i + 1

    def spaced(self, i):
        """True for an operator with blanks or line ends on both sides: a binary one."""
        t = self.tokens[i]
        return self.text[t.at - 1].isspace() and self.text[t.end].isspace()

    def level(self, i):
        """How tightly the operator at `i` binds; 0 for what ends an operand, None for what belongs to one."""
        text = self.tokens[i].text
        if text in ENDS or text in ASSIGN:
            return 0
        return LEVEL[text] if text in LEVEL and self.spaced(i) else None

    def left(self, i, level):
        """The first token of the operand that ends before `i`."""
        while i > 0:
            text = self.tokens[i - 1].text
            if text == "}" and (i - 1 not in self.partner or self.tokens[self.partner[i - 1] - 1].kind != "name"):
                return i
            if text in CLOSE and i - 1 in self.partner:
                i = self.partner[i - 1]
                continue
            bound = self.level(i - 1)
            if text in OPEN or (bound is not None and bound < level):
                return i
            i -= 1
        return i

    def right(self, i, level):
        """The token after the operand that begins at `i`."""
        while i < len(self.tokens):
            text = self.tokens[i].text
            if text in OPEN and i in self.partner:
                i = self.partner[i] + 1
                continue
            bound = self.level(i)
            if text in CLOSE or (bound is not None and bound <= level):
                return i
            i += 1
        return i

    def chain(self, i):
        """The token after a chain of names, members, calls and subscripts that begins at `i`; `i` when there is none."""
        start = i
        while i < len(self.tokens):
            text = self.tokens[i].text
            joined = i > start and self.tokens[i - 1].text in {".", "->", "::", "*"}
            if self.tokens[i].kind == "name" and (i == start or joined):
                i += 1
            elif text in {".", "->", "::"} and i > start or (text == "*" and i == start):
                i += 1
            elif (text == "[" or text == "(") and i in self.partner and (i == start or self.tokens[i - 1].kind == "name"
                                                                         or self.tokens[i - 1].text in ")]>"):
                i = self.partner[i] + 1
            else:
                break
        return i

    def span(self, a, b):
        return self.text[self.tokens[a].at:self.tokens[b - 1].end]

    def make(self, a, b, kind, change, text):
        at, end = self.tokens[a].at, self.tokens[b - 1].end
        line = self.text.count("\n", 0, self.tokens[a].at) + 1
        return Mutant(self.name, line, line + self.text.count("\n", at, end), at, end, kind, change, text)

    def statement_head(self, i):
        """The first token of the statement that holds `i`."""
        while i > 0 and self.tokens[i - 1].text not in {";", "{", "}"}:
            i -= 1
        return self.tokens[i].text, self.tokens[i + 1].text if i + 1 < len(self.tokens) else ""

    def mutants(self):
        for i, token in enumerate(self.tokens):
            if not token.code or set(self.statement_head(i)) & {"constexpr", "static_assert", "case", "using"}:
                continue
            for find in (self.operator, self.constant, self.condition, self.removal):
                yield from find(i, token)

    def operator(self, i, token):
        if token.text == "!" or token.text in {"++", "--"}:
            end = self.chain(i + 1)
            before = self.tokens[i - 1]
            if end == i + 1 or before.kind in {"name", "number"} and before.text != "return" or before.text in ")]":
                return
            operand = self.span(i + 1, end)
            other = {"!": "", "++": "--", "--": "++"}[token.text]
            yield self.make(i, end, "operator", f"{token.text} -> {other or 'nothing'}",
                            f"(Mutant(%d) ? ({other}{operand}) : ({token.text}{operand}))")
            return
        if token.text not in SWAPS or not self.spaced(i):
            return
        level = LEVEL.get(token.text, 0)
        a, b = self.left(i, level), self.right(i + 1, level)
        if a == i or b == i + 1 or any(t.text in {"<<", ">>"} and level < 8 for t in self.tokens[a:b]):
            return
        left, right = self.span(a, i), self.span(i + 1, b)
        for other in SWAPS[token.text]:
            yield self.make(a, b, "operator", f"{token.text} -> {other}",
                            f"(Mutant(%d) ? ({left} {other} {right}) : ({left} {token.text} {right}))")

    def constant(self, i, token):
        text = token.text
        if text in {"true", "false"}:
            yield self.make(i, i + 1, "constant", f"{text} -> {'false' if text == 'true' else 'true'}",
                            f"(Mutant(%d) != {text})")
        elif token.kind == "char":
            yield self.make(i, i + 1, "constant", f"{text} -> {text} + 1",
                            f"(Mutant(%d) ? static_cast<decltype({text})>({text} + 1) : {text})")
        elif token.kind == "number" and "." not in text:
            yield self.make(i, i + 1, "constant", f"{text} -> {text} + 1", f"(Mutant(%d) ? ({text} + 1) : {text})")

    def condition(self, i, token):
        if token.text not in {"if", "while"} or self.tokens[i + 1].text != "(" or i + 1 not in self.partner:
            return
        a, b = i + 2, self.partner[i + 1]
        inner = {t.text for t in self.tokens[a:b]}
        if a < b and not inner & (ASSIGN | {";"}):
            yield self.make(a, b, "condition", "negated", f"Mutant(%d) != static_cast<bool>({self.span(a, b)})")

    def removal(self, i, token):
        before = self.tokens[i - 1].text
        if before == ")" and i - 1 in self.partner:
            if self.tokens[self.partner[i - 1] - 1].text not in {"if", "for", "while"}:
                return
        elif before not in {";", "{", "}", "else"}:
            return
        end = i + 1
        if token.text in {"++", "--"}:
            end = self.chain(i + 1)
        elif token.text not in {"return", "break", "continue"}:
            end = self.chain(i)
            if end < len(self.tokens) and self.tokens[end].text in ASSIGN:
                end = self.right(end + 1, 0)
            elif end > i and self.tokens[end - 1].text != ")":
                return
        if end == i or end >= len(self.tokens) or self.tokens[end].text != ";" or token.text in {"if", "throw"}:
            return
        statement = self.span(i, end + 1)
        if statement.count("\n") < 6:
            yield self.make(i, end + 1, "removal", "removed", f"{{ if (!Mutant(%d)) {statement} }}")


def ranked(mutant, text, seed):
    """A number by chance that stays the same for a line that stays the same."""
    begin = text.rfind("\n", 0, mutant.at) + 1
    line = text[begin:text.find("\n", mutant.at)].strip()
    key = f"{seed}|{mutant.file}|{line}|{mutant.at - begin}|{mutant.end - mutant.at}|{mutant.kind}|{mutant.change}"
    return hashlib.sha256(key.encode()).hexdigest()


def choose(sources, seed, count):
    """`count` mutants by chance, as many of each kind as there are, none inside another."""
    kinds = {}
    for name, text in sources.items():
        for mutant in Source(name, text).mutants():
            mutant.rank = ranked(mutant, text, seed)
            kinds.setdefault(mutant.kind, []).append(mutant)
    chosen, taken = [], {}
    for place, kind in enumerate(sorted(kinds)):
        share = count * (place + 1) // len(kinds) - count * place // len(kinds)
        for mutant in sorted(kinds[kind], key=lambda m: m.rank):
            spans = taken.setdefault(mutant.file, [])
            if share and not any(mutant.at < end and at < mutant.end for at, end in spans):
                spans.append((mutant.at, mutant.end))
                chosen.append(mutant)
                share -= 1
    chosen.sort(key=lambda m: (m.file, m.at))
    for number, mutant in enumerate(chosen, 1):
        mutant.number = number
    return chosen


def rewrite(text, mutants):
    """The text with the mutants in it; each line stays in its place."""
    for mutant in sorted(mutants, key=lambda m: -m.at):
        text = text[:mutant.at] + mutant.text.replace("%d", str(mutant.number), 1) + text[mutant.end:]
    return text
