// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/ItemPictures.h"

#include <QColor>
#include <QString>

#include <cmath>
#include <functional>

namespace test {

namespace {

/// Less cannot be told apart at a glance.
constexpr int clearDifference = 70;

bool isGreen(QColor color) {
    return color.green() > color.red() + 60 && color.green() > color.blue() + 60;
}

bool isRed(QColor color) {
    return color.red() > color.green() + 60 && color.red() > color.blue() + 60;
}

/// How many pixels to the right of `left` are of that colour.
int count(const QImage& image, int left, const std::function<bool(QColor)>& isOfColor) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = left; x < image.width(); ++x)
            found += isOfColor(image.pixelColor(x, y)) ? 1 : 0;
    }
    return found;
}

bool differs(QColor before, QColor after) {
    return std::abs(before.red() - after.red()) > clearDifference ||
           std::abs(before.green() - after.green()) > clearDifference ||
           std::abs(before.blue() - after.blue()) > clearDifference;
}

bool isFigure(const QRect& rect) {
    return rect.width() >= 3 && rect.width() <= 12 && rect.height() >= 6 && rect.height() <= 18;
}

std::string text(const QRect& rect) {
    return QStringLiteral("%1x%2 at %3,%4")
        .arg(rect.width())
        .arg(rect.height())
        .arg(rect.x())
        .arg(rect.y())
        .toStdString();
}

} // namespace

QRect ItemPictures::changed(const QImage& before, const QImage& after) {
    QRect found;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (differs(before.pixelColor(x, y), after.pixelColor(x, y)))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

std::string ItemPictures::faults(const QRect& place, bool hasColors) const {
    const QRect start = firstFigure();
    const QRect end = lastFigure();
    if (!isFigure(start) || !isFigure(end))
        return "no figures change: " + text(start) + ", " + text(end);
    std::string found;
    // Six figures, a comma and a point are between the left edges.
    if (const int distance = end.left() - start.left(); distance < 36 || distance > 84)
        found += "the price is " + std::to_string(distance) + " wide; ";
    const QRect behind = changed(cents, down);
    if (!place.contains(start | end | behind))
        found += "the item is elsewhere, " + text(start | end | behind) + "; ";
    // A sign, three figures, a point, a percent sign, a blank and the arrow.
    const int length = behind.right() - end.right();
    if (length < 40 || length > 100)
        found += "what follows the price is " + std::to_string(length) + " long; ";
    const int left = end.right() + 1;
    constexpr int ofArrow = 10;
    const bool isColored = count(cents, left, isGreen) >= ofArrow &&
                           count(cents, left, isRed) == 0 && count(down, left, isGreen) == 0 &&
                           count(down, left, isRed) >= ofArrow;
    if (hasColors && !isColored)
        found += "the arrow has not its colours; ";
    return found;
}

} // namespace test
