"""Random trees and sheets, of the language that a browser and this project read alike.

The whole of it: selectors of types, *, classes, ids, pseudo-classes that are never on, children and descendants, in
lists; normal and important declarations; @media with lists of plain media; several sheets in turn; comments and white
space wherever they may stand; escapes in strings; keywords, media and units in any case. Of mistakes, those after
which both go on at the same place:

- what is no declaration: no property, no colon, no value, a value that begins with what begins none, an at-rule; with
  a semicolon and a declaration behind it, and brackets that are closed,
- a string that a line end cuts off, with the semicolon on the next line,
- a semicolon too many, ahead of a declaration,
- properties that nobody knows,
- <!-- and --> between rules, @charset "utf-8" ahead of them,
- the end of the sheet in a comment, a selector, a rule set or an @media for the medium in use.

What is not in it, and why, is in docs/deviations.md.
"""

import itertools
import random

from oracle.pairs import Gap, Node, Pair, Sequence, Several
from oracle.properties import PROPERTIES

TYPES = ["panel", "Panel", "row", "cell", "item-2", "_x"]
IDS = ["ok", "Ok", "main", "id-3", "_4"]
CLASSES = ["a", "b", "c", "Primary", "is-on", "x_1"]
PSEUDO_CLASSES = ["hover", "active", "focus"]
MEDIA = ["screen", "all", "Screen", "ALL", "print", "speech", "tv", "PRINT"]
WHITE = [" ", "  ", "\n", "\t", "\r\n", "\f", " \n\t"]
COMMENTS = ["/**/", "/* ; } */", "/* { */", "/*\n*/", "/* \" ' */", "/* é */", "/***/", "/* <!-- @media */", "/* \\*/"]


