"""What the player shows: its windows as screen readers know them, and the icon and the colours as they are seen."""

from dataclasses import dataclass

from accessibility import CHECKED, VALUE
from desktop_model import BUTTONS, MODES

PLAYER = "Mireval"
FOCUSED = 12
# The music falls behind the clock while a machine is very busy.
LAG_SECONDS = 4
WHITE, BLACK = (255, 255, 255), (0, 0, 0)
# Of the panel's elements, in their order on the screen.
MODE_PLACES, PROGRESS, TITLE, PREVIOUS, QUIT, COUNT = range(1, 5), 6, 7, 8, 12, 13
BUTTON_PLACES = (*MODE_PLACES, 8, 9, 10, QUIT)


@dataclass
class Panel:
    texts: list
    # Of the buttons.
    checked: list
    focused: list
    descriptions: list
    # The part of the track that has been heard.
    progress: float
    paper: tuple

    @property
    def title(self):
        return self.texts[TITLE]


@dataclass
class Shown:
    panels: list
    # The texts of each other window, the first of which is its title.
    others: list
    # The bars on which the icon is seen.
    icons: list


def look(session):
    picture = session.picture()
    shown = Shown([], [], session.bars_with_icon(picture))
    for window, elements in session.accessibility.windows_with_elements(PLAYER):
        texts = [element.name for element in elements]
        if window.name.startswith(f"{PLAYER}\n"):
            # The tool tip of an embedded icon, which may come at any time while the pointer is there.
            continue
        if window.name != PLAYER:
            shown.others.append([window.name, *texts])
        elif len(texts) == COUNT:
            shown.panels.append(_look_at_panel(session, picture, elements, texts))
        else:
            shown.panels.append(Panel(texts, [], [], [], 0.0, ()))
    return shown


def _look_at_panel(session, picture, elements, texts):
    states = [elements[place].states for place in BUTTON_PLACES]
    return Panel(texts,
                 [name for name, state in zip(BUTTONS, states, strict=True) if CHECKED in state],
                 [name for name, state in zip(BUTTONS, states, strict=True) if FOCUSED in state],
                 [elements[place].description for place in MODE_PLACES],
                 elements[PROGRESS].get(VALUE, "CurrentValue") or 0.0,
                 picture.pixel(*session.paper_place(elements[MODE_PLACES[1]])))


def differences(model, shown, track_seconds, slack):
    """What is shown otherwise than the model has it."""
    found = []
    # A frozen bar goes on showing what it has lost. Where no bar is, a window may have the icon's colour.
    icons = [kind for kind in shown.icons
             if kind == model.icon_bar or (kind in model.bars and kind != model.frozen_bar)]
    if icons != model.icons:
        found.append(f"icons on {icons}, not {model.icons}")
    words = model.words
    others = [[f"{words.settings} – {PLAYER}", PLAYER, words.language, words.own_name]]
    others = others if model.settings_are_open else []
    if shown.others != others:
        found.append(f"other windows {shown.others}, not {others}")
    if len(shown.panels) != model.panel_is_open:
        return [*found, f"{len(shown.panels)} panels"]
    for panel in shown.panels:
        found += _panel_differences(model, panel, track_seconds, slack)
    return found


def _panel_differences(model, panel, track_seconds, slack):
    words = model.words
    title = panel.texts[TITLE] if len(panel.texts) == COUNT and model.mode else words.select_mode
    wanted = [words.modes, *words.mode_names, words.now_playing, words.now_playing, title, words.previous,
              words.pause if model.is_playing else words.play, words.next, model.position_text, words.quit]
    if panel.texts != wanted:
        return [f"the panel shows {panel.texts}, not {wanted}"]
    found = []
    described = [""] * len(MODES)
    if model.mode:
        described[MODES.index(model.mode)] = words.is_playing if model.is_playing else words.is_paused
    if panel.descriptions != described:
        found.append(f"modes described as {panel.descriptions}, not {described}")
    if panel.checked != ([model.mode] if model.mode else []):
        found.append(f"{panel.checked} checked, not {model.mode}")
    focused = [BUTTONS[model.focus]] if model.panel_has_keyboard else []
    if model.panel_has_keyboard is not None and panel.focused != focused:
        found.append(f"{panel.focused} focused, not {focused}")
    least, most = model.expected_position if model.loaded else (0, 0)
    if not least - LAG_SECONDS <= panel.progress * track_seconds <= most + slack:
        found.append(f"progress {panel.progress * track_seconds:.1f} s, not {least:.1f} to {most:.1f} s")
    paper = BLACK if model.is_dark else WHITE
    if panel.paper != paper:
        found.append(f"paper {panel.paper}, not {paper}")
    return found
