// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AppearanceSection.h"

#include "Platform/Controls/AccessibleRole.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Controls/ControlStyle.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Choices/Choices.h"
#include "Quorvel/Settings/FormRow.h"

#include <QRadioButton>
#include <QVBoxLayout>

namespace quorvel {

using platform::localized;

namespace {

constexpr int radioInset = 6;

} // namespace

AppearanceSection::AppearanceSection(SettingsStore& settings, QWidget* parent)
    : FormSection(localized("Quorvel", "Appearance"), parent) {
    auto* const theme = makeComboBox(
        labelledCases<AppearanceMode>(), settings, &SettingsStore::appearanceChanged,
        [&settings] { return settings.appearance(); },
        [&settings](AppearanceMode mode) { settings.setAppearance(mode); });
    card().addRow(new FormRow(localized("Quorvel", "Theme"), theme));
    addColorScheme(settings);
    card().addRow(new FormRow(
        localized("Quorvel", "Chart period"),
        makeComboBox(labelledCases<ChartPeriod>(), settings, &DisplaySettings::chartPeriod)));
}

void AppearanceSection::addColorScheme(SettingsStore& settings) {
    const Choices<PriceColorScheme> schemes = {
        {PriceColorScheme::redUpGreenDown, localized("Quorvel", "Red up, green down")},
        {PriceColorScheme::greenUpRedDown, localized("Quorvel", "Green up, red down")},
    };
    auto* const group = new QWidget;
    platform::setAccessibleRole(*group, QAccessible::Grouping);
    // Its left edge in line with that of the combo boxes.
    constexpr int margin = platform::ControlMarks::ringMargin;
    group->setFixedWidth(platform::ControlStyle::comboBoxWidth + margin);
    auto* const lines = new QVBoxLayout(group);
    lines->setContentsMargins(margin, radioInset, 0, radioInset);
    lines->setSpacing(0);
    for (const auto& [scheme, text] : schemes) {
        auto* const button = new QRadioButton(text);
        lines->addWidget(button);
        const auto show = [&settings, button, scheme] {
            button->setChecked(settings.display().colorScheme == scheme);
        };
        show();
        connect(&settings, &SettingsStore::displayChanged, button, show);
        connect(button, &QRadioButton::toggled, this, [&settings, scheme](bool isChosen) {
            if (isChosen)
                setField(settings, &DisplaySettings::colorScheme, scheme);
        });
    }
    card().addRow(new FormRow(localized("Quorvel", "Color scheme"), group));
}

} // namespace quorvel
