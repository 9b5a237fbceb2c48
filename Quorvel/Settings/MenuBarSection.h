// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Settings/FormSection.h"
#include "QuorvelKit/Stores/SettingsStore.h"

namespace platform {
class Reveal;
class Stepper;
class Switch;
} // namespace platform

namespace quorvel {

class FormRow;

/// The settings of what the status item shows.
class MenuBarSection final : public FormSection {
    Q_OBJECT

public:
    /// @param settings must outlive the section
    explicit MenuBarSection(SettingsStore& settings, QWidget* parent = nullptr);

private:
    void addDisplay();
    void addRotation();
    void addSideBySide();
    void addContent();
    void addSwitch(const QString& label, bool DisplaySettings::* field);
    void refresh();

    SettingsStore& settings_;
    platform::Reveal* fixedHint_ = nullptr;
    FormRow* rotationRow_ = nullptr;
    platform::Stepper* rotation_ = nullptr;
    platform::Reveal* rotationReveal_ = nullptr;
    FormRow* limitRow_ = nullptr;
    platform::Stepper* limit_ = nullptr;
    platform::Reveal* limitReveal_ = nullptr;
};

} // namespace quorvel
