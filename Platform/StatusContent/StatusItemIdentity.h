// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/MenuEntry.h"

#include <QString>

#include <vector>

namespace platform {

/// What stays the same about a status item for its whole life.
struct StatusItemIdentity {
    /// The name by which panels remember the item, e.g. its place; no spaces.
    QString id;

    /// The program's name for people: window lists and assistive technology read it.
    QString title;

    /// An existing or creatable directory for icon files, for panels that take an icon by path
    /// only. Its files may be deleted whenever the program does not run.
    QString iconDirectory;

    /// The ids of entries that are no separators must differ.
    std::vector<MenuEntry> menu = {};
};

} // namespace platform
