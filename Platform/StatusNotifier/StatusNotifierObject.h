// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"
#include "Platform/StatusContent/StatusItemEvents.h"
#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusNotifier/StatusNotifierState.h"

#include <QPoint>

namespace platform {

/// The object that panels read: interface `org.kde.StatusNotifierItem`.
///
/// Only answers and tells; getting known to panels is the business of its owner, the
/// `StatusNotifierItem`.
class StatusNotifierObject final : public DBusObject {
    Q_OBJECT

public:
    /// Where the item says its menu is.
    static const QString menuPath;

    /// @param ordinal tells the objects apart that a program has one after the other, from 1 on:
    /// some
    ///                panels remember an object that has gone by its path
    ///
    /// What is handed in by reference must outlive the object. `events` hears of clicks, each at
    /// its point as the panel counts, after the panel has its answer.
    StatusNotifierObject(const StatusItemIdentity& identity, StatusItemEvents& events, int ordinal);

    /// Where panels find it: `/StatusNotifierItem`, and below that from the second one on.
    const QString& path() const { return path_; }

    /// Takes over `state` and gives the signals that tell panels what changed, and nothing else: a
    /// panel reads everything again at each of them.
    QList<QDBusMessage> setState(StatusNotifierState state);

    /// The signal that tells panels to hide the item.
    QDBusMessage farewell() const;

protected:
    QVariantMap properties() const override;

private:
    void addMethods();
    void reportActivation(QPoint point);

    const StatusItemIdentity& identity_;
    StatusItemEvents& events_;
    QString path_;
    StatusNotifierState state_;
};

} // namespace platform
