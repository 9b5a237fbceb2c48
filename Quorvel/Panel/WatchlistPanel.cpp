// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/WatchlistPanel.h"

#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Controls/ControlStyle.h"
#include "Platform/Controls/Divider.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Model/FeedTexts.h"
#include "Quorvel/Panel/AccessibleWatchlistRow.h"
#include "Quorvel/Panel/WatchlistList.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <vector>

namespace quorvel {

using platform::Divider;
using platform::Label;
using platform::localized;

namespace {

constexpr int inset = 12;
constexpr int sectionSpacing = 10;
constexpr int emptyTextInset = 12;

// Where the texts of rows and buttons begin, so that all lines up.
constexpr int textInset = platform::ControlStyle::flatButtonPadding;

constexpr int searchSize = 13;
constexpr int calloutSize = 12;
constexpr int captionSize = 11;
constexpr int smallCaptionSize = 10;

} // namespace

WatchlistPanel::WatchlistPanel(AppModel& model, std::function<void()> onOpenSettings,
                               QWidget* parent)
    : QWidget(parent), model_(model), onOpenSettings_(std::move(onOpenSettings)) {
    installAccessibleWatchlist();
    setFixedWidth(panelWidth);
    // The list reaches the panel's right edge: its scroll bar appears beside the rows.
    auto* const sections = new QVBoxLayout(this);
    sections->setContentsMargins(inset, inset, 0, inset);
    sections->setSpacing(sectionSpacing);
    auto* const top = new QVBoxLayout;
    auto* const bottom = new QVBoxLayout;
    for (QVBoxLayout* const part : {top, bottom}) {
        part->setContentsMargins(0, 0, inset, 0);
        part->setSpacing(sectionSpacing);
    }
    addSearch(*top);
    sections->addLayout(top);
    addWatchlist(*top, *sections);
    sections->addLayout(bottom);
    addQuestion(*bottom);
    addMessages(*bottom);
    bottom->addWidget(new Divider(this));
    addFooter(*bottom);
    followModel();
    refreshWarning();
    refreshQuestion();
    refreshMessages();
}

Label* WatchlistPanel::addMessage(QVBoxLayout& layout, Label::Tone tone, int fontSize) {
    auto* const line = new Label(tone, fontSize, this);
    line->setContentsMargins(textInset, 0, textInset, 0);
    layout.addWidget(line);
    return line;
}

void WatchlistPanel::addSearch(QVBoxLayout& layout) {
    warning_ = addMessage(layout, Label::Tone::warning, smallCaptionSize);
    makeSearchField();
    results_ = new SearchResults(model_, this);
    layout.addWidget(search_);
    layout.addWidget(results_);
    connect(search_, &QLineEdit::returnPressed, this, &WatchlistPanel::addFirstResult);
    connect(results_, &SearchResults::added, this, &WatchlistPanel::focusSearch);
}

void WatchlistPanel::makeSearchField() {
    search_ = new QLineEdit(model_.searchQuery(), this);
    search_->setObjectName(QStringLiteral("search"));
    platform::ControlStyle::setPrompt(*search_, localized("Quorvel", "Search coins, e.g. BTC"));
    search_->setFont(platform::systemFont(searchSize));
    connect(search_, &QLineEdit::textEdited, &model_, &AppModel::setSearchQuery);
    connect(&model_, &AppModel::searchQueryChanged, search_, [this] {
        if (search_->text() != model_.searchQuery())
            search_->setText(model_.searchQuery());
    });
}

void WatchlistPanel::addWatchlist(QVBoxLayout& top, QVBoxLayout& sections) {
    emptyText_ = addMessage(top, Label::Tone::secondary, calloutSize);
    emptyText_->setAlignment(Qt::AlignCenter);
    emptyText_->setContentsMargins(0, emptyTextInset, 0, emptyTextInset);
    rows_ = new WatchlistRows(model_, onOpenSettings_);
    list_ = new WatchlistList(rows_, this);
    sections.addWidget(list_, 1);
    connect(rows_, &WatchlistRows::focusLost, this, &WatchlistPanel::focusSearch);
}

void WatchlistPanel::addMessages(QVBoxLayout& layout) {
    persistError_ = addMessage(layout, Label::Tone::error, smallCaptionSize);
    outage_ = addMessage(layout, Label::Tone::warning, captionSize);
    loadError_ = addMessage(layout, Label::Tone::secondary, captionSize);
    tryAgain_ = makeButton(localized("Quorvel", "Try Again"), "tryAgain");
    mirror_ = makeButton(localized("Quorvel", "Use the Data-Only Mirror"), "mirror");
    addButtons(layout, {tryAgain_, mirror_});
    connect(tryAgain_, &QPushButton::clicked, &model_, &AppModel::catchUp);
    connect(mirror_, &QPushButton::clicked, this, [this] {
        model_.exchange().chooseMirror();
        model_.relaunchApplication();
    });
    hint_ = addMessage(layout, Label::Tone::tertiary, smallCaptionSize);
}

void WatchlistPanel::addQuestion(QVBoxLayout& layout) {
    question_ = addMessage(layout, Label::Tone::primary, captionSize);
    yes_ = makeButton(localized("Quorvel", "Yes"), "pricesSeen");
    otherwise_ = makeButton(localized("Quorvel", "No, Show Them Otherwise…"), "pricesUnseen");
    addButtons(layout, {yes_, otherwise_});
    connect(yes_, &QPushButton::clicked, &model_.presentation(), &PresentationChoice::confirm);
    connect(otherwise_, &QPushButton::clicked, this, [this] {
        model_.presentation().confirm();
        onOpenSettings_();
    });
}

void WatchlistPanel::addButtons(QVBoxLayout& layout, std::initializer_list<QPushButton*> buttons) {
    auto* const line = new QHBoxLayout;
    for (QPushButton* const button : buttons)
        line->addWidget(button);
    line->addStretch();
    layout.addLayout(line);
}

QPushButton* WatchlistPanel::makeButton(const QString& text, const char* name) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setFlat(true);
    button->setFont(platform::systemFont(calloutSize));
    return button;
}

