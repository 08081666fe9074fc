#!/usr/bin/env python3
"""Proves that includes have no cycle, that no layer of the program includes a higher one, and that the architecture's
table of what each layer includes is true."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCE = ROOT / "src"
DRAWING = ROOT / "docs" / "architecture.md"
LAYERS = ["platform", "platform/access", "platform/odbc", "platform/spreadsheet", "platform/dao", "platform/ado",
          "repository", "schema", "scenario", "engine", "tools", "screens", "cli", "app"]
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)


def layer(path):
    """Screens stand above every module, whatever folder they are in."""
    folders = path.split("/")[:-1]
    if "screens" in folders:
        return "screens"
    return "/".join(folders[:2]) if folders[0] == "platform" else folders[0]


def includes(path):
    names = INCLUDE.findall((SOURCE / path).read_text(encoding="utf-8"))
    return [name for name in names if (SOURCE / name).exists()]


def upward(graph):
    return [f"{path} includes {name}, which is higher up"
            for path, names in graph.items() for name in names
            if LAYERS.index(layer(name)) > LAYERS.index(layer(path))]


def arrows(graph):
    """The layers that each one includes, from the highest down."""
    met = {name: set() for name in LAYERS}
    for path, names in graph.items():
        met[layer(path)].update(layer(name) for name in names)
    return {name: sorted(below - {name}, key=LAYERS.index, reverse=True) for name, below in met.items()}


def untrue_rows(graph):
    rows = dict(re.findall(r"^\| ([\w/]+) \| ([\w/, -]+) \|$", DRAWING.read_text(encoding="utf-8"), re.MULTILINE))
    return [f"{DRAWING.relative_to(ROOT)}: the row of {name} should read | {name} | {', '.join(below) or '-'} |"
            for name, below in arrows(graph).items() if rows.get(name) != (", ".join(below) or "-")]


def cycle(graph):
    """The first cycle found as a list of files, or an empty list."""
    done, trail = set(), []

    def visit(path):
        if path in trail:
            return trail[trail.index(path):] + [path]
        if path in done:
            return []
        trail.append(path)
        for name in graph[path]:
            found = visit(name)
            if found:
                return found
        done.add(trail.pop())
        return []

    for path in graph:
        found = visit(path)
        if found:
            return found
    return []


def main():
    files = [str(path.relative_to(SOURCE)) for path in SOURCE.rglob("*") if path.suffix in (".h", ".cpp")]
    graph = {path: includes(path) for path in sorted(files)}
    faults = upward(graph) + untrue_rows(graph)
    found = cycle(graph)
    if found:
        faults.append("include cycle: " + " -> ".join(found))
    for fault in faults:
        print(f"lint: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
