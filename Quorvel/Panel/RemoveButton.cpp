// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/RemoveButton.h"

#include "Platform/Appearance/SystemColors.h"

namespace quorvel {

namespace {

constexpr int symbolSize = 12;

} // namespace

RemoveButton::RemoveButton(QWidget* row) : PlainButton({}, row) {
    setSymbol(platform::SymbolImage(QStringLiteral("minus-circle")), symbolSize);
    resize(side, side);
}

void RemoveButton::setRevealed(bool isRevealed) {
    if (std::exchange(isRevealed_, isRevealed) != isRevealed)
        update();
}

QColor RemoveButton::foreground() const {
    return platform::SystemColors::of(palette()).secondaryLabel;
}

void RemoveButton::paintEvent(QPaintEvent* event) {
    if (isRevealed_ || hasFocus())
        PlainButton::paintEvent(event);
}

} // namespace quorvel
