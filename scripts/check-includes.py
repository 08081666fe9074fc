#!/usr/bin/env python3
"""Proves that includes have no cycle and that no floor of the program includes a higher one."""

import re
import sys
from pathlib import Path

SOURCE = Path(__file__).resolve().parent.parent / "src"
FLOORS = ["platform", "repository", "schema", "scenario", "engine", "tools", "screens", "cli", "app"]
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)


def floor(path):
    """Screens stand above every module, whatever folder they are in."""
    return FLOORS.index("screens") if "screens" in path.split("/") else FLOORS.index(path.split("/")[0])


def includes(path):
    names = INCLUDE.findall((SOURCE / path).read_text(encoding="utf-8"))
    return [name for name in names if (SOURCE / name).exists()]


def upward(graph):
    return [f"{path} includes {name}, which is higher up"
            for path, names in graph.items() for name in names if floor(name) > floor(path)]


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
    faults = upward(graph)
    found = cycle(graph)
    if found:
        faults.append("include cycle: " + " -> ".join(found))
    for fault in faults:
        print(f"lint: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
