"""What other implementations of RFC 5545 make of a series."""

import datetime as dt
import types

from dateutil import rrule

from series import WEEKDAYS, seconds

DAY = dt.timedelta(days=1)

# dateutil looks at its limit only when it has found something, and else goes on until the last year there is.
rrule.datetime = types.SimpleNamespace(**vars(dt))


def readings(series, last):
    """The readings up to `last` that python3-dateutil yields for the rule; a superset without COUNT and UNTIL.

    Where dateutil departs from RFC 5545 it is asked in a way that makes no difference:
    - DTSTART counts as the first occurrence here, and as nothing there: it is added, and COUNT is kept, outside;
    - the first week of a weekly rule has only the days from DTSTART on there, which moves BYSETPOS: it is started
      with the week;
    - BYWEEKNO alone means all days of the week there, and the weekday of DTSTART here: that is named;
    - "MO,2TU" yields days that fulfil both there, and either here: plain weekdays get all their ordinals.
    """
    rule = series.rule
    start = series.start
    days = list(rule.days)
    if not days and (rule.frequency == "WEEKLY" or (
            "BYWEEKNO" in rule.parts and not {"BYMONTHDAY", "BYYEARDAY"} & rule.parts.keys())):
        days = [(0, start.weekday())]
    if any(ordinal for ordinal, _ in days):
        is_in_month = rule.frequency == "MONTHLY" or "BYMONTH" in rule.parts
        every = range(1, 6) if is_in_month else [*range(1, 53), -1]
        days = [(one, day) for ordinal, day in days for one in ([ordinal] if ordinal else every)]
    first = start
    if rule.frequency == "WEEKLY":
        first -= DAY * ((start.weekday() - rule.week_start) % 7)
    by = {name.lower(): numbers for name, numbers in rule.parts.items()}
    if days:
        by["byweekday"] = [rrule.weekday(day, ordinal or None) for ordinal, day in days]
    rrule.datetime.MAXYEAR = last.year + 1
    try:
        walk = rrule.rrule(getattr(rrule, rule.frequency), dtstart=first, interval=rule.interval,
                           wkst=rule.week_start, until=last, **by)
        return [one for one in walk if one > start]
    except ValueError:  # "generates an empty set", as every fifth hour does of BYHOUR=3
        return []


def occurrences(series):
    """(start, end) of all that the window shows, in UTC and in order."""
    rule = series.rule
    last = series.reading(series.window[1]) + 2 * DAY
    yielded = [series.start, *readings(series, last)]
    if rule.count:
        yielded = yielded[:rule.count]
    if rule.until is not None:
        limit = rule.until if series.kind in ("utc", "zoned") else series.instant(rule.until)
        yielded = [one for one in yielded if one == series.start or series.instant(one) <= limit]
    starts = {}
    for one in yielded:
        starts.setdefault(series.instant(one), one)
    for dated in series.additions:
        instant = series.instant_of(dated)
        starts.setdefault(instant, series.reading(instant))
    for dated in series.exceptions:
        starts.pop(series.instant_of(dated), None)
    begin, end = series.window
    found = [(instant, series.end(reading, instant)) for instant, reading in starts.items()]
    return sorted(one for one in found if one[0] < end and (one[1] > begin or one[0] >= begin))


def expected_lines(series):
    return [f"{seconds(start)} {seconds(end)}" for start, end in occurrences(series)]


def rule_text(series):
    return series.rule.text("%Y%m%dT%H%M%SZ") + f" from {series.start} {WEEKDAYS[series.start.weekday()]}"
