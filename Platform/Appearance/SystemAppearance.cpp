// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemAppearance.h"

#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ServiceError.h"

#include <QDBusArgument>
#include <QDBusMessage>

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString accentColor = QStringLiteral("accent-color");
const QString contrast = QStringLiteral("contrast");

std::optional<Appearance> appearance(uint scheme) {
    switch (scheme) {
    case 1:
        return Appearance::dark;
    case 2:
        return Appearance::light;
    default:
        return std::nullopt;
    }
}

/// Three parts from 0 to 1. Parts beyond that mean that no accent is chosen.
std::optional<QColor> color(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("(ddd)"))
        return std::nullopt;
    std::array<double, 3> parts{};
    argument.beginStructure();
    argument >> parts[0] >> parts[1] >> parts[2];
    argument.endStructure();
    if (!std::ranges::all_of(parts, [](double part) { return part >= 0 && part <= 1; }))
        return std::nullopt;
    return QColor::fromRgbF(float(parts[0]), float(parts[1]), float(parts[2]));
}

} // namespace

SystemAppearance::SystemAppearance(QDBusConnection bus, Clock& clock)
    : bus_(std::move(bus)), clock_(clock) {
    // The slot's parameters are looked up by the names of their types.
    qRegisterMetaType<QDBusVariant>();
    bus_.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    for (const QString& key : {colorScheme, accentColor, contrast})
        questions_.start(ask(key));
}

Task<> SystemAppearance::ask(QString key) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    message.setArguments({appearanceNamespace, key});
    try {
        const QDBusMessage answer = co_await DBusCall(bus_, message, clock_);
        take(key, answer.arguments().value(0));
    } catch (const ServiceError&) {
        // No portal, or one that does not know the key: there is no wish.
    }
}

void SystemAppearance::settingChanged(const QString& settingsNamespace, const QString& key,
                                      const QDBusVariant& value) {
    if (settingsNamespace == appearanceNamespace)
        take(key, value.variant());
}

void SystemAppearance::take(const QString& key, QVariant value) {
    // An answer is wrapped twice, a signal's value once.
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    auto preferred = preferred_;
    DesktopWishes wishes = wishes_;
    if (key == colorScheme)
        preferred = appearance(value.toUInt());
    else if (key == accentColor)
        wishes.accent = color(value);
    else if (key == contrast)
        wishes.wantsHighContrast = value.toUInt() == 1;
    const bool isChange = preferred != preferred_ || wishes != wishes_;
    preferred_ = preferred;
    wishes_ = wishes;
    if (isChange)
        Q_EMIT preferredChanged();
}

} // namespace platform
