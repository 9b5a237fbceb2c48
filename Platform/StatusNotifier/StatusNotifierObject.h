// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"
#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusNotifier/StatusNotifierState.h"

#include <QPoint>

namespace platform {

/// The object `/StatusNotifierItem` that panels read: interface `org.kde.StatusNotifierItem`.
///
/// Only answers and tells; getting known to panels is the business of its owner, the
/// `StatusNotifierItem`.
class StatusNotifierObject final : public DBusObject {
    Q_OBJECT

public:
    /// Where panels look for the object.
    static const QString path;

    /// Where the item says its menu is.
    static const QString menuPath;

    StatusNotifierObject(StatusItemIdentity identity, QObject* parent);

    /// Takes over `state` and gives the signals that tell panels what changed, and nothing else: a
    /// panel reads everything again at each of them.
    QList<QDBusMessage> setState(StatusNotifierState state);

Q_SIGNALS:
    /// Somebody clicked the item at this point, as the panel counts. Emitted after the panel has
    /// its answer.
    void activated(QPoint point);

protected:
    QVariantMap properties() const override;

private:
    void addMethods();
    void reportActivation(QPoint point);

    StatusItemIdentity identity_;
    StatusNotifierState state_;
};

} // namespace platform
