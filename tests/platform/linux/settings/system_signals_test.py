"""Changes the system's locale and the desktop's colour scheme, and looks at what a process sees of it."""

import os
import time

from desktop_case import DesktopTest
from locale_service import LocaleService
from media import Lines
from portal import DARK, LIGHT, NO_PREFERENCE, SettingsPortal, offer_on_demand
from session import wait_for

PROBE = os.environ["MIREVAL_PROBE"]
GERMAN = "languages=de_DE localizations= locale=de_DE"
JAPANESE = "languages=ja_JP localizations=ja locale=ja_JP"


class SystemSignalsCase(DesktopTest):
    desktop = {"screen": False, "tray": False, "sound": False, "system_bus": True}

    def start_probe(self):
        """A German process; returns what it says, once it listens to the buses that there are."""
        probe = Lines(self.session, "env", "LANG=de_DE.UTF-8", PROBE)
        wait_for(probe.texts, "the probe")
        for bus, running in (("--user", True), ("--system", self.desktop["system_bus"])):
            if running:
                wait_for(lambda bus=bus: self.is_listened_to(bus), "the probe to listen")
        return probe

    def is_listened_to(self, bus):
        rules = self.session.run("busctl", bus, "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                 "org.freedesktop.DBus.Debug.Stats", "GetAllMatchRules").stdout
        return "org.freedesktop.portal.Settings" in rules or "org.freedesktop.locale1" in rules

    def expect(self, probe, *texts):
        """It has said this and, after a while, nothing else."""
        wait_for(lambda: len(probe.texts()) >= len(texts), f"{texts}, said {probe.texts()}")
        time.sleep(0.3)
        self.assertEqual(probe.texts(), list(texts))


class LocaleServiceTest(SystemSignalsCase):
    def test_what_is_announced_replaces_the_environment(self):
        probe = self.start_probe()
        service = LocaleService(self.session, ["LANG=fr_FR.UTF-8"])
        self.expect(probe, f"{GERMAN} light")
        service.set_locale(["LANG=ja_JP.UTF-8"])
        self.expect(probe, f"{GERMAN} light", f"{JAPANESE} light")
        service.end()
        service = LocaleService(self.session)
        service.set_locale(["LANG=de_DE.UTF-8", "LC_MESSAGES=zh_TW.UTF-8"])
        service.set_locale([])
        self.expect(probe, f"{GERMAN} light", f"{JAPANESE} light",
                    "languages=zh_TW,de_DE localizations=zh-Hant locale=de_DE light",
                    "languages= localizations= locale= light")

    def test_what_is_announced_without_a_value_is_asked_for(self):
        probe = self.start_probe()
        LocaleService(self.session, ["LANG=ja_JP.UTF-8"]).announce_without_value()
        self.expect(probe, f"{GERMAN} light", f"{JAPANESE} light")

    def test_nothing_is_asked_of_the_system_bus_but_to_listen(self):
        calls = Lines(self.session, "dbus-monitor", "--system", "--profile", "type='method_call'")
        wait_for(lambda: any("NameLost" in line for line in calls.texts()), "dbus-monitor")
        before = len(calls.texts())
        probe = Lines(self.session, "env", "LANG=de_DE.UTF-8", PROBE)
        wait_for(lambda: any("AddMatch" in line for line in calls.texts()), "the probe to listen")
        self.expect(probe, f"{GERMAN} light")
        members = [line.split("\t")[7] for line in calls.texts()[before:] if line.startswith("mc\t")]
        self.assertEqual(members, ["Hello", "AddMatch"])

    def test_the_bus_goes(self):
        probe = self.start_probe()
        LocaleService(self.session).set_locale(["LANG=ja_JP.UTF-8"])
        self.expect(probe, f"{GERMAN} light", f"{JAPANESE} light")
        self.session.stop_system_bus()
        portal = SettingsPortal(self.session, DARK)
        self.expect(probe, f"{GERMAN} light", f"{JAPANESE} light", f"{JAPANESE} dark")
        portal.end()


class WithoutSystemBusTest(SystemSignalsCase):
    desktop = {**SystemSignalsCase.desktop, "system_bus": False}

    def test_the_environment_counts(self):
        self.expect(self.start_probe(), f"{GERMAN} light")


class SettingsPortalTest(SystemSignalsCase):
    def test_a_portal_that_comes_tells_and_goes(self):
        probe = self.start_probe()
        portal = SettingsPortal(self.session, DARK)
        self.expect(probe, f"{GERMAN} light", f"{GERMAN} dark")
        for preference in (LIGHT, DARK, NO_PREFERENCE, DARK):
            portal.set_color_scheme(preference)
        portal.end()
        self.expect(probe, *[f"{GERMAN} {scheme}" for scheme in ("light", "dark") * 3 + ("light",)])

    def test_a_portal_that_does_not_run_yet_is_started(self):
        offer_on_demand(self.session, DARK)
        probe = self.start_probe()
        self.expect(probe, f"{GERMAN} light", f"{GERMAN} dark")
