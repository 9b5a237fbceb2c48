// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/SearchResults.h"

#include "Platform/Controls/Divider.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Panel/SearchResultButton.h"
#include "QuorvelKit/MarketData/SymbolSearch.h"

#include <QVBoxLayout>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int resultSpacing = 2;
constexpr int dividerSpacing = 10;

} // namespace

SearchResults::SearchResults(AppModel& model, QWidget* parent)
    : QWidget(parent), model_(model), list_(new QVBoxLayout) {
    setObjectName(QStringLiteral("results"));
    setAccessibleName(platform::localized("Quorvel", "Search results"));
    auto* const sections = new QVBoxLayout(this);
    sections->setContentsMargins(0, 0, 0, 0);
    sections->setSpacing(dividerSpacing);
    list_->setSpacing(resultSpacing);
    sections->addLayout(list_);
    sections->addWidget(new platform::Divider(this));
    connect(&model, &AppModel::searchQueryChanged, this, &SearchResults::refresh);
    connect(&model, &AppModel::availableSymbolsChanged, this, &SearchResults::refresh);
    refresh();
}

std::vector<QAbstractButton*> SearchResults::choices() const {
    std::vector<QAbstractButton*> choices;
    for (SearchResultButton* const button : buttons_) {
        if (!button->isHidden() && button->isEnabled())
            choices.push_back(button);
    }
    return choices;
}

void SearchResults::makeButtons(std::size_t count) {
    while (buttons_.size() < count) {
        auto* const button = new SearchResultButton(this);
        list_->addWidget(button);
        connect(button, &QAbstractButton::clicked, this, [this, button] {
            model_.addSymbol(button->pair());
            Q_EMIT added();
        });
        buttons_.push_back(button);
    }
}

void SearchResults::refresh() {
    const auto matches =
        SymbolSearch::match(model_.searchQuery(), model_.availableSymbols(), matchLimit);
    makeButtons(std::min(matches.size(), shownLimit));
    const SearchResultButton* first = nullptr;
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        SearchResultButton& button = *buttons_[i];
        button.setVisible(i < matches.size());
        if (i >= matches.size())
            continue;
        button.setPair(matches[i]);
        if (!first && button.isEnabled())
            first = &button;
        button.setDefault(&button == first);
    }
    setVisible(!matches.empty());
}

} // namespace quorvel
