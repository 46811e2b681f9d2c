#!/usr/bin/env python3
"""Writes the reference manual: one page per class and an index, from what the built command line says of the classes.

    tools/make_reference.py [--program build/dev/bin/vestara] [--output docs/reference]
"""

import argparse
import itertools
import json
import pathlib
import subprocess
import textwrap

PROJECT = pathlib.Path(__file__).resolve().parents[1]
INDEX = "README.md"
LONGEST_LINE = 100
NOTE = "<!-- Made by tools/make_reference.py; changes belong into the tables of members. -->\n\n"


def parameter_text(row):
    text = "out " if row["writes_back"] else ""
    text += "ByVal " if row["passing"] == "by value" else ""
    text += f"{row['name']} As {row['type']}"
    if not row["optional"]:
        return text
    return f"[{text}]" if row["default"] is None else f"[{text} = {row['default']}]"


def signature(row):
    """As the surface writes it, "put DbType(value As Integer)"; a parameter a line where one line would be too long."""
    head = f"{row['kind']} {row['name']}"
    result = "" if row["result"] == "Nothing" else f" As {row['result']}"
    if row["kind"] == "get" and not row["parameters"]:
        return head + result
    parameters = [parameter_text(each) for each in row["parameters"]]
    line = f"{head}({', '.join(parameters)}){result}"
    return line if len(line) <= LONGEST_LINE else f"{head}(\n    " + ",\n    ".join(parameters) + f"){result}"


def table(heading, rows):
    def line(cells):
        return "| " + " | ".join(str(cell).replace("|", "\\|") for cell in cells) + " |\n"
    return line(heading) + line(["---"] * len(heading)) + "".join(map(line, rows))


def parameter_table(rows):
    def cells(row):
        need = "required" if not row["optional"] else "optional"
        default = "" if row["default"] is None else f"`{row['default']}`"
        return [f"`{row['name']}`", row["type"], row["passing"], need, default, "yes" if row["writes_back"] else ""]
    return table(["parameter", "type", "passed", "need", "default", "comes back"], map(cells, rows))


def member_section(rows):
    """The rows of one member: several where a property can be read and assigned."""
    text = f"### {rows[0]['name']}\n\n```\n" + "".join(f"{signature(row)}\n" for row in rows) + "```\n\n"
    helps = list(dict.fromkeys(row["help"] for row in rows))
    if len(helps) == 1:
        text += f"{wrapped(helps[0])}\n\n"
    else:
        text += "".join(f"- {row['kind']}: {row['help']}\n" for row in rows) + "\n"
    for row in rows:
        if row["parameters"] and row["kind"] in ("method", "get"):
            text += parameter_table(row["parameters"]) + "\n"
    return text


def wrapped(text, indent=""):
    return textwrap.fill(text, 120, subsequent_indent=indent, break_long_words=False, break_on_hyphens=False)


def event_section(row):
    text = f"### {row['name']}\n\n```\n{signature({**row, 'kind': 'event', 'result': 'Nothing'})}\n```\n\n{row['help']}\n\n"
    return text + parameter_table(row["parameters"]) + "\n" if row["parameters"] else text


def origin(identifier, creatable, givers):
    if identifier in creatable:
        return f"Created by name: `{identifier}`."
    sources = ", ".join(f"`{giver}`" for giver in givers)
    return "Not created by name, only handed out" + (f": {sources}." if sources else ".")


def givers_of(name, classes):
    """The members that hand out objects of a class."""
    for one in classes:
        for row in one["members"]:
            comes_back = any(each["writes_back"] and each["type"] == name for each in row["parameters"])
            if row["result"] == name and row["kind"] in ("method", "get") or comes_back:
                yield f"{one['class']}.{row['name']}"


def page(one, identifier, creatable, classes):
    text = f"{NOTE}# {identifier}\n\n{wrapped(one['help'])}\n\n"
    source = origin(identifier, creatable, givers_of(one["class"], classes)) + f" Interface `{one['interface']}`"
    source += f", events `{one['event_interface']}`." if one["event_interface"] else "."
    text += f"{wrapped(source)}\n\n"
    text += "## Members\n\n"
    for _, rows in itertools.groupby(one["members"], key=lambda row: (row["id"], row["name"])):
        text += member_section(list(rows))
    if one["events"]:
        text += "## Events\n\n" + "".join(map(event_section, one["events"]))
    return text.rstrip("\n") + "\n"


def index(pages, creatable):
    def line(identifier, one):
        made = "by name" if identifier in creatable else "handed out"
        return wrapped(f"- [{identifier}]({identifier}.md), {made}. {one['help']}", "  ")
    head = wrapped("The classes that programs use by name, or that members hand out. Signatures name optional parameters in "
                   "brackets with their defaults; `out` parameters may come back changed.")
    return f"{NOTE}# Reference\n\n{head}\n\n" + "".join(f"{line(*each)}\n" for each in pages.items())


def asked(program, *arguments):
    return json.loads(subprocess.run([program, "describe", *arguments], check=True, capture_output=True).stdout)


def main():
    options = argparse.ArgumentParser(description="Writes the reference manual from the built command line.")
    options.add_argument("--program", default=PROJECT / "build" / "dev" / "bin" / "vestara", type=pathlib.Path)
    options.add_argument("--output", default=PROJECT / "docs" / "reference", type=pathlib.Path)
    given = options.parse_args()
    classes = asked(given.program.resolve(), "--all", "--json")
    creatable = {row["class"] for row in asked(given.program.resolve(), "--json")["classes"]}
    pages = {f"{one['library']}.{one['class']}": one for one in classes}
    given.output.mkdir(parents=True, exist_ok=True)
    for old in given.output.glob("*.md"):
        if old.read_text().startswith(NOTE):
            old.unlink()
    (given.output / INDEX).write_text(index(pages, creatable))
    for identifier, one in pages.items():
        (given.output / f"{identifier}.md").write_text(page(one, identifier, creatable, classes))


if __name__ == "__main__":
    main()
