"""Results as text: a table for a terminal, and tables for a document."""

from results import OURS, participants_of


def number(value) -> str:
    """Three digits that count, and all before the point."""
    if value is None:
        return ""
    if value == 0:
        return "0"
    digits = 0
    while digits < 4 and abs(value) * 10**digits < 99.95:
        digits += 1
    text = f"{value:,.{digits}f}"
    return text.rstrip("0").rstrip(".") if digits > 2 and value == round(value) else text


def percent(value) -> str:
    return "" if value is None else f"{value:.0f} %"


def ratio(value) -> str:
    return "" if value is None else f"{value:.2f}"


def cells_of(rows: list, names: list) -> list:
    """The heading and a line per row: case, unit, ours with its spread, and of each peer figure, spread and ratio."""
    heading = ["case", "unit"]
    for name in names:
        heading += [name, "±"] if name == OURS else [name, "±", "ratio"]
    lines = [heading]
    for row in rows:
        line = [row.case, row.unit]
        for name in names:
            line += [number(row.median(name)), percent(row.spread(name))]
            if name != OURS:
                line.append(ratio(row.ratio(name)))
        lines.append(line)
    return lines


def terminal(results) -> str:
    cells = cells_of(results.rows, participants_of(results.rows))
    widths = [max(len(line[column]) for line in cells) for column in range(len(cells[0]))]
    lines = []
    for line in cells:
        padded = [cell.ljust(width) if column < 2 else cell.rjust(width)
                  for column, (cell, width) in enumerate(zip(line, widths))]  # fmt: skip
        lines.append("  ".join(padded).rstrip())
    lines += ["", f"Medians of {results.rounds} rounds; ± is the distance between the lowest and the highest, "
                  "in percent of the median; ratio is ours by theirs."]  # fmt: skip
    lines += [f"Note: {note}" for note in results.notes]
    return "\n".join(lines)


def markdown_lines(cells: list, left: int) -> list:
    """A table whose first columns, so many, are set to the left; empty where there is only a heading."""
    if len(cells) < 2:
        return []
    rule = ["---"] * left + ["---:"] * (len(cells[0]) - left)
    return ["| " + " | ".join(line) + " |" for line in [cells[0], rule, *cells[1:]]]


def compared(results, prefix: str) -> list:
    """The rows of a group, everybody who has a figure there in a column of their own."""
    rows = results.group(prefix)
    names = participants_of(rows)
    peers = [name for name in names if name != OURS]
    heading = ["", "unit", OURS + " (±)"] + [f"{name} (±)" for name in peers]
    cells = [heading + [f"ratio to {name}" for name in peers]]
    for row in rows:
        cells.append(
            [row.case[len(prefix) :], row.unit]
            + [with_spread(row, name) for name in [OURS] + peers]
            + [ratio(row.ratio(name)) for name in peers]
        )
    return markdown_lines(cells, 2)


def with_spread(row, name: str) -> str:
    median = row.median(name)
    return "" if median is None else f"{number(median)} ({percent(row.spread(name))})"


def ours(results, prefix: str) -> list:
    """The rows of a group, a figure a line; ours only."""
    rows = [row for row in results.group(prefix) if row.median() is not None]
    cells = [["", "unit", "figure"]] + [[row.case[len(prefix) :], row.unit, number(row.median())] for row in rows]
    return markdown_lines(cells, 2)


def by_unit(results, prefix: str) -> list:
    """The rows of a group, a case a line and a unit a column; ours only."""
    rows = [row for row in results.group(prefix) if row.median() is not None]
    units = list(dict.fromkeys(row.unit for row in rows))
    cells = [["", *units]]
    for case in dict.fromkeys(row.case for row in rows):
        cells.append([case[len(prefix) :], *(number(results.median(case, unit)) for unit in units)])
    return markdown_lines(cells, 1)
