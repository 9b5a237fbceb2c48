// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/FocusMark.h"

#include <QFocusEvent>
#include <QWidget>

#include <utility>

namespace platform {

namespace {

/// Whether the focus has only gone to another window, or to a menu, and will come back.
bool isPassing(const QEvent& event) {
    const auto reason = static_cast<const QFocusEvent&>(event).reason();
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

FocusMark::FocusMark(QWidget& control) : control_(control) {
    control.installEventFilter(this);
}

bool FocusMark::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        if (!isPassing(*event))
            show(static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason);
        break;
    case QEvent::FocusOut:
        if (!isPassing(*event))
            show(false);
        break;
    case QEvent::KeyPress:
        show(control_.hasFocus());
        break;
    default:
        break;
    }
    return false;
}

void FocusMark::show(bool isShown) {
    if (std::exchange(isShown_, isShown) != isShown)
        control_.update();
}

} // namespace platform
