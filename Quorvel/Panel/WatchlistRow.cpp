// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/WatchlistRow.h"

#include "Platform/Appearance/SymbolIcon.h"
#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Model/FeedTexts.h"
#include "Quorvel/Model/PriceColors.h"
#include "Quorvel/Panel/FittedText.h"
#include "Quorvel/Panel/RowMenu.h"
#include "QuorvelKit/MarketModel/DisplayName.h"
#include "QuorvelKit/MarketModel/PriceFormatter.h"
#include "QuorvelKit/StatusBar/StatusBarPresenter.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPushButton>
#include <QToolTip>

#include <algorithm>

namespace quorvel {

using platform::localized;
using platform::SystemColors;

namespace {

constexpr int horizontalInset = 5;
constexpr int columnSpacing = 10;
constexpr int nameWidth = 64;
constexpr int priceWidth = 104;
constexpr int removeWidth = 14;
constexpr int removeSide = 20; // what can be clicked
constexpr int removeSymbolSize = 12;
constexpr int sparklineInset = 8; // from the row's top and bottom
constexpr int firstBaseline = 19;
constexpr int secondBaseline = 35;

constexpr int lineSize = 14;
constexpr int changeSize = 11;
constexpr int quoteAssetSize = 10;
constexpr int markSize = 8;
constexpr int markSpacing = 3;

const QString noPrice = QStringLiteral("—");

QFont nameFont() {
    return platform::systemFont(lineSize, QFont::Medium);
}

QFont priceFont() {
    return platform::monospacedSystemFont(lineSize);
}

} // namespace

WatchlistRow::WatchlistRow(Symbol symbol, AppModel& model, std::function<void()> onOpenSettings,
                           QWidget* parent)
    : QWidget(parent),
      symbol_(std::move(symbol)),
      model_(model),
      onOpenSettings_(std::move(onOpenSettings)),
      sparkline_(new SparklineView(symbol_, model, this)),
      removeButton_(new QPushButton(this)) {
    setObjectName(QString::fromStdString(symbol_.base));
    removeButton_->setFlat(true);
    removeButton_->setIconSize({removeSymbolSize, removeSymbolSize});
    removeButton_->resize(removeSide, removeSide);
    removeButton_->installEventFilter(this);
    connect(removeButton_, &QAbstractButton::clicked, this,
            [this] { model_.removeSymbol(symbol_); });
    setFocusPolicy(Qt::StrongFocus);
    removeButton_->setFocusPolicy(Qt::TabFocus);
}

void WatchlistRow::refreshName(std::span<const Symbol> inSight) {
    removeButton_->setAccessibleName(
        localized("Quorvel", "Remove %1").arg(displayName(symbol_, inSight)));
}

void WatchlistRow::setLifted(bool isLifted) {
    if (std::exchange(isLifted_, isLifted) != isLifted)
        update();
}

void WatchlistRow::openMenu(QPoint at) {
    auto* const menu = new RowMenu(symbol_, index_, model_, onOpenSettings_, this);
    menu->popup(at);
}

std::optional<WatchlistRow::ShownQuote> WatchlistRow::currentQuote() const {
    const Quote* const quote = model_.quotes().quote(symbol_);
    if (!quote)
        return std::nullopt;
    using enum FeedStatus::Pair;
    const auto pair = model_.feed().of(symbol_);
    return ShownQuote{quote->lastPrice, quote->changePercent24h,
                      model_.quotes().isStale() || pair == notLive, pair != untraded};
}

void WatchlistRow::refreshQuote() {
    if (currentQuote() == painted_)
        return;
    update(priceColumn());
    if (isHovering_)
        QToolTip::hideText(); // it may tell the old price
}

bool WatchlistRow::hasEnabledAlert() const {
    return std::ranges::any_of(model_.alerts().rules(symbol_), &AlertRule::isEnabled);
}

QString WatchlistRow::spokenName() const {
    const QString pair = QString::fromStdString(symbol_.id());
    const auto quote = currentQuote();
    if (!isTraded())
        return localized("Quorvel", "%1, not traded").arg(pair);
    if (!quote)
        return localized("Quorvel", "%1, no price yet").arg(pair);
    QString name = QStringLiteral("%1, %2, %3")
                       .arg(pair, PriceFormatter::price(quote->lastPrice),
                            PriceFormatter::changePercent(quote->changePercent24h));
    return quote->isStale ? localized("Quorvel", "%1, out of date").arg(name) : name;
}

QString WatchlistRow::spokenDescription() const {
    QStringList marks;
    if (model_.watchlist().isPinned(symbol_))
        marks += localized("Quorvel", "Pinned to menu bar");
    if (hasEnabledAlert())
        marks += localized("Quorvel", "Alert set");
    if (const QString about = priceText(); !about.isEmpty())
        marks += about;
    return marks.join(QStringLiteral(", "));
}

bool WatchlistRow::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipText(), this);
        return true;
    }
    return QWidget::event(event);
}

