// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/ApplicationAppearance.h"

#include "Platform/Appearance/SystemAppearance.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlStyle.h"

#include <QApplication>

namespace quorvel {

using platform::Appearance;

ApplicationAppearance::ApplicationAppearance(const SettingsStore& settings,
                                             const QDBusConnection& bus, platform::Clock& clock)
    : settings_(settings),
      system_(std::make_unique<platform::SystemAppearance>(bus, clock)),
      desktopPalette_(QApplication::palette()) {
    connect(&settings, &SettingsStore::appearanceChanged, this, &ApplicationAppearance::apply);
    connect(system_.get(), &platform::SystemAppearance::preferredChanged, this,
            &ApplicationAppearance::apply);
    QApplication::setStyle(new platform::ControlStyle);
}

ApplicationAppearance::~ApplicationAppearance() = default;

void ApplicationAppearance::apply() {
    QApplication::setPalette(
        platform::systemPalette(current(), desktopPalette_, system_->wishes()));
}

Appearance ApplicationAppearance::current() const {
    switch (settings_.appearance()) {
    case AppearanceMode::light:
        return Appearance::light;
    case AppearanceMode::dark:
        return Appearance::dark;
    case AppearanceMode::system:
        break;
    }
    return system_->preferred().value_or(platform::appearanceOf(desktopPalette_));
}

} // namespace quorvel
