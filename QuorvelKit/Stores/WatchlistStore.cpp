// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/WatchlistStore.h"

#include "Platform/Foundation/PlatformError.h"
#include "Platform/Foundation/StringTable.h"

#include <algorithm>
#include <utility>

namespace quorvel {

WatchlistStore::WatchlistStore(std::unique_ptr<WatchlistPersistence> persistence)
    : persistence_(std::move(persistence)) {
    try {
        items_ = persistence_->load();
        isLoadComplete_ = !persistence_->lostEntries();
    } catch (const std::exception&) {
        items_.clear();
    }
}

std::vector<Symbol> WatchlistStore::symbols() const {
    std::vector<Symbol> symbols;
    symbols.reserve(items_.size());
    std::ranges::transform(items_, std::back_inserter(symbols), &WatchlistItem::symbol);
    return symbols;
}

std::vector<Symbol> WatchlistStore::pinnedSymbols() const {
    std::vector<Symbol> symbols;
    for (const WatchlistItem& item : items_) {
        if (item.isPinnedToStatusBar)
            symbols.push_back(item.symbol);
    }
    return symbols;
}

SymbolSet WatchlistStore::subscriptionSet() const {
    SymbolSet symbols;
    for (const WatchlistItem& item : items_)
        symbols.insert(item.symbol);
    return symbols;
}

bool WatchlistStore::isPinned(const Symbol& symbol) const {
    const auto found = std::ranges::find(items_, symbol, &WatchlistItem::symbol);
    return found != items_.end() && found->isPinnedToStatusBar;
}

void WatchlistStore::add(const Symbol& symbol) {
    if (find(symbol) != items_.end())
        return;
    items_.push_back({symbol, false});
    save();
}

void WatchlistStore::remove(const Symbol& symbol) {
    const auto found = find(symbol);
    if (found == items_.end())
        return;
    items_.erase(found);
    save();
}

void WatchlistStore::togglePinned(const Symbol& symbol) {
    const auto found = find(symbol);
    if (found == items_.end())
        return;
    found->isPinnedToStatusBar = !found->isPinnedToStatusBar;
    save();
}

void WatchlistStore::move(const std::set<std::size_t>& fromOffsets, std::size_t toOffset) {
    std::vector<WatchlistItem> front;
    std::vector<WatchlistItem> moved;
    std::vector<WatchlistItem> back;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        auto& part = fromOffsets.contains(i) ? moved : i < toOffset ? front : back;
        part.push_back(std::move(items_[i]));
    }
    items_ = std::move(front);
    std::ranges::move(moved, std::back_inserter(items_));
    std::ranges::move(back, std::back_inserter(items_));
    save();
}

void WatchlistStore::moveUp(std::ptrdiff_t index) {
    if (index >= 1 && index < std::ssize(items_))
        move({static_cast<std::size_t>(index)}, static_cast<std::size_t>(index - 1));
}

void WatchlistStore::moveDown(std::ptrdiff_t index) {
    if (index >= 0 && index < std::ssize(items_) - 1)
        move({static_cast<std::size_t>(index)}, static_cast<std::size_t>(index + 2));
}

std::vector<WatchlistItem>::iterator WatchlistStore::find(const Symbol& symbol) {
    return std::ranges::find(items_, symbol, &WatchlistItem::symbol);
}

void WatchlistStore::save() {
    lastPersistError_ =
        platform::failureOf([this] { persistence_->save(items_); },
                            platform::localized("QuorvelKit", "Couldn't save watchlist: %1"));
    Q_EMIT itemsChanged();
}

} // namespace quorvel
