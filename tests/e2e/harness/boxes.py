"""Message boxes and the file dialog."""

from .nodes import TEXT_ROLES, is_active, is_read_only, is_showing, name_of, plain
from .waiting import wait_for


class MessageBox:
    """A message box: its text, its buttons."""

    def __init__(self, program, node):
        self.program = program
        self.node = node
        # The icon is a label too, with no text.
        labels = [name_of(label) for label in program.find_all("label", parent=node)]
        self.text = "\n".join(text for text in labels if text)
        self.buttons = [plain(name_of(button))
                        for button in program.find_all("push button", parent=node)]

    @property
    def title(self):
        return plain(name_of(self.node))

    def press(self, caption):
        """Clicks a button and waits until the box is gone."""
        self.program.click(self.program.button(self.node, caption))
        self.program.wait_gone(self.node)


class FileDialog:
    """Qt's own file dialog."""

    def __init__(self, program, node):
        self.program = program
        self.node = node

    def choose(self, path):
        """Types a path as the file's name and accepts it.

        Returns when the dialog has either closed or put a question of its own
        in front of itself.
        """
        field = self.program.find(TEXT_ROLES, parent=self.node,
                                  where=lambda node: not is_read_only(node))
        self.program.set_text(field, str(path))
        self.program.key("Enter")
        wait_for(lambda: not self.program.is_running() or not is_showing(self.node)
                 or not is_active(self.node),
                 lambda: f"the file dialog does not accept {path}\n{self.program.dump()}")

    def cancel(self):
        self.program.key("Escape")
        self.program.wait_gone(self.node)
