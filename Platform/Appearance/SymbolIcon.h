// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>

namespace platform {

/// A symbol as buttons take it. It is drawn in the colour of the painter's pen, so that whoever
/// draws the button decides it.
/// @param name as for `SymbolImage`
QIcon symbolIcon(const QString& name);

} // namespace platform
