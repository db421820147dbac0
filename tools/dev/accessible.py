#!/usr/bin/python3
"""Sees and operates the program as a screen reader does, over the accessibility bus.

As a program: prints the accessible tree of each visible window. As a module: find, press, focus, heard.
"""
import re
import sys
import time

import pyatspi
from gi.repository import GLib

SHOWN_STATES = [
    (pyatspi.STATE_CHECKED, "checked"),
    (pyatspi.STATE_SELECTED, "selected"),
    (pyatspi.STATE_EDITABLE, "editable"),
    (pyatspi.STATE_FOCUSABLE, "focusable"),
]


def program(seconds=20):
    """The program on the bus, as soon as it is there."""
    return wait(seconds, "the program on the bus", lambda: next(
        (each for each in pyatspi.Registry.getDesktop(0) if each and "uillmere" in each.name), None))


def wait(seconds, what, condition):
    """The first true result of the condition."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            result = condition()
            if result:
                return result
        except (LookupError, RuntimeError, NotImplementedError):
            pass  # the object is gone or not yet complete
        except Exception as gone:  # GLib.Error: likewise
            if "atspi" not in str(gone) and "DBus" not in str(gone):
                raise
        while GLib.MainContext.default().iteration(False):
            pass  # events
        time.sleep(0.05)
    raise SystemExit(f"{what}: not within {seconds} s")


def is_showing(thing):
    return thing.getState().contains(pyatspi.STATE_SHOWING)


def everything(thing):
    """The object and all visible objects below it; closed menus have no visible items."""
    yield thing
    for child in thing:
        if child and is_showing(child):
            yield from everything(child)


def find(role, name, seconds=10, within=None, window=".*"):
    """The visible object whose role and name match the patterns: in an object, or in the windows of this title."""
    def look():
        for top in [within] if within else list(program()):
            if top and is_showing(top) and (within or re.fullmatch(window, top.name)):
                for each in everything(top):
                    if re.fullmatch(role, each.getRoleName()) and re.fullmatch(name, each.name):
                        return each
        return None
    return wait(seconds, f"{role} '{name}'", look)


def press(thing):
    """The first action of the object: press, toggle, open."""
    assert thing.queryAction().doAction(0), f"no action: {thing}"


def actions(thing):
    try:
        doing = thing.queryAction()
    except NotImplementedError:
        return []
    return [doing.getName(i) for i in range(doing.nActions)]


def line(thing):
    states = thing.getState()
    parts = [thing.getRoleName(), f"'{thing.name}'"]
    if thing.description and thing.description != thing.name:
        parts.append(f"({thing.description})")
    if not states.contains(pyatspi.STATE_SENSITIVE):
        parts.append("unavailable")
    parts += [word for state, word in SHOWN_STATES if states.contains(state)]
    try:
        value = thing.queryValue()
        parts.append(f"value {value.currentValue:g} of {value.maximumValue:g}")
    except NotImplementedError:
        pass
    parts += [f"called '{relation.getTarget(0).name}'" for relation in thing.getRelationSet()
              if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    parts += [f"for '{target.name}'" for relation in thing.getRelationSet()
              if relation.getRelationType() == pyatspi.RELATION_LABEL_FOR
              for target in [relation.getTarget(i) for i in range(relation.getNTargets())]]
    doing = [name for name in actions(thing) if name != "SetFocus"]
    if doing:
        parts.append("[" + ", ".join(doing) + "]")
    return " ".join(parts)


def tree(thing, depth=0):
    yield "  " * depth + line(thing)
    for child in thing:
        if child and is_showing(child) and child.getRoleName() != "notification":
            yield from tree(child, depth + 1)


if __name__ == "__main__":
    wanted = sys.argv[1] if len(sys.argv) > 1 else ".*"
    seen = wait(10, f"the window '{wanted}'", lambda: [
        each for each in program() if each and is_showing(each) and re.fullmatch(wanted, each.name)])
    for shown in seen:
        print("\n".join(tree(shown)))
