# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Prints what a screen reader finds of Quorvel's windows: a line
"role|name|description|left top width height" for each part that is shown, in pixels of the screen."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402


def parts(accessible):
    if accessible is None or not accessible.get_state_set().contains(Atspi.StateType.SHOWING):
        return
    has_place = "Component" in accessible.get_interfaces()
    place = accessible.get_extents(Atspi.CoordType.SCREEN) if has_place else Atspi.Rect()
    print(accessible.get_role_name(), accessible.get_name(), accessible.get_description(),
          f"{place.x} {place.y} {place.width} {place.height}", sep="|")
    for index in range(accessible.get_child_count()):
        parts(accessible.get_child_at_index(index))


desktop = Atspi.get_desktop(0)
for number in range(desktop.get_child_count()):
    application = desktop.get_child_at_index(number)
    if application and application.get_name() == "Quorvel":
        parts(application)