bool WatchlistRow::isTraded() const {
    return model_.feed().of(symbol_) != FeedStatus::Pair::untraded;
}

QString WatchlistRow::priceText() const {
    return FeedTexts::price(model_.feed(), symbol_, model_.now());
}

QString WatchlistRow::toolTipText() const {
    QStringList lines{cutTexts(), priceText()};
    lines.removeAll(QString());
    return lines.join(u'\n');
}

QString WatchlistRow::cutTexts() const {
    QStringList texts;
    const auto add = [&texts](const QFont& font, double width, const QString& text) {
        if (!FittedText::fits(font, width, text))
            texts += text;
    };
    add(nameFont(), nameRoom(), QString::fromStdString(symbol_.base));
    if (const auto quote = currentQuote())
        add(priceFont(), priceWidth, PriceFormatter::price(quote->lastPrice));
    return texts.join(QStringLiteral("  "));
}

bool WatchlistRow::eventFilter(QObject* object, QEvent* event) {
    if (object != removeButton_)
        return QWidget::eventFilter(object, event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        showRemoveButton();
        if (removeButton_->hasFocus())
            Q_EMIT focused();
    } else if (event->type() == QEvent::KeyPress) {
        // Arrows lead from row to row.
        const int key = static_cast<QKeyEvent*>(event)->key();
        event->setAccepted(key != Qt::Key_Up && key != Qt::Key_Down);
        return !event->isAccepted();
    }
    return false;
}

void WatchlistRow::showRemoveButton() {
    const bool isShown = isHovering_ || removeButton_->hasFocus();
    if (isShown == removeButton_->icon().isNull())
        removeButton_->setIcon(isShown ? platform::symbolIcon(QStringLiteral("minus-circle"))
                                       : QIcon());
}

void WatchlistRow::setHovering(bool isHovering) {
    if (std::exchange(isHovering_, isHovering) == isHovering)
        return;
    showRemoveButton();
    update();
}

void WatchlistRow::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    setHovering(true);
}

void WatchlistRow::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    setHovering(false);
}

void WatchlistRow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    setHovering(false);
}

void WatchlistRow::focusInEvent(QFocusEvent* event) {
    // Price changes are not announced one by one; whoever arrives here gets the latest.
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
    QWidget::focusInEvent(event);
    Q_EMIT focused();
}

void WatchlistRow::keyPressEvent(QKeyEvent* event) {
    const auto place = static_cast<std::ptrdiff_t>(index_);
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (event->key() == Qt::Key_Delete && modifiers == Qt::NoModifier)
        model_.removeSymbol(symbol_);
    else if (event->key() == Qt::Key_Up && modifiers == Qt::AltModifier)
        model_.watchlist().moveUp(place);
    else if (event->key() == Qt::Key_Down && modifiers == Qt::AltModifier)
        model_.watchlist().moveDown(place);
    else if (event->key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier)
        openMenu(mapToGlobal(nameColumn().bottomLeft()));
    else
        QWidget::keyPressEvent(event);
}

void WatchlistRow::contextMenuEvent(QContextMenuEvent* event) {
    openMenu(event->reason() == QContextMenuEvent::Keyboard ? mapToGlobal(nameColumn().bottomLeft())
                                                            : event->globalPos());
}

double WatchlistRow::nameRoom() const {
    const int marks = (model_.watchlist().isPinned(symbol_) ? 1 : 0) + (hasEnabledAlert() ? 1 : 0);
    return nameWidth - marks * (markSpacing + markSize);
}