void WatchlistPanel::addFooter(QVBoxLayout& layout) {
    settings_ = makeButton(localized("Quorvel", "Settings…"), "settings");
    quit_ = makeButton(localized("Quorvel", "Quit"), "quit");
    auto* const footer = new QHBoxLayout;
    footer->setSpacing(0);
    footer->addWidget(settings_);
    footer->addStretch();
    footer->addWidget(quit_);
    layout.addLayout(footer);
    connect(settings_, &QPushButton::clicked, this, [this] { onOpenSettings_(); });
    connect(quit_, &QPushButton::clicked, this, &WatchlistPanel::quitRequested);
}

void WatchlistPanel::followModel() {
    const NotificationCoordinator& notifications = model_.notifications();
    connect(&notifications, &NotificationCoordinator::isAuthorizedChanged, this,
            &WatchlistPanel::refreshWarning);
    connect(&notifications, &NotificationCoordinator::hasRequestedAuthorizationChanged, this,
            &WatchlistPanel::refreshWarning);
    connect(&model_.alerts(), &AlertStore::rulesChanged, this, &WatchlistPanel::refreshWarning);
    connect(&model_.watchlist(), &WatchlistStore::itemsChanged, this,
            &WatchlistPanel::refreshMessages);
    connect(&model_.watchlist(), &WatchlistStore::lastPersistErrorChanged, this,
            &WatchlistPanel::refreshMessages);
    connect(&model_.presentation(), &PresentationChoice::questionChanged, this,
            &WatchlistPanel::refreshQuestion);
    connect(&model_, &AppModel::loadErrorChanged, this, &WatchlistPanel::refreshMessages);
    connect(&model_.feed(), &FeedStatus::outageChanged, this, &WatchlistPanel::refreshMessages);
}

void WatchlistPanel::refreshWarning() {
    const NotificationCoordinator& notifications = model_.notifications();
    const bool isOff = !notifications.isAuthorized() && notifications.hasRequestedAuthorization() &&
                       !model_.alerts().rules().empty();
    warning_->setMessage(isOff
                             ? std::optional(localized(
                                   "Quorvel", "Notifications are off — alerts can't be delivered"))
                             : std::nullopt);
}

void WatchlistPanel::refreshQuestion() {
    const bool isDue = model_.presentation().isQuestionDue();
    question_->setMessage(
        isDue ? std::optional(localized("Quorvel", "Can you see the prices in the panel?"))
              : std::nullopt);
    for (QPushButton* const answer : {yes_, otherwise_})
        answer->setVisible(isDue);
}

