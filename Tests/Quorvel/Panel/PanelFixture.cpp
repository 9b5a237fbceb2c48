// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Panel/PanelFixture.h"

#include "Platform/Controls/ControlStyle.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

namespace test {

using namespace quorvel;

namespace {

Symbol pair(const char* base) {
    return {base, "USDT"};
}

QByteArray watchlist(std::initializer_list<const char*> bases) {
    QByteArray json;
    for (const char* const base : bases)
        json += (json.isEmpty() ? "" : ",") + QByteArray(R"({"symbol":{"base":")") + base +
                R"(","quote":"USDT"},"isPinnedToStatusBar":false})";
    return "[" + json + "]";
}

std::string plain(QString text, bool isEnabled) {
    text.replace(QStringLiteral("&&"), QStringLiteral("&"));
    return isEnabled ? text.toStdString() : "(" + text.toStdString() + ")";
}

} // namespace

void PanelFixture::show(std::initializer_list<const char*> bases,
                        std::initializer_list<const char*> tradeable) {
    make(watchlist(bases));
    if (tradeable.size() > 0) {
        std::vector<Symbol> pairs;
        std::ranges::transform(tradeable, std::back_inserter(pairs), pair);
        startTask_ = platform::startTask(model_->loadAvailableSymbols());
        drainEvents();
        provider_->pairs.addResult(pairs);
        provider_->pairs.finish();
        drainEvents();
    }
    QApplication::setStyle(new platform::ControlStyle);
    panel_ = new WatchlistPanel(*model_, [] {});
    popover_.setContent(panel_);
    reopen();
}

void PanelFixture::reopen() {
    popover_.hide();
    popover_.showBeside({400, 0});
    panel_->focusSearch();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&popover_));
    drainEvents();
}

void PanelFixture::reactivate() {
    if (!popover_.isVisible())
        reopen();
}

void PanelFixture::apply(const char* base, const char* price, const char* change) {
    model_->quotes().apply({pair(base), *Decimal::fromAPIString(price),
                            *Decimal::fromAPIString(change), clock_.now()});
    drainEvents();
}

void PanelFixture::addAlert(const char* base, bool isEnabled) {
    model_->alerts().add({.id = QUuid::createUuid(),
                          .symbol = pair(base),
                          .condition = condition(AlertConditionKind::priceRisesAbove, Decimal(1)),
                          .repeatMode = {},
                          .isEnabled = isEnabled,
                          .lastTriggeredAt = std::nullopt});
    drainEvents();
}

void PanelFixture::storeCandles(const char* base, std::initializer_list<int> closes) {
    std::vector<Candle> candles;
    for (const int close : closes)
        candles.push_back({clock_.now(), Decimal(close)});
    model_->candles().store(std::move(candles), pair(base), settings_.display().chartPeriod,
                            clock_.now());
    drainEvents();
}

std::vector<std::string> PanelFixture::bases() const {
    std::vector<std::string> bases;
    for (const WatchlistItem& item : model_->watchlist().items())
        bases.push_back(item.symbol.base);
    return bases;
}

WatchlistRows& PanelFixture::rows() const {
    return *panel_->findChild<WatchlistRows*>();
}

WatchlistRow& PanelFixture::row(const char* base) const {
    for (std::size_t i = 0; i < rows().count(); ++i) {
        if (rows().row(i).symbol().base == base)
            return rows().row(i);
    }
    throw std::out_of_range(std::string("no row of ") + base);
}

QLineEdit& PanelFixture::search() const {
    return *panel_->findChild<QLineEdit*>();
}

std::vector<std::string> PanelFixture::results() const {
    std::vector<std::string> texts;
    for (const auto* const button :
         panel_->findChild<SearchResults*>()->findChildren<QAbstractButton*>()) {
        if (button->isVisible())
            texts.push_back(plain(button->text(), button->isEnabled()));
    }
    return texts;
}

std::vector<std::string> PanelFixture::messages() const {
    std::vector<std::string> texts;
    for (const auto* const line : panel_->findChildren<platform::Label*>()) {
        if (line->isVisible())
            texts.push_back(line->text().toStdString());
    }
    return texts;
}

void PanelFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* const menu = QApplication::activePopupWidget();
    QTest::keyClick((menu ? menu : &popover_)->windowHandle(), key, modifiers);
    drainEvents();
}

void PanelFixture::type(const char* text) {
    for (const char c : std::string_view(text))
        QTest::keyClick(popover_.windowHandle(), c);
    drainEvents();
}

std::string PanelFixture::focus() const {
    const QWidget* const focus = popover_.focusWidget();
    if (const auto* const row = qobject_cast<const WatchlistRow*>(focus))
        return "row " + row->symbol().base;
    if (const auto* const row =
            focus ? qobject_cast<const WatchlistRow*>(focus->parent()) : nullptr)
        return "remove " + row->symbol().base;
    if (const auto* const button = qobject_cast<const QAbstractButton*>(focus)) {
        const bool isResult = panel_->findChild<SearchResults*>()->isAncestorOf(button);
        return (isResult ? "result " : "") + button->text().toStdString();
    }
    return focus ? focus->objectName().toStdString() : "nothing";
}

std::vector<std::string> PanelFixture::menu() {
    std::vector<std::string> texts;
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return texts;
    for (const QAction* const action : menu->actions())
        texts.push_back(action->isSeparator() ? "-" : plain(action->text(), action->isEnabled()));
    menu->close();
    drainEvents();
    reactivate();
    return texts;
}

} // namespace test
