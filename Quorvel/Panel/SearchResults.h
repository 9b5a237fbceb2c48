#pragma once

#include "Platform/Desktop/PlainButton.h"
#include "Quorvel/Model/AppModel.h"

#include <QWidget>

#include <array>
#include <vector>

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

    AppModel& model_;
    std::array<SearchResultButton*, shownLimit> buttons_;
};

} // namespace quorvel
