// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/GeneralSection.h"

#include "Platform/Controls/ControlStyle.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Choices/Choices.h"
#include "Quorvel/Settings/FormRow.h"
#include "Quorvel/Settings/Notice.h"

#include <QCheckBox>
#include <QPushButton>

namespace quorvel {

using platform::localized;

GeneralSection::GeneralSection(AppModel& model, QWidget* parent)
    : FormSection(localized("Quorvel", "General"), parent), model_(model) {
    addLanguage();
    addRestart();
    addLaunchAtLogin();
    if (model_.exchange().isMirror())
        addMirror();
}

void GeneralSection::addLanguage() {
    SettingsStore& settings = model_.settings();
    auto* const box = makeComboBox(
        labelledCases<AppLanguage>(), settings, &SettingsStore::languageChanged,
        [&settings] { return settings.language(); },
        [&settings](AppLanguage language) { settings.setLanguage(language); });
    card().addRow(new FormRow(localized("Quorvel", "Language"), box));
}

void GeneralSection::addRestart() {
    auto* const button = new QPushButton(localized("Quorvel", "Restart Now"));
    auto* const row =
        new FormRow(localized("Quorvel", "Restart to apply the new language"), button);
    row->makeCaption();
    card().addRow(row);
    connect(button, &QPushButton::clicked, &model_, &AppModel::relaunchApplication);
    const auto show = [this, row] {
        row->setVisible(model_.settings().language() != model_.languageAtLaunch());
    };
    show();
    connect(&model_.settings(), &SettingsStore::languageChanged, row, show);
}

void GeneralSection::addMirror() {
    auto* const button = new QPushButton(localized("Quorvel", "Use the Exchange Itself"));
    auto* const row = new FormRow(
        localized("Quorvel", "Prices come from the exchange's data-only mirror"), button);
    row->makeCaption();
    card().addRow(row);
    connect(button, &QPushButton::clicked, this, [this] {
        model_.exchange().chooseUsual();
        model_.relaunchApplication();
    });
}

void GeneralSection::addLaunchAtLogin() {
    LaunchAtLoginController& controller = model_.launchAtLogin();
    auto* const control = new QCheckBox;
    platform::ControlStyle::makeSwitch(*control);
    auto* const row = new FormRow(localized("Quorvel", "Launch Quorvel at login"), control);
    auto* const notice = new Notice(platform::Label::Tone::error);
    row->addHint(notice);
    card().addRow(row);
    const auto show = [&controller, control, notice] {
        control->setChecked(controller.isEnabled());
        notice->setMessage(controller.lastErrorMessage());
    };
    show();
    connect(&controller, &LaunchAtLoginController::isEnabledChanged, control, show);
    connect(&controller, &LaunchAtLoginController::lastErrorMessageChanged, control, show);
    connect(control, &QCheckBox::toggled, control, [&controller, show](bool isOn) {
        controller.setEnabled(isOn);
        // After a failure nothing has changed that would be announced.
        show();
    });
}

} // namespace quorvel
