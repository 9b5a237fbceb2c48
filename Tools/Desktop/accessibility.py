# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Prints what a screen reader finds of Quorvel's windows, over the accessibility bus: a line for each
part that is shown, indented below what it is in.

    python3 Tools/Desktop/accessibility.py [--json]
"""

import json
import subprocess
import sys
from dataclasses import asdict, dataclass, field

# Those that tell something of the part itself; the others are told of every part.
STATES = ("focusable", "focused", "checkable", "checked", "expandable", "expanded", "editable",
          "selectable", "selected", "read-only", "modal", "invalid")


@dataclass
class Part:
    depth: int
    role: str
    name: str
    description: str
    value: str
    states: list = field(default_factory=list)
    labels: list = field(default_factory=list)  # the names of what it is labelled by
    place: tuple = (0, 0, 0, 0)  # left, top, width and height in pixels of the screen

    @property
    def center(self):
        left, top, width, height = self.place
        return left + width // 2, top + height // 2

    def __str__(self):
        words = [f'{self.role} "{self.name}"']
        words += [f'labelled by "{label}"' for label in self.labels]
        words += [f"value {self.value}"] if self.value else []
        words += [f'described as "{self.description}"'] if self.description else []
        return "  " * self.depth + ", ".join(words + self.states)


def read(environment):
    """The parts as another process finds them; none where the program has no window open."""
    output = subprocess.run(
        ["/usr/bin/python3", "-B", __file__, "--json"], env=environment, capture_output=True,
        text=True, timeout=20, check=False).stdout
    return [Part(**json.loads(line)) for line in output.splitlines()]


def parts(accessible, depth, atspi):
    """The parts below that one, and itself first."""
    if accessible is None:
        return
    states = accessible.get_state_set()
    if not states.contains(atspi.StateType.SHOWING):
        return
    interfaces = accessible.get_interfaces()
    place = (0, 0, 0, 0)
    if "Component" in interfaces:
        extents = accessible.get_extents(atspi.CoordType.SCREEN)
        place = (extents.x, extents.y, extents.width, extents.height)
    relations = [relation for relation in accessible.get_relation_set()
                 if relation.get_relation_type() == atspi.RelationType.LABELLED_BY]
    nicks = {state.value_nick for state in states.get_states()}
    yield Part(depth, accessible.get_role_name(), accessible.get_name(),
               accessible.get_description(), value(accessible, interfaces, atspi),
               [state for state in STATES if state in nicks],
               [relation.get_target(index).get_name() for relation in relations
                for index in range(relation.get_n_targets())], place)
    for index in range(accessible.get_child_count()):
        yield from parts(accessible.get_child_at_index(index), depth + 1, atspi)


def value(accessible, interfaces, atspi):
    """What is in it, as text: a number, or what was typed; a choice has it as its name."""
    if "Value" in interfaces:
        return f"{atspi.Value.get_current_value(accessible):g}"
    if "EditableText" in interfaces:
        return atspi.Text.get_text(accessible, 0, -1)
    return accessible.get_name() if accessible.get_role() == atspi.Role.COMBO_BOX else ""


def main():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
    desktop = Atspi.get_desktop(0)
    for number in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(number)
        if application and application.get_name() == "Quorvel":
            for part in parts(application, 0, Atspi):
                print(json.dumps(asdict(part)) if "--json" in sys.argv else part)


if __name__ == "__main__":
    main()
