// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/PopupMenu.h"

#include "Platform/Desktop/Compositing.h"

namespace platform {

PopupMenu::PopupMenu(QWidget* parent) : QMenu(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground, isDisplayComposited());
    setStyle(&style_);
}

} // namespace platform
