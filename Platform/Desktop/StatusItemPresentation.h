#pragma once

#include "Platform/Desktop/StatusItemContent.h"

#include <QObject>
#include <QPoint>

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

Q_SIGNALS:
    /// The user clicked the item. `point` is in global coordinates as the panel gave them.
    void activated(QPoint point);

    /// The user chose the menu entry with this `id`.
    void menuTriggered(int id);
};

} // namespace platform
