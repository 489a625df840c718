#!/usr/bin/python3
"""The rows of the weekly state, computed a second time, in another language.

    python3 week_reference.py            writes week_reference.h beside this file
    python3 week_reference.py --check    fails unless that file is what would be written

Each case is a header line, then one line for each primitive in its order:

    case BIRTH CALCULATION ROW WIDTH HEIGHT LABELWIDTH LABELDROP
    box LEFT TOP RIGHT BOTTOM COLOUR                         corner pixels included
    line X Y X Y COLOUR PENWIDTH
    frame LEFT TOP RIGHT BOTTOM COLOUR PENWIDTH
    text X Y bold|plain TEXT

Dates are YYYY-MM-DD, LABELDROP is how far the label stands below the names, colours are 0x00BBGGRR. Names of weekdays are Italian.
"""

import datetime
import fractions
import math
import pathlib
import sys

LABELS = ["MEDIA", "FISICO", "EMOTIVO", "INTELLETTIVO"]
WEEKDAYS = ["lun", "mar", "mer", "gio", "ven", "sab", "dom"]
CRITICAL, STABLE, OPTIMAL = 0x0000FF, 0x00FF00, 0x00FFFF
BLACK, GREY, BLUE = 0x000000, 0x969696, 0xFF0000
STEP = {23: 0.27318196987737303, 28: 0.22439947525641357, 33: 0.19039955476301756}
# 200 twips, of which 15 are a pixel.
RESERVE = fractions.Fraction(200, 15)

BIRTH = datetime.date(1981, 12, 25)
CASES = [
    # A Wednesday, a Monday, a Sunday and the day of birth, whose week begins before the birth.
    (BIRTH, datetime.date(2004, 3, 17), 963, 124, 60, 0),
    (BIRTH, datetime.date(2004, 3, 15), 640, 200, 75, 0),
    (BIRTH, datetime.date(2004, 3, 21), 500, 131, 51, 0),
    (BIRTH, BIRTH, 777, 333, 94, 0),
    # Long before the birth.
    (BIRTH, datetime.date(1981, 9, 30), 1500, 90, 60, 0),
    # A label below the names.
    (BIRTH, datetime.date(2026, 11, 21), 205, 112, 104, 14),
]


def geometry(width, height):
    left = round(fractions.Fraction(width, 40))
    margin = round(fractions.Fraction(height, 40))
    amplitude = round(fractions.Fraction(height - 2 * margin, 2) - RESERVE)
    cell = round((width - 2 * left - RESERVE) / 7)
    return left, margin + amplitude, cell, amplitude


def value(row, day_count, later):
    def cycle(period):
        # The remainder of this language is never negative.
        return math.sin(STEP[period] * (day_count % period + later))

    if row == 0:
        return (cycle(23) + cycle(28) + cycle(33)) / 3
    return cycle([23, 28, 33][row - 1])


def colour_of(v):
    if 10 * v >= 8:
        return OPTIMAL
    if -3 <= 10 * v <= 3:
        return CRITICAL
    return STABLE


def case(birth, date, row, width, height, label_width, label_drop):
    yield f"case {birth} {date} {row} {width} {height} {label_width} {label_drop}"
    weekday = date.isoweekday()
    monday = date - datetime.timedelta(days=weekday - 1)
    day_count = (monday - birth).days
    left, baseline, cell, amplitude = geometry(width, height)
    top, bottom, right = baseline - amplitude, baseline + amplitude, left + 7 * cell
    for half in range(14):
        v = value(row, day_count, half / 2)
        x0 = round(left + fractions.Fraction(half * cell, 2))
        x1 = round(left + fractions.Fraction((half + 1) * cell, 2))
        y = round(baseline - amplitude * v)
        yield f"box {x0} {min(y, baseline)} {x1} {max(y, baseline)} {colour_of(v):06x}"
    x = round(fractions.Fraction(width - label_width, 2))
    yield f"text {x} {bottom + label_drop} bold {LABELS[row]}"
    yield f"line {left} {baseline} {right} {baseline} {BLACK:06x} 1"
    for day in range(7):
        x = left + day * cell
        yield f"line {x} {top} {x} {bottom} {GREY:06x} 1"
        yield f"text {x} {bottom} plain {WEEKDAYS[day]}"
    yield f"line {left} {top} {right} {top} {BLACK:06x} 2"
    yield f"line {left} {bottom} {right} {bottom} {BLACK:06x} 2"
    x = left + (weekday - 1) * cell
    yield f"frame {x} {top} {x + cell} {bottom} {BLUE:06x} 2"


def header():
    lines = ["// Written by week_reference.py; do not edit.", "#pragma once", "",
             "namespace quor::test {", "", "// clang-format off"]
    pieces = []
    for number, (birth, date, *sizes) in enumerate(CASES):
        for row in range(4):
            pieces.append(f"weekReference_{number}_{row}")
            lines.append(f'inline constexpr const char* {pieces[-1]} = R"(')
            lines += case(birth, date, row, *sizes)
            lines.append(')";')
    lines.append("inline constexpr const char* weekReference[] = {" + ", ".join(pieces) + "};")
    lines += ["// clang-format on", "", "} // namespace quor::test", ""]
    return "\n".join(lines)


if __name__ == "__main__":
    target = pathlib.Path(__file__).with_name("week_reference.h")
    if sys.argv[1:] == ["--check"]:
        if target.read_text(encoding="utf-8") != header():
            sys.exit(f"{target} is out of date")
    else:
        target.write_text(header(), encoding="utf-8")
