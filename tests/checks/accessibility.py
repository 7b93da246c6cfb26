#!/usr/bin/python3
"""Uses the real program as a screen reader does: by the accessibility tree alone.

accessibility.py GAMEDIR: starts GAMEDIR/Vexillum.exe, checks that every control of the main window
is there by its name, adds the map "Two Lakes" from a zip archive, looks at its picture, ticks its
tile, decides in the preview who gets its place, launches it, and at the next start removes it. That
the game was started and the directory is plain again is looked up on the disk.
"""
import os
import struct
import subprocess
import sys
import time
import zipfile

import pyatspi

PATIENCE = 40  # seconds

MAP_INFO = "[GlobalHeader] { missionname=Two Lakes; numplayers=2, 4; size=4 x 4; }\n"
PICTURE = "map Two Lakes, 4 x 4, 2 to 4 players"

# Role, and a name; the names are those that stand on the first tab.
EXPECTED = [
    ("menu bar", "Menus"),
    *[("menu item", name) for name in (
        "Main", "Launch TA", "Preview...", "Revert", "Come Back When The Game Ends", "Exit VXL",
        "Sets", "Save As Set...", "Utilities", "File Lister", "Add TAM Release",
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
    ("separator", "Divider"),
    ("panel", "Current Setup:"),
    *[("text", name) for name in ("TC:", "AI:", "Races:", "Mods:", "Maps:", "Units:")],
    *[("push button", name) for name in (
        "Revert to Cavedog Settings", "Clean TA Directory",
        "Apply Settings and Launch Cavedog TA")],
]
# What a person can come to with the keys must say what it is.
NAMELESS_IS_WRONG = {"push button", "text", "check box", "page tab", "menu item", "list", "menu bar"}

# Pages of a wizard have buttons of the same name.
SHOWN_ONLY = {"push button", "dialog"}


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


def height_of(node):
    return node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS).height


class Program:
    """A run of the program: one that is started here, or the one that another has started."""

    def __init__(self, folder, started_by=None):
        self.process = None if started_by else subprocess.Popen([folder + "/Vexillum.exe"])
        self.application = wait_for("main window", lambda: self._application(started_by))
        self.number = self.application.get_process_id()

    def _application(self, started_by):
        for application in children(pyatspi.Registry.getDesktop(0)):
            number = application.get_process_id()
            if number == started_by.number if started_by else number != self.process.pid:
                continue
            for window in children(application):
                if any(node.name == "Current Setup:" for node in everything_below(window)):
                    return application
        return None

    def find(self, role, name):
        for node in everything_below(self.application):
            # A tab has the figures of its badge behind its caption.
            is_tab = role == "page tab" and node.name.startswith(name + ", ")
            if node.getRoleName() == role and (node.name == name or is_tab):
                if role not in SHOWN_ONLY or node.getState().contains(pyatspi.STATE_SHOWING):
                    return node
        return None

    def wait_for(self, role, name):
        return wait_for(f'{role} "{name}"', lambda: self.find(role, name))

    def press(self, role, name, action="Press"):
        actions = self.wait_for(role, name).queryAction()
        for index in range(actions.nActions):
            if actions.getName(index) == action:
                actions.doAction(index)
                return
        sys.exit(f'The {role} "{name}" cannot be told to {action}.')

    def answer(self, text, button):
        """A box that says so is answered."""
        wait_for(f'message "{text}"', lambda: any(
            node.getRoleName() in ("label", "alert", "dialog") and text in node.name
            for node in everything_below(self.application)))
        self.press("push button", button)

    def leave(self, window, button="Close"):
        self.press("push button", button)
        wait_for(f'end of "{window}"', lambda: self.find("dialog", window) is None)

    def text_of(self, name):
        text = self.find("text", name).queryText()
        return text.getText(0, text.characterCount)

    def write(self, name, text):
        self.wait_for("text", name).queryEditableText().setTextContents(text)

    def wait_for_the_end(self):
        if self.process:
            if self.process.wait(PATIENCE) != 0:
                sys.exit("The program has failed.")
        else:
            wait_for("end of the program", lambda: not os.path.exists(f"/proc/{self.number}"))


def check_tree(program):
    program.wait_for("check box", "Cavedog TA")
    missing = [f'{role} "{name}"' for role, name in EXPECTED if program.find(role, name) is None]
    nameless = [
        node.getRoleName() for node in everything_below(program.application)
        if node.getRoleName() in NAMELESS_IS_WRONG and not node.name
        and node.getState().contains(pyatspi.STATE_SHOWING)]
    if missing or nameless:
        sys.exit("Not in the tree: " + ", ".join(missing) + "\nWithout a name: " +
                 ", ".join(nameless))


def open_maps(program):
    """A tab that is pressed before the start is over stays where it is."""
    def is_open():
        if program.find("label", "Available Maps:"):
            return True
        program.press("page tab", "Maps")
        return False
    wait_for("list of maps", is_open)


def make_map(archive):
    """Of 8 x 8 squares, all ground of one height, with a small picture of two colours."""
    indices, heights, tile, small = 4 * 4 * 2, 8 * 8 * 4, 32 * 32, 252 * 252
    header = [0x2000, 8, 8, 64, 64 + indices, 64 + indices + heights, 1, 0, 0, 0,
              64 + indices + heights + tile, 0, 0, 0, 0, 0]
    content = struct.pack("<16I", *header) + bytes(indices + heights + tile)
    content += struct.pack("<2I", 252, 252) + bytes(small // 2) + bytes([255]) * (small // 2)
    with zipfile.ZipFile(archive, "w") as file:
        file.writestr("maps/two.ota", MAP_INFO)
        file.writestr("maps/two.tnt", content)


def add_map(program, archive):
    open_maps(program)
    program.press("push button", "Add A New Map")
    program.wait_for("dialog", "Add A Map")
    program.write("Display Name:", "Two Lakes")
    program.press("push button", "Next Step")
    program.press("push button", "Copy Files Here...")
    program.write("File name:", archive)
    program.press("push button", "Open")
    program.wait_for("label", "2 files copied.")
    program.press("push button", "Next Step")
    program.press("push button", "Finish")
    program.answer("The Two Lakes Map has been added successfully!", "OK")
    program.answer("It is suggested that you close and then restart", "Yes")


def decide(program):
    """The map's file wants the place of the game's; in the preview the game keeps it, for once.
    Rows of trees are told as cells."""
    program.press("menu item", "Preview...")
    program.wait_for("dialog", "Preview")
    program.press("table cell", 'two.ota, Map "Two Lakes", the game, to decide', "SetFocus")
    program.press("table cell", "the game, makes room, and waits at "
                  "Vexillum/TC-Cavedog TA/maps/two.ota: you will be asked; "
                  'Yes is for Map "Two Lakes"', "SetFocus")
    program.press("push button", "Use For This File")
    program.wait_for("table cell", 'two.ota, the game, Map "Two Lakes", chosen')
    program.press("push button", "Ask At The Launch")
    program.leave("Preview")


def keep_as_set(program):
    program.press("menu item", "Save As Set...")
    program.wait_for("dialog", "Save As Set")
    program.write("Please Enter A Name For This Set:", "Lakes only")
    program.press("push button", "OK")
    program.answer("has been saved", "OK")
    program.press("menu item", "Choose A Set...")
    program.wait_for("dialog", "Sets")
    program.leave("Sets")


def look_at_picture(program):
    program.press("check box", "Two Lakes", "SetFocus")
    if height_of(program.find("check box", "Two Lakes")) > 60:
        sys.exit("A row is as high as a tile.")
    program.press("push button", PICTURE)
    program.wait_for("dialog", "Picture")
    program.leave("Picture")


def show_tiles(program):
    program.press("push button", "List", "ShowMenu")
    program.press("menu item", "Show Pictures")
    wait_for("picture in the tile", lambda: height_of(program.find("check box", "Two Lakes")) > 60)


def tick_and_launch(program):
    open_maps(program)
    look_at_picture(program)
    show_tiles(program)
    tile = program.wait_for("check box", "Two Lakes")
    wait_for("words beside the tile", lambda: tile.description == "2 to 4 players, 4 x 4")
    program.press("check box", "Two Lakes", "Toggle")
    wait_for("check mark on the map", lambda: program.find("check box", "Two Lakes").getState()
             .contains(pyatspi.STATE_CHECKED))
    wait_for("map in the summary", lambda: program.text_of("Maps:") == "1 3rd Party Maps Selected")
    decide(program)
    keep_as_set(program)
    program.press("push button", "Apply Settings and Launch Cavedog TA")
    program.answer('include a file destined for "maps/two.ota".', "Yes")
    program.wait_for_the_end()


def take_set(program):
    """What is ticked is given up, and comes again with the set."""
    open_maps(program)
    program.press("push button", "Revert to Cavedog Settings")
    wait_for("plain selection", lambda: program.text_of("Maps:").startswith("0 "))
    program.press("menu item", "Choose A Set...")
    program.wait_for("dialog", "Sets")
    program.press("check box", "Lakes only", "SetFocus")
    program.leave("Sets", "Switch To This Set")
    wait_for("map of the set", lambda: program.text_of("Maps:").startswith("1 "))


def wish_to_come_back(program, folder):
    """The check of an item in a closed menu is not told when it changes, but kept on the disk."""
    for wish in ("Yes", "No"):
        program.press("menu item", "Come Back When The Game Ends")
        wait_for(f"wish {wish}", lambda: content(
            folder + "/Vexillum/VXL-Sel/AfterGame.txt").rstrip().endswith(wish))


def remove_map(program):
    open_maps(program)
    program.press("check box", "Two Lakes", "Toggle")
    program.press("push button", "Remove This Map")
    program.answer("Are you VERY VERY sure you want to remove the Two Lakes Map?", "Yes")
    program.answer("The Two Lakes Map has been removed successfully.", "OK")
    program.answer("It is suggested that you close and then restart", "Yes")


def content(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def main(folder):
    release = folder + "/Vexillum/Map-Two Lakes/maps/two.ota"
    applied = folder + "/maps/two.ota"
    make_map(folder + "/lakes.zip")
    first = Program(folder)
    check_tree(first)
    add_map(first, folder + "/lakes.zip")
    first.wait_for_the_end()
    tick_and_launch(Program(folder, started_by=first))
    wait_for("map in its place", lambda: content(applied) == MAP_INFO)
    wait_for("game", lambda: os.path.exists(folder + "/started"))

    second = Program(folder)
    if content(applied) != "game\n" or not os.path.exists(release):
        sys.exit("The directory was not made plain.")
    take_set(second)
    wish_to_come_back(second, folder)
    remove_map(second)
    second.wait_for_the_end()
    if os.path.exists(folder + "/Vexillum/Map-Two Lakes"):
        sys.exit("The map was not removed.")
    last = Program(folder, started_by=second)
    last.wait_for("label", "Available Maps:")
    last.press("menu item", "Exit VXL")
    last.wait_for_the_end()


main(sys.argv[1])
