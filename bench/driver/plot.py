"""How cost grows, as an SVG of panels side by side. Both axes are logarithmic."""

import math
from dataclasses import dataclass

from results import OURS

LIMIT = "limit"
COLOURS = {OURS: "#0b62c4", "Chromium": "#d1661b", "litehtml": "#7a3fa8", "Qt": "#2c8a4b", "GTK": "#b8336a",
           LIMIT: "#6b7280"}  # fmt: skip
WIDTH, HEIGHT = 350, 300  # of a panel
LEFT, RIGHT, TOP, BOTTOM = 82, 32, 40, 46
LEGEND = 34


@dataclass
class Panel:
    title: str
    horizontal: str
    sizes: list
    unit: str
    case: str  # {} stands for the size
    limit: str  # case of the limit beside it


PANELS = [
    Panel("Styling: ns a node", "rules, 10,000 nodes", [100, 1000, 5000], "ns/node", "style/tree-synth{}-10000",
          "limit/matching, tree-synth{}-10000"),
    Panel("Styling: ns a node", "nodes, 1,000 rules", [1000, 10000, 100000, 1000000], "ns/node",
          "style/tree-synth1000-{}", "limit/matching, tree-synth1000-{}"),
    Panel("Parsing: MB/s", "rules", [100, 1000, 5000, 30000, 200000], "MB/s", "parse/synth{}.css",
          "limit/a look-up a byte, synth{}.css"),
]  # fmt: skip


def series_of(results, panel: Panel) -> dict:
    """Points (size, figure) by participant; those of the limit under its own name."""
    series = {}
    for size in panel.sizes:
        row = results.find(panel.case.format(size), panel.unit)
        for name in row.samples if row else []:
            series.setdefault(name, []).append((size, row.median(name)))
        limit = results.median(panel.limit.format(size), panel.unit)
        if limit is not None:
            series.setdefault(LIMIT, []).append((size, limit))
    return series


class Scale:
    """Places numbers on a logarithmic axis of whole decades or, where it is short, between its ends."""

    def __init__(self, values: list, start: float, end: float, whole_decades: bool):
        low, high = math.log10(min(values)), math.log10(max(values))
        if whole_decades:
            low, high = math.floor(low), math.ceil(high)
        self.low, self.high = low, high if high > low else low + 1
        self._start, self._end = start, end

    def place(self, value: float) -> float:
        share = (math.log10(value) - self.low) / (self.high - self.low)
        return round(self._start + share * (self._end - self._start), 1)

    def decades(self) -> list:
        return [10.0**power for power in range(math.ceil(self.low - 1e-9), math.floor(self.high + 1e-9) + 1)]


def text(x: float, y: float, content: str, anchor: str = "middle", extra: str = "") -> str:
    return f'<text x="{x}" y="{y}" text-anchor="{anchor}"{extra}>{content}</text>'


def line(x1: float, y1: float, x2: float, y2: float, colour: str) -> str:
    return f'<line x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}" stroke="{colour}"/>'


def curve(points: list, name: str) -> list:
    dash = ' stroke-dasharray="5 4"' if name == LIMIT else ""
    colour = COLOURS.get(name, "#111827")
    path = " ".join(f"{x},{y}" for x, y in points)
    parts = [f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"{dash}/>']
    parts += [f'<circle cx="{x}" cy="{y}" r="3" fill="{colour}"/>' for x, y in points]
    return parts


def draw_panel(panel: Panel, series: dict, left: float) -> list:
    values = [value for points in series.values() for _, value in points]
    across = Scale(panel.sizes, left + LEFT + 8, left + WIDTH - RIGHT - 8, whole_decades=False)
    up = Scale(values, LEGEND + HEIGHT - BOTTOM, LEGEND + TOP, whole_decades=True)
    bottom = LEGEND + HEIGHT - BOTTOM
    parts = [text(left + LEFT, LEGEND + TOP - 14, panel.title, "start", ' font-weight="bold"')]
    for value in up.decades():
        y = up.place(value)
        parts += [line(left + LEFT, y, left + WIDTH - RIGHT, y, "#e5e7eb")]
        parts += [text(left + LEFT - 7, y + 4, f"{value:,g}" if value < 1 else f"{value:,.0f}", "end")]
    for size in panel.sizes:
        x = across.place(size)
        parts += [line(x, bottom, x, bottom + 4, "#9ca3af"), text(x, bottom + 17, f"{size:,}")]
    parts += [line(left + LEFT, bottom, left + WIDTH - RIGHT, bottom, "#9ca3af")]
    parts += [text(left + (LEFT + WIDTH - RIGHT) / 2, bottom + 36, panel.horizontal)]
    for name, points in series.items():
        parts += curve([(across.place(size), up.place(value)) for size, value in points], name)
    return parts


def draw_legend(names: list) -> list:
    parts, x = [], LEFT
    for name in names:
        parts += curve([(x, 20), (x + 24, 20)], name)
        parts += [text(x + 32, 24, name, "start")]
        x += 50 + 8 * len(name)
    return parts


def svg(results) -> str:
    """Empty where there is nothing to show."""
    panels = [(panel, series) for panel in PANELS if (series := series_of(results, panel))]
    if not panels:
        return ""
    shown = {name for _, series in panels for name in series}
    parts = draw_legend([name for name in COLOURS if name in shown])
    for place, (panel, series) in enumerate(panels):
        parts += draw_panel(panel, series, place * WIDTH)
    width, height = WIDTH * len(panels), LEGEND + HEIGHT
    head = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" '
            f'height="{height}" font-family="sans-serif" font-size="12" fill="#1f2937">')  # fmt: skip
    return "\n".join([head, f'<rect width="{width}" height="{height}" fill="#ffffff"/>', *parts, "</svg>", ""])
