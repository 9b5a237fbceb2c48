// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/SettingsStore.h"

#include <cmath>
#include <utility>

namespace quorvel {

namespace {

// Functions, so that no text is made before it is needed.
QString modeKey() {
    return QStringLiteral("display.mode");
}
QString contentKey() {
    return QStringLiteral("display.content");
}
QString colorSchemeKey() {
    return QStringLiteral("display.colorScheme");
}
QString rotationIntervalKey() {
    return QStringLiteral("display.rotationInterval");
}
QString sideBySideLimitKey() {
    return QStringLiteral("display.sideBySideLimit");
}
QString chartPeriodKey() {
    return QStringLiteral("display.chartPeriod");
}
QString showsIconKey() {
    return QStringLiteral("display.showsIcon");
}
QString showsDirectionArrowKey() {
    return QStringLiteral("display.showsDirectionArrow");
}
QString languageKey() {
    return QStringLiteral("interfaceLanguage");
}
QString preferredLanguagesKey() {
    return QStringLiteral("AppleLanguages");
}
QString appearanceKey() {
    return QStringLiteral("interfaceAppearance");
}

QString fromView(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The case that the stored text names exactly; `fallback` for any other text and for none.
template <RawRepresentable Enum>
Enum load(const platform::UserDefaults& defaults, const QString& key, Enum fallback) {
    const auto text = defaults.string(key);
    return text ? fromRawValue<Enum>(text->toStdString()).value_or(fallback) : fallback;
}

} // namespace

SettingsStore::SettingsStore(platform::UserDefaults& defaults)
    : defaults_(defaults),
      display_(loadDisplay()),
      language_(load(defaults, languageKey(), AppLanguage::system)),
      appearance_(load(defaults, appearanceKey(), AppearanceMode::system)) {}

DisplaySettings SettingsStore::loadDisplay() const {
    DisplaySettings display;
    display.mode = load(defaults_, modeKey(), display.mode);
    display.content = load(defaults_, contentKey(), display.content);
    display.colorScheme = load(defaults_, colorSchemeKey(), display.colorScheme);
    if (defaults_.hasObject(rotationIntervalKey()))
        display.setRotationInterval(
            platform::TimeInterval(defaults_.doubleValue(rotationIntervalKey())));
    if (defaults_.hasObject(sideBySideLimitKey()))
        display.setSideBySideLimit(defaults_.integer(sideBySideLimitKey()));
    display.chartPeriod = load(defaults_, chartPeriodKey(), display.chartPeriod);
    if (defaults_.hasObject(showsIconKey()))
        display.showsIcon = defaults_.boolean(showsIconKey());
    if (defaults_.hasObject(showsDirectionArrowKey()))
        display.showsDirectionArrow = defaults_.boolean(showsDirectionArrowKey());
    return display;
}

void SettingsStore::saveDisplay() {
    defaults_.setString(modeKey(), fromView(rawValue(display_.mode)));
    defaults_.setString(contentKey(), fromView(rawValue(display_.content)));
    defaults_.setString(colorSchemeKey(), fromView(rawValue(display_.colorScheme)));
    defaults_.setDouble(rotationIntervalKey(), display_.rotationInterval().count());
    defaults_.setInteger(sideBySideLimitKey(), display_.sideBySideLimit());
    defaults_.setString(chartPeriodKey(), fromView(rawValue(display_.chartPeriod)));
    defaults_.setBoolean(showsIconKey(), display_.showsIcon);
    defaults_.setBoolean(showsDirectionArrowKey(), display_.showsDirectionArrow);
}

void SettingsStore::setDisplay(const DisplaySettings& display) {
    const bool isChange = std::exchange(display_, display) != display;
    saveDisplay();
    if (isChange)
        Q_EMIT displayChanged();
}

void SettingsStore::setLanguage(AppLanguage language) {
    const bool isChange = std::exchange(language_, language) != language;
    defaults_.setString(languageKey(), fromView(rawValue(language)));
    if (const auto identifier = localeIdentifier(language))
        defaults_.setStringArray(preferredLanguagesKey(), {fromView(*identifier)});
    else
        defaults_.remove(preferredLanguagesKey());
    if (isChange)
        Q_EMIT languageChanged();
}

void SettingsStore::setAppearance(AppearanceMode appearance) {
    const bool isChange = std::exchange(appearance_, appearance) != appearance;
    defaults_.setString(appearanceKey(), fromView(rawValue(appearance)));
    if (isChange)
        Q_EMIT appearanceChanged();
}

} // namespace quorvel
