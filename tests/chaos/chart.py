"""Draws trends as small charts in one picture."""

import math
import subprocess
from xml.sax.saxutils import escape

COLUMNS = 3
WIDTH, HEIGHT = 460, 210  # Of one chart, in pixels.
LEFT, RIGHT, TOP, BOTTOM = 70, 20, 34, 44  # Margins of its plot.
HEADER = 64
CURVE, LINE, ALARM, SHADE, AXIS, TEXT = "#2b5c8a", "#d97706", "#c81e1e", "#eef1f5", "#9aa3ad", "#1f2933"


def draw(path, title, trends):
    """Writes a PNG picture with one chart for each trend."""
    rows = -(-len(trends) // COLUMNS)
    width, height = COLUMNS * WIDTH, HEADER + rows * HEIGHT
    charts = "".join(f'<g transform="translate({number % COLUMNS * WIDTH} {HEADER + number // COLUMNS * HEIGHT})">'
                     f"{_chart(trend)}</g>" for number, trend in enumerate(trends))
    legend = ("Blue: what the player holds while the panel is closed. Shaded: the first fifth. "
              "Dashed: the line through the rest, red if it rises too far.")
    svg = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
           f'font-family="DejaVu Sans" font-size="12"><rect width="100%" height="100%" fill="white"/>'
           f'{_text(16, 26, title, size=16)}{_text(16, 48, legend)}{charts}</svg>')
    subprocess.run(["rsvg-convert", "--output", path], input=svg.encode(), check=True, timeout=60)


def _text(x, y, text, *, anchor="start", size=12, colour=TEXT):
    return f'<text x="{x}" y="{y}" text-anchor="{anchor}" font-size="{size}" fill="{colour}">{escape(text)}</text>'


def _bounds(trend):
    """The lowest and the highest value of the vertical axis: a flat figure must look flat."""
    values = [value for _, value in trend.points] or [0]
    unit = 1000 if trend.figure.is_amount else 2
    low, high = math.floor(min(values) / unit) - 1, math.ceil(max(values) / unit) + 1
    return max(0, low * unit), high * unit


def _chart(trend):
    low, high = _bounds(trend)
    right, bottom = WIDTH - RIGHT, HEIGHT - BOTTOM

    def x(tracks):
        return round(LEFT + (right - LEFT) * tracks / trend.tracks, 1)

    def y(value):
        return round(bottom - (bottom - TOP) * (value - low) / (high - low), 1)

    line_colour = ALARM if trend.complaints() else LINE
    parts = [f'<rect x="{LEFT}" y="{TOP}" width="{x(trend.warm_up_tracks) - LEFT}" height="{bottom - TOP}" '
             f'fill="{SHADE}"/>', _text(LEFT, TOP - 10, trend.figure.name, size=13),
             _text(right, TOP - 10, trend.rise_text, anchor="end", colour=line_colour)]
    for value in (low, (low + high) / 2, high):
        parts.append(f'<path d="M{LEFT} {y(value)}H{right}" stroke="{AXIS}" stroke-width="0.5"/>'
                     + _text(LEFT - 8, y(value) + 4, f"{value:g}", anchor="end"))
    parts += [_text(x(tracks), bottom + 18, f"{tracks:g}", anchor="middle")
              for tracks in (0, trend.tracks / 2, trend.tracks)]
    parts.append(_text((LEFT + right) / 2, bottom + 34, "track changes", anchor="middle"))
    curve = " ".join(f"{x(tracks)},{y(value)}" for tracks, value in trend.points)
    parts.append(f'<polyline points="{curve}" fill="none" stroke="{CURVE}" stroke-width="1.2"/>')
    if trend.has_line:
        ends = " ".join(f"{x(tracks)},{y(trend.intercept + trend.slope * tracks)}"
                        for tracks in (trend.warm_up_tracks, trend.tracks))
        parts.append(f'<polyline points="{ends}" fill="none" stroke="{line_colour}" stroke-width="2" '
                     'stroke-dasharray="6 4"/>')
    return "".join(parts)
