// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/Appearance.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Async/TaskScope.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QVariant>

#include <optional>

namespace platform {

class Clock;

/// How the desktop asks programs to look, as its settings portal tells. Lives on the GUI thread.
class SystemAppearance final : public QObject {
    Q_OBJECT

public:
    /// Asks the portal, and listens to it from now on.
    ///
    /// @param bus   the session bus
    /// @param clock limits how long an answer may take; must outlive this
    SystemAppearance(QDBusConnection bus, Clock& clock);

    /// Light or dark. Absent where the desktop has no preference, or none is known: before the
    /// portal has answered, and where there is no portal.
    std::optional<Appearance> preferred() const { return preferred_; }

    /// The accent colour and the contrast, likewise.
    const DesktopWishes& wishes() const { return wishes_; }

Q_SIGNALS:
    /// Any of what the desktop prefers.
    void preferredChanged();

private Q_SLOTS:
    void settingChanged(const QString& settingsNamespace, const QString& key,
                        const QDBusVariant& value);

private:
    Task<> ask(QString key);
    void take(const QString& key, QVariant value);

    QDBusConnection bus_;
    Clock& clock_;
    std::optional<Appearance> preferred_;
    DesktopWishes wishes_;
    TaskScope questions_;
};

} // namespace platform
