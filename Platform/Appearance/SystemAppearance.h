// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QVariant>

#include <optional>

namespace platform {

/// Whether the desktop asks programs to be light or dark, as its settings portal tells. Lives on
/// the GUI thread.
class SystemAppearance final : public QObject {
    Q_OBJECT

public:
    /// Asks the portal, and listens to it from now on. @param bus the session bus
    explicit SystemAppearance(QDBusConnection bus);

    /// Absent where the desktop has no preference, or none is known: before the portal has
    /// answered, and where there is no portal.
    std::optional<Appearance> preferred() const { return preferred_; }

Q_SIGNALS:
    void preferredChanged();

private Q_SLOTS:
    void settingChanged(const QString& settingsNamespace, const QString& key,
                        const QDBusVariant& value);

private:
    void ask();
    void take(QVariant value);

    QDBusConnection bus_;
    std::optional<Appearance> preferred_;
};

} // namespace platform
