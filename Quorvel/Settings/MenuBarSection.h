// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/PresentationChoice.h"
#include "Quorvel/Settings/FormSection.h"
#include "QuorvelKit/Stores/SettingsStore.h"

class QSpinBox;

namespace quorvel {

class FormRow;

/// The settings of what the status item shows.
class MenuBarSection final : public FormSection {
    Q_OBJECT

public:
    /// Both must outlive the section.
    MenuBarSection(SettingsStore& settings, PresentationChoice& presentation,
                   QWidget* parent = nullptr);

private:
    void addPresentation();
    void addDisplay();
    void addRotation();
    void addSideBySide();
    void addContent();
    void addSwitch(const QString& label, bool DisplaySettings::* field);
    void refresh();

    SettingsStore& settings_;
    PresentationChoice& presentation_;
    QWidget* fixedHint_ = nullptr;
    FormRow* rotationRow_ = nullptr;
    QSpinBox* rotation_ = nullptr;
    FormRow* limitRow_ = nullptr;
    QSpinBox* limit_ = nullptr;
};

} // namespace quorvel
