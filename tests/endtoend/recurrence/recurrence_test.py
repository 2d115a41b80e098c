#!/usr/bin/python3
"""The recurrence engine beside other implementations: python3-dateutil, over series made at random, instant by
instant; Python's own calendar for the weeks that dateutil mistakes.

VANTREL_SEED and VANTREL_SERIES set the seed and the number of series.
"""

import datetime as dt
import os
import random
import subprocess
import sys
import unittest

from generator import Generator
from oracles import expected_lines, occurrences
from series import EPOCH, seconds

EXPAND_SERIES = os.environ["EXPAND_SERIES"]
SEED = int(os.environ.get("VANTREL_SEED", "20260302"))
COUNT = int(os.environ.get("VANTREL_SERIES", "2000"))


def ask(all_series):
    """The engine's answer to each: its lines."""
    questions = []
    for series in all_series:
        text = series.text().encode()
        begin, end = series.window
        questions.append(f"{seconds(begin)} {seconds(end)} {series.user_zone} {len(text)}\n".encode() + text)
    result = subprocess.run([EXPAND_SERIES], input=b"".join(questions), capture_output=True, check=True)
    answers = result.stdout.decode().split(".\n")[:-1]
    assert len(answers) == len(all_series), result.stderr
    return [answer.splitlines() for answer in answers]


class RecurrenceTest(unittest.TestCase):
    def test_agrees_with_dateutil(self):
        print(f"seed {SEED}, {COUNT} series", flush=True)
        generator = Generator(random.Random(SEED))
        all_series = [generator.series(occurrences) for _ in range(COUNT)]
        different = 0
        shown = 0
        for index, (series, found) in enumerate(zip(all_series, ask(all_series))):
            expected = expected_lines(series)
            shown += len(expected)
            if found != expected:
                different += 1
                if different <= int(os.environ.get("VANTREL_SHOWN", "5")):
                    print(f"series {index}:\n{series.text()}window {series.window}, user in {series.user_zone}\n"
                          f"only expected: {sorted(set(expected) - set(found))[:5]}\n"
                          f"only found: {sorted(set(found) - set(expected))[:5]}")
        print(f"{shown} occurrences; {different} series differ")
        self.assertEqual(different, 0)
        self.assertGreater(shown, COUNT)  # or else most windows were empty

    def days_of(self, rule):
        """The days of the years 2000 to 2030 that the rule yields."""
        text = ("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:x\nDTSTART:19990101T000000Z\n"
                f"RRULE:FREQ=YEARLY;{rule}\nEND:VEVENT\nEND:VCALENDAR\n").encode()
        begin, end = seconds(dt.datetime(2000, 1, 1)), seconds(dt.datetime(2031, 1, 1))
        result = subprocess.run([EXPAND_SERIES], input=f"{begin} {end} UTC {len(text)}\n".encode() + text,
                                capture_output=True, check=True)
        return [EPOCH + dt.timedelta(seconds=int(line.split()[0])) for line in result.stdout.decode().splitlines()[:-1]]

    def test_weeks_have_the_numbers_of_iso_8601(self):
        days = [dt.datetime(2000, 1, 1) + dt.timedelta(day) for day in range(11323)]
        weeks_of_year = {year: dt.date(year, 12, 28).isocalendar().week for year in range(1999, 2032)}
        for number in [1, 2, 51, 52, 53, -1, -2, -51, -52, -53]:
            def is_meant(day):
                year, week, _ = day.isocalendar()
                return week == (number if number > 0 else weeks_of_year[year] + 1 + number)
            with self.subTest(number=number):
                self.assertEqual(self.days_of(f"BYWEEKNO={number};BYDAY=MO,TU,WE,TH,FR,SA,SU"),
                                 [day for day in days if is_meant(day)])

    def test_the_53rd_weekday_is_there_in_years_that_have_it(self):
        for ordinal in [53, -53]:
            def mondays(year):
                every = [day for day in (dt.datetime(year, 1, 1) + dt.timedelta(one) for one in range(366))
                         if day.year == year and day.weekday() == 0]
                return [every[-1] if ordinal > 0 else every[0]] if len(every) == 53 else []
            with self.subTest(ordinal=ordinal):
                self.assertEqual(self.days_of(f"BYDAY={ordinal}MO"),
                                 [day for year in range(2000, 2031) for day in mondays(year)])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
