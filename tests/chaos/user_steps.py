"""What a user does: buttons, keys, starts."""

from model import MODES, TITLES
from steps import Steps


class UserSteps(Steps):
    def possible(self):
        model = self.model
        steps = [(2, self.start_with_mode)]
        if model.panel_is_open:
            steps += [(6, self.mode_button), (3, self.escape)]
            if model.mode:
                steps += [(4, self.next), (4, self.previous), (4, self.transport)]
        if model.loaded:
            steps.append((4, self.media_key))
        if model.has_tray:
            steps += [(6, self.icon), (2, self.second_start)]
        return steps

    def mode_button(self):
        mode = self.random.choice(MODES)
        self.desk.press(TITLES[mode])
        self.model.press_mode(mode)
        return mode

    def next(self):
        self.desk.press("Next")
        self.model.step(1)

    def previous(self):
        self.desk.press("Previous")
        self.model.step(-1)

    def transport(self):
        self.desk.press("Pause" if self.model.is_playing else "Play")
        self.model.press_transport()

    def media_key(self):
        command = self.random.choice(("Play", "Pause", "PlayPause"))
        self.desk.controls.command(command)
        self.model.media_command(command)
        return command

    def start_with_mode(self):
        mode = self.random.choice(MODES)
        self.desk.start_again(f"--mode={mode}")
        self.model.select(mode)
        return mode

    def icon(self):
        self.desk.toggle_panel()
        self.model.panel_is_open = not self.model.panel_is_open

    def escape(self):
        self.desk.session.press_key("Escape")
        self.model.panel_is_open = False

    def second_start(self):
        self.desk.start_again()
        self.model.panel_is_open = True
