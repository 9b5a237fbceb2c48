// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Symbol.h"
#include "QuorvelKit/MarketModel/WatchlistItem.h"
#include "QuorvelKit/Stores/WatchlistPersistence.h"

#include <QObject>
#include <QProperty>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace quorvel {

/// The user's ordered list of pairs, saved after every edit that changed it. Owned by the
/// application model; main thread.
///
/// An edit stands whether or not it could be saved; a failed save shows in `lastPersistError`.
class WatchlistStore : public QObject {
    Q_OBJECT

public:
    /// Loads the list. One that cannot be loaded is empty, without a message. Saves nothing.
    explicit WatchlistStore(std::unique_ptr<WatchlistPersistence> persistence);

    /// In display order.
    const std::vector<WatchlistItem>& items() const { return items_; }

    /// Whether all that was stored could be loaded; false where pairs of the user's may be missing.
    bool isLoadComplete() const { return isLoadComplete_; }

    /// Why the last save failed, for the user; absent after one that did not.
    const std::optional<QString>& lastPersistError() const { return lastPersistError_; }

    /// The pairs in display order.
    std::vector<Symbol> symbols() const;

    /// The pinned pairs in display order.
    std::vector<Symbol> pinnedSymbols() const;

    /// The pairs that quotes are wanted for.
    SymbolSet subscriptionSet() const;

    /// Whether the first item with this pair is pinned; false without one.
    bool isPinned(const Symbol& symbol) const;

    /// Appends the pair, unpinned, unless it is there already.
    void add(const Symbol& symbol);

    /// Removes the first item with this pair, if there is one.
    void remove(const Symbol& symbol);

    /// Pins or unpins the first item with this pair, if there is one.
    void togglePinned(const Symbol& symbol);

    /// Takes the items at the given positions out, in their order, and puts them in front of what
    /// was at `toOffset` before; at the end where `toOffset` is the count. Positions must exist.
    void move(const std::set<std::size_t>& fromOffsets, std::size_t toOffset);

    /// One place towards the front; nothing for the first and for no item.
    void moveUp(std::ptrdiff_t index);

    /// One place towards the end; nothing for the last and for no item.
    void moveDown(std::ptrdiff_t index);

Q_SIGNALS:
    void itemsChanged();
    void lastPersistErrorChanged();

private:
    std::vector<WatchlistItem>::iterator find(const Symbol& symbol);
    void save();

    std::vector<WatchlistItem> items_;
    bool isLoadComplete_ = false;
    Q_OBJECT_BINDABLE_PROPERTY(WatchlistStore, std::optional<QString>, lastPersistError_,
                               &WatchlistStore::lastPersistErrorChanged)
    std::unique_ptr<WatchlistPersistence> persistence_;
};

} // namespace quorvel
