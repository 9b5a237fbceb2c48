// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/KeyboardFocus.h"

#include <QFocusEvent>

#include <utility>

namespace platform {

namespace {

/// Whether the focus has only gone to another window, or to a menu, and will come back.
bool isPassing(const QFocusEvent& event) {
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
}

} // namespace

void KeyboardFocus::watch(QWidget& control) {
    control.installEventFilter(this);
}

bool KeyboardFocus::eventFilter(QObject* control, QEvent* event) {
    auto* const widget = qobject_cast<QWidget*>(control);
    if (!widget)
        return false;
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        const auto& focus = static_cast<const QFocusEvent&>(*event);
        if (!isPassing(focus))
            show(focus.gotFocus() && focus.reason() != Qt::MouseFocusReason ? widget : nullptr);
    } else if (event->type() == QEvent::KeyPress && widget->hasFocus()) {
        show(widget);
    }
    return false;
}

void KeyboardFocus::show(QWidget* control) {
    const auto before = std::exchange(shown_, control);
    if (before == control)
        return;
    for (QWidget* const changed : {before.data(), control}) {
        if (changed)
            changed->update();
    }
}

} // namespace platform
