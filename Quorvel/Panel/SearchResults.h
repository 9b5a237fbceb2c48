// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"

#include <QWidget>

#include <cstddef>
#include <span>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace quorvel {

/// The pairs that the search text finds, each a button that adds it, above a line. A pair that the
/// watchlist's file could not hold is disabled, with the reason beside its name. Hidden while there
/// are none.
class SearchResults final : public QWidget {
    Q_OBJECT

public:
    static constexpr std::size_t matchLimit = 20;
    static constexpr std::size_t shownLimit = 6;

    /// @param model must outlive the view
    explicit SearchResults(AppModel& model, QWidget* parent = nullptr);

    /// The shown buttons that can be pressed, from the top.
    std::vector<QPushButton*> choices() const;

Q_SIGNALS:
    /// A pair was added, and the results with the keyboard in them are gone.
    void added();

private:
    struct Result {
        QPushButton* button = nullptr;
        QLabel* reason = nullptr; ///< why it is disabled
        Symbol symbol;
    };

    void refresh();
    Result makeResult(std::size_t index);
    static void show(Result& result, const Symbol& symbol, std::span<const Symbol> matches);

    AppModel& model_;
    QVBoxLayout* list_;
    std::vector<Result> results_; ///< as many as were ever needed
};

} // namespace quorvel
