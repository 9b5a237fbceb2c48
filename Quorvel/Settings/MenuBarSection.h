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
    platform::Reveal* fixedHint_;
    FormRow* rotationRow_;
    platform::Stepper* rotation_;
    platform::Reveal* rotationReveal_;
    FormRow* limitRow_;
    platform::Stepper* limit_;
    platform::Reveal* limitReveal_;
};

} // namespace quorvel
