#!/usr/bin/python3
"""Asks the edit screen through the desktop's accessibility bus, as a screen reader does.

usage: accessibility_story.py PROGRAM   (with DISPLAY and a session bus of its own; see with_session)
Exit status 0 if everything is there; 1 with a line for each thing that is not.
"""
import os
import subprocess
import sys
import tempfile
import time

import pyatspi

PATIENCE = 20
EXPECTED_BOXES = 3 # input box, record number, item number


def make_table(folder):
    with open(os.path.join(folder, "Kt.txt"), "wb") as items:
        items.write("100  ' 0,memo,, 1\r\n1000 'ID,L\r\n1001 '氏名,L\r\n2000 ' 4\r\n2001 ' 10\r\n".encode("cp932"))
    with open(os.path.join(folder, "t.txt"), "wb") as data:
        data.write("1   山田".encode("cp932").ljust(254) + b"\r\n")


def nodes(node):
    yield node
    for child in node:
        if child is not None:
            yield from nodes(child)


def application():
    for candidate in pyatspi.Registry.getDesktop(0):
        if candidate is not None and "romika" in (candidate.name or "").lower():
            return candidate
    return None


def wait_for(question):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = question()
        if answer:
            return answer
        time.sleep(0.1)
    return None


def complaints(program):
    app = wait_for(application)
    if app is None:
        return ["the program is not on the accessibility bus"]
    focused = wait_for(lambda: [n for n in nodes(app) if n.getState().contains(pyatspi.STATE_FOCUSED)])
    found = []
    if not focused:
        found.append("nothing has the focus")
    elif focused[-1].getRole() != pyatspi.ROLE_TEXT or not focused[-1].name:
        found.append(f"the focus is on {focused[-1].getRoleName()} '{focused[-1].name}'")
    for node in nodes(app):
        state = node.getState()
        if state.contains(pyatspi.STATE_FOCUSABLE) and state.contains(pyatspi.STATE_SHOWING) and not node.name:
            found.append(f"a {node.getRoleName()} has no name")
    editable = [n for n in nodes(app) if n.getRole() == pyatspi.ROLE_TEXT and n.name]
    if len(editable) < EXPECTED_BOXES:
        found.append(f"only {len(editable)} text boxes have names")
    texts = [n.queryText().getText(0, -1) for n in editable if "Text" in pyatspi.listInterfaces(n)]
    if " 1" not in texts:
        found.append(f"no box shows the record number; the boxes show {texts}")
    menus = [n for n in nodes(app) if n.getRole() in (pyatspi.ROLE_MENU, pyatspi.ROLE_MENU_ITEM) and n.name]
    if len(menus) < 13:
        found.append(f"only {len(menus)} menus are there")
    if program.poll() is not None:
        found.append("the program has ended")
    return found


def main():
    with tempfile.TemporaryDirectory() as folder:
        make_table(folder)
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        program = subprocess.Popen([sys.argv[1], "t.txt"], cwd=folder, env=environment)
        try:
            found = complaints(program)
        finally:
            program.kill()
            program.wait()
    for line in found:
        print("accessibility:", line)
    print(f"{0 if found else 1} passed, {len(found)} failed")
    return 1 if found else 0


sys.exit(main())
