// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/Label.h"
#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Panel/SearchResults.h"
#include "Quorvel/Panel/WatchlistRows.h"

#include <QWidget>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <optional>

class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace quorvel {

class WatchlistList;

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
    bool focusNextPrevChild(bool isNext) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    platform::Label* addMessage(QVBoxLayout& layout, platform::Label::Tone tone, int fontSize);
    void makeSearchField();
    QPushButton* makeButton(const QString& text, const char* name);
    void addSearch(QVBoxLayout& layout);
    void addWatchlist(QVBoxLayout& top, QVBoxLayout& sections);
    void addMessages(QVBoxLayout& layout);
    void addQuestion(QVBoxLayout& layout);
    void addButtons(QVBoxLayout& layout, std::initializer_list<QPushButton*> buttons);
    void addFooter(QVBoxLayout& layout);
    void followModel();
    void refreshWarning();
    void refreshQuestion();
    void refreshMessages();
    void addFirstResult();
    std::optional<std::ptrdiff_t> focusSteps(const QKeyEvent& event) const;
    bool moveFocus(std::ptrdiff_t steps);

    AppModel& model_;
    std::function<void()> onOpenSettings_;
    platform::Label* warning_ = nullptr;
    QLineEdit* search_ = nullptr;
    SearchResults* results_ = nullptr;
    platform::Label* emptyText_ = nullptr;
    WatchlistRows* rows_ = nullptr;
    WatchlistList* list_ = nullptr;
    platform::Label* persistError_ = nullptr;
    platform::Label* question_ = nullptr;
    QPushButton* yes_ = nullptr;
    QPushButton* otherwise_ = nullptr;
    platform::Label* outage_ = nullptr;
    platform::Label* loadError_ = nullptr;
    QPushButton* tryAgain_ = nullptr;
    QPushButton* mirror_ = nullptr;
    platform::Label* hint_ = nullptr;
    QPushButton* settings_ = nullptr;
    QPushButton* quit_ = nullptr;
};

} // namespace quorvel
