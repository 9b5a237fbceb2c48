// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StripPosition.h"

#include <QObject>
#include <QPoint>

namespace platform {

/// What the user does to a status item, in whichever presentation. These report it here.
class StatusItemEvents : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// The user clicked the item in a panel. `point` is in global coordinates as the panel gave
    /// them; not every panel gives true ones.
    void activated(QPoint point);

    /// The user clicked the item where it has a `frame`.
    void clicked();

    /// The user chose the menu entry with this `id`.
    void menuTriggered(int id);

    /// The user dragged the item's strip there, on the screen of that name.
    void stripMoved(platform::StripPosition position, const QString& screen);
};

} // namespace platform
