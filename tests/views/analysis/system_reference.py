"""States and forecasts of systems computed a second time, for comparison to the last bit.

Shares nothing with the program but the formulas. The table is made where the tests are built: the
last bit of a sine is the business of that machine's mathematics library. Usage:

    system_reference.py TABLE

One line for each system, separated by blanks:

    calculation births  inversion maximum minimum  today's four values  yesterday's four values

The births of the members are in one field, separated by commas; the three results are days to wait,
or "Mai" for an extreme that does not come within the horizon; the values (physical, emotional,
intellectual, mean, in -10..10) have as many digits as it takes to read back the same number.
"""

import cmath
import datetime
import functools
import pathlib
import sys

import reference

SYSTEMS = 300
SEED = 20260606
HORIZON = 22000
ALL_CYCLES = 23 * 28 * 33

mean = functools.cache(reference.mean)


def system_values(counts):
    sums = [0.0] * 4
    for count in counts:
        for index, value in enumerate(reference.values(count)):
            sums[index] += value
    return [total / float(len(counts)) for total in sums]


def system_mean(counts, offset):
    total = 0.0
    for count in counts:
        total += mean(count + offset)
    return total / float(len(counts))


def highest_possible(counts):
    """No day's mean is further from 0: each cycle at its crest on the same day."""
    crests = 0.0
    for period in (23, 28, 33):
        turn = 2j * cmath.pi / period
        crests += abs(sum(cmath.exp(turn * (count % period)) for count in counts)) / len(counts)
    return crests / 3


def wait_for_inversion(counts):
    offset = 0
    while system_mean(counts, offset) * system_mean(counts, offset - 1) > 0:
        offset += 1
    return str(offset)


def wait_for_extreme(counts, target):
    if highest_possible(counts) < 0.849999:
        return "Mai"
    for offset in range(HORIZON):
        if round(system_mean(counts, offset) * 10) == target:  # the language rounds ties to even
            return str(offset)
    return "Mai"


def line(calculation, births):
    counts = [(calculation - birth).days for birth in births]
    fields = [calculation.isoformat(), ",".join(birth.isoformat() for birth in births)]
    fields.append(wait_for_inversion(counts))
    fields.append(wait_for_extreme(counts, 9))
    fields.append(wait_for_extreme(counts, -9))
    fields += [repr(value) for value in system_values(counts)]
    fields += [repr(value) for value in system_values([count - 1 for count in counts])]
    return " ".join(fields)


def table():
    sequence = reference.numbers(SEED)

    def below(bound):
        return next(sequence) % bound

    earliest = datetime.date(1700, 1, 1).toordinal()
    days = datetime.date(2300, 1, 1).toordinal() - earliest

    def scattered(members):
        return [datetime.date.fromordinal(earliest + below(days)) for _ in range(members)]

    def in_step(members, apart):
        """Births whose cycles nearly coincide, some of them periods before or after the others."""
        middle = earliest + days // 2 + below(10000)
        return [
            datetime.date.fromordinal(middle + below(apart) + (below(7) - 3) * ALL_CYCLES)
            for _ in range(members)
        ]

    lines = []
    for number in range(SYSTEMS):
        calculation = scattered(1)[0]
        if number % 3 == 0:
            births = scattered(1 + below(40))
        elif number % 3 == 1:
            births = scattered(1 + below(3))
        else:
            births = in_step(1 + below(40), 1 + below(7))
        lines.append(line(calculation, births) + "\n")
    return "".join(lines)


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    pathlib.Path(arguments[0]).write_text(table(), encoding="ascii", newline="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
