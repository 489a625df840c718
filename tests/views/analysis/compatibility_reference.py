"""Compatibilities and their panels computed a second time, for comparison.

Shares nothing with the program but the formulas. Usage:

    compatibility_reference.py            write compatibility_reference.txt beside this file
    compatibility_reference.py --check    compare it with what would be written; status 1 if it differs

First come pairs of births, fields separated by blanks:

    pair BIRTH BIRTH CALCULATION yes|no  PHYSICAL EMOTIONAL INTELLECTUAL OVERALL  the four as Italian text

"no" when the day counts have no bit in common. Births too far apart have "overflow" instead of the
numbers. Then come panels, a header and one line for each primitive in its order:

    panel BIRTH BIRTH CALCULATION CURVE WIDTH HEIGHT TEXTHEIGHT COLOUR
    box LEFT TOP RIGHT BOTTOM COLOUR
    curve COLOUR WIDTH X,Y X,Y ...
    line X Y X Y COLOUR WIDTH
    frame LEFT TOP RIGHT BOTTOM COLOUR WIDTH
    text X Y COLOUR bold|plain TEXT

A curve is 0 physical, 1 emotional, 2 intellectual or 3 mean; colours are 0x00BBGGRR in decimal. The
language's round() goes to the even number on a tie.
"""

import datetime
import math
import pathlib
import struct
import sys

TABLE = pathlib.Path(__file__).with_name("compatibility_reference.txt")
PAIRS = 300
SEED = 19811225
CIRCLE = 6.28318530717958
PERIODS = (23, 28, 33)
DAYS = 40
GREY = 0x969696


def numbers(seed):
    """A fixed sequence on every version of the language (Knuth's MMIX generator)."""
    state = seed
    while True:
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        yield state >> 33


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def percentages(birth, other):
    """The four, the overall one last; nothing on overflow."""
    difference = abs((birth - other).days)
    if difference >= 2**15:
        return None
    three = [abs(100 + -200 * (difference % period) / period) for period in PERIODS]
    return [*three, single((three[0] + three[1] + three[2]) / 3)]


def italian(value):
    return f"{value:.2f}".replace(".", ",")


def pair(birth, other, calculation):
    counts = ((calculation - birth).days, (calculation - other).days)
    fields = ["pair", birth, other, calculation, "yes" if counts[0] & counts[1] else "no"]
    values = percentages(birth, other)
    if values is None:
        fields.append("overflow")
    else:
        fields += [f"{value:.17g}" for value in values] + [italian(value) for value in values]
    return " ".join(map(str, fields))


def sine(count, day, period):
    """The remainder goes towards zero, unlike the language's own operator."""
    remainder = int(math.fmod(count, period))
    return math.sin((remainder + day) * (CIRCLE / period))


def value(curve, count, day):
    if curve < 3:
        return sine(count, day, PERIODS[curve])
    return (sine(count, day, 23) + sine(count, day, 28) + sine(count, day, 33)) / 3


def panel(birth, other, calculation, curve, width, height, text_height, colour):
    yield " ".join(
        map(str, ["panel", birth, other, calculation, curve, width, height, text_height, colour])
    )
    margin = max(4, text_height // 2)
    step = (width - 1 - 2 * margin) / DAYS
    amplitude = (height - 1 - margin - (text_height + margin)) // 2
    middle = text_height + margin + amplitude
    top, bottom = middle - amplitude, middle + amplitude

    def x(day):
        return round(margin + day * step)

    yield f"box 0 0 {width - 1} {height - 1} {0x202020}"
    for person, own in ((birth, colour), (other, (colour - 50) % 2**24)):
        count = (calculation - person).days
        for shift in (-1, 0, 1):
            points = (
                f"{x(day) + shift},{round(middle - amplitude * value(curve, count, day)) + shift}"
                for day in range(DAYS + 1)
            )
            yield f"curve {own} 1 " + " ".join(points)
    yield f"line {margin} {middle} {x(DAYS)} {middle} {GREY} 1"
    for day in range(DAYS + 1):
        yield f"line {x(day)} {bottom} {x(day)} {top} {GREY} 1"
    yield f"frame {margin} {top} {x(DAYS)} {bottom} {GREY} 2"
    subject = ("Compatibilità fisica", "Compatibilità emotiva", "Compatibilità intellettiva",
               "Compatibilità")[curve]
    percent = italian(percentages(birth, other)[curve])
    yield f"text {margin} {margin // 2} {0xFFFFFF} bold {subject}: {percent}%"


def table():
    day = datetime.date
    sequence = numbers(SEED)

    def any_day(first, last):
        start = first.toordinal()
        return day.fromordinal(start + next(sequence) % (last.toordinal() - start))

    def any_birth():
        return any_day(day(1890, 1, 1), day(2030, 1, 1))

    lines = []
    for number in range(PAIRS):
        birth = any_birth()
        # A third of them are born in the same year or so.
        other = (
            birth + datetime.timedelta(next(sequence) % 801 - 400) if number % 3 == 0
            else any_birth()
        )
        # Of small numbers of days, more have no bit in common.
        calculation = (
            birth + datetime.timedelta(next(sequence) % 1201 - 200) if number % 5 == 0
            else any_day(day(1960, 1, 1), day(2060, 1, 1))
        )
        lines.append(pair(birth, other, calculation))
    born, other = day(1981, 12, 25), day(1979, 6, 3)
    lines += panel(born, other, day(2026, 11, 21), 3, 366, 217, 15, 0x00FFFF)
    lines += panel(born, other, day(2026, 11, 21), 0, 281, 105, 15, 0xFF0000)
    # Before both births; red below 50 borrows from green, and black from all above it.
    lines += panel(born, other, day(1975, 1, 2), 1, 700, 401, 31, 0x00FF00)
    lines += panel(other, born, day(1981, 12, 25), 2, 333, 222, 7, 0x000000)
    return "\n".join(lines) + "\n"


def main(arguments):
    if arguments == ["--check"]:
        same = TABLE.read_text(encoding="utf-8") == table()
        print("same" if same else "the table differs")
        return 0 if same else 1
    if not arguments:
        TABLE.write_text(table(), encoding="utf-8", newline="\n")
        return 0
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
