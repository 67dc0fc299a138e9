"""What all kinds of steps have in common."""


class Steps:
    """Each step does something to the desktop, and tells the model. It may return what the report adds to its name."""

    def __init__(self, walk):
        self._walk = walk
        self.desk = walk.desk
        self.random = walk.random

    @property
    def model(self):
        return self._walk.model

    def possible(self):
        """The steps that can be taken now, each with its weight."""
        raise NotImplementedError
