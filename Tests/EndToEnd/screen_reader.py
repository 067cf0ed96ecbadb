#!/usr/bin/python3
"""What a screen reader gets. "listen" prints each name that changes and each notice that appears, as JSON; "read" prints
the names of all that the application tells about itself now."""

import json
import sys

import pyatspi


def hear(event):
    source = event.source
    if event.type.minor == "accessible-name" or (event.detail1 and source.getRole() == pyatspi.ROLE_NOTIFICATION):
        print(json.dumps([event.type.minor, source.name]), flush=True)


def words(node):
    try:
        text = node.queryText()
        return text.getText(0, text.characterCount) or node.name
    except NotImplementedError:
        return node.name


def names(node):
    yield words(node)
    for child in node:
        if child is not None:
            yield from names(child)


if sys.argv[1] == "listen":
    pyatspi.Registry.registerEventListener(hear, "object:property-change:accessible-name",
                                           "object:state-changed:showing")
    print(json.dumps("ready"), flush=True)
    pyatspi.Registry.start()
else:
    for application in pyatspi.Registry.getDesktop(0):
        print("\n".join(names(application)))
