"""Checks the desktop's files of the player: with the tool of each format, against the sources, and installed."""

import configparser
import gzip
import os
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from urllib.parse import urlsplit

SOURCE = Path(os.environ["MIREVAL_SOURCE"])
PACKAGING = SOURCE / "packaging"
ID = "org.mireval.Mireval"
DESKTOP_FILE = PACKAGING / f"{ID}.desktop"
AUTOSTART = PACKAGING / f"autostart/{ID}.desktop"
METAINFO = PACKAGING / f"{ID}.metainfo.xml"
MANUAL = PACKAGING / "mireval.1"
LOCALIZATION = SOURCE / "Mireval_Mac/localization"


def languages_of_the_player():
    """The record of each language in the order of the tables: its option and its tag."""
    text = (LOCALIZATION / "AppLanguage.cpp").read_text(encoding="utf-8")
    records = re.findall(r'\{(\w+),\s*"([\w-]+)"_L1', text)
    enumerators = re.search(r"allAppLanguages\{([^}]*)\}", (LOCALIZATION / "AppLanguage.h").read_text(encoding="utf-8"))
    assert len(records) == enumerators[1].count("AppLanguage::") > 0, records
    return records


# What the desktop calls the languages, and other names of these there. A new language needs an entry.
DESKTOP_NAMES = {"en": "", "zh-Hans": "zh_CN", "zh-Hant": "zh_TW", "ja": "ja"}
LANGUAGES = [DESKTOP_NAMES[tag] for _, tag in languages_of_the_player()]
SAME = {"zh_SG": "zh_CN", "zh_HK": "zh_TW"}
# In the order of the panel.
MODES = ("focus", "tempo", "creative", "relaxation")
XML_LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"
# The application's name begins with a capital, and so does the last part of its id.
ACCEPTED_HINTS = [("P", "cid-contains-uppercase-letter")]
# Before its 1.0, AppStream does not know the element that has replaced developer_name.
HINT_OF_OLD_RELEASES = ("I", "unknown-tag")
GENERATOR = "/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator"


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, timeout=60, **options)


def read(path):
    content = configparser.ConfigParser(interpolation=None, strict=True)
    content.optionxform = str
    content.read(path, encoding="utf-8")
    return content


def in_languages(group, key):
    """A key's values in the languages of the player."""
    return [group[f"{key}[{language}]" if language else key] for language in LANGUAGES]


class DesktopFileTest(unittest.TestCase):
    def test_valid(self):
        for path in (DESKTOP_FILE, AUTOSTART):
            # It succeeds in spite of warnings and hints, and says nothing about a file without a fault.
            result = run("desktop-file-validate", path)
            self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))

    def test_languages(self):
        for path in (DESKTOP_FILE, AUTOSTART):
            for name, group in read(path).items():
                translated = {key.partition("[")[0] for key in group if "[" in key}
                self.assertTrue(translated or name == "DEFAULT", name)
                for key in translated:
                    in_languages(group, key)
                    for language, same in SAME.items():
                        self.assertEqual(group[f"{key}[{language}]"], group[f"{key}[{same}]"])
                    self.assertEqual(len([other for other in group if other.startswith(key + "[")]),
                                     len(LANGUAGES) - 1 + len(SAME), key)

    def test_texts_of_the_player(self):
        tables = (LOCALIZATION / "StringTables.cpp").read_text(encoding="utf-8")
        settings = re.findall(r'L10nKey::settingsTitle, u"(.*)"', tables)
        self.assertEqual(in_languages(read(DESKTOP_FILE)["Desktop Action Settings"], "Name"), settings)
        for mode in MODES:
            titles = re.findall(rf'Mood::{mode}, u"(.*)"', tables)[::2]
            action = read(DESKTOP_FILE)[f"Desktop Action {mode}"]
            self.assertEqual(in_languages(action, "Name"), titles)
            self.assertEqual(action["Exec"], f"mireval --mode {mode}")
        entry = read(DESKTOP_FILE)["Desktop Entry"]
        self.assertEqual(entry["Actions"].strip(";").split(";"), [*MODES, "Settings"])
        for key in ("GenericName", "Comment", "Keywords"):
            self.assertEqual(len(set(in_languages(entry, key))), len(LANGUAGES), key)

    def test_the_autostart_entry_agrees(self):
        application, autostart = read(DESKTOP_FILE)["Desktop Entry"], read(AUTOSTART)["Desktop Entry"]
        self.assertEqual(application["Exec"], "mireval")
        for key in ("Name", "Icon"):
            self.assertEqual(autostart[key], application[key])
        self.assertEqual(autostart["Exec"], "mireval --autostart")
        # Other readers than systemd go by this where the program is gone.
        self.assertEqual(autostart["TryExec"], "mireval")
        self.assertEqual(in_languages(autostart, "Comment"), in_languages(application, "Comment"))


