// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Stores/SettingsStore.h"

#include <QComboBox>
#include <QString>

#include <algorithm>
#include <utility>
#include <vector>

namespace quorvel {

/// What a combo box or a group of radio buttons offers, in the order shown.
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

/// A combo box of these choices.
template <typename Value>
QComboBox* makeComboBox(const Choices<Value>& choices) {
    auto* const box = new QComboBox;
    for (const auto& choice : choices)
        box->addItem(choice.second);
    return box;
}

/// The same, which shows a value that is stored elsewhere: what the user chooses is written at
/// once, and `changed` of `store` brings what was written by others.
///
/// @param read  gives the stored value
/// @param write stores one
template <typename Value, typename Store>
QComboBox* makeComboBox(const Choices<Value>& choices, Store& store, void (Store::*changed)(),
                        auto read, auto write) {
    QComboBox* const box = makeComboBox(choices);
    const auto show = [box, choices, read] {
        const auto found = std::ranges::find(choices, read(), &Choices<Value>::value_type::first);
        box->setCurrentIndex(static_cast<int>(found - choices.begin()));
    };
    show();
    QObject::connect(&store, changed, box, show);
    QObject::connect(box, &QComboBox::activated, box, [choices, read, write](int index) {
        const Value chosen = choices.at(static_cast<std::size_t>(index)).first;
        if (chosen != read())
            write(chosen);
    });
    return box;
}

/// Writes one field of the display settings, where that changes it.
template <typename Value>
void setField(SettingsStore& settings, Value DisplaySettings::* field, Value value) {
    DisplaySettings display = settings.display();
    if (std::exchange(display.*field, value) != value)
        settings.setDisplay(display);
}

/// A combo box for one field of the display settings.
template <typename Value>
QComboBox* makeComboBox(const Choices<Value>& choices, SettingsStore& settings,
                        Value DisplaySettings::* field) {
    return makeComboBox(
        choices, settings, &SettingsStore::displayChanged,
        [&settings, field] { return settings.display().*field; },
        [&settings, field](Value value) { setField(settings, field, value); });
}

} // namespace quorvel
