"""The exported pictures are the same bytes on every desktop.

Usage: test_pictures_alike.py DRIVER
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import zlib

FONTS = """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>
<include ignore_missing="yes">/etc/fonts/fonts.conf</include>
<match target="pattern"><edit name="dpi" mode="assign"><double>192</double></edit></match>
<match target="font"><edit name="hintstyle" mode="assign"><const>hintfull</const></edit>
<edit name="rgba" mode="assign"><const>rgb</const></edit></match></fontconfig>"""


# Of one cycle and of the mean.
SCREEN_WEEK = ([501, 159], [1515, 159])
PAPER_WEEK = ([205, 112], [627, 112])


def chunks(picture: bytes) -> dict[bytes, bytes]:
    assert picture[:8] == b"\x89PNG\r\n\x1a\n"
    found: dict[bytes, bytes] = {}
    at = 8
    while at < len(picture):
        length = int.from_bytes(picture[at : at + 4], "big")
        kind = picture[at + 4 : at + 8]
        found[kind] = found.get(kind, b"") + picture[at + 8 : at + 8 + length]
        at += 12 + length
    return found


def main(driver: str) -> int:
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        (root / "fonts.conf").write_text(FONTS)
        desktops = {
            "plain": ({}, {}),
            "scaled": ({"QT_SCALE_FACTOR": "2", "QT_FONT_DPI": "192"}, {}),
            "themed": ({"FONTCONFIG_FILE": str(root / "fonts.conf")}, {"font": "DejaVu Serif"}),
            "english": ({"LC_ALL": "C.UTF-8", "XDG_CURRENT_DESKTOP": "GNOME"}, {}),
        }
        for size, weekly in (([1523, 635], SCREEN_WEEK), ([635, 449], PAPER_WEEK)):
            made = {}
            for desktop, (environment, more) in desktops.items():
                out = root / f"{desktop}{size[0]}"
                case = {"folder": str(out), "name": "A", "birth": "1981-12-25",
                        "calculation": "2026-11-20"}  # fmt: skip
                cases = root / "cases.json"
                cases.write_text(
                    json.dumps({"today": "2026-11-21", "size": size, "cases": [case], **more})
                )
                subprocess.run([driver, cases], check=True, env={**os.environ, **environment})
                made[desktop] = {f.name: f.read_bytes() for f in out.glob("*.png")}
            for desktop, pictures in made.items():
                for name, picture in made["plain"].items():
                    if pictures.get(name) != picture:
                        faults.append(f"{name} at {size} differs on the desktop {desktop}")
            if len(made["plain"]) != 5:
                faults.append(f"pictures: {sorted(made['plain'])}")
            for name, picture in made["plain"].items():
                parts = chunks(picture)
                width, height = (int.from_bytes(parts[b"IHDR"][n : n + 4], "big") for n in (0, 4))
                # 8 bits a channel, red, green and blue without alpha, not interlaced
                number = re.search(r"(\d)\.png", name)
                wanted = weekly[number[1] == "0"] if number else size
                if [width, height] != wanted or parts[b"IHDR"][8:] != bytes([8, 2, 0, 0, 0]):
                    faults.append(f"{name}: header {parts[b'IHDR']}")
                if set(parts) != {b"IHDR", b"IDAT", b"IEND"}:
                    faults.append(f"{name}: {sorted(parts)}")
                if len(zlib.decompress(parts[b"IDAT"])) != (3 * width + 1) * height:
                    faults.append(f"{name}: length of the data")
    print("\n".join(faults) or "all alike")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
