"""The template by which python3-dbusmock mocks the desktop's settings portal."""

import dbus
from dbusmock import MOCK_IFACE

SYSTEM_BUS = False
BUS_NAME = "org.freedesktop.portal.Desktop"
MAIN_OBJ = "/org/freedesktop/portal/desktop"
MAIN_IFACE = "org.freedesktop.portal.Settings"
APPEARANCE = "org.freedesktop.appearance"
COLOR_SCHEME = "color-scheme"

READ = f"""
if (args[0], args[1]) != ("{APPEARANCE}", "{COLOR_SCHEME}"):
    raise dbus.exceptions.DBusException("Requested setting not found", name="org.freedesktop.portal.Error.NotFound")
# A variant in a variant, as the portal has always answered.
ret = dbus.UInt32(self.color_scheme, variant_level=2)
"""


def load(mock, parameters):
    mock.color_scheme = parameters.get(COLOR_SCHEME, 0)
    mock.AddMethod(MAIN_IFACE, "Read", "ss", "v", READ)


@dbus.service.method(MOCK_IFACE, in_signature="u", out_signature="")
def SetColorScheme(self, preference):
    self.color_scheme = preference
    self.EmitSignal(MAIN_IFACE, "SettingChanged", "ssv", [APPEARANCE, COLOR_SCHEME, preference])
