"""What happens to the machine below the player: its files, clocks, memory and processors."""

import time

from model import MODES
from steps import Steps


class MachineSteps(Steps):
    def possible(self):
        return [(2, self.freeze_player),
                (1, self.hide_tracks) if self.model.missing_mode is None else (3, self.show_tracks)]

    def freeze_player(self):
        seconds = self.random.uniform(0.2, 4)
        self.desk.freeze_player()
        time.sleep(seconds)
        self.desk.thaw_player()
        self.model.lose_music(seconds + 3)
        return f"{seconds:.1f} s"

    def hide_tracks(self):
        mode = self.random.choice([mode for mode in MODES if mode != self.model.mode])
        self.desk.hide_tracks(mode)
        self.model.missing_mode = mode
        return mode

    def show_tracks(self):
        self.desk.show_tracks(self.model.missing_mode)
        self.model.missing_mode = None
