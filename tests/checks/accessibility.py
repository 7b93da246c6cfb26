#!/usr/bin/python3
"""Uses the real program as a screen reader does: by the accessibility tree alone.

accessibility.py GAMEDIR: starts GAMEDIR/Vexillum.exe, checks that every control of the main window
is there by its name, ticks the map "Twin Lakes" and launches.
"""
import subprocess
import sys
import time

import pyatspi

PATIENCE = 20  # seconds

# Role, and a name; the names are those that stand on the first tab.
EXPECTED = [
    ("menu bar", "Menus"),
    *[("menu item", name) for name in (
        "Main", "Launch TA", "Revert", "Exit VXL", "Utilities", "File Lister", "Add TAM Release",
        "Menu Modifier", "Use Trellis", "(Requires 1024x768 Res. Minimum)",
        "Small Version (800x600 Res. Min.)", "Compress Menus", "Conflict Finder",
        "Weapon ID Conflicts...", "Unit ID Conflicts...", "Build Menu Conflicts...", "Help",
        "About")],
    *[("page tab", name) for name in (
        "Total Conversions", "AIs", "Races", "Mods", "Maps", "Units")],
    ("label", "Available Total Conversions:"),
    ("text", "Filter"),
    ("list", "Releases"),
    ("check box", "Cavedog TA"),
    ("push button", "(Rename This Total Conversion)"),
    ("label", "About Cavedog TA:"),
    ("push button", "(Edit About Text)"),
    ("text", "Information"),
    ("push button", "No Readme Available"),
    ("push button", "View This TC's Files"),
    ("label", "Compatibility Codes:"),
    ("push button", "(Edit CCodes)"),
    ("text", "Compatibility Codes"),
    *[("push button", name) for name in ("Add A New TC", "Help with TCs", "Remove This TC")],
    ("panel", "Current Setup:"),
    *[("text", name) for name in ("TC:", "AI:", "Races:", "Mods:", "Maps:", "Units:")],
    *[("push button", name) for name in (
        "Revert to Cavedog Settings", "Clean TA Directory",
        "Apply Settings and Launch Cavedog TA")],
]
# What a person can come to with the keys must say what it is.
NAMELESS_IS_WRONG = {"push button", "text", "check box", "page tab", "menu item", "list", "menu bar"}


def children(node):
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None:
            yield child


def everything_below(node):
    for child in children(node):
        yield child
        yield from everything_below(child)


def wait_for(what, look):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except Exception:  # a node may go while it is looked at
            found = None
        if found:
            return found
        time.sleep(0.1)
    sys.exit(f"There is no {what}.")


class Program:
    def __init__(self, folder):
        self.process = subprocess.Popen([folder + "/Vexillum.exe"])
        self.window = wait_for("main window", self._main_window)

    def _main_window(self):
        for application in children(pyatspi.Registry.getDesktop(0)):
            if application.get_process_id() != self.process.pid:
                continue
            for window in children(application):
                if any(node.name == "Cavedog TA" for node in everything_below(window)):
                    return window
        return None

    def find(self, role, name):
        for node in everything_below(self.window):
            # A tab has the figures of its badge behind its caption.
            is_tab = role == "page tab" and node.name.startswith(name + ", ")
            if node.getRoleName() == role and (node.name == name or is_tab):
                return node
        return None

    def press(self, role, name, action):
        actions = wait_for(f'{role} "{name}"', lambda: self.find(role, name)).queryAction()
        for index in range(actions.nActions):
            if actions.getName(index) == action:
                actions.doAction(index)
                return
        sys.exit(f'The {role} "{name}" cannot be told to {action}.')

    def text_of(self, name):
        text = self.find("text", name).queryText()
        return text.getText(0, text.characterCount)


def main(folder):
    program = Program(folder)
    missing = [f'{role} "{name}"' for role, name in EXPECTED if program.find(role, name) is None]
    nameless = [
        node.getRoleName() for node in everything_below(program.window)
        if node.getRoleName() in NAMELESS_IS_WRONG and not node.name
        and node.getState().contains(pyatspi.STATE_SHOWING)]
    if missing or nameless:
        sys.exit("Not in the tree: " + ", ".join(missing) + "\nWithout a name: " +
                 ", ".join(nameless))

    program.press("page tab", "Maps", "Press")
    wait_for("list of maps", lambda: program.find("label", "Available Maps:"))
    program.press("check box", "Twin Lakes", "Toggle")
    wait_for("check mark on the map", lambda: program.find("check box", "Twin Lakes").getState()
             .contains(pyatspi.STATE_CHECKED))
    wait_for("map in the summary", lambda: program.text_of("Maps:") == "1 3rd Party Maps Selected")
    program.press("push button", "Apply Settings and Launch Cavedog TA", "Press")
    if program.process.wait(PATIENCE) != 0:
        sys.exit("The program has failed.")


main(sys.argv[1])