void WatchlistPanel::refreshMessages() {
    const std::size_t pairs = model_.watchlist().items().size();
    const auto when = [](bool holds, const QString& text) {
        return holds ? std::optional(text) : std::nullopt;
    };
    emptyText_->setMessage(
        when(pairs == 0, localized("Quorvel", "No coins yet — search to add one")));
    list_->setVisible(pairs > 0);
    list_->updateGeometry();
    persistError_->setMessage(model_.watchlist().lastPersistError());
    const auto& outage = model_.feed().outage();
    outage_->setMessage(outage ? std::optional(FeedTexts::notice(*outage, model_.now()))
                               : std::nullopt);
    loadError_->setMessage(model_.loadError());
    tryAgain_->setVisible(outage || model_.loadError());
    constexpr int restricted = 451;
    mirror_->setVisible(outage && outage->status == restricted && model_.exchange().isUsual());
    hint_->setMessage(when(pairs >= 2, localized("Quorvel", "Right-click a coin to reorder")));
}

void WatchlistPanel::focusSearch() {
    search_->setFocus(Qt::OtherFocusReason);
    search_->selectAll();
}

void WatchlistPanel::addFirstResult() {
    const auto choices = results_->choices();
    if (!choices.empty())
        choices.front()->click();
}

bool WatchlistPanel::focusNextPrevChild(bool isNext) {
    // Of a long list only one row is on the way; arrows lead to the others.
    std::vector<QWidget*> stops{search_};
    std::ranges::copy(results_->choices(), std::back_inserter(stops));
    if (WatchlistRow* const row = rows_->currentRow()) {
        stops.push_back(row);
        stops.push_back(&row->removeButton());
    }
    for (QPushButton* const button : {yes_, otherwise_, tryAgain_, mirror_}) {
        if (button->isVisible())
            stops.push_back(button);
    }
    stops.insert(stops.end(), {settings_, quit_});
    const auto found = std::ranges::find(stops, focusWidget());
    const std::size_t here = found == stops.end() ? 0 : std::size_t(found - stops.begin());
    const std::size_t step = isNext ? 1 : stops.size() - 1;
    stops[(here + step) % stops.size()]->setFocus(isNext ? Qt::TabFocusReason
                                                         : Qt::BacktabFocusReason);
    return true;
}

void WatchlistPanel::keyPressEvent(QKeyEvent* event) {
    const auto steps = focusSteps(*event);
    if (!steps || !moveFocus(*steps))
        QWidget::keyPressEvent(event);
}

std::optional<std::ptrdiff_t> WatchlistPanel::focusSteps(const QKeyEvent& event) const {
    if (event.modifiers() & ~Qt::KeypadModifier)
        return std::nullopt;
    if (event.key() == Qt::Key_Up)
        return -1;
    if (event.key() == Qt::Key_Down)
        return 1;
    const auto row = rows_->focusedRow();
    if (!row)
        return std::nullopt;
    const auto place = static_cast<std::ptrdiff_t>(*row);
    const auto last = static_cast<std::ptrdiff_t>(rows_->count()) - 1;
    switch (event.key()) {
    case Qt::Key_PageUp:
        return std::max<std::ptrdiff_t>(-list_->rowsInSight(), -place);
    case Qt::Key_PageDown:
        return std::min<std::ptrdiff_t>(list_->rowsInSight(), last - place);
    case Qt::Key_Home:
        return -place;
    case Qt::Key_End:
        return last - place;
    default:
        return std::nullopt;
    }
}

bool WatchlistPanel::moveFocus(std::ptrdiff_t steps) {
    // One column: the field, the results, the rows.
    const auto choices = results_->choices();
    const auto results = std::ssize(choices);
    std::ptrdiff_t place = 0;
    const auto focused = std::ranges::find(choices, focusWidget());
    if (focused != choices.end())
        place = 1 + (focused - choices.begin());
    else if (const auto row = rows_->focusedRow())
        place = 1 + results + static_cast<std::ptrdiff_t>(*row);
    else if (!search_->hasFocus())
        return false;
    const auto last = results + static_cast<std::ptrdiff_t>(rows_->count());
    place = std::clamp<std::ptrdiff_t>(place + steps, 0, last);
    if (place == 0)
        focusSearch();
    else if (place <= results)
        choices[static_cast<std::size_t>(place - 1)]->setFocus(Qt::OtherFocusReason);
    else
        rows_->focusRow(static_cast<std::size_t>(place - results - 1));
    return true;
}

} // namespace quorvel