class MetainfoTest(unittest.TestCase):
    def setUp(self):
        self.component = ElementTree.parse(METAINFO).getroot()

    def test_valid(self):
        result = run("appstreamcli", "validate", "--no-net", "--no-color", "--pedantic", METAINFO)
        issues = re.findall(r"^([EWIP]): \S+ (\S+)", result.stdout, re.MULTILINE)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        version = run("appstreamcli", "--version").stdout.split()[-1]
        accepted = ACCEPTED_HINTS + ([HINT_OF_OLD_RELEASES] if version.startswith("0.") else [])
        self.assertEqual(issues, accepted, result.stdout)

    def test_it_is_the_desktop_file_s_application(self):
        entry = read(DESKTOP_FILE)["Desktop Entry"]
        self.assertEqual(self.component.findtext("id"), ID)
        self.assertEqual(self.component.findtext("launchable"), DESKTOP_FILE.name)
        self.assertEqual(self.component.findtext("provides/dbus"), ID)
        self.assertEqual(self.component.findtext("provides/binary"), entry["Exec"])
        self.assertEqual(self.component.findtext("icon"), entry["Icon"])
        self.assertEqual(self.component.findtext("name"), entry["Name"])
        self.assertEqual(self.texts("summary"), [in_languages(entry, "Comment")])
        self.assertEqual([category.text for category in self.component.iter("category")],
                         entry["Categories"].strip(";").split(";"))

    def texts(self, tag):
        """Each text of such elements, in the languages of the player."""
        texts = []
        for element in self.component.iter(tag):
            language = element.get(XML_LANGUAGE, "")
            if not language:
                texts.append({})
            self.assertNotIn(language, texts[-1], element.text)
            texts[-1][language] = element.text
        return [[text[language] for language in LANGUAGES] for text in texts]

    def test_languages(self):
        for tag in ("p", "li", "caption"):
            texts = self.texts(tag)
            self.assertGreaterEqual(len(texts), 4)
            for text in texts:
                self.assertEqual(len(set(text)), len(LANGUAGES), text)
        # Some words are written alike.
        self.assertGreaterEqual(len(self.texts("keyword")), 3)
        tables = (LOCALIZATION / "StringTables.cpp").read_text(encoding="utf-8")
        modes = self.texts("li")
        for mood, mode in zip(MODES, modes):
            titles = re.findall(rf'Mood::{mood}, u"(.*)"', tables)[::2]
            for title, text in zip(titles, mode):
                self.assertTrue(text.startswith(title), (title, text))

    def test_it_agrees_with_the_project(self):
        self.assertEqual(self.component.findtext("url[@type='homepage']"), os.environ["MIREVAL_HOMEPAGE"])
        self.assertEqual(self.component.find("releases/release").get("version"), os.environ["MIREVAL_VERSION"])

    def test_screenshots(self):
        images = list(self.component.iter("image"))
        self.assertEqual(len({image.text for image in images}), len(images))
        for image in images:
            url = urlsplit(image.text)
            self.assertEqual(f"{url.scheme}://{url.netloc}", os.environ["MIREVAL_HOMEPAGE"])
            file = SOURCE / "docs" / url.path.lstrip("/")
            size = run("identify", "-format", "%m %w %h", file).stdout
            self.assertEqual(size, f"PNG {image.get('width')} {image.get('height')}", file)
            self.assertLess(file.stat().st_size, 2_000_000)
        shown = {Path(urlsplit(image.text).path).name for image in images}
        self.assertEqual({file.name for file in (SOURCE / "docs/screenshots").iterdir()}, shown)


class ManualTest(unittest.TestCase):
    def test_valid(self):
        result = run("mandoc", "-T", "lint", "-W", "warning", MANUAL)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))
        result = run("groff", "-mandoc", "-K", "utf8", "-T", "utf8", "-ww", "-z", MANUAL)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))

    def test_every_option(self):
        usage = run(os.environ["MIREVAL_PROGRAM"], "--help").stdout
        options = set(re.findall(r"--?([a-z]+)", usage))
        self.assertIn("settings", options)
        manual = MANUAL.read_text(encoding="utf-8")
        items = re.findall(r"^\.It (Fl .*?)(?: Ar .*)?$", manual, re.MULTILINE)
        described = "\n".join(items).replace("Fl ", " ").split()
        self.assertEqual(set(described) - {","}, options)


