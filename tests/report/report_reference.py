"""Reports computed a second time, from the formulas alone and without the program.

Shares nothing with the program but the formulas and the mathematics library, whose sine Python
takes, too. Dates are `datetime.date`.
"""

import datetime
import functools
import math
import struct

TURN = 6.28318530717958
PERIODS = (23, 28, 33)
NAMES = ("fisico", "emotivo", "intellettivo", "media")
HORIZON = 22000


def cycle(days, period):
    return math.sin(int(math.fmod(days, period)) * (TURN / period))


def values(days):
    """The three cycles and their mean. Before the birth the remainders are negative."""
    return values_of_remainder(int(math.fmod(days, 23 * 28 * 33)))


@functools.cache
def values_of_remainder(days):
    physical, emotional, intellectual = (cycle(days, period) for period in PERIODS)
    return physical, emotional, intellectual, ((physical + emotional) + intellectual) / 3.0


def mean(days):
    return values(days)[3]


def state_of(today, yesterday, today_tenfold, yesterday_tenfold):
    return {name: {"valore": today[i], "ieri": yesterday[i],
                   "mostrato": round(today_tenfold[i]),  # the language rounds ties to even
                   "andamento": "discesa" if yesterday_tenfold[i] - today_tenfold[i] > 0
                   else "salita"}
            for i, name in enumerate(NAMES)}


def event(calculation, days):
    if days is None:
        return None
    try:
        day = (calculation + datetime.timedelta(days)).isoformat()
    except OverflowError:
        day = None
    return {"giorni": days, "data": day}


def forecast(calculation, mean_of_day, first, extreme, horizon=None):
    def search(found):
        day = first
        while not found(day):
            day += 1
            if horizon is not None and day >= horizon:
                return None
        return day

    inversion = first
    while mean_of_day(inversion) * mean_of_day(inversion - 1) > 0:
        inversion += 1
    return {"inversione": event(calculation, inversion),
            "massimo": event(calculation, search(
                lambda day: round(mean_of_day(day) * 10) == extreme)),
            "minimo": event(calculation, search(
                lambda day: round(mean_of_day(day) * 10) == -extreme))}


def person(name, birth, calculation):
    days = (calculation - birth).days
    today, yesterday = values(days), values(days - 1)
    return {"nome": name, "dataDiNascita": birth.isoformat(), "giorni": days,
            "stato": state_of(today, yesterday, [value * 10 for value in today],
                              [value * 10 for value in yesterday]),
            "previsioni": forecast(calculation, lambda day: mean(days + day), 1, 10)}


def average(counts, day, factor=1):
    sums = [0.0] * 4
    for count in counts:
        for i, value in enumerate(values(count + day)):
            sums[i] += value * factor
    return [total / float(len(counts)) for total in sums]


def compatibility(difference):
    """Overall, physical, emotional, intellectual."""
    if difference > 32767:
        return (None,) * 4
    parts = [abs((difference % period) * -200 / period + 100) for period in PERIODS]
    overall = ((parts[0] + parts[1]) + parts[2]) / 3
    return struct.unpack("f", struct.pack("f", overall))[0], *parts


def pairs(members):
    found = []
    for i, (_, birth) in enumerate(members):
        for j in range(i + 1, len(members)):
            difference = abs((birth - members[j][1]).days)
            overall, physical, emotional, intellectual = compatibility(difference)
            order = (overall is None, -(overall or 0), difference if overall is not None else 0)
            found.append((order, {"prima": i, "seconda": j, "totale": overall, "fisica": physical,
                                  "emotiva": emotional, "intellettiva": intellectual}))
    return [pair for _, pair in sorted(found, key=lambda pair: pair[0])]


def system_mean(counts):
    @functools.cache
    def of_day(day):
        total = 0.0
        for count in counts:
            total += mean(count + day)
        return total / float(len(counts))
    return of_day


def system(name, members, calculation, horizon=HORIZON):
    """`members` are tuples of a name and a birth. A low horizon leaves out what lies beyond it."""
    counts = [(calculation - birth).days for _, birth in members]
    return {"nome": name, "membri": len(members),
            "media": {"stato": state_of(average(counts, 0), average(counts, -1),
                                        average(counts, 0, 10), average(counts, -1, 10)),
                      "previsioni": forecast(calculation, system_mean(counts), 0, 9, horizon)},
            "persone": [person(*member, calculation) for member in members],
            "compatibilita": pairs(members)}


def report(subject_kind, subject, calculation):
    return {"formato": "quor", "versione": 1, "dataDiCalcolo": calculation.isoformat(),
            subject_kind: subject}


def text_of_number(value):
    return format(value, ".17g")


def table(counts, calculation, days, of_system):
    """The lines of the table of days."""
    lines = ["data,%s,fisico,emotivo,intellettivo,media" % ("tra_giorni" if of_system else "giorni")]
    for day in range(days):
        numbers = average(counts, day) if of_system else values(counts[0] + day)
        lines.append(",".join([(calculation + datetime.timedelta(day)).isoformat(),
                               str(day if of_system else counts[0] + day),
                               *map(text_of_number, numbers)]))
    return lines


def sign(value):
    return 0 if abs(value) < 1e-9 else math.copysign(1, value)


def calendar(counts, calculation, days, of_system):
    """Days and kinds of the events."""
    extreme = 9 if of_system else 10
    of_day = functools.partial(average, counts)
    before = of_day(-1)
    events = []
    for day in range(days):
        now = of_day(day)
        date = calculation + datetime.timedelta(day)
        happens = {"inversione della media": now[3] * before[3] <= 0,
                   "massimo della media": round(now[3] * 10) == extreme,
                   "minimo della media": round(now[3] * 10) == -extreme}
        for i, cycle_name in enumerate(NAMES[:3]):
            happens["giorno critico " + cycle_name] = (
                sign(before[i]) != 0 and sign(now[i]) != sign(before[i]))
        events += [(date, kind) for kind, true in happens.items() if true]
        before = now
    return events
