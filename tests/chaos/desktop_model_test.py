"""Checks the model of the desktop without one."""

import unittest

from desktop_model import BUTTONS, PATIENCE_SECONDS, DesktopModel
from user_steps import UserSteps


class DesktopModelTest(unittest.TestCase):
    def setUp(self):
        self.model = DesktopModel()
        self.model.bar_kinds = ("xfce", "tint2")
        self.model.bars = {"xfce"}

    def test_the_first_kind_of_bar_has_the_icon(self):
        self.model.add_bar("tint2", 0)
        self.assertEqual(self.model.icons, ["xfce"])
        self.model.toggle_panel()
        self.model.remove_bar("tint2", 1)
        self.assertTrue(self.model.panel_is_open)
        self.model.add_bar("tint2", 2)
        self.model.remove_bar("xfce", 3)
        self.assertEqual((self.model.icons, self.model.panel_is_open), (["tint2"], False))
        self.assertFalse(self.model.may_lose_patience(1000, 0))

    def test_without_an_icon_a_window_opens_and_goes_unused(self):
        self.model.remove_bar("xfce", 10)
        self.assertFalse(self.model.may_lose_patience(10 + PATIENCE_SECONDS - 1, 0))
        self.assertTrue(self.model.must_have_lost_patience(10 + PATIENCE_SECONDS + 1, 0))
        self.model.lose_patience()
        self.assertTrue(self.model.panel_is_open and self.model.panel_is_framed and self.model.panel_is_unasked)
        self.model.add_bar("xfce", 50)
        self.assertFalse(self.model.panel_is_open)
        self.assertEqual(self.model.notices, [1, 1])

    def test_a_window_in_use_stays(self):
        self.model.remove_bar("xfce", 0)
        self.model.lose_patience()
        self.model.is_playing = True
        self.model.add_bar("xfce", 40)
        self.assertTrue(self.model.panel_is_open)

    def test_without_an_icon_an_open_panel_stays_as_it_is(self):
        self.model.remove_bar("xfce", 0)
        self.model.show_panel()
        self.model.lose_patience()
        self.assertTrue(self.model.panel_is_open and not self.model.panel_is_unasked)
        self.assertEqual(self.model.notices, [1, 1])

    def test_the_settings_take_the_keyboard_and_give_it_back(self):
        self.model.toggle_panel()
        self.model.show_settings()
        self.assertEqual((self.model.panel_has_keyboard, self.model.panel_is_exclusive), (False, False))
        self.model.close_settings()
        self.assertEqual((self.model.panel_has_keyboard, self.model.panel_is_exclusive), (True, True))

    def test_without_descriptors_nothing_opens(self):
        self.model.has_descriptors = False
        self.model.toggle_panel()
        self.model.show_settings()
        self.assertFalse(self.model.panel_is_open or self.model.settings_are_open)
        self.model.remove_bar("xfce", 0)
        self.model.lose_patience()
        self.assertFalse(self.model.panel_is_open or self.model.panel_is_unasked)
        self.model.has_descriptors = True
        self.model.show_settings()
        self.model.has_descriptors = False
        self.model.show_settings()
        self.assertTrue(self.model.settings_are_open)


class WaysTest(unittest.TestCase):
    """The keys that lead from one button to another."""

    def test_each_way_arrives(self):
        for here in range(len(BUTTONS)):
            for target in range(len(BUTTONS) - 1):
                for way in UserSteps.ways(here, target, has_modifiers=True):
                    self.assertEqual(self.follow(here, way), target, (here, way))

    @staticmethod
    def follow(place, way):
        for key in way:
            row = range(4) if place < 4 else range(4, 7) if place < 7 else range(7, 8)
            inside = place - row[0]
            place = {"Tab": (place + 1) % 8, "shift+Tab": (place - 1) % 8, "Home": row[0], "End": row[-1],
                     **dict.fromkeys(("Right", "Down"), row[(inside + 1) % len(row)]),
                     **dict.fromkeys(("Left", "Up"), row[(inside - 1) % len(row)])}[key]
        return place


if __name__ == "__main__":
    unittest.main()
