// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"

#include <QWidget>

#include <cstddef>
#include <vector>

class QAbstractButton;
class QVBoxLayout;

namespace quorvel {

class SearchResultButton;

/// The pairs that the search text finds, each a button that adds it, above a line. Hidden while
/// there are none.
class SearchResults final : public QWidget {
    Q_OBJECT

public:
    static constexpr std::size_t matchLimit = 20;
    static constexpr std::size_t shownLimit = 6;

    /// @param model must outlive the view
    explicit SearchResults(AppModel& model, QWidget* parent = nullptr);

    /// The shown buttons that can be pressed, from the top.
    std::vector<QAbstractButton*> choices() const;

Q_SIGNALS:
    /// A pair was added, and the results with the keyboard in them are gone.
    void added();

private:
    void refresh();
    void makeButtons(std::size_t count);

    AppModel& model_;
    QVBoxLayout* list_;
    std::vector<SearchResultButton*> buttons_; ///< as many as were ever needed
};

} // namespace quorvel
