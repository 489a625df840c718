"""Checks that no include runs up the house and that models and records know no widget.

Usage: check_layers.py SRC
"""

import pathlib
import re
import sys

# From the ground up. A folder may include itself and folders before it.
FLOORS = [
    "core",
    "storage",
    "toolkit",
    "views/analysis",
    "views/graph",
    "system",
    "export",
    "report",
    "guidance",
    "shell",
]
# Folders whose every file does without a screen.
SCREENLESS = {"core", "storage", "report"}
WIDGET_HEADERS = re.compile(
    r"<(QtWidgets|QWidget|QApplication|QDialog|QMainWindow|QMdi\w+|QMenu\w*|QAction|QLabel|"
    r"QLineEdit|QPushButton|QToolBar|QMessageBox|QFileDialog)\b"
)


def folder_of(path: str) -> str | None:
    matches = [floor for floor in FLOORS if path.startswith(floor + "/")]
    return max(matches, key=len) if matches else None


def main(src: pathlib.Path) -> int:
    faults = []
    files = sorted([*src.rglob("*.h"), *src.rglob("*.cpp")])
    for file in files:
        name = file.relative_to(src).as_posix()
        own = folder_of(name)
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            include = re.match(r'#include "([^"]+)"', line)
            if include and own:
                other = folder_of(include.group(1))
                if other and FLOORS.index(other) > FLOORS.index(own):
                    faults.append(f"{name}:{number}: {own} must not know {other}")
            if own in SCREENLESS and WIDGET_HEADERS.search(line):
                faults.append(f"{name}:{number}: {own} must not know widgets")
    print("\n".join(faults))
    print(f"{len(files)} files, {len(faults)} faults")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
