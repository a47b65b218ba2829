#!/usr/bin/python3
"""Prints what a screen reader sees of a running program, as text.

    scripts/ui_tree.py [PROGRAM] [--children N] [--all]

PROGRAM is the name under which it is on the accessibility bus, "inspector" unless told. Each line has role, name,
states and description; of a long list the first N children are shown (20 unless told). --all shows hidden ones
too. A program of Qt is on the bus when a screen reader runs, or where QT_LINUX_ACCESSIBILITY_ALWAYS_ON is 1.
"""

import argparse
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# Those that say something about this element and not about its window.
TOLD_STATES = ("active", "modal", "focused", "selected", "expandable", "expanded", "checked", "read-only",
               "editable", "invalid-entry")


def states_of(element):
    return [state.value_nick for state in element.get_state_set().get_states()]


def children_of(element, most=None):
    count = element.get_child_count()
    for index in range(count if most is None else min(count, most)):
        child = element.get_child_at_index(index)
        if child is not None:
            yield child


def actions_of(element):
    return [Atspi.Action.get_action_name(element, index) for index in range(Atspi.Action.get_n_actions(element))]


def program(name):
    """The program of this name that came last; None where there is none."""
    found = [app for app in children_of(Atspi.get_desktop(0)) if app.get_name() == name]
    return found[-1] if found else None


def lines(element, most, with_hidden, depth=0):
    states = states_of(element)
    if not with_hidden and depth > 0 and "showing" not in states:
        return
    told = [state for state in TOLD_STATES if state in states]
    line = f"{element.get_role_name()} '{element.get_name()}'"
    if told:
        line += f" ({', '.join(told)})"
    if element.get_description():
        line += f": {element.get_description()}"
    yield "  " * depth + line
    count = element.get_child_count()
    for child in children_of(element, most):
        yield from lines(child, most, with_hidden, depth + 1)
    if count > most:
        yield "  " * (depth + 1) + f"... {count - most} more"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", nargs="?", default="inspector")
    parser.add_argument("--children", type=int, default=20)
    parser.add_argument("--all", action="store_true")
    arguments = parser.parse_args()
    try:
        found = program(arguments.program)
        if found is None:
            sys.exit(f"no program '{arguments.program}' is on the accessibility bus")
        for line in lines(found, arguments.children, arguments.all):
            print(line)
    except GLib.Error as error:
        sys.exit(f"the accessibility bus does not answer: {error.message}")


if __name__ == "__main__":
    main()
