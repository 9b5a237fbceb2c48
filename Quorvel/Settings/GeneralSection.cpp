// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/GeneralSection.h"

#include "Platform/Controls/PushButton.h"
#include "Platform/Controls/Reveal.h"
#include "Platform/Controls/Switch.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/Choices.h"
#include "Quorvel/Settings/FormRow.h"
#include "Quorvel/Settings/Notice.h"

namespace quorvel {

using platform::localized;

GeneralSection::GeneralSection(AppModel& model, std::function<void()> onRelaunch, QWidget* parent)
    : FormSection(localized("Quorvel", "General"), parent),
      model_(model),
      onRelaunch_(std::move(onRelaunch)) {
    addLanguage();
    addRestart();
    addLaunchAtLogin();
}

void GeneralSection::addLanguage() {
    SettingsStore& settings = model_.settings();
    const auto languages = labelledCases<AppLanguage>();
    auto* const picker = makePicker(languages);
    card().addRow(new FormRow(localized("Quorvel", "Language"), picker));
    bindChoices(
        *picker, languages, settings, &SettingsStore::languageChanged,
        [&settings] { return settings.language(); },
        [&settings](AppLanguage language) { settings.setLanguage(language); });
}

void GeneralSection::addRestart() {
    auto* const button = new platform::PushButton(localized("Quorvel", "Restart Now"));
    auto* const row =
        new FormRow(localized("Quorvel", "Restart to apply the new language"), button);
    row->makeCaption();
    restart_ = new platform::Reveal(row);
    card().addRow(restart_);
    connect(button, &QAbstractButton::clicked, this, [this] { onRelaunch_(); });
    connect(&model_.settings(), &SettingsStore::languageChanged, this,
            &GeneralSection::refreshRestart);
    refreshRestart();
}

void GeneralSection::refreshRestart() {
    restart_->setRevealed(model_.settings().language() != model_.languageAtLaunch());
}

void GeneralSection::addLaunchAtLogin() {
    LaunchAtLoginController& controller = model_.launchAtLogin();
    auto* const control = new platform::Switch;
    auto* const row = new FormRow(localized("Quorvel", "Launch Quorvel at login"), control);
    auto* const notice = new Notice(platform::MessageLine::Kind::error);
    auto* const reveal = row->addHint(notice);
    card().addRow(row);
    const auto show = [&controller, control, notice, reveal] {
        control->setChecked(controller.isEnabled());
        setMessage(*reveal, *notice, controller.lastErrorMessage());
    };
    show();
    connect(&controller, &LaunchAtLoginController::isEnabledChanged, control, show);
    connect(&controller, &LaunchAtLoginController::lastErrorMessageChanged, control, show);
    connect(control, &QAbstractButton::toggled, control, [&controller, show](bool isOn) {
        controller.setEnabled(isOn);
        // After a failure nothing has changed that would be announced.
        show();
    });
}

} // namespace quorvel
