// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Settings/FormSection.h"
#include "QuorvelKit/Stores/SettingsStore.h"

namespace quorvel {

/// The settings of theme, colours and chart.
class AppearanceSection final : public FormSection {
    Q_OBJECT

public:
    /// @param settings must outlive the section
    explicit AppearanceSection(SettingsStore& settings, QWidget* parent = nullptr);

private:
    void addColorScheme(SettingsStore& settings);
};

} // namespace quorvel
