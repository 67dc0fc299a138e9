"""What happens to sound servers, their sinks and the player's stream."""

import time

from sound_servers import HEADSET, SINKS
from steps import Steps


class SoundSteps(Steps):
    def possible(self):
        model = self.model
        if not model.has_sound_server:
            # WirePlumber plays nothing without a session bus.
            can_start = model.has_bus or not self.desk.session.server.parts
            return [(8, self.start_server)] if can_start else []
        steps = [(2, self.kill_server), (2, self.freeze_server)]
        if self.desk.session.server.parts:
            steps.append((3, self.kill_server_part))
        if model.suspended_sink:
            return [*steps, (5, self.resume_sink), (2, self.leave_suspended_sink)]
        if model.has_headset:
            return [*steps, (5, self.pull_headset_out), (2, self.move_stream)]
        if len(model.sinks) < len(SINKS):
            return [*steps, (5, self.add_sink), *([(1, self.remove_sink)] if model.sinks else [])]
        return [*steps, *((2, step) for step in (self.suspend_sink, self.remove_sink, self.move_stream,
                                                 self.set_default_sink, self.plug_headset_in))]

    def kill_server(self):
        self.desk.kill_server()
        self.model.lose_server()

    def kill_server_part(self):
        part = self.random.choice(self.desk.session.server.parts)
        self.desk.kill_server_part(part)
        # What is left may still play, or not.
        self.model.lose_server()
        return part

    def start_server(self):
        self.desk.start_server()
        self._walk.fault_ended = self.desk.session.server.ready_at
        # It may have taken long.
        self.model.pass_time(time.monotonic())
        self.model.has_sound_server = True
        self.model.sinks, self.model.has_headset, self.model.suspended_sink = set(SINKS), False, None
        self.model.lose_music(6)

    def freeze_server(self):
        seconds = self.random.uniform(0.2, 4)
        self.desk.freeze_server()
        time.sleep(seconds)
        self.desk.thaw_server()
        self.model.lose_music(seconds + 3)
        return f"{seconds:.1f} s"

    def remove_sink(self):
        """The sink that plays, if one does."""
        sink = self.random.choice(sorted(self.model.sinks))
        playing = self.desk.playing_sink()
        sink = playing if playing in self.model.sinks else sink
        self.desk.remove_sink(sink)
        self.model.sinks.remove(sink)
        self.model.lose_music(3)
        return f"{sink} {self._restart_what_crashed()}"

    def add_sink(self):
        sink = self.random.choice([sink for sink in SINKS if sink not in self.model.sinks])
        self.desk.add_sink(sink)
        self._walk.fault_ended = time.monotonic()
        self.model.sinks.add(sink)
        self.model.lose_music(2)
        return f"{sink} {self._restart_what_crashed()}"

    def move_stream(self):
        sinks = [*SINKS, HEADSET] if self.model.has_headset else [*SINKS]
        self.random.shuffle(sinks)
        self.model.lose_music(2)
        return self.desk.move_stream(sinks) or "no stream"

    def set_default_sink(self):
        sink = self.random.choice(SINKS)
        self.desk.session.server.set_default(sink)
        self.model.lose_music(2)
        return sink

    def suspend_sink(self):
        """The sink that plays, if one does."""
        sink = self.random.choice(SINKS)
        sink = self.desk.playing_sink() or sink
        self.desk.suspend_sink(sink)
        if self.desk.session.server.suspends_sinks_in_use:
            self.model.suspended_sink = sink
        self.model.lose_music(3)
        return sink

    def resume_sink(self):
        self._resume()
        self.model.lose_music(3)

    def leave_suspended_sink(self):
        """The user chooses another sink for the music before the first one comes back."""
        target = self.desk.move_stream([sink for sink in SINKS if sink != self.model.suspended_sink])
        time.sleep(0.2)
        self._resume()
        self.model.lose_music(3)
        return target or "no stream"

    def _resume(self):
        self.desk.resume_sink(self.model.suspended_sink)
        self.model.suspended_sink = None

    def plug_headset_in(self):
        self.desk.plug_headset_in()
        self.model.has_headset = True
        self.model.lose_music(3)
        return self._restart_what_crashed()

    def pull_headset_out(self):
        self.desk.pull_headset_out()
        self.model.has_headset = False
        self.model.lose_music(3)
        return self._restart_what_crashed()

    def _restart_what_crashed(self):
        """WirePlumber 0.4.13 may crash when a sink goes. As a service it would be started anew."""
        time.sleep(0.1)
        ended = self.desk.session.server.has_ended()
        if not ended:
            return ""
        self.start_server()
        return f"(crashed: {', '.join(ended)})"
