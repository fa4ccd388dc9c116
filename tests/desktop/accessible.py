"""What a screen reader is told of a running program, and how to wait until it is told something."""
import contextlib
import os
import time

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  the version is to be chosen first

DEADLINE = 30  # seconds; what is waited for takes a fraction of one
LISTS = ("tree", "tree table", "table")
BUTTONS = ("push button", "toggle button", "check box", "radio button")
MENU_ITEMS = ("menu item", "check menu item", "radio menu item", "menu")
FIELDS = ("text", "password text", "entry")
INTERACTIVE = (*BUTTONS, *MENU_ITEMS, *FIELDS, *LISTS, "combo box", "slider", "spin button",
               "page tab", "list", "link")


def connect(environment):
    """Joins the bus of that desktop; once for a process."""
    os.environ.clear()
    os.environ.update(environment)
    Atspi.init()
    # The answers change while we look, and must not be those of the last time.
    Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
    listener = Atspi.EventListener.new(lambda event: None)
    for kind in ("object:children-changed", "object:property-change", "object:state-changed",
                 "object:text-changed", "window:activate"):
        listener.register(kind)
    return listener


def wait(what, condition, root=lambda: None):
    """Gives the condition's answer as soon as there is one; looks again after each event."""
    end = time.monotonic() + DEADLINE
    context = GLib.MainContext.default()
    while True:
        # What has just gone from the tree answers with an error.
        with contextlib.suppress(GLib.Error):
            answer = condition()
            if answer:
                return answer
        if time.monotonic() > end:
            raise AssertionError(f"{what}: not within {DEADLINE} s\n{dump(root())}")
        tick = GLib.timeout_add(100, lambda: True)
        context.iteration(True)
        GLib.source_remove(tick)


def application(pid):
    """The root of what the process shows, or nothing so far."""
    return next((node for node in children(Atspi.get_desktop(0))
                 if node.get_process_id() == pid), None)


def others(pid):
    """The processes that show something but that one."""
    return [node.get_process_id() for node in children(Atspi.get_desktop(0))
            if node.get_process_id() != pid]


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child:
            yield child


def walk(node):
    """The node and all below it, but not the cells of lists."""
    yield node
    if node.get_role_name() not in LISTS:
        for child in children(node):
            yield from walk(child)


def has_state(node, state):
    return node.get_state_set().contains(getattr(Atspi.StateType, state.upper()))


def text_of(root):
    """All labels that can be seen."""
    return [node.get_name() for node in walk(root)
            if node.get_role_name() == "label" and has_state(node, "showing")]


def find(root, roles, name):
    """The first visible node of such a role and name."""
    for node in walk(root):
        if node.get_role_name() in roles and node.get_name() == name and has_state(node, "showing"):
            return node
    return None


def press(node):
    """What a click would do."""
    assert Atspi.Action.do_action(node, 0), f"{line(node)} cannot be pressed"


def result_list(root):
    """The first visible list with columns."""
    return next((node for node in walk(root)
                 if node.get_role_name() in LISTS and has_state(node, "showing")), None)


def row_count(root):
    table = result_list(root)
    return Atspi.Table.get_n_rows(table) if table else 0


def columns(root):
    table = result_list(root)
    return [Atspi.Table.get_column_description(table, column)
            for column in range(Atspi.Table.get_n_columns(table))]


def rows(root):
    table = result_list(root)
    return [[Atspi.Table.get_accessible_at(table, row, column).get_name()
             for column in range(Atspi.Table.get_n_columns(table))]
            for row in range(Atspi.Table.get_n_rows(table))]


def select_row(root, row):
    Atspi.Table.add_row_selection(result_list(root), row)


def focused(root):
    """What the next key goes to: of an open menu its entry, not the menu."""
    return next((node for node in reversed(list(walk(root))) if has_state(node, "focused")), None)


def nameless(root):
    """Lines for all that can be used but does not say what it is."""
    found = []
    for node in walk(root):
        if node.get_role_name() not in INTERACTIVE or node.get_name():
            continue
        found.append(" < ".join(line(part) for part in ancestors(node)))
    return found


def ancestors(node):
    while node and node.get_role_name() != "application":
        yield node
        node = node.get_parent()


def line(node):
    states = [state for state in ("showing", "enabled", "focused", "checked", "selected")
              if has_state(node, state)]
    return (f"{node.get_role_name()} “{node.get_name()}” ({node.get_description()}) "
            f"[{' '.join(states)}]")


def dump(root, indent=0):
    """The tree as text, for people."""
    if not root:
        return ""
    try:
        text = "  " * indent + line(root) + "\n"
        shown = list(children(root))[:60]
    except GLib.Error as error:
        return "  " * indent + f"gone: {error.message}\n"
    return text + "".join(dump(child, indent + 1) for child in shown)
