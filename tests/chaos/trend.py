"""Whether a figure that is taken again and again while tracks change stays flat."""

from dataclasses import dataclass
from statistics import linear_regression

# Until then, the player may load what it needs for the first time.
WARM_UP = 1 / 5
FEWEST_VALUES = 5
KILOBYTES_PER_TRACK = 1
OBJECTS_IN_ALL = 1
# The last count may be this much above the most of the warm-up, since a count may be taken while one stream follows
# another.
TOLERATED_OBJECTS = 2


@dataclass(frozen=True)
class Figure:
    name: str
    # An amount in kilobytes may rise a little with each track, a count of objects may not.
    is_amount: bool = False


class Trend:
    """Of one figure: pairs of the number of track changes so far and the value then, in that order. A value is None if
    it cannot be compared with the others.
    """

    def __init__(self, figure, points):
        self.figure = figure
        self.points = [point for point in points if point[1] is not None]
        self.tracks = points[-1][0]
        self.warm_up_tracks = WARM_UP * self.tracks
        rest = [point for point in self.points if point[0] > self.warm_up_tracks]
        self.has_line = len(rest) >= FEWEST_VALUES and len(self.points) > len(points) / 2
        if self.has_line:
            # Of the line through the values after the warm-up.
            self.slope, self.intercept = linear_regression(*zip(*rest, strict=True))

    @property
    def rise(self):
        """How much the line rises in as many tracks as there were."""
        return self.slope * self.tracks

    def complaints(self):
        """What has risen too far, and by how much; empty if the figure is flat."""
        name = self.figure.name
        if not self.has_line:
            return [f"{name}: unknown, as only {len(self.points)} values can be compared"]
        if not any(value for _, value in self.points):
            return [f"{name}: unknown, as none was ever seen"]
        if self.figure.is_amount:
            if self.slope >= KILOBYTES_PER_TRACK:
                return [f"{name}: rises by {self.slope:.2f} KB a track, {KILOBYTES_PER_TRACK} KB is too much"]
            return []
        found = []
        if self.rise >= OBJECTS_IN_ALL:
            found.append(f"{name}: rises by {self.rise:.1f} in {self.tracks} tracks, {OBJECTS_IN_ALL} is too much")
        warm_up = [value for track, value in self.points if track <= self.warm_up_tracks]
        last = self.points[-1][1]
        if last > max(warm_up) + TOLERATED_OBJECTS:
            found.append(f"{name}: ends at {last}, more than {TOLERATED_OBJECTS} above the first fifth, "
                         f"{min(warm_up)} to {max(warm_up)}")
        return found

    @property
    def rise_text(self):
        if not self.has_line:
            return "unknown"
        return f"{self.slope:+.3f} KB a track" if self.figure.is_amount else f"{self.rise:+.2f} in all"

    def __str__(self):
        verdict = "FAILED" if self.complaints() else "flat"
        values = [value for _, value in self.points]
        seen = f"{min(values)} to {max(values)}, last {values[-1]}" if values else "none"
        return f"{self.figure.name:<32} {len(values):4} values, {seen:<30} line {self.rise_text:<18} {verdict}"
