#!/usr/bin/python3
"""Uses the inspector as somebody does who does not see it: through the accessibility bus, and Return and Escape.

    scripts/ui_smoke.py INSPECTOR

INSPECTOR is the program. It runs on a screen and a bus of its own, with a small file of its own. Ends with 0 where
every step could be done and read back, with 1 at the first that could not, and with 77 where Xvfb or the bus is
missing.
"""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
import time

NOT_POSSIBLE = 77
PATIENCE = 60  # seconds for a step, of a program that a sanitizer slows down
ON_OWN_BUS = "KORVEL_UI_SMOKE"  # names the launcher of the bus, in the process that runs on it
LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")
PROGRAMS = ("Xvfb", "openbox", "dbus-run-session")  # without a window manager no window has the focus
RETURN = 0xFF0D  # keys of X
ESCAPE = 0xFF1B
DOWN = 0xFF54

SOURCE = """<?xml version="1.0"?>
<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.2" version="1.2" date="2026-01-02" time="10:00:00">
  <Units><Metric linearUnit="meter" angularUnit="decimal degrees" directionUnit="decimal degrees"/></Units>
  <Alignments name="south">
    <Alignment name="axis" length="100" staStart="0">
      <CoordGeom><Curve rot="cw" radius="50" length="100"/></CoordGeom>
    </Alignment>
  </Alignments>
</LandXML>
"""


class Failure(Exception):
    pass


def on_own_bus(arguments):
    """Runs this script again, on a screen and a bus that nobody else uses."""
    launcher = next(filter(os.path.exists, LAUNCHERS), None)
    missing = [program for program in PROGRAMS if not shutil.which(program)] + ([] if launcher else [LAUNCHERS[0]])
    if missing:
        print("missing:", *missing)
        return NOT_POSSIBLE
    number, write_end = os.pipe()
    with tempfile.TemporaryDirectory() as folder, subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1200x900x24"], pass_fds=[write_end],
            stderr=subprocess.DEVNULL) as screen:
        os.close(write_end)
        with os.fdopen(number) as lines:
            display = lines.readline().strip()
        folders = dict.fromkeys(("XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"), folder)
        environment = {**os.environ, **folders, "DISPLAY": f":{display}", "QT_QPA_PLATFORM": "xcb",
                       "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", ON_OWN_BUS: launcher}
        environment.pop("WAYLAND_DISPLAY", None)
        try:
            command = ["dbus-run-session", "--", sys.executable, os.path.abspath(__file__), *arguments]
            return subprocess.call(command, env=environment)
        finally:
            screen.terminate()


