// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/Appearance.h"
#include "QuorvelKit/Stores/SettingsStore.h"

#include <QObject>
#include <QPalette>

#include <memory>

class QDBusConnection;

namespace platform {
class SystemAppearance;
}

namespace quorvel {

/// Keeps the application's palette to what the user chose: light, dark, or as the desktop is, which
/// its portal tells or, failing that, the palette that the program was started with. Every window
/// follows at once. Owned by the delegate.
class ApplicationAppearance final : public QObject {
    Q_OBJECT

public:
    /// @param settings must outlive this
    /// @param bus      the session bus
    ApplicationAppearance(const SettingsStore& settings, const QDBusConnection& bus);
    ~ApplicationAppearance() override;

    /// Adopts what the settings say now.
    void apply();

private:
    platform::Appearance current() const;

    const SettingsStore& settings_;
    std::unique_ptr<platform::SystemAppearance> system_;
    QPalette desktopPalette_;
};

} // namespace quorvel
