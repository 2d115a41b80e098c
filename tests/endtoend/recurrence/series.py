"""Series made at random: what a calendar text says, and the same in Python's own terms."""

import datetime as dt
from dataclasses import dataclass, field
from zoneinfo import ZoneInfo

UTC = dt.timezone.utc
EPOCH = dt.datetime(1970, 1, 1)
WEEKDAYS = ["MO", "TU", "WE", "TH", "FR", "SA", "SU"]
FREQUENCIES = ["YEARLY", "MONTHLY", "WEEKLY", "DAILY", "HOURLY"]

# How many days a series is followed. Dense rules are followed for less: the engine bounds its work.
SPAN = {"YEARLY": 6000, "MONTHLY": 2500, "WEEKLY": 1200, "DAILY": 700, "HOURLY": 40}

ZONES = ["Europe/Zurich", "Europe/London", "America/New_York", "America/Los_Angeles", "America/St_Johns",
         "America/Sao_Paulo", "Asia/Kolkata", "Asia/Tokyo", "Asia/Kathmandu", "Asia/Tehran", "Australia/Sydney",
         "Australia/Lord_Howe", "Pacific/Auckland", "Pacific/Chatham", "Pacific/Apia", "Africa/Casablanca",
         "Africa/Cairo", "Atlantic/Azores", "America/Havana", "Asia/Amman", "UTC"]

# Names by which exporters call a zone of the system.
OTHER_NAMES = {"W. Europe Standard Time": "Europe/Berlin", "Eastern Standard Time": "America/New_York",
               "GMT Standard Time": "Europe/London", "India Standard Time": "Asia/Kolkata",
               "/freeassociation.sourceforge.net/Europe/Zurich": "Europe/Zurich",
               "/mozilla.org/20070129_1/America/New_York": "America/New_York"}


def described(standard, daylight, to_daylight, to_standard):
    """A VTIMEZONE as the large exporters write it: two rules since long ago."""
    def block(kind, start, before, after, rule):
        return (f"BEGIN:{kind}\nDTSTART:{start}\nTZOFFSETFROM:{before}\nTZOFFSETTO:{after}\n"
                f"RRULE:FREQ=YEARLY;{rule}\nEND:{kind}\n")
    return (block("STANDARD", to_standard[0], daylight, standard, to_standard[1]) +
            block("DAYLIGHT", to_daylight[0], standard, daylight, to_daylight[1]))


# Zones that a text brings along, under names that the system does not know.
DESCRIBED = {
    "Europe/Berlin": described("+0100", "+0200", ("16010325T020000", "BYDAY=-1SU;BYMONTH=3"),
                               ("16011028T030000", "BYDAY=-1SU;BYMONTH=10")),
    "America/New_York": described("-0500", "-0400", ("20070311T020000", "BYMONTH=3;BYDAY=2SU"),
                                  ("20071104T020000", "BYMONTH=11;BYDAY=1SU")),
    "Australia/Sydney": described("+1000", "+1100", ("16010101T020000", "BYDAY=1SU;BYMONTH=10"),
                                  ("16010101T030000", "BYDAY=1SU;BYMONTH=4")),
}


@dataclass
class Rule:
    frequency: str
    interval: int = 1
    count: int = 0                                  # 0 for none
    until: dt.datetime | None = None                # UTC, or local for floating times, or a day
    week_start: int = 0                             # 0 = Monday
    parts: dict = field(default_factory=dict)       # "BYMONTH" and the like: numbers
    days: list = field(default_factory=list)        # (ordinal or 0, weekday)

    def text(self, until_form):
        pieces = [f"FREQ={self.frequency}"]
        if self.interval > 1:
            pieces.append(f"INTERVAL={self.interval}")
        if self.count:
            pieces.append(f"COUNT={self.count}")
        if self.until is not None:
            pieces.append(f"UNTIL={self.until.strftime(until_form)}")
        if self.week_start:
            pieces.append(f"WKST={WEEKDAYS[self.week_start]}")
        pieces += [f"{name}={','.join(map(str, numbers))}" for name, numbers in self.parts.items()]
        if self.days:
            pieces.append("BYDAY=" + ",".join(f"{ordinal or ''}{WEEKDAYS[day]}" for ordinal, day in self.days))
        return ";".join(pieces)


@dataclass
class Series:
    kind: str                   # "zoned", "utc", "floating" or "date"
    zone: ZoneInfo              # in which the rule's readings count
    zone_name: str              # as the text names it
    user_zone: str
    start: dt.datetime          # a reading in `zone`
    rule: Rule
    length: dt.timedelta        # days are days by the calendar
    ends_by_time: bool          # DTEND instead of DURATION: the same exact length always
    exceptions: list            # (reading, False) or (UTC, True)
    additions: list             # the same
    window: tuple               # UTC

    def instant(self, reading):
        """A reading that the clock shows twice means the first time; one that it skips counts by the offset before."""
        return reading.replace(tzinfo=self.zone).astimezone(UTC).replace(tzinfo=None)

    def reading(self, instant):
        return instant.replace(tzinfo=UTC).astimezone(self.zone).replace(tzinfo=None, fold=0)

    def instant_of(self, dated):
        value, is_utc = dated
        return value if is_utc else self.instant(value)

    def end(self, reading, instant):
        if self.ends_by_time and self.kind != "date":
            exact = self.instant(self.start + self.length) - self.instant(self.start)
            return instant + max(exact, dt.timedelta())
        rest = dt.timedelta(seconds=self.length.seconds)
        if self.length.days == 0:
            return instant + rest
        return max(self.instant(reading + dt.timedelta(self.length.days)) + rest, instant)

    def moment(self, name, value, is_utc=False):
        if self.kind == "date":
            return f"{name};VALUE=DATE:{value:%Y%m%d}"
        if self.kind == "utc" or is_utc:
            return f"{name}:{value:%Y%m%dT%H%M%S}Z"
        zone = f";TZID={self.zone_name}" if self.kind == "zoned" else ""
        return f"{name}{zone}:{value:%Y%m%dT%H%M%S}"

    def lines_of_length(self):
        if self.ends_by_time:
            return [self.moment("DTEND", self.start + self.length)]
        rest = self.length.seconds
        time = f"T{rest // 3600}H{rest // 60 % 60}M{rest % 60}S" if rest or not self.length.days else ""
        return [f"DURATION:P{f'{self.length.days}D' if self.length.days else ''}{time}"]

    def text(self):
        until_form = {"date": "%Y%m%d", "floating": "%Y%m%dT%H%M%S"}.get(self.kind, "%Y%m%dT%H%M%SZ")
        lines = ["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//test//EN"]
        if self.zone_name.startswith("Own "):
            lines += ["BEGIN:VTIMEZONE", f"TZID:{self.zone_name}",
                      *DESCRIBED[self.zone.key].split(), "END:VTIMEZONE"]
        lines += ["BEGIN:VEVENT", "UID:x", self.moment("DTSTART", self.start), *self.lines_of_length(),
                  "RRULE:" + self.rule.text(until_form)]
        lines += [self.moment("EXDATE", *dated) for dated in self.exceptions]
        lines += [self.moment("RDATE", *dated) for dated in self.additions]
        return "\r\n".join(lines + ["END:VEVENT", "END:VCALENDAR", ""])


def seconds(instant):
    return int((instant - EPOCH).total_seconds())