def wait_for(what, find):
    """What `find` returns, as soon as that is something."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = find()
        except GLib.Error:
            found = None  # an element went while it was asked
        if found:
            return found
        time.sleep(0.05)
    raise Failure(f"there is no {what}")


class User:
    """Finds elements by roles and names, and does with them what they offer."""

    def __init__(self):
        Atspi.set_timeout(2000, 2000)  # milliseconds
        self.program = wait_for("program on the bus", lambda: ui_tree.program("inspector"))
        self.program.set_cache_mask(Atspi.Cache.NONE)

    def elements(self, root=None):
        waiting = [root or self.program]
        while waiting:
            element = waiting.pop()
            if element is self.program or "showing" in ui_tree.states_of(element) or self.is_in_menu(element):
                yield element
                waiting.extend(reversed(list(ui_tree.children_of(element, 200))))

    @staticmethod
    def is_in_menu(element):
        return element.get_role_name() in ("popup menu", "menu item")

    def find(self, role, name, *states):
        def found():
            return next((element for element in self.elements()
                         if element.get_role_name() == role and element.get_name() == name
                         and set(states) <= set(ui_tree.states_of(element))), None)
        return wait_for(f"{' '.join(states)} {role} '{name}'", found)

    def is_shown(self, role, name):
        return any(element.get_role_name() == role and element.get_name() == name for element in self.elements())

    def do(self, element, action):
        names = ui_tree.actions_of(element)
        if action not in names:
            raise Failure(f"'{element.get_name()}' offers {names} and no '{action}'")
        try:
            Atspi.Action.do_action(element, names.index(action))
        except GLib.Error:
            pass  # a command that opens a dialog answers when that closes: what follows is looked for in any case

    def cell(self, row, column=1):
        """The cell beside the one that names a row."""
        table = self.find("table cell", row).get_parent()

        def found():
            return next((Atspi.Table.get_accessible_at(table, place, column)
                         for place in range(Atspi.Table.get_n_rows(table))
                         if Atspi.Table.get_accessible_at(table, place, 0).get_name() == row), None)
        return wait_for(f"row '{row}'", found)

    def expect_value(self, row, text):
        wait_for(f"row '{row}' with '{text}'", lambda: text in self.cell(row).get_name())
        wait_for(f"description of '{row}' with '{text}'",
                 lambda: text in self.find("table cell", row).get_description())

    def press(self, key):
        Atspi.generate_keyboard_event(key, None, Atspi.KeySynthType.SYM)


class Ear:
    """Hears what gets the focus."""

    def __init__(self):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:state-changed:focused")

    def hear(self, event):
        try:
            if event.detail1:
                self.heard.append((event.source.get_role_name(), event.source.get_name()))
        except GLib.Error:
            pass  # it went before it could be asked

    def expect(self, role, name):
        """Waits for a focus, and forgets what was heard until then."""
        def found():
            while GLib.MainContext.default().iteration(False):
                pass
            return (role, name) in self.heard
        wait_for(f"focus of {role} '{name}' after {self.heard}", found)
        self.heard.clear()


def use(user):
    """Without the mouse, and with hardly a key."""
    user.find("tree", "Attributes")
    for group in ("Alignments south", "Alignment axis", "CoordGeom", "Curve"):
        user.do(user.find("table cell", group, "expandable"), "Expand")
        user.find("table cell", group, "expanded")
    user.expect_value("radius", "50")

    user.do(user.cell("radius"), "Press")
    editor = user.find("text", "radius", "focused", "editable")
    Atspi.EditableText.set_text_contents(editor, "2*30")
    user.press(RETURN)
    user.expect_value("radius", "60")
    user.do(user.find("menu item", "Undo: Member edited: radius"), "Press")
    user.expect_value("radius", "50")

    listen(user)

    user.expect_value("rot", "cw")
    user.do(user.cell("rot"), "Press")
    user.do(user.find("table cell", "ccw"), "Press")
    user.expect_value("rot", "ccw")

    user.do(user.find("table cell", "Curve", "expanded"), "Collapse")
    wait_for("closed group", lambda: not user.is_shown("table cell", "radius"))

    user.do(user.find("menu item", "New Attribute…"), "Press")
    user.find("dialog", "New attribute", "active")
    user.find("text", "Name:", "focused")
    user.do(user.find("push button", "Cancel"), "Press")
    wait_for("closed dialog", lambda: not user.is_shown("push button", "Cancel"))

    user.do(user.find("menu item", "Close"), "Press")
    user.find("alert", "LandXML Inspector", "active")
    user.do(user.find("push button", "Don’t Save"), "Press")
    wait_for("closed document", lambda: not user.is_shown("tree", "Attributes"))


def listen(user):
    """With keys, led by what is said."""
    ear = Ear()
    user.do(user.cell("rot"), "SetFocus")
    ear.expect("table cell", "cw")
    user.press(DOWN)
    ear.expect("table cell", "50.00 m")
    user.press(RETURN)
    ear.expect("text", "radius")
    user.press(ESCAPE)
    ear.expect("table cell", "50.00 m")


def main(arguments):
    if len(arguments) != 1:
        sys.exit(__doc__)
    if ON_OWN_BUS not in os.environ:
        return on_own_bus(arguments)
    with tempfile.TemporaryDirectory() as folder, contextlib.ExitStack() as programs:
        path = os.path.join(folder, "axis.xml")
        with open(path, "w", encoding="utf-8") as file:
            file.write(SOURCE)
        ready = os.path.join(folder, "ready")

        def start(*command, said=subprocess.DEVNULL):
            process = programs.enter_context(subprocess.Popen(command, stdout=said, stderr=said))
            programs.callback(process.terminate)  # killed, the launcher would leave its bus behind

        start(os.environ[ON_OWN_BUS], "--launch-immediately")
        start("openbox", "--startup", f"touch {ready}")
        try:
            wait_for("window manager", lambda: os.path.exists(ready))  # gives the focus to what comes after it
            start(arguments[0], path, "--language", "English", "--locale", "en-US", said=None)
            use(User())
        except Failure as failure:
            print(failure)
            program = ui_tree.program("inspector")
            print("\n".join(ui_tree.lines(program, 50, True)) if program else "the program is not there")
            return 1
    return 0


if ON_OWN_BUS in os.environ:
    sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
    try:
        import ui_tree
        from gi.repository import Atspi, GLib
    except (ImportError, ValueError) as missing:
        print(missing)
        sys.exit(NOT_POSSIBLE)

if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
