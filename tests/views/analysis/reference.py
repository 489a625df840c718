"""Day states and forecasts computed a second time, for comparison.

Shares nothing with the program but the formulas. Usage:

    reference.py TABLE            write the table
    reference.py --check TABLE    compare it with what would be written; status 1 if it differs

One line for each pair of dates, separated by blanks:

    birth calculation  physical emotional intellectual mean  trends  inversion maximum minimum
    scaled physical, emotional, intellectual and mean value

The first four are the values as shown (-10..10), the trends one sign for each of them ("+" not lower
than the day before, "-" lower), then come the days to wait for the next event of the mean, and the
values themselves as multiples of 1e-9.
"""

import datetime
import math
import pathlib
import sys

PAIRS = 2000
SEED = 20040315
CIRCLE = 6.28318530717958


def numbers(seed):
    """A fixed sequence on every version of the language (Knuth's MMIX generator)."""
    state = seed
    while True:
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        yield state >> 33


def remainder(days, period):
    """Towards zero, unlike the language's own operator."""
    return days % period if days >= 0 else -(-days % period)


def cycle(days, period):
    return math.sin(remainder(days, period) * (CIRCLE / period))


def mean(days):
    return (cycle(days, 23) + cycle(days, 28) + cycle(days, 33)) / 3.0


def values(days):
    return [10 * cycle(days, 23), 10 * cycle(days, 28), 10 * cycle(days, 33), 10 * mean(days)]


def wait(happens):
    days = 1
    while not happens(days):
        days += 1
    return days


def line(birth, calculation):
    days = (calculation - birth).days
    today, yesterday = values(days), values(days - 1)
    fields = [birth.isoformat(), calculation.isoformat()]
    fields += [str(round(value)) for value in today]  # the language rounds ties to even
    fields.append("".join("-" if old > new else "+" for old, new in zip(yesterday, today)))
    fields.append(str(wait(lambda k: mean(days + k) * mean(days + k - 1) <= 0)))
    fields.append(str(wait(lambda k: round(10 * mean(days + k)) == 10)))
    fields.append(str(wait(lambda k: round(10 * mean(days + k)) == -10)))
    fields += [str(round(value * 1e9)) for value in today]
    return " ".join(fields)


def table():
    sequence = numbers(SEED)
    earliest = datetime.date(1800, 1, 1).toordinal()
    latest = datetime.date(2200, 1, 1).toordinal()

    def any_day():
        return datetime.date.fromordinal(earliest + next(sequence) % (latest - earliest))

    pairs = [(datetime.date(1981, 12, 25), datetime.date(2004, 3, 15))]
    pairs += [(any_day(), any_day()) for _ in range(PAIRS * 3 // 4)]
    while len(pairs) < PAIRS:  # near the birth, where the sign of the day count changes
        birth = any_day()
        pairs.append((birth, birth + datetime.timedelta(next(sequence) % 3001 - 2000)))
    return "".join(line(*pair) + "\n" for pair in pairs)


def main(arguments):
    if len(arguments) == 2 and arguments[0] == "--check":
        same = pathlib.Path(arguments[1]).read_text(encoding="ascii") == table()
        print("same" if same else "the table differs")
        return 0 if same else 1
    if len(arguments) == 1:
        pathlib.Path(arguments[0]).write_text(table(), encoding="ascii", newline="\n")
        return 0
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
