"""The table of cases, read: a list of steps that every host runs in its own way."""

from __future__ import annotations

import dataclasses
import datetime
import pathlib
import random
import re
from typing import Any

WHEELS = "BA CA FI GE MI NA PA RM TO VE RN".split()
UPDATE_FILE = "#1#07/01/1871#FI#15#71#18#64#81*#2#14/01/1871#FI#5#12#33#40#41"


@dataclasses.dataclass(frozen=True)
class Variable:
    name: str


class Omitted:
    """An argument left out."""


class Unassigned:
    """What a variable holds that nobody assigned."""


class FilePath:
    """Where the update file is, as the host writes paths."""


@dataclasses.dataclass
class Step:
    line: str
    kind: str  # new, assign, call, let, set, walk, items
    target: str = ""
    of_object: bool = False  # the result is an object
    object: str = ""
    member: str = ""
    arguments: list[Any] = dataclasses.field(default_factory=list)
    compared: bool = True


def literal(text: str) -> Any:
    words = {"": Omitted(), "True": True, "False": False, "Empty": Unassigned(), "$FILE": FilePath()}
    if text in words:
        return words[text]
    if text[0] == '"':
        return text[1:-1].replace("\\n", "\r\n")
    if text[0] == "#":
        return datetime.date.fromisoformat(text[1:-1])
    if text[0] == "[":
        return [literal(piece) for piece in pieces(text[1:-1])]
    if re.fullmatch(r"-?\d+", text):
        return int(text)
    return Variable(text)


def pieces(text: str) -> list[str]:
    """Between the commas that stand outside quotes and brackets."""
    found, depth, quoted = [""], 0, False
    for letter in text:
        quoted ^= letter == '"'
        depth += 0 if quoted else {"[": 1, "]": -1}.get(letter, 0)
        if letter == "," and not quoted and depth == 0:
            found.append("")
        else:
            found[-1] += letter
    return [piece.strip() for piece in found]


CALL = re.compile(r"(\w+)\.(\w+)(?:\((.*)\))?$")


def call(step: Step, text: str) -> Step:
    matched = CALL.match(text)
    if not matched:
        raise SyntaxError(step.line)
    step.kind, step.object, step.member = "call", matched[1], matched[2]
    step.arguments = [literal(piece) for piece in pieces(matched[3])] if matched[3] else []
    return step


def parse(line: str) -> Step:
    step = Step(line, "")
    if line.startswith("~"):
        step.compared = False
        return call(step, line[1:])
    if matched := re.match(r"(let|set) (\w+)\.(\w+) = (.+)$", line):
        step.kind, step.object, step.member = matched[1], matched[2], matched[3]
        step.arguments = [literal(matched[4])]
    elif matched := re.match(r"(walk|items) (\w+)$", line):
        step.kind, step.object = matched[1], matched[2]
    elif matched := re.match(r'(\w+) = new "([\w.]+)"$', line):
        step.kind, step.target, step.member = "new", matched[1], matched[2]
    elif matched := re.match(r"(\w+) (:?=) (.+)$", line):
        step.target, step.of_object = matched[1], matched[2] == ":="
        if CALL.match(matched[3]) and matched[3][0] not in '"#[':
            return call(step, matched[3])
        step.kind, step.arguments = "assign", [literal(matched[3])]
    else:
        return call(step, line)
    return step


def seeded(archive: str) -> list[str]:
    """Draws of every wheel, weekly from 7 January 1939."""
    dice = random.Random(1871)
    lines = []
    for week in range(40):
        day = datetime.date(1939, 1, 7) + datetime.timedelta(weeks=week)
        rows = [f"({week + 1},'{day}','{wheel}',{','.join(map(str, dice.sample(range(1, 91), 5)))})" for wheel in WHEELS]
        columns = "concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5"
        lines.append(f'{archive}.ExecuteSql("INSERT INTO storico({columns})VALUES{",".join(rows)}")')
    return lines


def steps(path: pathlib.Path) -> list[Step]:
    lines = []
    for line in path.read_text().splitlines():
        if line.startswith("seed "):
            lines += seeded(line.split()[1])
        elif line and not line.startswith("#"):
            lines.append(line)
    return [parse(line) for line in lines]
