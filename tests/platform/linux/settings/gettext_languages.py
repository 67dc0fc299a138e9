#!/usr/bin/env python3
"""Prints the table of gettext_languages.tsv: environments, and the language in which gettext speaks in them.

Needs Debian's packages gettext and locales. The catalogues are those of our languages. The untranslated text is
English. The table was made with glibc 2.36, in which LANGUAGE counts in the locale C.UTF-8.
"""

import subprocess
import tempfile
from pathlib import Path

TRANSLATIONS = {"en": "en", "ja": "ja", "zh": "zh-Hans", "zh_TW": "zh-Hant", "zh_HK": "zh-Hant"}
LOCALES = ["en_GB", "fr_FR", "ja_JP", "zh_CN", "zh_HK", "zh_SG", "zh_TW"]
LANGUAGES = [[], ["LANGUAGE="], ["LANGUAGE=ja"], ["LANGUAGE=fr::zh_TW:ja"], ["LANGUAGE=en_GB:ja"],
             ["LANGUAGE=C:ja"]]
VARIABLES = [
    "",
    *(f"LANG={name}.UTF-8" for name in LOCALES),
    "LANG=C",
    "LANG=POSIX",
    "LANG=C.UTF-8",
    "LC_ALL=ja_JP.UTF-8",
    "LC_ALL= LANG=ja_JP.UTF-8",
    "LC_ALL=C LANG=ja_JP.UTF-8",
    "LC_ALL=C.UTF-8 LANG=ja_JP.UTF-8",
    "LC_ALL=POSIX LC_MESSAGES=ja_JP.UTF-8 LANG=ja_JP.UTF-8",
    "LC_ALL=fr_FR.UTF-8 LANG=ja_JP.UTF-8",
    "LC_ALL=fr_FR.UTF-8 LC_MESSAGES=ja_JP.UTF-8 LANG=zh_CN.UTF-8",
    "LC_ALL=zh_TW.UTF-8 LC_MESSAGES=ja_JP.UTF-8 LANG=zh_CN.UTF-8",
    "LC_ALL=ja_JP.UTF-8 LC_MESSAGES=C LANG=C",
    "LC_MESSAGES=ja_JP.UTF-8 LANG=fr_FR.UTF-8",
    "LC_MESSAGES=ja_JP.UTF-8 LANG=C",
    "LC_MESSAGES=fr_FR.UTF-8 LANG=ja_JP.UTF-8",
    "LC_MESSAGES=C LANG=ja_JP.UTF-8",
    "LC_MESSAGES= LANG=zh_SG.UTF-8",
    "LC_NUMERIC=ja_JP.UTF-8 LANG=fr_FR.UTF-8",
    "LC_NUMERIC=fr_FR.UTF-8 LANG=ja_JP.UTF-8",
    "LC_CTYPE=ja_JP.UTF-8 LANG=C",
]


def make_catalogue(folder, language, translation):
    messages = folder / language / "LC_MESSAGES"
    messages.mkdir(parents=True)
    subprocess.run(["msgfmt", "-o", messages / "t.mo", "-"], check=True, text=True,
                   input=f'msgid ""\nmsgstr "Content-Type: text/plain; charset=UTF-8"\n'
                         f'msgid "en (untranslated)"\nmsgstr "{translation}"\n')


def language(folder, assignments):
    variables = {"LOCPATH": folder, "TEXTDOMAINDIR": folder, "TEXTDOMAIN": "t",
                 **dict(assignment.split("=", 1) for assignment in assignments)}
    return subprocess.run(["/usr/bin/gettext", "en (untranslated)"], env=variables, check=True, text=True,
                          stdout=subprocess.PIPE).stdout.split()[0]


def main():
    with tempfile.TemporaryDirectory() as path:
        folder = Path(path)
        for name in LOCALES:
            subprocess.run(["localedef", "-i", name, "-f", "UTF-8", folder / f"{name}.UTF-8"], check=True)
        for name, translation in TRANSLATIONS.items():
            make_catalogue(folder, name, translation)
        for variables in VARIABLES:
            for languages in LANGUAGES:
                assignments = variables.split() + languages
                print(" ".join(assignments), language(folder, assignments), sep="\t")


main()
