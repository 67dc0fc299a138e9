"""What the steps of a walk have cost: how long answers took, and how long there was no music that should have been."""

LIMIT_SECONDS = 5
ANSWER_AIM_SECONDS = 1
MUSIC_AIM_SECONDS = 2


class Costs:
    """The longest of each, by the names of the steps."""

    def __init__(self):
        # Until what the user did is seen and heard.
        self.answers = {}
        # Until all is again as it must be after anything else.
        self.agreements = {}
        # Silence after a step, while music should have been heard all the time.
        self.losses = {}

    @staticmethod
    def add(longest, name, seconds):
        longest[name] = max(seconds, longest.get(name, 0))

    def lines(self):
        """The report."""
        yield from self._part("longest answer", self.answers, ANSWER_AIM_SECONDS)
        yield from self._part("longest until agreement", self.agreements, LIMIT_SECONDS)
        yield from self._part("most music lost", self.losses, MUSIC_AIM_SECONDS)

    @staticmethod
    def _part(title, longest, aim):
        for name, seconds in sorted(longest.items(), key=lambda item: -item[1]):
            yield f"{title}: {name:<28} {seconds:.2f} s{'' if seconds <= aim else '  (above the aim)'}"
        most = max(longest.values(), default=0)
        yield f"{title}: {most:.2f} s; aim {aim} s: {'met' if most <= aim else 'NOT MET'}"
