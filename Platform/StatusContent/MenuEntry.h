// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace platform {

/// One line of a status item's menu.
struct MenuEntry {
    /// What the menu reports when the entry is chosen; the caller's own numbering. A separator's is
    /// never reported.
    int id = 0;

    /// As shown. Nothing in it is taken for an access key.
    QString text;

    bool isSeparator = false;

    /// A line between groups of entries.
    static MenuEntry separator() { return {0, {}, true}; }
};

} // namespace platform