class LanguagesTest(unittest.TestCase):
    def test_users_are_told_every_option(self):
        readme = (SOURCE / "README.md").read_text(encoding="utf-8")
        manual = MANUAL.read_text(encoding="utf-8")
        for option, _ in [("system", ""), *languages_of_the_player()]:
            self.assertIn(f"`{option}`", readme)
            self.assertRegex(manual, rf"(?m)^\.Cm {option}\b|^app\.language\.option={option}$")


class InstalledCase(unittest.TestCase):
    """As the build installs it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mireval-installed-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def install(self, prefix, **environment):
        result = run("cmake", "--install", os.environ["MIREVAL_BUILD"], "--prefix", prefix, "--component", "desktop",
                     env={**os.environ, **environment}, cwd=self.folder)
        self.assertEqual(result.returncode, 0, result.stderr)


class InstalledTest(InstalledCase):
    def files(self, root):
        return {str(path.relative_to(root)) for path in root.rglob("*") if path.is_file()}

    def started_by_the_bus(self, root):
        return read(root / f"share/dbus-1/services/{ID}.service")["D-BUS Service"]

    def test_files(self):
        prefix = self.folder / "usr"
        self.install(prefix)
        self.assertEqual(self.files(prefix), {
            f"share/applications/{ID}.desktop", f"share/dbus-1/services/{ID}.service", "share/man/man1/mireval.1.gz",
            f"share/metainfo/{ID}.metainfo.xml", f"share/mireval/autostart/{ID}.desktop"})
        with gzip.open(prefix / "share/man/man1/mireval.1.gz", "rt", encoding="utf-8") as manual:
            self.assertEqual(manual.read(), MANUAL.read_text(encoding="utf-8"))

    def test_the_bus_knows_the_program_s_place(self):
        first, second = self.folder / "first", self.folder / "second"
        self.install(first)
        self.install("second")
        for prefix in (first, second):
            service = self.started_by_the_bus(prefix)
            self.assertEqual((service["Name"], service["Exec"]), (ID, f'"{prefix}/bin/mireval" --service'))

    def test_a_package_is_made_elsewhere(self):
        self.install("/usr", DESTDIR=str(self.folder / "stage"))
        self.assertEqual(self.started_by_the_bus(self.folder / "stage/usr")["Exec"], '"/usr/bin/mireval" --service')


class AutostartTest(InstalledCase):
    """With systemd, which reads such entries."""

    UNIT = "app-org.mireval.Mireval@autostart.service"

    def setUp(self):
        super().setUp()
        self.prefix = self.folder / "usr"
        self.install(self.prefix)
        self.program = self.prefix / "bin/mireval"
        self.program.parent.mkdir()
        self.program.symlink_to(os.environ["MIREVAL_PROGRAM"])
        self.entries = self.folder / "config/autostart"
        self.entries.mkdir(parents=True)

    def units(self):
        """The services that the session would start."""
        target = self.folder / "units"
        target.mkdir(exist_ok=True)
        for unit in target.iterdir():
            if unit.is_file():
                unit.unlink()
        environment = {"HOME": str(self.folder), "XDG_CONFIG_HOME": str(self.folder / "config"),
                       "XDG_CONFIG_DIRS": str(self.prefix / "etc/xdg"), "PATH": f"{self.program.parent}:/usr/bin:/bin"}
        result = run(GENERATOR, target, target, target, env=environment)
        self.assertEqual(result.returncode, 0, result.stderr)
        return {unit.name: unit.read_text(encoding="utf-8") for unit in target.iterdir() if unit.is_file()}

    def switch_on(self):
        (self.entries / f"{ID}.desktop").symlink_to(self.prefix / f"share/mireval/autostart/{ID}.desktop")

    def test_off_by_default(self):
        self.assertEqual(self.units(), {})

    def test_a_link_switches_it_on_and_off(self):
        self.switch_on()
        units = self.units()
        self.assertEqual(set(units), {self.UNIT})
        self.assertRegex(units[self.UNIT], rf'(?m)^ExecStart=:?"?{self.program}"? "?--autostart"?$')
        (self.entries / f"{ID}.desktop").unlink()
        self.assertEqual(self.units(), {})

    def test_the_link_is_harmless_without_the_program(self):
        self.switch_on()
        self.program.unlink()
        self.assertEqual(self.units(), {})
        (self.prefix / f"share/mireval/autostart/{ID}.desktop").unlink()
        self.assertEqual(self.units(), {})
