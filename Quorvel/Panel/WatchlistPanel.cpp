#include "Quorvel/Panel/WatchlistPanel.h"

#include "Platform/Desktop/OverlayScrollBar.h"
#include "Platform/Desktop/PlainButton.h"
#include "Platform/Desktop/SystemFonts.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Panel/AccessibleWatchlistRow.h"
#include "Quorvel/Panel/Divider.h"
#include "Quorvel/Panel/WatchlistList.h"

#include <QBoxLayout>
#include <QKeyEvent>

#include <algorithm>

namespace quorvel {

using platform::localized;
using Kind = MessageLine::Kind;

namespace {

constexpr int inset = 12;
constexpr int sectionSpacing = 10;
constexpr int emptyTextInset = 12;

// Where the texts of rows and buttons begin, so that all lines up.
constexpr int textInset = platform::PlainButton::horizontalPadding;

constexpr int calloutSize = 12;
constexpr int captionSize = 11;
constexpr int smallCaptionSize = 10;

} // namespace

WatchlistPanel::WatchlistPanel(AppModel& model, std::function<void()> onOpenSettings,
                               QWidget* parent)
    : QWidget(parent), model_(model), onOpenSettings_(std::move(onOpenSettings)) {
    installAccessibleWatchlist();
    setFixedWidth(panelWidth);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(inset, inset, inset, inset);
    layout->setSpacing(sectionSpacing);
    warning_ = addMessage(Kind::warning, smallCaptionSize);
    addSearch(*layout);
    addWatchlist(*layout);
    persistError_ = addMessage(Kind::error, smallCaptionSize);
    loadError_ = addMessage(Kind::secondary, captionSize);
    hint_ = addMessage(Kind::tertiary, smallCaptionSize);
    layout->addWidget(new Divider(this));
    addFooter(*layout);
    followModel();
    refreshWarning();
    refreshMessages();
}

MessageLine* WatchlistPanel::addMessage(Kind kind, int fontSize) {
    auto* const line = new MessageLine(kind, fontSize, this);
    line->setContentsMargins(textInset, 0, textInset, 0);
    layout()->addWidget(line);
    return line;
}

void WatchlistPanel::addSearch(QVBoxLayout& layout) {
    search_ = new SearchField(model_, this);
    results_ = new SearchResults(model_, this);
    layout.addWidget(search_);
    layout.addWidget(results_);
    connect(search_, &QLineEdit::returnPressed, this, &WatchlistPanel::addFirstResult);
    connect(results_, &SearchResults::added, this, &WatchlistPanel::focusSearch);
}

void WatchlistPanel::addWatchlist(QVBoxLayout& layout) {
    emptyText_ = new MessageLine(Kind::secondary, calloutSize, this);
    emptyText_->setAlignment(Qt::AlignCenter);
    emptyText_->setContentsMargins(0, emptyTextInset, 0, emptyTextInset);
    rows_ = new WatchlistRows(model_, onOpenSettings_);
    list_ = new WatchlistList(rows_, this);
    layout.addWidget(emptyText_);
    // The scroll bar appears between the rows and the panel's edge.
    auto* const stretched = new QHBoxLayout;
    stretched->setContentsMargins(0, 0, -platform::OverlayScrollBar::breadth, 0);
    stretched->addWidget(list_);
    layout.addLayout(stretched, 1);
    connect(rows_, &WatchlistRows::focusLost, this, &WatchlistPanel::focusSearch);
}

void WatchlistPanel::addFooter(QVBoxLayout& layout) {
    const auto add = [this](const QString& text, const char* name) {
        auto* const button = new platform::PlainButton(text, this);
        button->setObjectName(QString::fromLatin1(name));
        button->setFont(platform::systemFont(calloutSize));
        return button;
    };
    auto* const settings = add(localized("Quorvel", "Settings…"), "settings");
    auto* const quit = add(localized("Quorvel", "Quit"), "quit");
    auto* const footer = new QHBoxLayout;
    footer->setSpacing(0);
    footer->addWidget(settings);
    footer->addStretch();
    footer->addWidget(quit);
    layout.addLayout(footer);
    connect(settings, &QAbstractButton::clicked, this, [this] { onOpenSettings_(); });
    connect(quit, &QAbstractButton::clicked, this, &WatchlistPanel::quitRequested);
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
    connect(&model_, &AppModel::loadErrorChanged, this, &WatchlistPanel::refreshMessages);
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
    loadError_->setMessage(model_.loadError());
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

void WatchlistPanel::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    const bool isHandled = isPlain && ((event->key() == Qt::Key_Up && moveFocus(-1)) ||
                                       (event->key() == Qt::Key_Down && moveFocus(1)));
    if (!isHandled)
        QWidget::keyPressEvent(event);
}

bool WatchlistPanel::moveFocus(int steps) {
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
