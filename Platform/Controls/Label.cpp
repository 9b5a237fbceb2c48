// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Label.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Appearance/SystemFonts.h"

#include <QEvent>
#include <QGuiApplication>

namespace platform {

namespace {

QColor color(Label::Tone tone, const SystemColors& colors) {
    switch (tone) {
    case Label::Tone::secondary:
        return colors.secondaryLabel;
    case Label::Tone::tertiary:
        return colors.tertiaryLabel;
    case Label::Tone::warning:
        return colors.orange;
    case Label::Tone::error:
        return colors.red;
    case Label::Tone::primary:
        break;
    }
    return colors.label;
}

} // namespace

Label::Label(Tone tone, int fontSize, QWidget* parent) : QLabel(parent), tone_(tone) {
    setFont(systemFont(fontSize));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    adoptPalette();
}

void Label::setTone(Tone tone) {
    tone_ = tone;
    adoptPalette();
}

void Label::setMessage(const std::optional<QString>& message) {
    setText(message.value_or(QString()));
    setVisible(message.has_value());
}

void Label::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !isAdopting_)
        adoptPalette();
}

void Label::adoptPalette() {
    // From the application's palette: the label's own holds what was set here before.
    QPalette own;
    own.setColor(QPalette::WindowText, color(tone_, SystemColors::of(QGuiApplication::palette())));
    isAdopting_ = true;
    setPalette(own);
    isAdopting_ = false;
}

} // namespace platform
