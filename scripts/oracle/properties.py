"""The properties that are compared: none is inherited, and none is computed from anything but its own declaration."""

import re
from dataclasses import dataclass

SIDES = ["top", "right", "bottom", "left"]


def integer(random, number: int) -> str:
    return random.choice([f"{number}", f"+{number}", f"-{number}", f"00{number}"])


def positive(random, number: int) -> str:
    return random.choice([f"{number}", f"+{number}", f"{number}.5", f"0{number}.25", f"{number}.0"])


def length(random, number: int) -> str:
    return positive(random, number) + random.choice(["px", "px", "PX", "Px"])


def margin(random, number: int) -> str:
    return random.choice(["", "-"]) + f"{number}" + random.choice(["px", "PX", ".5px"])


def word(random, number: int) -> str:
    return random.choice(["w", "W-", "_w", "-w_"]) + str(number)


def text(random, number: int) -> str:
    """A string with escapes; the number stands at its end, so that no escape runs into it."""
    quote, other = random.choice(["\"'", "'\""])
    pieces = ["a", " ", other, "\\" + quote, "\\\\", "{", "}", ";", "/*", "*/", "\\41 ", "\\00e9 ", "\\000062",
              "\\7a\t", "\\20AC  ", "\\-", "\\;", "!important"]  # fmt: skip
    return quote + "".join(random.choices(pieces, k=random.randrange(6))) + f" {number}" + quote


@dataclass(frozen=True)
class Property:
    name: str
    write: callable  # (random, number) to the text of a value that no other number gives
    parts: tuple = ()  # names of its longhands
    least: int = 1  # terms

    def value(self, random, numbers) -> str:
        """Takes a new number for each term."""
        terms = random.randint(self.least, 4) if self.parts else 1
        return random.choice([" ", "  ", "\n", " /**/ "]).join(self.write(random, next(numbers)) for _ in range(terms))


def frame(name: str, write: callable) -> list:
    longhands = tuple(f"{name}-{side}" for side in SIDES)
    return [Property(name, write, longhands)] + [Property(longhand, write) for longhand in longhands]


PROPERTIES = [
    Property("z-index", integer),
    Property("order", integer),
    Property("flex-grow", positive),
    Property("flex-shrink", positive),
    Property("scroll-margin-top", margin),
    Property("animation-name", word),
    Property("content", text),
    *frame("margin", margin),
    *frame("padding", length),
]
COMPARED = [known.name for known in PROPERTIES if not known.parts]

# What the browser says where nobody declares the property. Numbers of declarations begin with 2.
UNDECLARED = ["auto", "none", "normal", "0", "1", "0px"]


def unescaped(serialized: str) -> str:
    """The text of a string as the browser writes strings."""
    return re.sub(
        r"\\(?:([0-9a-fA-F]{1,6}) ?|(.))",
        lambda escape: chr(int(escape[1], 16)) if escape[1] else escape[2],
        serialized[1:-1],
    )


def of_browser(computed: str):
    """A value as the browser gives it: None, a number or a text."""
    if computed in UNDECLARED:
        return None
    if computed.startswith('"'):
        return unescaped(computed)
    number = re.fullmatch(r"(-?[0-9.]+)(?:px)?", computed)
    return float(number[1]) if number else computed


def of_ours(attribute: dict | None):
    """A value as the command gives it: None, a number or a text."""
    if attribute is None:
        return None
    value = attribute["value"]
    if isinstance(value, list) and len(value) == 1:
        value = value[0]["value"]
    return float(value) if isinstance(value, (int, float)) else value
