"""Makes a pair smaller as long as the two still disagree about it."""

from oracle.pairs import Gap, Node, Pair, Sequence, Several


def lists_of(part) -> list:
    """The lists within a part that may lose entries, large ones first: (entries, how many have to stay)."""
    if isinstance(part, Several):
        return [(part.parts, part.least)] + [found for inner in part.parts for found in lists_of(inner)]
    if isinstance(part, Sequence):
        return [found for inner in part.parts for found in lists_of(inner)]
    if isinstance(part, Node):
        here = [(part.children, 0), (part.classes, 0)]
        return here + [found for child in part.children for found in lists_of(child)]
    return []


def gaps_of(part) -> list:
    if isinstance(part, Gap):
        return [part]
    if isinstance(part, (Several, Sequence)):
        return [gap for inner in part.parts for gap in gaps_of(inner)]
    return []


def drop_entries(entries: list, least: int, differs) -> bool:
    """Drops what can go, in halves first, then one by one.

    @return whether anything went
    """
    before, size = len(entries), max(1, len(entries) // 2)
    while size:
        place = len(entries) - size
        while place >= 0:
            kept = entries[:]
            del entries[place : place + size]
            if len(entries) < least or not differs():
                entries[:] = kept
            place -= size
        size //= 2
    return len(entries) < before


def simplify(owner, name: str, plain: str, differs) -> None:
    written = getattr(owner, name)
    if written == plain:
        return
    setattr(owner, name, plain)
    if not differs():
        setattr(owner, name, written)


def drop_lists(pair: Pair, differs) -> bool:
    """Goes through the lists that are still there at each step."""
    dropped, place = False, 0
    while place < len(lists := lists_of(pair.sheets) + lists_of(pair.root)):
        dropped |= drop_entries(*lists[place], differs)
        place += 1
    return dropped


def reduce(pair: Pair, still_differs) -> None:
    """Changes the pair; still_differs(pair) says whether a change may stay."""

    def differs() -> bool:
        return still_differs(pair)

    while drop_lists(pair, differs):
        pass
    for gap in gaps_of(pair.sheets):
        simplify(gap, "written", gap.plain, differs)
    for node in pair.root.nodes():
        simplify(node, "id", "", differs)
