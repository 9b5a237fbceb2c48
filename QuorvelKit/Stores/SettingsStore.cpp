// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/SettingsStore.h"

#include <array>
#include <utility>
#include <vector>

namespace quorvel {

using platform::UserDefaults;

namespace {

const QString languageKey = QStringLiteral("interfaceLanguage");
const QString preferredLanguagesKey = QStringLiteral("AppleLanguages");
const QString appearanceKey = QStringLiteral("interfaceAppearance");

QString fromView(std::string_view text) {
    return QString::fromUtf8(text.data(), std::ssize(text));
}

/// The case that the stored text names exactly; `fallback` for any other text and for none.
template <RawRepresentable Enum>
Enum load(const UserDefaults& defaults, const QString& key, Enum fallback) {
    const auto text = defaults.string(key);
    return text ? fromRawValue<Enum>(text->toStdString()).value_or(fallback) : fallback;
}

bool load(const UserDefaults& defaults, const QString& key, bool fallback) {
    return defaults.hasObject(key) ? defaults.boolean(key) : fallback;
}

UserDefaults::Value stored(RawRepresentable auto value) {
    return fromView(rawValue(value));
}

UserDefaults::Value stored(bool value) {
    return value;
}

/// One of the display settings: where it is kept, and how it gets from there into the record, which
/// has its default already, and back.
struct Setting {
    QString key;
    void (*load)(const UserDefaults& defaults, const QString& key, DisplaySettings& display);
    UserDefaults::Value (*stored)(const DisplaySettings& display);
};

template <auto field>
Setting setting(const QString& key) {
    return {
        .key = key,
        .load =
            [](const UserDefaults& defaults, const QString& key, DisplaySettings& display) {
                display.*field = quorvel::load(defaults, key, display.*field);
            },
        .stored = [](const DisplaySettings& display) { return quorvel::stored(display.*field); }};
}

Setting rotationInterval(const QString& key) {
    return {.key = key,
            .load =
                [](const UserDefaults& defaults, const QString& key, DisplaySettings& display) {
                    if (defaults.hasObject(key))
                        display.setRotationInterval(
                            platform::TimeInterval(defaults.doubleValue(key)));
                },
            .stored = [](const DisplaySettings& display) -> UserDefaults::Value {
                return display.rotationInterval().count();
            }};
}

Setting sideBySideLimit(const QString& key) {
    return {.key = key,
            .load =
                [](const UserDefaults& defaults, const QString& key, DisplaySettings& display) {
                    if (defaults.hasObject(key))
                        display.setSideBySideLimit(defaults.integer(key));
                },
            .stored = [](const DisplaySettings& display) -> UserDefaults::Value {
                return display.sideBySideLimit();
            }};
}

/// All display settings, in the order in which they are written.
const std::array<Setting, 8>& displaySettings() {
    static const std::array<Setting, 8> settings{
        setting<&DisplaySettings::mode>(QStringLiteral("display.mode")),
        setting<&DisplaySettings::content>(QStringLiteral("display.content")),
        setting<&DisplaySettings::colorScheme>(QStringLiteral("display.colorScheme")),
        rotationInterval(QStringLiteral("display.rotationInterval")),
        sideBySideLimit(QStringLiteral("display.sideBySideLimit")),
        setting<&DisplaySettings::chartPeriod>(QStringLiteral("display.chartPeriod")),
        setting<&DisplaySettings::showsIcon>(QStringLiteral("display.showsIcon")),
        setting<&DisplaySettings::showsDirectionArrow>(
            QStringLiteral("display.showsDirectionArrow")),
    };
    return settings;
}

DisplaySettings loadDisplay(const UserDefaults& defaults) {
    DisplaySettings display;
    for (const Setting& setting : displaySettings())
        setting.load(defaults, setting.key, display);
    return display;
}

} // namespace

SettingsStore::SettingsStore(UserDefaults& defaults)
    : defaults_(defaults),
      display_(loadDisplay(defaults)),
      language_(load(defaults, languageKey, AppLanguage::system)),
      appearance_(load(defaults, appearanceKey, AppearanceMode::system)) {}

void SettingsStore::setDisplay(const DisplaySettings& display) {
    std::vector<std::pair<QString, UserDefaults::Value>> values;
    for (const Setting& setting : displaySettings())
        values.emplace_back(setting.key, setting.stored(display));
    isSaved_ = defaults_.set(values);
    display_ = display;
}

void SettingsStore::setLanguage(AppLanguage language) {
    UserDefaults::Value preferred;
    if (const auto identifier = localeIdentifier(language))
        preferred = QStringList(fromView(*identifier));
    isSaved_ = defaults_.set({{languageKey, stored(language)}, {preferredLanguagesKey, preferred}});
    language_ = language;
}

void SettingsStore::setAppearance(AppearanceMode appearance) {
    isSaved_ = defaults_.set(appearanceKey, stored(appearance));
    appearance_ = appearance;
}

} // namespace quorvel
