"""The player in an installed tree."""

import os
import subprocess
from pathlib import Path
from urllib.parse import unquote, urlsplit

from media import wait_for_player
from player import Player
from session import wait_for


class InstalledPlayer(Player):
    def __init__(self, session, prefix, *, root=None, arguments=(), **options):
        """`prefix` is the installed tree. With `root`, it is in that system, and chroot starts it there."""
        self._prefix = prefix
        self._root = root
        program = str(prefix / "bin/mireval")
        command = ["chroot", str(root), program] if root else [program]
        super().__init__(session, command[0], arguments=[*command[1:], *arguments], **options)

    def _outside(self, path):
        """The path outside of the system in `root`."""
        return self._root / path.relative_to("/") if self._root else path

    def _open_files(self):
        try:
            return [os.readlink(link) for link in Path(f"/proc/{self.process.pid}/fd").iterdir()]
        except FileNotFoundError:
            # One was closed meanwhile.
            return []

    def expect_own_files(self):
        """While a track of the mode Focus plays: its sound, its cover and the code that plays it are the tree's."""
        metadata = wait_for_player(self._session).metadata
        assert (metadata["xesam:artist"], metadata["xesam:album"]) == (["Mireval • Focus"], "Mireval"), metadata
        assert metadata["xesam:title"] in self.texts(), (metadata, self.texts())
        assert metadata["mpris:length"] > 60e6, metadata

        resources = self._prefix / "share/mireval"
        cover = Path(unquote(urlsplit(metadata["mpris:artUrl"]).path))
        assert cover.parent == resources / "CoverImages", cover
        subprocess.run(["identify", self._outside(cover)], check=True, stdout=subprocess.DEVNULL, timeout=20)

        tracks = str(self._outside(resources / "PreviewAudio"))
        wait_for(lambda: any(name.startswith(tracks) for name in self._open_files()), f"an open file in {tracks}")
        module = str(self._outside(self._prefix / "lib/mireval/modules/libmireval-audio.so"))
        assert module in Path(f"/proc/{self.process.pid}/maps").read_text(encoding="utf-8"), module
