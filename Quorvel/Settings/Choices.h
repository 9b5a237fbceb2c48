// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/Picker.h"
#include "QuorvelKit/Stores/SettingsStore.h"

#include <QString>

#include <utility>
#include <vector>

namespace quorvel {

/// What a picker or a group of radio buttons offers, in the order shown.
template <typename Value>
using Choices = std::vector<std::pair<Value, QString>>;

/// Every case of the enumeration under its own label.
template <RawRepresentable Value>
Choices<Value> labelledCases() {
    Choices<Value> choices;
    for (const Value value : allCases<Value>())
        choices.emplace_back(value, label(value));
    return choices;
}

/// Keeps a control with `currentIndex` and a value that is stored elsewhere at one: what the user
/// chooses is written at once, and `changed` of `store` brings what was written by others.
///
/// @param control already shows the texts of `choices`
/// @param read    gives the stored value
/// @param write   stores one
template <typename Control, typename Value, typename Store>
void bindChoices(Control& control, const Choices<Value>& choices, Store& store,
                 void (Store::*changed)(), auto read, auto write) {
    const auto show = [&control, choices, read] {
        for (std::size_t i = 0; i < choices.size(); ++i) {
            if (choices[i].first == read())
                control.setCurrentIndex(static_cast<int>(i));
        }
    };
    show();
    QObject::connect(&store, changed, &control, show);
    QObject::connect(&control, &Control::currentIndexChanged, &control,
                     [choices, read, write](int index) {
                         const Value chosen = choices.at(static_cast<std::size_t>(index)).first;
                         if (chosen != read())
                             write(chosen);
                     });
}

/// The same for one field of the display settings.
template <typename Control, typename Value>
void bindDisplay(Control& control, const Choices<Value>& choices, SettingsStore& settings,
                 Value DisplaySettings::* field) {
    bindChoices(
        control, choices, settings, &SettingsStore::displayChanged,
        [&settings, field] { return settings.display().*field; },
        [&settings, field](Value value) {
            DisplaySettings display = settings.display();
            display.*field = value;
            settings.setDisplay(display);
        });
}

/// A picker of these choices.
template <typename Value>
platform::Picker* makePicker(const Choices<Value>& choices) {
    auto* const picker = new platform::Picker;
    for (const auto& choice : choices)
        picker->addItem(choice.second);
    return picker;
}

} // namespace quorvel
