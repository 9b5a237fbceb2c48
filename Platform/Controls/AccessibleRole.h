// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>

class QWidget;

namespace platform {

/// Tells assistive technology what a widget of a type of our own is, besides its name and state.
/// Not for one that derives from a control of the toolkit, which tells that itself.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace platform
