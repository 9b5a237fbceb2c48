// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/SearchField.h"

#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Foundation/StringTable.h"

namespace quorvel {

namespace {

constexpr int fontSize = 13;

} // namespace

SearchField::SearchField(AppModel& model, QWidget* parent) : TextField(parent) {
    setObjectName(QStringLiteral("search"));
    setPrompt(platform::localized("Quorvel", "Search coins, e.g. BTC"));
    setFont(platform::systemFont(fontSize));
    setText(model.searchQuery());
    connect(this, &QLineEdit::textChanged, &model, &AppModel::setSearchQuery);
    connect(&model, &AppModel::searchQueryChanged, this, [this, &model] {
        if (text() != model.searchQuery())
            setText(model.searchQuery());
    });
}

} // namespace quorvel
