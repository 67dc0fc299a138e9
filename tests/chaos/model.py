"""What must be seen and heard of the player after each step of a walk."""

MODES = ("focus", "tempo", "creative", "relaxation")
TITLES = {"focus": "Focus", "tempo": "Tempo", "creative": "Create", "relaxation": "Relax"}
TRACKS_PER_MODE = 16


class Model:
    """The state of the player, as the steps so far have made it. Times are seconds. A track is a mode and a place."""

    def __init__(self, track_seconds, now):
        self._track_seconds = track_seconds
        self._now = now
        self.mode = None
        self.index = 0
        self.is_playing = False
        # The track of the last load that did not fail, and whether it sounds.
        self.loaded = None
        self.sounds = False
        # How much of the loaded track has been heard: at least and at most.
        self.heard = [0.0, 0.0]

        self.missing_mode = None
        self.panel_is_open = False
        self.has_sound_server = True
        self.has_tray = True

    @property
    def track(self):
        return self.mode, self.index

    def pass_time(self, now):
        """The clock has gone on. Without a sound server nothing is heard, but it may just have come or gone."""
        seconds, self._now = now - self._now, now
        if self.sounds:
            self.heard[1] += seconds
            if self.has_sound_server:
                self.heard[0] += seconds

    def lose_music(self, seconds):
        """So much less may have been heard, because of a fault."""
        self.heard[0] = max(0.0, self.heard[0] - seconds)

    def select(self, mode):
        self.mode, self.index = mode, 0
        self._load()

    def press_mode(self, mode):
        """The button of a mode: that of the current one pauses and resumes."""
        if mode == self.mode:
            self.toggle()
        else:
            self.select(mode)

    def press_transport(self):
        """The play button starts the mode anew, while the mode's own button resumes."""
        if self.is_playing:
            self.toggle()
        else:
            self.select(self.mode)

    def media_command(self, command):
        if command == "PlayPause" or (command == "Play") != self.is_playing:
            self.toggle()

    def toggle(self):
        if self.loaded is None:
            return
        self.sounds = not self.sounds
        self.is_playing = self.sounds

    def step(self, by):
        self.index = (self.index + by) % TRACKS_PER_MODE
        self._load()

    def _load(self):
        self.is_playing = self.mode != self.missing_mode
        if self.is_playing:
            self.loaded, self.sounds, self.heard = self.track, True, [0.0, 0.0]

    def may_have_ended(self, slack):
        return self.sounds and self.heard[1] > self._track_seconds - slack

    def must_have_ended(self, slack):
        return self.sounds and self.heard[0] > self._track_seconds + slack

    def end_track(self):
        """The track that sounds has ended by itself, maybe a while ago."""
        since = max(0.0, self.heard[1] - self._track_seconds)
        # Its player would begin anew.
        self.sounds, self.heard = False, [0.0, 0.0]
        self.step(1)
        self.heard[1] = since if self.sounds else 0

    @property
    def position_text(self):
        return f"{self.index + 1} / {TRACKS_PER_MODE}" if self.mode else "1 / 3"
