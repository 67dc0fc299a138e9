#!/usr/bin/env python3
"""Runs a program on a private screen, with the fonts of the reference pictures, at a scale.

usage: on_screen.py scale program [argument...]
"""

import os
import subprocess
import sys
from pathlib import Path

from session import Session

FONTS = Path(__file__).with_name("fonts.conf")


def main(scale, *command):
    session = Session(os.environ["MIREVAL_SCREENSHOTS"], tray=False, sound=False)
    try:
        environment = {**session.environment, "QT_SCALE_FACTOR": scale, "QT_QPA_PLATFORM": "xcb",
                       "FONTCONFIG_FILE": str(FONTS),
                       **{name: value for name, value in os.environ.items() if name.startswith("MIREVAL_")}}
        return subprocess.run(command, env=environment, timeout=170, check=False).returncode
    finally:
        session.end()


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
