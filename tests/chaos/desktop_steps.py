"""What happens to the desktop around the player: its tray, bus, screens and settings."""

from steps import Steps


class DesktopSteps(Steps):
    def possible(self):
        if not self.model.has_tray:
            return [(6, self.start_tray)]
        return [] if self.model.panel_is_open else [(1, self.kill_tray)]

    def kill_tray(self):
        self.desk.kill_tray()
        self.model.has_tray = False

    def start_tray(self):
        self.desk.start_tray()
        self.model.has_tray = True
