// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Settings/FormSection.h"

namespace quorvel {

/// The settings of language and launch at login.
class GeneralSection final : public FormSection {
    Q_OBJECT

public:
    /// @param model must outlive the section
    explicit GeneralSection(AppModel& model, QWidget* parent = nullptr);

private:
    void addLanguage();
    void addRestart();
    void addLaunchAtLogin();
    void addMirror();

    AppModel& model_;
};

} // namespace quorvel
