// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/SearchResults.h"

#include "Platform/Appearance/SymbolIcon.h"
#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Controls/ControlStyle.h"
#include "Platform/Controls/Divider.h"
#include "Platform/Controls/Label.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/MarketData/SymbolSearch.h"
#include "QuorvelKit/MarketModel/DisplayName.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvel {

using platform::localized;

namespace {

constexpr int resultSpacing = 2;
constexpr int dividerSpacing = 10;
constexpr int fontSize = 13;
constexpr int symbolSize = 14;
constexpr int reasonSize = 10;

} // namespace

SearchResults::SearchResults(AppModel& model, QWidget* parent)
    : QWidget(parent), model_(model), list_(new QVBoxLayout) {
    setObjectName(QStringLiteral("results"));
    setAccessibleName(localized("Quorvel", "Search results"));
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

std::vector<QPushButton*> SearchResults::choices() const {
    std::vector<QPushButton*> choices;
    for (const Result& result : results_) {
        if (!result.button->isHidden() && result.button->isEnabled())
            choices.push_back(result.button);
    }
    return choices;
}

SearchResults::Result SearchResults::makeResult(std::size_t index) {
    auto* const button = new QPushButton;
    button->setFlat(true);
    button->setFont(platform::systemFont(fontSize));
    button->setIcon(platform::symbolIcon(QStringLiteral("plus-circle")));
    button->setIconSize({symbolSize, symbolSize});
    auto* const reason = new platform::Label(platform::Label::Tone::tertiary, reasonSize);
    reason->setWordWrap(false);
    reason->setText(localized("Quorvel", "Can't be saved in the watchlist"));
    auto* const line = new QHBoxLayout(button);
    line->setContentsMargins(0, 0, platform::ControlStyle::flatButtonPadding, 0);
    line->addStretch();
    line->addWidget(reason);
    list_->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, index] {
        model_.addSymbol(Symbol(results_[index].symbol));
        Q_EMIT added();
    });
    return {button, reason, {}};
}

void SearchResults::show(Result& result, const Symbol& symbol, std::span<const Symbol> matches) {
    result.symbol = symbol;
    const QString name = displayName(symbol, matches);
    const bool isStorable = symbol.isStorable();
    result.button->setText(QString(name).replace(u'&', QStringLiteral("&&")));
    result.button->setEnabled(isStorable);
    result.button->setAccessibleName(localized("Quorvel", "Add %1").arg(name));
    result.button->setAccessibleDescription(isStorable ? QString() : result.reason->text());
    result.button->setToolTip(result.button->accessibleDescription());
    result.reason->setVisible(!isStorable);
}

void SearchResults::refresh() {
    const auto matches =
        SymbolSearch::match(model_.searchQuery(), model_.availableSymbols(), matchLimit);
    while (results_.size() < std::min(matches.size(), shownLimit))
        results_.push_back(makeResult(results_.size()));
    bool hasDefault = false;
    for (std::size_t i = 0; i < results_.size(); ++i) {
        QPushButton& button = *results_[i].button;
        button.setVisible(i < matches.size());
        if (i >= matches.size())
            continue;
        show(results_[i], matches[i], matches);
        // What Enter in the search field presses.
        button.setDefault(!hasDefault && button.isEnabled());
        hasDefault |= button.isEnabled();
    }
    setVisible(!matches.empty());
}

} // namespace quorvel
