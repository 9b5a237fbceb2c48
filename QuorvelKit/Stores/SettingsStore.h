// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/UserDefaults.h"
#include "QuorvelKit/Stores/AppLanguage.h"
#include "QuorvelKit/Stores/AppearanceMode.h"
#include "QuorvelKit/Stores/DisplaySettings.h"

#include <QObject>
#include <QProperty>

namespace quorvel {

/// The user's settings, kept in the preferences. Owned by the delegate, which hands it to the
/// application model; main thread.
///
/// Loading takes each value on its own and falls back where it is missing or makes no sense; it
/// writes nothing. Every assignment is written at once, an equal value too; observers hear only of
/// changes.
class SettingsStore : public QObject {
    Q_OBJECT

public:
    /// @param defaults must outlive the store
    explicit SettingsStore(platform::UserDefaults& defaults);

    const DisplaySettings& display() const { return display_; }
    AppLanguage language() const { return language_; }
    AppearanceMode appearance() const { return appearance_; }

    /// Whether the last change could be written. Those that could not hold for this run.
    bool isSaved() const { return isSaved_; }

    void setDisplay(const DisplaySettings& display);

    /// Takes effect at the next launch. Also keeps the list of preferred languages in step.
    void setLanguage(AppLanguage language);
    void setAppearance(AppearanceMode appearance);

Q_SIGNALS:
    void displayChanged();
    void languageChanged();
    void appearanceChanged();
    void isSavedChanged();

private:
    platform::UserDefaults& defaults_;
    Q_OBJECT_BINDABLE_PROPERTY(SettingsStore, DisplaySettings, display_,
                               &SettingsStore::displayChanged)
    Q_OBJECT_BINDABLE_PROPERTY(SettingsStore, AppLanguage, language_,
                               &SettingsStore::languageChanged)
    Q_OBJECT_BINDABLE_PROPERTY(SettingsStore, AppearanceMode, appearance_,
                               &SettingsStore::appearanceChanged)
    Q_OBJECT_BINDABLE_PROPERTY_WITH_ARGS(SettingsStore, bool, isSaved_, true,
                                         &SettingsStore::isSavedChanged)
};

} // namespace quorvel
