"""Makes series at random: every part that RFC 5545, section 3.3.10, permits with a frequency."""

import datetime as dt
import functools
from zoneinfo import ZoneInfo

from series import DESCRIBED, FREQUENCIES, OTHER_NAMES, SPAN, ZONES, Rule, Series

DAY = dt.timedelta(days=1)


@functools.cache
def clock_changes(key, year):
    """The readings at which a zone's clock is put forward or back."""
    def offset(reading):
        return reading.replace(tzinfo=ZoneInfo(key)).utcoffset()

    days = [dt.datetime(year, 1, 1) + DAY * day for day in range(365)]
    hours = [day + dt.timedelta(hours=hour)
             for day in days if offset(day) != offset(day + DAY) for hour in range(1, 25)]
    return [hour for hour in hours if offset(hour) != offset(hour - dt.timedelta(hours=1))]


class Generator:
    def __init__(self, random):
        self.random = random

    def chance(self, percent):
        return self.random.randrange(100) < percent

    def some(self, most, numbers):
        return sorted({self.random.choice(numbers) for _ in range(self.random.randint(1, most))})

    def signed(self, most, last):
        """Numbers from 1 to `last`, a third of them counted from the end."""
        return sorted({self.random.randint(1, last) * (-1 if self.chance(33) else 1)
                       for _ in range(self.random.randint(1, most))})

    def rule(self, kind):
        frequency = self.random.choice(FREQUENCIES[:4] if kind == "date" else FREQUENCIES)
        rule = Rule(frequency)
        if self.chance(45):
            rule.interval = self.random.choice([2, 2, 3, 4, 5, 6, 7, 10, 13])
        if self.chance(35):
            rule.week_start = self.random.randrange(7)
        self.add_days(rule)
        if kind != "date":
            self.add_times(rule)
        if self.chance(25) and (rule.parts or rule.days):
            rule.parts["BYSETPOS"] = self.signed(2, self.random.choice([2, 4, 6, 30]))
        return rule

    def add_days(self, rule):
        yearly, monthly, weekly, hourly = (rule.frequency == name
                                           for name in ("YEARLY", "MONTHLY", "WEEKLY", "HOURLY"))
        if self.chance(25):
            rule.parts["BYMONTH"] = self.some(3, range(1, 13))
        if yearly and self.chance(20):
            # dateutil puts days at the edges of a year into week 52, 53 or -52, whatever the year: the calendar
            # of ISO 8601 is asked about those.
            rule.parts["BYWEEKNO"] = self.signed(3, 51)
        if (yearly or hourly) and self.chance(15):
            rule.parts["BYYEARDAY"] = self.signed(8 if hourly else 3, 366)
        if not weekly and self.chance(25):
            rule.parts["BYMONTHDAY"] = self.signed(4, 31)
        if self.chance(40):
            has_ordinals = (yearly and "BYWEEKNO" not in rule.parts) or monthly
            most = 5 if monthly or "BYMONTH" in rule.parts else 52
            for _ in range(self.random.randint(1, 4)):
                ordinal = self.random.choice([0, 1, 2, -1, most, -most, self.random.randint(1, most)])
                rule.days.append((ordinal if has_ordinals else 0, self.random.randrange(7)))
            rule.days = sorted(set(rule.days))

    def add_times(self, rule):
        if self.chance(20):
            rule.parts["BYHOUR"] = self.some(3, range(24))
        if self.chance(12):
            rule.parts["BYMINUTE"] = self.some(2, range(60))
        if self.chance(8):
            rule.parts["BYSECOND"] = self.some(2, range(60))

    def zone(self):
        """A kind of time, its zone and the name that the text has for it."""
        roll = self.random.randrange(100)
        if roll < 15:
            return "utc", "UTC", ""
        if roll < 25:
            return "floating", self.random.choice(ZONES), ""
        if roll < 40:
            return "date", self.random.choice(ZONES), ""
        if roll < 50:
            name = self.random.choice(list(OTHER_NAMES))
            return "zoned", OTHER_NAMES[name], name
        if roll < 60:
            key = self.random.choice(list(DESCRIBED))
            return "zoned", key, "Own " + key.replace("/", " ")
        key = self.random.choice(ZONES)
        return "zoned", key, key

    def start(self, kind, key, name):
        # A zone that the text describes has today's rules for all times.
        day = dt.datetime(2009 if name.startswith("Own ") else 1980, 1, 1) + DAY * self.random.randrange(7000)
        if kind == "date":
            return dt.datetime(2016, 2, 29) if self.chance(5) else day
        changes = clock_changes(key, day.year)
        if changes and self.chance(40):
            change = self.random.choice(changes)
            back = self.random.choice([0, 1, 7, 30, 365]) * DAY
            return change - back + dt.timedelta(minutes=15 * self.random.randint(-8, 8))
        if self.chance(5):
            day = dt.datetime(self.random.choice([2012, 2016, 2020]), 2, 29)
        return day + dt.timedelta(minutes=self.random.choice([0, 15, 30, 45]), hours=self.random.randrange(24),
                                  seconds=self.random.choice([0, 0, 0, 59]))

    def series(self, occurrences_of):
        """`occurrences_of` yields the instants of a series, so that some can be left out."""
        kind, key, name = self.zone()
        start = self.start(kind, key, name)
        rule = self.rule(kind)
        span = SPAN[rule.frequency]
        for part in ("BYHOUR", "BYMINUTE", "BYSECOND"):
            span //= len(rule.parts.get(part, [0]))
        series = Series(kind, ZoneInfo(key), name, key if kind in ("date", "floating") else "Asia/Dubai", start, rule,
                        self.length(kind), self.chance(50), [], [], (None, None))
        if series.instant(start + series.length) < series.instant(start):  # a start that the clock skips
            series.ends_by_time = False
        self.bound(series, span)
        begin = series.instant(start) + DAY * self.random.randint(-span // 10, span)
        series.window = (begin, begin + DAY * self.random.randint(1, max(span // 2, 2)))
        if self.chance(30):
            self.add_dates(series, occurrences_of(series))
        return series

    def length(self, kind):
        if kind == "date":
            return DAY * self.random.choice([1, 1, 2, 5])
        return dt.timedelta(days=self.random.choice([0, 0, 0, 1, 3]),
                            minutes=self.random.choice([0, 15, 30, 60, 90, 600]))

    def bound(self, series, span):
        if self.chance(30):
            series.rule.count = self.random.randint(1, 60)
        elif self.chance(35):
            until = series.start + DAY * self.random.randrange(span)
            if series.kind != "date" and self.chance(50):
                until += dt.timedelta(minutes=15 * self.random.randrange(96))
            series.rule.until = series.instant(until) if series.kind in ("utc", "zoned") else until

    def add_dates(self, series, occurrences):
        def dated(instant):
            if series.kind in ("date", "floating") or (series.kind == "zoned" and self.chance(50)):
                return series.reading(instant), False
            return instant, True
        known = [instant for instant, _ in occurrences] or [series.instant(series.start)]
        series.exceptions = [dated(self.random.choice(known)) for _ in range(self.random.randint(0, 4))]
        for _ in range(self.random.randint(0, 3)):
            length = series.window[1] - series.window[0]
            moved = self.random.choice([self.random.choice(known), series.window[0] + length * self.random.random()])
            moved = moved.replace(microsecond=0) + dt.timedelta(minutes=self.random.choice([0, 0, 15, 60]))
            if series.kind == "date":
                moved = series.instant(series.reading(moved).replace(hour=0, minute=0, second=0))
            series.additions.append(dated(moved))
