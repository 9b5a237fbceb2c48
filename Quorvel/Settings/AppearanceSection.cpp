// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AppearanceSection.h"

#include "Platform/Controls/ControlMarks.h"
#include "Platform/Controls/RadioGroup.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/Choices.h"
#include "Quorvel/Settings/FormRow.h"

namespace quorvel {

using platform::localized;

namespace {

constexpr int radioInset = 6;

} // namespace

AppearanceSection::AppearanceSection(SettingsStore& settings, QWidget* parent)
    : FormSection(localized("Quorvel", "Appearance"), parent) {
    addTheme(settings);
    addColorScheme(settings);
    addChartPeriod(settings);
}

void AppearanceSection::addTheme(SettingsStore& settings) {
    const auto modes = labelledCases<AppearanceMode>();
    auto* const picker = makePicker(modes);
    card().addRow(new FormRow(localized("Quorvel", "Theme"), picker));
    bindChoices(
        *picker, modes, settings, &SettingsStore::appearanceChanged,
        [&settings] { return settings.appearance(); },
        [&settings](AppearanceMode mode) { settings.setAppearance(mode); });
}

void AppearanceSection::addColorScheme(SettingsStore& settings) {
    const Choices<PriceColorScheme> schemes = {
        {PriceColorScheme::redUpGreenDown, localized("Quorvel", "Red up, green down")},
        {PriceColorScheme::greenUpRedDown, localized("Quorvel", "Green up, red down")},
    };
    auto* const group = new platform::RadioGroup({schemes[0].second, schemes[1].second});
    // Its left edge in line with that of the pickers.
    constexpr int margin = platform::ControlMarks::ringMargin;
    group->setContentsMargins(0, radioInset, margin, radioInset);
    group->setFixedWidth(platform::Picker::preferredWidth + 2 * margin);
    card().addRow(new FormRow(localized("Quorvel", "Color scheme"), group));
    bindDisplay(*group, schemes, settings, &DisplaySettings::colorScheme);
}

void AppearanceSection::addChartPeriod(SettingsStore& settings) {
    const auto periods = labelledCases<ChartPeriod>();
    auto* const picker = makePicker(periods);
    card().addRow(new FormRow(localized("Quorvel", "Chart period"), picker));
    bindDisplay(*picker, periods, settings, &DisplaySettings::chartPeriod);
}

} // namespace quorvel