class Generator:
    def __init__(self, seed: int):
        self._seed = seed
        self._random = random.Random(seed)
        self._numbers = itertools.count(2)

    def pair(self) -> Pair:
        self._root = self._tree()
        sheets = [self._sheet() for _ in range(self._random.choice([1, 1, 2, 3]))]
        return Pair(self._seed, self._root, Several(sheets, least=1))

    def _tree(self) -> Node:
        nodes = [self._node("scene")]
        depth = self._random.choice([2, 6, 60])  # how far back the parent of a new node may be
        for _ in range(self._random.randint(9, 59)):
            node = self._node(self._random.choice(TYPES))
            self._random.choice(nodes[-depth:]).children.append(node)
            nodes.append(node)
        return nodes[0]

    def _node(self, name: str) -> Node:
        identity = self._random.choice(IDS) if self._chance(0.2) else ""
        return Node(name, identity, self._random.sample(CLASSES, self._random.randrange(4)))

    def _chance(self, share: float) -> bool:
        return self._random.random() < share

    def _comment(self) -> Gap:
        return Gap(self._random.choice(COMMENTS) if self._chance(0.05) else "", "")

    def _gap(self) -> Gap:
        """Where white space may stand or not."""
        pieces = self._random.choices(WHITE + COMMENTS, k=self._random.randint(1, 3)) if self._chance(0.15) else []
        return Gap("".join(pieces), "")

    def _blank(self) -> Gap:
        """Where there has to be white space."""
        return Gap(f"{self._gap()}{self._random.choice(WHITE)}{self._gap()}" if self._chance(0.15) else " ", " ")

    def _any_case(self, word: str) -> str:
        return self._random.choice([word, word, word.upper(), word.capitalize()])

    def _compound(self, node: Node | None) -> Sequence:
        """A compound that matches a node, or any one."""
        names = [node.type] if node else TYPES
        ids = [node.id] if node and node.id else [] if node else IDS
        classes = node.classes if node else CLASSES
        wanted = min(len(classes), self._random.choice([0, 1, 1, 2]))
        pieces = [f".{name}" for name in self._random.sample(classes, wanted)]
        if ids and self._chance(0.3):
            pieces.append(f"#{self._random.choice(ids)}")
        if self._chance(0.03):
            pieces.append(f":{self._random.choice(PSEUDO_CLASSES)}")
        self._random.shuffle(pieces)
        if self._chance(0.4) or not pieces:
            pieces.insert(0, self._random.choice(names + ["*"]))
        parts = [pieces[0]]
        for piece in pieces[1:]:
            parts += [self._comment(), piece]
        return Sequence(parts)

    def _chain(self) -> list:
        """Nodes to write compounds for, the subject last, with what stands between: (combinator, node or None)."""
        path = self._random.choice(paths(self._root))
        chain = [("", path.pop())]
        while path and self._chance(0.5):
            if self._chance(0.4):
                chain.insert(0, (">", path.pop()))
            else:
                path = path[: self._random.randint(1, len(path))]
                chain.insert(0, (" ", path.pop()))
        return chain if self._chance(0.8) else [(combinator, None) for combinator, _ in chain]

    def _selector(self) -> Sequence:
        parts = [self._gap()]
        for combinator, node in self._chain():
            parts.append(self._compound(node))
            if combinator == ">":
                parts += [self._gap(), ">", self._gap()]
            elif combinator:
                parts.append(self._blank())
        return Sequence(parts + [self._gap()])

    def _important(self) -> list:
        if not self._chance(0.15):
            return []
        return [self._gap(), "!", self._gap(), self._any_case("important")]

    def _declaration(self) -> Sequence:
        known = self._random.choice(PROPERTIES)
        return Sequence(
            [self._gap(), known.name, self._gap(), ":", self._gap(), known.value(self._random, self._numbers)]
            + self._important()
            + [self._gap()]
        )

    def _mistake(self) -> str:
        """Has no effect where a semicolon and a good declaration follow."""
        name = self._random.choice(PROPERTIES).name
        return self._random.choice(
            [
                f"{name} 5px",
                f"{name} 5px solid",
                f"{name}:",
                f"{name}: ",
                f"{name} = 3",
                f"{name}: = 3",
                f"{name}: ] 3",
                f"{name}: !important",
                f"{name}: (1; 2)",
                f"{name} (1; 2)",
                f"{name} [1; 2]",
                f"{name} {{1; 2}}",
                f"5px: {name}",
                '"x": 3',
                ".a: 3",
                "!important",
                "@unknown x",
                f'{name}: "cut off\n',
                f"{name}: 'cut off /* \n",
                "",
            ]
        )

    def _complete_declaration(self) -> Sequence:
        parts = [self._declaration(), ";"]
        if self._chance(0.04):
            parts = [self._mistake(), ";", self._gap(), *parts]
        elif self._chance(0.04):
            parts = ["-x-unknown: 1px", *self._important(), ";", *parts]
        return Sequence(parts)

    def _complete_declarations(self) -> list:
        return [self._complete_declaration() for _ in range(self._random.choice([0, 1, 1, 2, 2, 3, 5]))]

    def _selectors(self) -> Several:
        return Several([self._selector() for _ in range(self._random.choice([1, 1, 1, 2, 3]))], ",", least=1)

    def _rule(self) -> Sequence:
        declarations = self._complete_declarations()
        if self._chance(0.3):
            declarations.append(self._declaration())
        return Sequence([self._selectors(), "{", Several(declarations), self._gap(), "}", self._gap()])

    def _open_rule(self) -> Sequence:
        return Sequence([self._selectors(), "{", Several(self._complete_declarations()), self._complete_declaration()])

    def _media(self) -> Sequence:
        media = Several([self._medium() for _ in range(self._random.choice([1, 1, 2, 3]))], ",", least=1)
        rules = Several([self._rule() for _ in range(self._random.randrange(4))])
        keyword = "@" + self._any_case("media")
        return Sequence([keyword, self._blank(), media, "{", self._gap(), rules, "}", self._gap()])

    def _medium(self) -> Sequence:
        return Sequence([self._gap(), self._random.choice(MEDIA), self._gap()])

    def _end(self) -> list:
        """How a sheet ends, now and then in the middle of something."""
        if self._chance(0.85):
            return []
        name = self._random.choice(PROPERTIES).name
        ends = [
            ["/* never closed"],
            [self._selectors()],
            [self._selectors(), "{"],
            [self._selectors(), "{", name],
            [self._selectors(), "{", name, ":"],
            [self._open_rule()],
            ["@media screen"],
            ["@media screen {", Several([self._rule()])],
            ["@media screen {", self._open_rule(), "/* never closed"],
        ]
        return [Sequence(self._random.choice(ends))]

    def _sheet(self) -> Several:
        items = ['@charset "utf-8";'] if self._chance(0.1) else []
        items.append(self._gap())
        for _ in range(self._random.randint(1, 25)):
            if self._chance(0.02):
                items.append(Sequence([self._random.choice(["<!--", "-->"]), self._gap()]))
            items.append(self._media() if self._chance(0.1) else self._rule())
        return Several(items + self._end())


def paths(node: Node, above: tuple = ()) -> list:
    """The ways from the root to every node."""
    here = [*above, node]
    return [here] + [path for child in node.children for path in paths(child, tuple(here))]
