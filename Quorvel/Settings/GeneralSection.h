// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Settings/FormSection.h"

#include <functional>

namespace platform {
class Reveal;
} // namespace platform

namespace quorvel {

/// The settings of language and launch at login.
class GeneralSection final : public FormSection {
    Q_OBJECT

public:
    /// @param model      must outlive the section
    /// @param onRelaunch starts the program anew, for the language to take effect
    GeneralSection(AppModel& model, std::function<void()> onRelaunch, QWidget* parent = nullptr);

private:
    void addLanguage();
    void addRestart();
    void addLaunchAtLogin();
    void refreshRestart();

    AppModel& model_;
    std::function<void()> onRelaunch_;
    platform::Reveal* restart_ = nullptr;
};

} // namespace quorvel
