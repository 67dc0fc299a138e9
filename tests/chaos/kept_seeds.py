"""The walks that are kept because they have found something."""

from collections import namedtuple
from pathlib import Path

FILE = Path(__file__).parent / "kept_seeds.txt"

KeptSeed = namedtuple("KeptSeed", "seed server seconds why")


def parse(text):
    """Each line is a comment, or a seed, a server, a number of seconds and the reason."""
    lines = (line.split(maxsplit=3) for line in text.splitlines() if line and not line.startswith("#"))
    return [KeptSeed(int(seed), server, float(seconds), why) for seed, server, seconds, why in lines]


def kept_seeds():
    return parse(FILE.read_text(encoding="utf-8"))
