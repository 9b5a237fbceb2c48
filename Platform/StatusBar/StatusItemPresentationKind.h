// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace platform {

/// The ways in which a status item can be brought before the user's eyes.
enum class StatusItemPresentationKind {
    label, ///< an icon and a text that the panel writes beside it
    image, ///< icon, text and arrows as one wide picture in the panel
    dock,  ///< a window inside the panel's tray
    strip, ///< a slim window at the screen's edge
    icon,  ///< an icon in the panel, and no text but its tooltip's
};

/// The kind called `name`, as the enumerator is; absent for any other name.
std::optional<StatusItemPresentationKind> statusItemPresentationKind(QStringView name);

QString name(StatusItemPresentationKind kind);

} // namespace platform
