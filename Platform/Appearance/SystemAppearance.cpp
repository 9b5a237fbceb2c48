// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemAppearance.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

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

} // namespace

SystemAppearance::SystemAppearance(QDBusConnection bus) : bus_(std::move(bus)) {
    // The slot's parameters are looked up by the names of their types.
    qRegisterMetaType<QDBusVariant>();
    bus_.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void SystemAppearance::ask() {
    auto call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    call.setArguments({appearanceNamespace, colorScheme});
    auto* const watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            take(reply.value().variant());
        watcher->deleteLater();
    });
}

void SystemAppearance::settingChanged(const QString& settingsNamespace, const QString& key,
                                      const QDBusVariant& value) {
    if (settingsNamespace == appearanceNamespace && key == colorScheme)
        take(value.variant());
}

void SystemAppearance::take(QVariant value) {
    // An answer is wrapped once more than a signal.
    if (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    const auto preferred = appearance(value.toUInt());
    if (std::exchange(preferred_, preferred) != preferred)
        Q_EMIT preferredChanged();
}

} // namespace platform
