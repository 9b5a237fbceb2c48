// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/MenuStyle.h"

#include <QMenu>

namespace platform {

/// A menu in the look of our controls. Deletes itself when it closes.
class PopupMenu : public QMenu {
    Q_OBJECT

public:
    explicit PopupMenu(QWidget* parent);

private:
    MenuStyle style_;
};

} // namespace platform
