"""Works out, from the written formulas alone, what the graphs of 300 systems must hold, and writes
it to system_graph_reference.txt, which the test of the series reads.

Usage: system_graph_reference.py [--check]    --check compares with the file and writes nothing

Each system is six lines:
  system AROUND DAYCOUNT DAYCOUNT ...     the members' day counts on the middle day
  physical, emotional, intellectual and mean, each with its values in millionths, first day to last
  bars COLOUR COLOUR ...                  0x00BBGGRR in decimal
Python's round() goes to the even number on a tie.
"""

import math
import pathlib
import random
import sys

REFERENCE = pathlib.Path(__file__).with_name("system_graph_reference.txt")
TWO_PI = 6.28318530717958


def sine(count: int, period: int) -> float:
    """The remainder has the sign of the day count."""
    return math.sin(TWO_PI / period * math.fmod(count, period))


def mean_of_person(count: int) -> float:
    return (sine(count, 23) + sine(count, 28) + sine(count, 33)) / 3


def systems():
    chance = random.Random(1899)

    def between(low: int, high: int) -> int:
        return low + int(chance.random() * (high - low + 1))

    for _ in range(300):
        # Lives under way, births to come, and births within days of the middle.
        low, high = ((0, 40000), (-20000, 20000), (-40000, -1), (-4, 4))[between(0, 3)]
        yield between(1, 4), [between(low, high) for _ in range(between(1, 40))]


def lines_of(around: int, members: list[int]):
    def mean(value, day):
        total = 0.0
        for member in members:
            total += value(member + day)
        return total / len(members)

    def means(value):
        return [mean(value, day) for day in range(-around, around + 1)]

    curves = [means(lambda count, p=period: sine(count, p)) for period in (23, 28, 33)]
    yield " ".join(map(str, ["system", around, *members]))
    for name, values in zip(
        ("physical", "emotional", "intellectual", "mean"), [*curves, means(mean_of_person)]
    ):
        yield " ".join([name, *(str(round(1e6 * value)) for value in values)])
    bars = []
    for day in zip(*(curve[:-1] for curve in curves)):
        red, green, blue = (round((value + 10) * 255 / 20) for value in day)
        bars.append(str(red | green << 8 | blue << 16))
    yield " ".join(["bars", *bars])


def reference() -> str:
    return "".join(line + "\n" for system in systems() for line in lines_of(*system))


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        same = REFERENCE.read_text(encoding="utf-8") == reference()
        print("system_graph_reference.txt is", "as computed" if same else "not what the formulas give")
        sys.exit(0 if same else 1)
    REFERENCE.write_text(reference(), encoding="utf-8")
