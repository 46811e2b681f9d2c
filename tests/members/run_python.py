"""Runs the cases with the Python package and prints every answer: run_python.py cases.txt update-file"""

from __future__ import annotations

import datetime
import pathlib
import sys
from typing import Any

import cases
from vestara import ByRef, Dispatch, Empty, Missing, Nothing, RunTimeError
from vestara import _abi, _calls, _classes

KINDS = {"let": _abi.PUT, "set": _abi.PUTREF}


def shown(value: Any) -> str:
    if value is None or value is Nothing or value is Empty:
        return "none"
    if isinstance(value, bool):
        return str(value)
    if isinstance(value, (int, float)):
        return f"n {float(value):.15g}"
    if isinstance(value, str):
        return "t " + value.replace("\\", "\\\\").replace("\r", "\\r").replace("\n", "\\n")
    if isinstance(value, (datetime.datetime, datetime.date)):
        moment = value if isinstance(value, datetime.datetime) else datetime.datetime.combine(value, datetime.time())
        return f"d {moment:%Y-%m-%d %H:%M:%S}"
    if isinstance(value, (list, tuple)):
        return "[" + ";".join(map(shown, value)) + "]"
    return "object"


class Runner:
    def __init__(self, update_file: str) -> None:
        self.update_file = update_file
        self.variables: dict[str, Any] = {}
        self.surfaces: dict[str, Any] = {}
        self.used: set[tuple[str, str, str]] = set()
        self.given: set[tuple[str, str, str]] = set()
        self.omitted: set[tuple[str, str, str]] = set()

    def value(self, argument: Any) -> Any:
        if isinstance(argument, cases.Variable):
            return self.variables[argument.name]
        if isinstance(argument, cases.Omitted):
            return Missing
        if isinstance(argument, cases.Unassigned):
            return Empty
        return self.update_file if isinstance(argument, cases.FilePath) else argument

    def note(self, step: cases.Step, described: Any) -> None:
        """What the step covers of the surface."""
        name = described.full_name
        self.surfaces[name] = described
        assigns = step.kind in KINDS
        for row in described.rows:
            if row["name"].lower() != step.member.lower() or (row["kind"] in ("put", "putref")) != assigns:
                continue
            self.used.add((name, row["name"], row["kind"]))
            for place, parameter in enumerate(row["parameters"]):
                there = place < len(step.arguments) and not isinstance(step.arguments[place], cases.Omitted)
                (self.given if there else self.omitted).add((name, row["name"], parameter["name"]))

    def invoke(self, step: cases.Step) -> Any:
        target = self.variables[step.object]
        self.note(step, target._description)
        arguments = [ByRef(self.value(argument)) if isinstance(argument, cases.Variable) and step.kind == "call"
                     else self.value(argument) for argument in step.arguments]
        member = _classes.id_of(target._handle, step.member)
        try:
            return _calls.invoke(target._handle, member, KINDS.get(step.kind, _abi.METHOD), arguments, {})
        finally:
            for argument, handed in zip(step.arguments, arguments):
                if isinstance(handed, ByRef):
                    self.variables[argument.name] = handed.value

    def run(self, step: cases.Step) -> list[str]:
        if step.kind == "new":
            self.variables[step.target] = made = Dispatch(step.member)
            self.surfaces[step.member] = made._description
            return []
        if step.kind == "assign":
            self.variables[step.target] = self.value(step.arguments[0])
            return []
        if step.kind == "walk":
            return self.walk(self.variables[step.object])
        if step.kind == "items":
            return [shown(getattr(item, "Value", item)) for item in self.variables[step.object]]
        try:
            result = self.invoke(step)
        except RunTimeError as error:
            return [f"error {error.number}"]
        if step.target:
            self.variables[step.target] = result
        variables = [argument.name for argument in step.arguments
                     if isinstance(argument, cases.Variable) and step.kind == "call"]
        return [shown(result)] + [f"{name} {shown(self.variables[name])}" for name in variables]

    def walk(self, rows: Any) -> list[str]:
        if rows is None:
            return ["none"]
        lines = []
        while not rows.EOF:
            fields = rows.Fields
            lines.append(" ".join(f"{fields.Item(i).Name}={shown(fields.Item(i).Value)}" for i in range(fields.Count)))
            rows.MoveNext()
        return lines

    def not_covered(self) -> list[str]:
        missing = []
        for name, described in self.surfaces.items():
            for row in described.rows:
                if (name, row["name"], row["kind"]) not in self.used:
                    missing.append(f"{name}.{row['name']} ({row['kind']})")
                for parameter in row["parameters"]:
                    key = (name, row["name"], parameter["name"])
                    if parameter["optional"] and not (key in self.given and key in self.omitted):
                        missing.append(f"{name}.{row['name']}, {parameter['name']} given and left out")
        return missing


def main() -> int:
    runner = Runner(sys.argv[2])
    for number, step in enumerate(cases.steps(pathlib.Path(sys.argv[1])), 1):
        for line in runner.run(step):
            if step.compared:
                print(f"{number} {line}")
    for missing in runner.not_covered():
        print(f"no case for {missing}", file=sys.stderr)
    return 1 if runner.not_covered() else 0


if __name__ == "__main__":
    sys.exit(main())
