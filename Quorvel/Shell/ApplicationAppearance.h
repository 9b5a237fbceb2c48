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
class Clock;
class SystemAppearance;
} // namespace platform

namespace quorvel {

/// Gives the application the style of its controls, and keeps its palette to what the user chose:
/// light, dark, or as the desktop is, which its portal tells or, failing that, the palette that the
/// program was started with; in the accent and the contrast that the desktop asks for. Every window
/// follows at once. Made before any widget. Owned by the delegate.
class ApplicationAppearance final : public QObject {
    Q_OBJECT

public:
    /// @param settings must outlive this
    /// @param bus      the session bus
    /// @param clock    must outlive this
    ApplicationAppearance(const SettingsStore& settings, const QDBusConnection& bus,
                          platform::Clock& clock);
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
