"""Feeds check_includes.py small trees, good and bad ones."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).with_name("check_includes.py")

GOOD = {
    "main.cpp": '#include "ui/MirevalMacApp.h"\n',
    "library/Mood.h": "#pragma once\n#include <QString>\n#include <array>\n",
    "library/Track.h": '#include "library/Mood.h"\n#include <QUuid>\n',
    "platform/AudioPlayer.h": "#include <memory>\n#include <QString>\n#include <tl/expected.hpp>\n",
    "platform/Factory.h": '#include "platform/AudioPlayer.h"\n',
    "platform/qt/Timers.h": '#include "platform/Factory.h"\n#include <QTimer>\n',
    "platform/linux/audio/Audio.h": '#include "platform/AudioPlayer.h"\n#include <pulse/pulseaudio.h>\n',
    "platform/linux/bus/Bus.h": "#include <systemd/sd-bus.h>\n",
    "platform/linux/tray/Icon.cpp": '#include "platform/linux/bus/Bus.h"\n#include <unistd.h>\n',
    "platform/linux/media/Keys.h": '#include "platform/linux/bus/Bus.h"\n',
    "playback/Controller.h": '#include "library/Track.h"\n#include "platform/AudioPlayer.h"\n',
    "localization/Localization.h": '#include "library/Mood.h"\n#include "platform/AudioPlayer.h"\n',
    "ui/Panel.h": '#include "playback/Controller.h"\n#include "localization/Localization.h"\n',
    "ui/MirevalMacApp.h": '#include "ui/Panel.h"\n',
    "platform/linux/LinuxDesktop.h": '#include "platform/Factory.h"\n#include "platform/linux/media/Keys.h"\n',
    "platform/linux/LinuxDesktop.cpp": '#include "platform/linux/audio/Audio.h"\n#include "platform/qt/Timers.h"\n',
    "ui/MirevalMacApp.cpp": '#include "ui/MirevalMacApp.h"\n#include "platform/linux/LinuxDesktop.h"\n',
}

# One file each that spoils the good tree, and what the check must say of it.
BAD = [
    ("library/Up.h", '#include "playback/Controller.h"', "library may not know playback"),
    ("library/Up.h", '#include "platform/AudioPlayer.h"', "library may not know platform"),
    ("library/Up.h", "#include <ui/Panel.h>", "library may not know ui"),
    ("library/Up.h", '#include "../ui/Panel.h"', "library may not know ui"),
    ("library/Up.h", '  #  include "ui/Panel.h"  // why not', "library may not know ui"),
    ("library/Up.h", "#include <QTimer>", "value types"),
    ("library/Up.h", "#include <QtDBus/QDBusConnection>", "value types"),
    ("library/Up.h", "#include <unistd.h>", "value types"),
    ("library/Up.h", '#include "ui/generated.h"', "library may not know ui"),
    ("platform/Up.h", '#include "library/Mood.h"', "platform may not know library"),
    ("platform/Up.h", '#include "platform/linux/audio/Audio.h"', "platform may not know platform/linux/audio"),
    ("platform/Up.h", "#include <unistd.h>", "must not know a system"),
    ("platform/Up.h", "#include <sys/types.h>", "must not know a system"),
    ("platform/Up.h", "#include <pulse/pulseaudio.h>", "must not know a system"),
    ("platform/Up.h", "#include <libavformat/avformat.h>", "must not know a system"),
    ("platform/Up.h", "#include <QDBusConnection>", "must not know a system"),
    ("platform/Up.h", "#include <QtDBus>", "must not know a system"),
    ("platform/Up.h", "#include <tl/optional.hpp>", "must not know a system"),
    ("platform/qt/Up.h", '#include "platform/linux/bus/Bus.h"', "platform/qt may not know platform/linux/bus"),
    ("platform/linux/tray/Up.cpp", '#include "library/Mood.h"', "platform/linux/tray may not know library"),
    ("platform/linux/tray/Up.h", '#include "platform/linux/media/Keys.h"', "tray may not know platform/linux/media"),
    ("platform/linux/bus/Up.h", '#include "platform/linux/media/Keys.h"', "bus may not know platform/linux/media"),
    ("platform/linux/cellar/Up.h", '#include "platform/linux/bus/Bus.h"', "platform may not know"),
    ("platform/linux/audio/Up.cpp", '#include "playback/Controller.h"', "linux/audio may not know playback"),
    ("playback/Up.h", '#include "platform/linux/audio/Audio.h"', "playback may not know platform/linux/audio"),
    ("playback/Up.cpp", '#include "../platform/linux/audio/Audio.h"', "playback may not know platform/linux/audio"),
    ("playback/Up.h", '#include "localization/Localization.h"', "playback may not know localization"),
    ("playback/Up.h", '#include "ui/Panel.h"', "playback may not know ui"),
    ("localization/Up.h", '#include "playback/Controller.h"', "localization may not know playback"),
    ("localization/Up.h", '#include "platform/linux/audio/Audio.h"', "localization may not know platform/linux/audio"),
    ("platform/linux/tray/Up.h", '#include "platform/linux/LinuxDesktop.h"', "tray may not know platform/linux/Linux"),
    ("platform/linux/LinuxDesktop.h", '#include "library/Mood.h"', "may not know library"),
    ("ui/Up.cpp", '#include "platform/linux/audio/Audio.h"', "only the wiring"),
    ("ui/Up.cpp", '#include "platform/linux/LinuxDesktop.h"', "only the wiring"),
    ("ui/MirevalMacApp.cpp", '#include "platform/linux/audio/Audio.h"', "only as a whole"),
    ("ui/Up.cpp", '#include "nowhere.h"', "not found"),
    ("main.cpp", '#include "playback/Controller.h"', "main.cpp may not know playback"),
    ("stray/Up.h", "#include <vector>", "no floor"),
]


class CheckIncludesTest(unittest.TestCase):
    def run_on(self, tree):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in tree.items():
                file = Path(folder, name)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return subprocess.run([sys.executable, "-B", CHECK, folder], capture_output=True, text=True)

    def test_good_tree_passes(self):
        result = self.run_on(GOOD)
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_each_bad_arrow_fails(self):
        for name, line, reason in BAD:
            with self.subTest(name=name, line=line):
                result = self.run_on(GOOD | {name: line + "\n"})
                self.assertEqual(result.returncode, 1)
                self.assertIn(reason, result.stderr)
                self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)

    def test_includes_in_comments_do_not_count(self):
        comments = '// #include "ui/Panel.h"\n/*\n#include "ui/Panel.h"\n*/\n'
        result = self.run_on(GOOD | {"library/Fine.h": comments})
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_line_numbers_are_right(self):
        result = self.run_on(GOOD | {"library/Up.h": '/* a\nb */\n\n#include "ui/Panel.h"\n'})
        self.assertIn("library/Up.h:4:", result.stderr)

    def test_empty_tree_fails(self):
        self.assertEqual(self.run_on({}).returncode, 1)

    def test_missing_folder_is_an_error(self):
        result = subprocess.run([sys.executable, "-B", CHECK, "/nonexistent"], capture_output=True, text=True)
        self.assertEqual(result.returncode, 2)
