"""Works out, from the written formulas alone, what a graph must hold, and writes it to
graph_reference.txt, which the test of the drawing reads.

Usage: graph_reference.py [--check]    --check compares with the file and writes nothing

Each line is one primitive:
  box LEFT TOP RIGHT BOTTOM COLOUR
  curve COLOUR WIDTH PATTERN X,Y X,Y ...
  line X1 Y1 X2 Y2 COLOUR WIDTH
  text X Y TEXT
Colours are 0x00BBGGRR in decimal. Python's round() goes to the even number on a tie.
"""

import datetime
import math
import pathlib
import sys

REFERENCE = pathlib.Path(__file__).with_name("graph_reference.txt")
TWO_PI = 6.28318530717958


def cases():
    day = datetime.date
    # name, birth, calculation date, days around, width, height, position, text height, show
    yield "default", day(1981, 12, 25), day(2004, 3, 15), 20, 760, 270, 2, 15, "peimb"
    yield "one day", day(1943, 3, 9), day(1972, 7, 11), 1, 641, 333, 3, 13, "peimb"
    yield "before birth", day(2004, 3, 15), day(2003, 11, 2), 30, 1234, 567, 1, 17, "peimb"
    yield "nothing ticked", day(1995, 1, 1), day(2020, 2, 18), 3, 400, 200, 0, 15, ""


def remainder(n: int, period: int) -> int:
    """The remainder with the sign of the number."""
    return int(math.fmod(n, period))


def primitives(birth, date, around, width, height, position, text_height, show):
    left = round(width / 40)
    margin = round(height / 40)
    amplitude = round((height - 2 * margin) / 2)
    base = margin + amplitude
    step = round((width - 2 * left) / (2 * around))
    start = (date - birth).days - around
    days = range(2 * around + 1)

    def x(i):
        return left + i * step

    def sine(i, period):
        return math.sin(TWO_PI / period * (remainder(start, period) + i))

    def y(value):
        return round(base - amplitude * value)

    def curve(values, colour, width, pattern, shift):
        points = " ".join(f"{x(i) + shift},{y(v) + shift}" for i, v in enumerate(values))
        return f"curve {colour} {width} {pattern} {points}"

    top, bottom = base - amplitude, base + amplitude
    if "b" in show:
        for i in days[:-1]:
            red, green, blue = (round((round(sine(i, p)) + 10) * 255 / 20) for p in (23, 28, 33))
            sides = sorted((x(i) + 1, x(i + 1) - 1))
            yield f"box {sides[0]} {top} {sides[1]} {bottom} {red | green << 8 | blue << 16}"
    if "m" in show:
        mean = [(sine(i, 23) + sine(i, 28) + sine(i, 33)) / 3 for i in days]
        yield curve(mean, 0x00FFFF, 2, "solid", 0)
    for letter, period, colour, pattern in (
        ("p", 23, 0xFF0000, "dash"),
        ("e", 28, 0x0000FF, "dashDot"),
        ("i", 33, 0x00FF00, "dashDotDot"),
    ):
        if letter in show:
            for shift in (-1, 0, 1):
                yield curve([sine(i, period) for i in days], colour, 1, pattern, shift)
    yield f"line {x(0)} {base} {x(2 * around)} {base} 0 1"
    for i in days:
        yield f"line {x(i)} {bottom} {x(i)} {top} {0x969696} 1"
    if position:
        row = {1: top, 2: base, 3: bottom - text_height}[position]
        for i in days[:-1]:
            shown = date + datetime.timedelta(days=i - around)
            yield f"text {x(i)} {row} {shown.day:02}"
    yield f"line {x(around)} {bottom} {x(around)} {top} 0 2"
    yield f"line {x(0)} {bottom} {x(2 * around)} {bottom} 0 2"
    yield f"line {x(0)} {top} {x(2 * around)} {top} 0 2"


def reference() -> str:
    lines = []
    for name, *case in cases():
        lines.append("case " + "|".join(map(str, [name, *case])))
        lines.extend(primitives(*case))
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        same = REFERENCE.read_text(encoding="utf-8") == reference()
        print("graph_reference.txt is", "as computed" if same else "not what the formulas give")
        sys.exit(0 if same else 1)
    REFERENCE.write_text(reference(), encoding="utf-8")
