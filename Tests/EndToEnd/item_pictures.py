# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Four pictures of one place, in which a status item shows a price that differs in one figure from
one to the next. Where they differ tells what is drawn, and how, whatever the font."""

from session import Area

# Less cannot be told apart at a glance.
CLEAR = 70


class ItemPictures:
    def __init__(self, first, thousands, cents, down):
        self.cents = cents  # BTC 75,432.11 +1.23% and an arrow upwards
        self.down = down  # BTC 75,432.11 -1.23% and an arrow downwards
        self.first_figure = changed(first, thousands)  # BTC 65,432.10, then 75,432.10
        self.last_figure = changed(thousands, cents)

    def faults(self, place, has_colors):
        """What is wrong with the text; empty where it is drawn within `place` from the price's
        beginning to the arrow at its end, large enough and clear enough to be read, and, with
        `has_colors`, the arrow is green in the one direction and red in the other."""
        start, end, behind = self.first_figure, self.last_figure, changed(self.cents, self.down)
        if not (is_figure(start) and is_figure(end)):
            return f"no figures change: {start}, {end}"
        found = []
        # Six figures, a comma and a point are between the left edges.
        if not 36 <= end.left - start.left <= 84:
            found.append(f"the price is {end.left - start.left} wide")
        if not all(place.contains(part) for part in (start, end, behind)):
            found.append(f"the item is elsewhere, {start}, {end}, {behind}")
        # A sign, three figures, a point, a percent sign, a blank and the arrow.
        if not 40 <= behind.right - end.right <= 100:
            found.append(f"what follows the price is {behind.right - end.right} long")
        counts = [colored(picture, end.right, channel)
                  for picture in (self.cents, self.down) for channel in (GREEN, RED)]
        if has_colors and not (counts[0] >= 10 and counts[1] == counts[2] == 0 and counts[3] >= 10):
            found.append(f"the arrow has not its colours: {counts}")
        return "; ".join(found)


RED, GREEN = 0, 1


def changed(before, after):
    """Where two pictures differ clearly; empty where they do not."""
    columns, lines = set(), set()
    for y, (old, new) in enumerate(zip(before.rows, after.rows)):
        if old == new:
            continue
        at = {index // 3 for index, (a, b) in enumerate(zip(old, new)) if abs(a - b) > CLEAR}
        columns |= at
        lines |= {y} if at else set()
    if not columns:
        return Area(0, 0, 0, 0)
    left, top = min(columns), min(lines)
    return Area(left, top, max(columns) - left + 1, max(lines) - top + 1)


def is_figure(area):
    return 3 <= area.width <= 12 and 6 <= area.height <= 18


def colored(picture, left, channel):
    """How many pixels from `left` on are more red, or green, than anything else."""
    count = 0
    for row in picture.rows:
        for x in range(3 * left, len(row), 3):
            pixel = list(row[x:x + 3])
            most = pixel.pop(channel)
            count += most > max(pixel) + 60
    return count
