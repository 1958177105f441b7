"""A tree and the style sheets that are laid over it, in parts that can be taken away one by one."""

from dataclasses import dataclass, field
from xml.sax.saxutils import quoteattr


@dataclass
class Gap:
    """White space and comments, and the shortest text that means the same."""

    written: str
    plain: str

    def __str__(self) -> str:
        return self.written


@dataclass
class Sequence:
    """Parts that need each other."""

    parts: list

    def __str__(self) -> str:
        return "".join(map(str, self.parts))


@dataclass
class Several:
    """Parts of which any may be missing, as long as there are enough."""

    parts: list
    separator: str = ""
    least: int = 0

    def __str__(self) -> str:
        return self.separator.join(map(str, self.parts))


@dataclass
class Node:
    type: str
    id: str = ""
    classes: list = field(default_factory=list)
    children: list = field(default_factory=list)

    def nodes(self) -> list:
        """This one and all below it, in the order of the document."""
        found = [self]
        for child in self.children:
            found += child.nodes()
        return found

    def to_xml(self, indent: str = "") -> str:
        tag = self.type
        if self.id:
            tag += f" id={quoteattr(self.id)}"
        if self.classes:
            tag += f" class={quoteattr('  '.join(self.classes))}"
        if not self.children:
            return f"{indent}<{tag}/>\n"
        children = "".join(child.to_xml(indent + "  ") for child in self.children)
        return f"{indent}<{tag}>\n{children}{indent}</{self.type}>\n"

    def to_json(self) -> list:
        return [self.type, self.id, " ".join(self.classes), [child.to_json() for child in self.children]]


@dataclass
class Pair:
    seed: int
    root: Node
    sheets: Several  # of Several

    def texts(self) -> list:
        """The sheets, weakest first."""
        return [str(sheet) for sheet in self.sheets.parts]
