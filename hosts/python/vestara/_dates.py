"""Automation dates: days since 1899-12-30, the fraction being the time of day. Before that day the whole part counts
down while the fraction still counts the hours forward (-1.25 is 1899-12-29 06:00). They hold whole seconds: microseconds
are cut on the way into the library."""

from __future__ import annotations

import datetime

DAY_ZERO = datetime.date(1899, 12, 30).toordinal()
SECONDS_PER_DAY = 86_400


def from_serial(serial: float) -> datetime.datetime:
    """The moment of a date that the library handed out."""
    whole = int(serial)
    day = datetime.datetime.fromordinal(DAY_ZERO + whole)
    if serial == whole:
        return day
    return day + datetime.timedelta(seconds=min(round(abs(serial - whole) * SECONDS_PER_DAY), SECONDS_PER_DAY - 1))


def to_serial(moment: datetime.date) -> float:
    """A date or a datetime; a time zone is left out: the clock time counts."""
    day = moment.toordinal() - DAY_ZERO
    if not isinstance(moment, datetime.datetime):
        return float(day)
    fraction = time_fraction(moment.time())
    return day - fraction if day < 0 else day + fraction


def time_fraction(time: datetime.time) -> float:
    return (time.hour * 3600 + time.minute * 60 + time.second) / SECONDS_PER_DAY
