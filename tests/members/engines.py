"""The table of cases on every engine: the answers on PostgreSQL and MariaDB are those on SQLite, value by value, on the seeded
archive and on the real one where VESTARA_REAL_ARCHIVE names it.

    engines.py folder       with VESTARA_LIBRARY_DIR and PYTHONPATH set, servers named as the conformance suite wants them"""

from __future__ import annotations

import collections
import os
import pathlib
import sys
from typing import Callable

import cases
from compare import TABLE, same
from run_python import Runner
from vestara import connect

SQLITE = "sqlite::memory:"
SERVERS = {"postgresql": "VESTARA_TEST_POSTGRESQL", "mariadb": "VESTARA_TEST_MARIADB"}
Seeding = Callable[[str], list[str]]


def real_rows(archive: str) -> list[str]:
    """The real archive as statements of a thousand rows, contests numbered within the year."""
    lines, rows, contest, last = [], [], collections.Counter(), ""
    for line in pathlib.Path(os.environ["VESTARA_REAL_ARCHIVE"]).read_text().splitlines()[1:]:
        day, wheel, *numbers = line.split(",")
        contest[day[:4]] += day != last
        last = day
        rows.append(f"({contest[day[:4]]},'{day}','{wheel}',{','.join(numbers[:5])})")
    columns = "concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5"
    for start in range(0, len(rows), 1000):
        lines.append(f'{archive}.ExecuteSql("INSERT INTO storico({columns})VALUES{",".join(rows[start:start + 1000])}")')
    return lines


def answers(url: str, seeding: Seeding, update_file: pathlib.Path) -> list[tuple[str, list[str]]]:
    """Every step with its answers."""
    cases.seeded = seeding
    runner = Runner(str(update_file))
    found = []
    for step in cases.steps(TABLE):
        step.arguments = [url if argument == SQLITE else argument for argument in step.arguments]
        lines = runner.run(step)
        found.append((step.line[:100], lines if step.compared else []))
    return found


def empty(url: str) -> None:
    with connect(url) as archive:
        for table in ("storico", "tRicerche", "tSistemi", "tSistemaDetail", "ruote"):
            assert archive.ExecuteSql(f"DROP TABLE IF EXISTS {table}"), archive.LastError


def differences(engine: str, expected: list[tuple[str, list[str]]], given: list[tuple[str, list[str]]]) -> int:
    count = 0
    for (line, left), (_, right) in zip(expected, given):
        if len(left) == len(right) and all(map(same, left, right)):
            continue
        count += 1
        print(f"{line}\n  sqlite: {' | '.join(left)[:300]}\n  {engine}: {' | '.join(right)[:300]}")
    return count


def main() -> int:
    update_file = pathlib.Path(sys.argv[1]) / "members_of_engines.txt"
    update_file.write_text(cases.UPDATE_FILE)
    archives: dict[str, Seeding] = {"seeded": cases.seeded}
    if "VESTARA_REAL_ARCHIVE" in os.environ:
        archives["real"] = real_rows
    servers = {engine: os.environ[name] for engine, name in SERVERS.items() if name in os.environ}
    if len(servers) < len(SERVERS) and os.environ.get("VESTARA_TEST_SERVERS") == "required":
        sys.exit("a server is missing: " + ", ".join(SERVERS.values()))
    wrong = 0
    for archive, seeding in archives.items():
        expected = answers(SQLITE, seeding, update_file)
        for engine, url in servers.items():
            empty(url)
            count = differences(engine, expected, answers(url, seeding, update_file))
            print(f"{archive} archive, {engine}: {sum(len(lines) for _, lines in expected)} answers, {count} steps differ")
            wrong += count
    return 1 if wrong else 0 if servers else 77


if __name__ == "__main__":
    sys.exit(main())
