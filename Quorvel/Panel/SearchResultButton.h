// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/PlainButton.h"
#include "QuorvelKit/MarketModel/Symbol.h"

namespace quorvel {

/// A pair that was found. Disabled, with the reason beside its name, where the watchlist's file
/// could not hold it.
class SearchResultButton final : public platform::PlainButton {
    Q_OBJECT

public:
    explicit SearchResultButton(QWidget* parent);

    const Symbol& pair() const { return symbol_; }
    void setPair(const Symbol& symbol);

    /// Whether Enter in the search field presses this one.
    void setDefault(bool isDefault);

protected:
    QColor foreground() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    Symbol symbol_;
    bool isDefault_ = false;
};

} // namespace quorvel