QRect WatchlistRow::nameColumn() const {
    return {horizontalInset, 0, nameWidth, height()};
}

QRect WatchlistRow::priceColumn() const {
    const int right = width() - horizontalInset - removeWidth - columnSpacing;
    return {right - priceWidth, 0, priceWidth, height()};
}

void WatchlistRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    constexpr int out = SparklineView::margin;
    const int left = nameColumn().right() + 1 + columnSpacing;
    const QRect area(left, sparklineInset, priceColumn().left() - columnSpacing - left,
                     height() - 2 * sparklineInset);
    sparkline_->setGeometry(area.adjusted(-out, -out, out, out));
    const QPoint center(width() - horizontalInset - removeWidth / 2, height() / 2);
    removeButton_->move(center - removeButton_->rect().center() - QPoint(1, 1));
}

void WatchlistRow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const auto colors = SystemColors::of(palette());
    if (isLifted_)
        platform::ControlMarks::paintFill(painter, rect(), colors.background);
    if (isHovering_ || isLifted_)
        platform::ControlMarks::paintFill(painter, rect(),
                                          isLifted_ ? colors.pressed : colors.hover);
    // Mostly it is the price alone that has changed.
    if (event->rect().intersects(nameColumn()))
        paintNames(painter);
    if (event->rect().intersects(priceColumn()))
        paintQuote(painter);
    if (hasFocus())
        platform::ControlMarks::paintFocus(painter, rect(), colors.accent);
}

void WatchlistRow::paintNames(QPainter& painter) const {
    const auto colors = SystemColors::of(palette());
    const QRect column = nameColumn();
    painter.setFont(nameFont());
    painter.setPen(colors.label);
    const double drawn = FittedText::paintLeading(painter, column.left(), firstBaseline, nameRoom(),
                                                  QString::fromStdString(symbol_.base));
    paintMarks(painter, column.left() + drawn + markSpacing);
    painter.setFont(platform::systemFont(quoteAssetSize));
    painter.setPen(colors.tertiaryLabel);
    FittedText::paintLeading(painter, column.left(), secondBaseline, column.width(),
                             QString::fromStdString(symbol_.quote));
}

void WatchlistRow::paintMarks(QPainter& painter, double left) const {
    const QColor color = SystemColors::of(palette()).secondaryLabel;
    const auto paint = [&](const QString& symbol) {
        constexpr int top = firstBaseline - 9; // centred on the capitals
        platform::SymbolImage(symbol).paint(painter, QRectF(left, top, markSize, markSize), color);
        left += markSize + markSpacing;
    };
    if (model_.watchlist().isPinned(symbol_))
        paint(QStringLiteral("pin-fill"));
    if (hasEnabledAlert())
        paint(QStringLiteral("bell-fill"));
}

void WatchlistRow::paintQuote(QPainter& painter) {
    const auto colors = SystemColors::of(palette());
    const QRect column = priceColumn();
    const double right = column.right() + 1;
    painted_ = currentQuote();
    painter.setFont(priceFont());
    if (!isTraded()) {
        painter.setFont(platform::systemFont(changeSize));
        painter.setPen(colors.secondaryLabel);
        painter.drawText(column, Qt::AlignRight | Qt::AlignVCenter,
                         localized("Quorvel", "Not traded"));
        return;
    }
    if (!painted_) {
        painter.setPen(colors.secondaryLabel);
        painter.drawText(column, Qt::AlignRight | Qt::AlignVCenter, noPrice);
        return;
    }
    painter.setPen(painted_->isStale ? colors.secondaryLabel : colors.label);
    FittedText::paintTrailing(painter, right, firstBaseline, column.width(),
                              PriceFormatter::price(painted_->lastPrice));
    const auto direction = StatusBarPresenter::direction(painted_->changePercent24h);
    painter.setFont(platform::systemFont(changeSize, QFont::Medium));
    painter.setPen(directionColor(direction, model_.settings().display().colorScheme,
                                  platform::appearanceOf(palette()))
                       .value_or(colors.label));
    FittedText::paintTrailing(painter, right, secondBaseline, column.width(),
                              PriceFormatter::changePercent(painted_->changePercent24h));
}

} // namespace quorvel
