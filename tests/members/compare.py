"""One table of cases, two hosts: the answers of the Python package over this machine's libraries and those of a script host
under Wine over the COM servers are the same, value by value.

    compare.py wine.sh folder       with VESTARA_LIBRARY_DIR, PYTHONPATH and VESTARA_WINEPREFIX set"""

from __future__ import annotations

import math
import pathlib
import re
import subprocess
import sys

import cases

HERE = pathlib.Path(__file__).resolve().parent
TABLE = HERE / "cases.txt"
DONE = "all cases done"
NUMBER = re.compile(r"(?<![\w.])n (-?\d[\d.]*(?:E[-+]?\d+)?)", re.IGNORECASE)


def same(left: str, right: str) -> bool:
    """Texts alike, numbers within the last digits that hosts print."""
    if NUMBER.sub("n", left) != NUMBER.sub("n", right):
        return False
    pairs = zip(NUMBER.findall(left), NUMBER.findall(right))
    return all(math.isclose(float(a), float(b), rel_tol=1e-13, abs_tol=1e-13) for a, b in pairs)


def by_step(lines: list[str]) -> dict[int, list[str]]:
    steps: dict[int, list[str]] = {}
    for line in lines:
        number, _, answer = line.partition(" ")
        steps.setdefault(int(number), []).append(answer)
    return steps


def python_answers(update_file: pathlib.Path) -> list[str]:
    made = subprocess.run([sys.executable, HERE / "run_python.py", TABLE, update_file], stdout=subprocess.PIPE, check=True)
    return made.stdout.decode().splitlines()


def script_answers(wine: str, folder: pathlib.Path, update_file: pathlib.Path) -> list[str]:
    script = folder / "members.vbs"
    text = subprocess.run([sys.executable, HERE / "make_vbscript.py", TABLE, f"Z:{update_file}"], stdout=subprocess.PIPE,
                          check=True).stdout
    script.write_bytes(text)
    host = [wine, r"C:\windows\system32\cscript.exe", "Z:" + str(script).replace("/", "\\")]
    made = subprocess.run(host, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    lines = made.stdout.decode("cp1252").splitlines()
    if not lines or lines[-1] != DONE:
        sys.exit("the script broke off:\n" + made.stderr.decode(errors="replace") + "\n".join(lines[-5:]))
    return lines[:-1]


def main() -> int:
    wine, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    update_file = folder / "members.txt"
    update_file.write_text(cases.UPDATE_FILE)
    ours = by_step(python_answers(update_file))
    theirs = by_step(script_answers(wine, folder, update_file))
    steps = cases.steps(TABLE)
    differences = 0
    for number, step in enumerate(steps, 1):
        left, right = ours.get(number, []), theirs.get(number, [])
        if len(left) != len(right) or not all(map(same, left, right)):
            differences += 1
            print(f"{step.line[:100]}\n  Python: {' | '.join(left)[:300]}\n  script: {' | '.join(right)[:300]}")
    answers = sum(map(len, ours.values()))
    print(f"{answers} answers of {len(steps)} steps compared, {differences} steps differ")
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
