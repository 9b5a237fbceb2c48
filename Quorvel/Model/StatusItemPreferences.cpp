// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/StatusItemPreferences.h"

namespace quorvel {

namespace {

const auto presentationKey = QStringLiteral("statusItem.presentation");
const auto widgetOfferedKey = QStringLiteral("statusItem.widgetOffered");
const auto stripPositionKey = QStringLiteral("statusItem.stripPosition");
const auto stripScreenKey = QStringLiteral("statusItem.stripScreen");

} // namespace

platform::StatusItemOptions StatusItemPreferences::options(const platform::UserDefaults& defaults) {
    const QString kind = defaults.string(presentationKey).value_or(QString()).trimmed();
    // Written by hand without quotation marks, its comma makes it a list.
    const QString position =
        defaults.stringArray(stripPositionKey).value_or(QStringList()).join(QLatin1Char(','));
    return {.presentation = platform::statusItemPresentationKind(kind),
            .stripPosition =
                platform::StripPosition::fromString(position).value_or(platform::StripPosition()),
            .stripScreen = defaults.string(stripScreenKey).value_or(QString())};
}

void StatusItemPreferences::setPresentation(
    platform::UserDefaults& defaults, std::optional<platform::StatusItemPresentationKind> kind) {
    defaults.set({{presentationKey, kind ? platform::name(*kind) : QStringLiteral("auto")}});
}

bool StatusItemPreferences::isPresentationSettled(const platform::UserDefaults& defaults) {
    return defaults.string(presentationKey).has_value();
}

bool StatusItemPreferences::isWidgetOffered(const platform::UserDefaults& defaults) {
    return defaults.string(widgetOfferedKey).has_value();
}

void StatusItemPreferences::setWidgetOffered(platform::UserDefaults& defaults) {
    defaults.set({{widgetOfferedKey, QStringLiteral("true")}});
}

void StatusItemPreferences::setStripPlace(platform::UserDefaults& defaults,
                                          const platform::StripPosition& position,
                                          const QString& screen) {
    defaults.set({{stripPositionKey, position.toString()}, {stripScreenKey, screen}});
}

} // namespace quorvel
