// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemContent.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <optional>

namespace platform {

/// One way of bringing a status item before the user's eyes. Panels differ too much for a single
/// one.
///
/// Owned by the `StatusItem`, on the GUI thread.
class StatusItemPresentation : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows `content` in place of what was shown before. The item appears with the first call.
    virtual void show(const StatusItemContent& content) = 0;

    /// Where the item is on the screen, in global device-independent coordinates. Absent where only
    /// the panel knows, and while the item is not there.
    virtual std::optional<QRect> frame() const { return std::nullopt; }

Q_SIGNALS:
    /// The user clicked what a panel shows of the item. `point` is in global coordinates as the
    /// panel gave them.
    void activated(QPoint point);

    /// The user clicked the item's own window, which has a `frame`.
    void clicked();

    /// The user chose the menu entry with this `id`.
    void menuTriggered(int id);
};

} // namespace platform
