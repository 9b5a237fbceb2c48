// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"
#include "Platform/StatusContent/StatusItemEvents.h"
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

    /// Both must outlive the object. `events` hears of clicks, each at its point as the panel
    /// counts, after the panel has its answer.
    StatusNotifierObject(const StatusItemIdentity& identity, StatusItemEvents& events);

    /// Takes over `state` and gives the signals that tell panels what changed, and nothing else: a
    /// panel reads everything again at each of them.
    QList<QDBusMessage> setState(StatusNotifierState state);

protected:
    QVariantMap properties() const override;

private:
    void addMethods();
    void reportActivation(QPoint point);

    const StatusItemIdentity& identity_;
    StatusItemEvents& events_;
    StatusNotifierState state_;
};

} // namespace platform
