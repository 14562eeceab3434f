# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop of its own for the window under test: a screen in memory, a session bus, a window
manager, and the window seen as a screen reader sees it."""
import os
import pathlib
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

SCREEN = Atspi.CoordType.SCREEN
ENABLED = Atspi.StateType.ENABLED
LONG = 60  # seconds that anything may take on a busy machine


class NotFound(AssertionError):
    pass


def wait_for(what, condition, seconds=LONG):
    """The first true value of condition(); AssertionError that says what did not come."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            value = condition()
        except Exception:  # an object of the tree may go while it is looked at
            value = None
        if value:
            return value
        time.sleep(0.05)
    raise NotFound(f"waited {seconds} s for {what}")


def children(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield child


def descendants(node, depth=14):
    for child in children(node):
        yield child
        if depth:
            yield from descendants(child, depth - 1)


def showing(node):
    states = node.get_state_set()
    return states.contains(Atspi.StateType.SHOWING) or states.contains(Atspi.StateType.VISIBLE)


def centre(node):
    box = node.get_extents(SCREEN)
    return box.x + box.width // 2, box.y + box.height // 2


def text_of(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


class Window:
    """A running korvel."""

    def __init__(self, program, *arguments, environment):
        self.process = subprocess.Popen([program, *arguments], env=environment)
        self.root = wait_for("the window's accessible tree", self._application)

    def _application(self):
        Atspi.init()
        desktop = Atspi.get_desktop(0)
        for application in children(desktop):
            if application.get_process_id() == self.process.pid and application.get_child_count():
                return application
        return None

    def find(self, role, name, seconds=LONG):
        """The showing object of a role whose name is, or begins with, the given one."""
        return wait_for(f"{role} {name!r}", lambda: self._find(role, name), seconds)

    def _find(self, role, name, hidden=False):
        for node in descendants(self.root):
            if node.get_role_name() == role and (node.get_name() or "").startswith(name):
                if hidden or showing(node):
                    return node
        return None

    def all(self, role, name):
        """The showing objects of a role whose name begins with the given one, from the top."""
        found = [node for node in descendants(self.root) if node.get_role_name() == role
                 and (node.get_name() or "").startswith(name) and showing(node)]
        return sorted(found, key=lambda node: centre(node)[1])

    def has(self, role, name):
        return self._find(role, name) is not None

    def entries(self, menu, *path):
        """What a menu of the menu bar offers, without separators."""
        node = self.find("menu item", menu)
        for step in (*path, None):
            popup = next(children(node))
            items = [item for item in children(popup) if item.get_role_name() == "menu item"]
            if step is None:
                return [item.get_name() for item in items]
            node = next(item for item in items if item.get_name() == step)
        return []

    def press(self, role, name):
        """Does what the object's first action does: presses a button, chooses a menu entry."""
        node = self.find(role, name)
        if not Atspi.Action.do_action(node, 0):
            raise AssertionError(f"{role} {name!r} cannot be pressed")
        return node

    def click(self, role, name, button=1):
        node = self.find(role, name)
        x, y = centre(node)
        xdotool("mousemove", x, y, "click", button)
        return node

    def text(self, name):
        """Also of a panel behind another one's tab."""
        return text_of(wait_for(f"text {name!r}", lambda: self._find("text", name, hidden=True)))

    def keys(self, *names):
        xdotool("key", *names)

    def type(self, text):
        xdotool("type", "--delay", 30, text)

    def close(self):
        self.keys("ctrl+q")
        self.process.wait(LONG)
        return self.process.returncode

    def kill(self):
        self.process.kill()
        self.process.wait()


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def window_named(title):
    """Its number; none while there is none."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}"],
                           text=True, capture_output=True)
    return found.stdout.split()[0] if found.stdout.strip() else None


def drag(source, target):
    """From one place of the screen to another, as a hand does it: in small steps."""
    xdotool("mousemove", *source, "mousedown", 1)
    for step in range(1, 21):
        x = source[0] + (target[0] - source[0]) * step // 20
        y = source[1] + (target[1] - source[1]) * step // 20
        xdotool("mousemove", x, y)
        time.sleep(0.03)
    time.sleep(0.3)
    xdotool("mouseup", 1)


def screenshot(folder, name):
    file = pathlib.Path(folder) / f"{name}.png"
    subprocess.run(["import", "-window", "root", str(file)], check=True)
    return file
