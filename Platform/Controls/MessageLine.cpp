// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/MessageLine.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Appearance/SystemFonts.h"

#include <QEvent>
#include <QGuiApplication>

namespace platform {

namespace {

QColor color(MessageLine::Kind kind, const QPalette& palette) {
    const auto colors = SystemColors::of(palette);
    switch (kind) {
    case MessageLine::Kind::secondary:
        return colors.secondaryLabel;
    case MessageLine::Kind::tertiary:
        return colors.tertiaryLabel;
    case MessageLine::Kind::warning:
        return colors.orange;
    case MessageLine::Kind::error:
        return colors.red;
    }
    return colors.label;
}

} // namespace

MessageLine::MessageLine(Kind kind, int fontSize, QWidget* parent) : QLabel(parent), kind_(kind) {
    setFont(systemFont(fontSize));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    adoptPalette();
}

void MessageLine::setMessage(const std::optional<QString>& message) {
    setText(message.value_or(QString()));
    setVisible(message.has_value());
}

void MessageLine::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !isAdopting_)
        adoptPalette();
}

void MessageLine::adoptPalette() {
    // From the application's palette: the label's own holds what was set here before.
    QPalette own;
    own.setColor(QPalette::WindowText, color(kind_, QGuiApplication::palette()));
    isAdopting_ = true;
    setPalette(own);
    isAdopting_ = false;
}

} // namespace platform
