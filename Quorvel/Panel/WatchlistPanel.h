#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Panel/MessageLine.h"
#include "Quorvel/Panel/SearchField.h"
#include "Quorvel/Panel/SearchResults.h"
#include "Quorvel/Panel/WatchlistRows.h"

#include <QWidget>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace quorvel {

/// The content of the popover: the search for pairs, the watchlist, messages, and the way to the
/// settings and out. Everything it shows is the model's.
class WatchlistPanel final : public QWidget {
    Q_OBJECT

public:
    static constexpr int panelWidth = 320;

    /// @param model          must outlive the panel
    /// @param onOpenSettings opens the settings window
    WatchlistPanel(AppModel& model, std::function<void()> onOpenSettings,
                   QWidget* parent = nullptr);

    /// Lets the user type at once.
    void focusSearch();

Q_SIGNALS:
    /// The user asks the program to end.
    void quitRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    MessageLine* addMessage(MessageLine::Kind kind, int fontSize);
    void addSearch(QVBoxLayout& layout);
    void addWatchlist(QVBoxLayout& layout);
    void addFooter(QVBoxLayout& layout);
    void followModel();
    void refreshWarning();
    void refreshMessages();
    void addFirstResult();
    bool moveFocus(int steps);

    AppModel& model_;
    std::function<void()> onOpenSettings_;
    MessageLine* warning_;
    SearchField* search_;
    SearchResults* results_;
    MessageLine* emptyText_;
    WatchlistRows* rows_;
    QWidget* list_;
    MessageLine* persistError_;
    MessageLine* loadError_;
    MessageLine* hint_;
};

} // namespace quorvel
