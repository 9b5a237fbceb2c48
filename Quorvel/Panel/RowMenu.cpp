// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/RowMenu.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Model/PriceColors.h"
#include "QuorvelKit/MarketModel/DisplayName.h"

#include <QStyleOptionMenuItem>

namespace quorvel {

using platform::localized;

namespace {

/// A text as menus take it, where an ampersand stands for an access key.
QString literally(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

RowMenu::RowMenu(const Symbol& symbol, std::size_t index, AppModel& model,
                 const std::function<void()>& onOpenSettings, QWidget* parent)
    : QMenu(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    WatchlistStore& watchlist = model.watchlist();
    const auto add = [this](const QString& text, const auto& action) {
        return addAction(literally(text), this, action);
    };
    add(localized("Quorvel", "Move Up"), [&watchlist, index] {
        watchlist.moveUp(static_cast<std::ptrdiff_t>(index));
    })->setEnabled(index > 0);
    add(localized("Quorvel", "Move Down"), [&watchlist, index] {
        watchlist.moveDown(static_cast<std::ptrdiff_t>(index));
    })->setEnabled(index + 1 < watchlist.items().size());
    addSeparator();
    add(watchlist.isPinned(symbol) ? localized("Quorvel", "Unpin from Menu Bar")
                                   : localized("Quorvel", "Pin to Menu Bar"),
        [&model, symbol] { model.togglePinned(symbol); });
    addSeparator();
    add(localized("Quorvel", "Add Alert…"), [&model, symbol, onOpenSettings] {
        model.setPendingAlertSymbol(symbol);
        onOpenSettings();
    });
    addSeparator();
    remove_ = add(localized("Quorvel", "Remove %1").arg(displayName(symbol, watchlist.symbols())),
                  [&model, symbol] { model.removeSymbol(symbol); });
}

void RowMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    if (action != remove_)
        return;
    const QColor red = brandRed(platform::appearanceOf(palette()));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        option->palette.setColor(role, red);
}

} // namespace quorvel
