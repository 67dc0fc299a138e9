"""Figures as rows of a table. The smaller figure is the better one in all of them."""

from dataclasses import dataclass, field

FIGURE_WIDTH, VALUE_WIDTH = 50, 14


@dataclass
class Row:
    figure: str
    values: dict = field(default_factory=dict)  # By column: a number, or the median and the worst.
    goal: float = None  # For the median of the first column.
    digits: int = 1


def _median(value):
    return value[0] if isinstance(value, tuple) else value


def _text(value, digits):
    if value is None:
        return ""
    return " / ".join(f"{number:.{digits}f}" for number in (value if isinstance(value, tuple) else (value,)))


def _best(row):
    """The columns with the smallest figure, as far as it is printed. Empty where there is nothing to compare."""
    if len(row.values) < 2:
        return ""
    medians = {column: round(_median(value), row.digits) for column, value in row.values.items()}
    return ", ".join(column for column, value in medians.items() if value == min(medians.values()))


def print_table(title, columns, rows):
    print(f"\n{title}")
    print(f"{'':<{FIGURE_WIDTH}}" + "".join(f"{column:>{VALUE_WIDTH}}" for column in columns) + f"{'goal':>8}  best")
    for row in rows:
        cells = "".join(f"{_text(row.values.get(column), row.digits):>{VALUE_WIDTH}}" for column in columns)
        goal = "" if row.goal is None else f"{row.goal:g}"
        print(f"{row.figure:<{FIGURE_WIDTH}}{cells}{goal:>8}  {_best(row)}".rstrip(), flush=True)
