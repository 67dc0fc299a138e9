"""What happens to sound servers."""

import time

from steps import Steps


class SoundSteps(Steps):
    def possible(self):
        if self.model.has_sound_server:
            return [(2, self.kill_server), (2, self.freeze_server)]
        return [(8, self.start_server)]

    def kill_server(self):
        self.desk.kill_server()
        self.model.has_sound_server = False
        self.model.lose_music(3)

    def start_server(self):
        self.desk.start_server()
        self.model.has_sound_server = True
        self.model.lose_music(6)

    def freeze_server(self):
        seconds = self.random.uniform(0.2, 4)
        self.desk.freeze_server()
        time.sleep(seconds)
        self.desk.thaw_server()
        self.model.lose_music(seconds + 3)
        return f"{seconds:.1f} s"
