#!/usr/bin/python3
"""What a screen reader sees of the program's windows, and does to them, over the accessibility bus.

    accessible.py tree            a line for each thing that shows: role, name, states, actions
    accessible.py sees NAME       whether something that shows bears that name
    accessible.py focused NAME    whether that has the keyboard
    accessible.py selected NAME   whether that is selected
    accessible.py checked NAME    whether that is ticked off
    accessible.py press NAME      does what a press of it does
    accessible.py check NAME      that shows, and every control has a name and an action; says which have not

A NAME that ends in "..." is the beginning of one. Ends with 0 for yes, 1 for no.
"""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

CONTROLS = {"push button", "check box", "menu item", "toggle button"}
NAMED = CONTROLS | {"text", "entry", "list", "list item", "dialog", "heading", "popup menu", "alert"}


def below(item):
    """Everything below an item that shows."""
    for index in range(item.get_child_count()):
        child = item.get_child_at_index(index)
        if child is None:
            continue
        states = child.get_state_set()
        if not states.contains(Atspi.StateType.SHOWING) and child.get_role_name() != "filler":
            continue
        yield child
        yield from below(child)


def everything():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(index)
        if program is not None and program.get_name() == "mintaro":
            yield from below(program)


def actions(item):
    action = item.get_action_iface()
    return [Atspi.Action.get_action_name(action, i) for i in range(Atspi.Action.get_n_actions(action))] if action else []


def has(item, state):
    return item.get_state_set().contains(state)


def find(name, state=None):
    for item in everything():
        found = item.get_name()
        matches = found.startswith(name[:-3]) if name.endswith("...") else found == name
        if matches and (state is None or has(item, state)):
            return item
    return None


def press(name):
    item = find(name)
    if item is None:
        return False
    names = actions(item)
    wanted = next((each for each in ("Toggle", "Press") if each in names), None)
    return wanted is not None and Atspi.Action.do_action(item.get_action_iface(), names.index(wanted))


def faults():
    for item in everything():
        role = item.get_role_name()
        if role in NAMED and not item.get_name():
            yield f"{role} without a name"
        if role in CONTROLS:
            if not actions(item):
                yield f"{item.get_name()}: {role} without an action"
            if not has(item, Atspi.StateType.FOCUSABLE) and role != "menu item":
                yield f"{item.get_name()}: {role} out of the keyboard's reach"


def tree():
    shown = [Atspi.StateType.FOCUSED, Atspi.StateType.SELECTED, Atspi.StateType.CHECKED]
    for item in everything():
        states = [state.value_nick for state in shown if has(item, state)]
        print(item.get_role_name(), repr(item.get_name()), *states, *actions(item), sep=" | ")
    return True


def main():
    command, *names = sys.argv[1:]
    if command == "check":
        found = list(faults())
        print(*found, sep="\n")
        return not found and find(names[0]) is not None
    if command == "tree":
        return tree()
    if command == "press":
        return press(*names)
    states = Atspi.StateType
    wanted = {"sees": None, "focused": states.FOCUSED, "selected": states.SELECTED, "checked": states.CHECKED}
    return find(names[0], wanted[command]) is not None


sys.exit(0 if main() else 1)
