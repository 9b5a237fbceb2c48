// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/TextField.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QPainter>

namespace platform {

namespace {

constexpr int textInset = 6; // and the two points that a line edit adds

} // namespace

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
    setFrame(false);
    setTextMargins(textInset, 0, textInset, 0);
    setFixedHeight(preferredHeight);
    // The background is painted below, rounded.
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent);
    setPalette(transparent);
}

void TextField::setPrompt(const QString& prompt) {
    constexpr QChar hairSpace(0x200A); // beside the cursor
    setPlaceholderText(hairSpace + prompt);
    setAccessibleName(prompt);
}

void TextField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        const auto colors = SystemColors::of(palette());
        ControlMarks::paintFill(painter, rect(), colors.field);
        if (hasFocus())
            ControlMarks::paintFocus(painter, rect(), colors.accent);
    }
    QLineEdit::paintEvent(event);
}

} // namespace platform
