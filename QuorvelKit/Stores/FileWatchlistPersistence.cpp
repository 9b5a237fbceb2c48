// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/FileWatchlistPersistence.h"

#include "Platform/JSON/StoredArray.h"

#include <utility>

namespace quorvel {

using platform::FileManager;

namespace {

/// Reads the items, or where there is none the pairs of the older form.
platform::StoredArray<WatchlistItem> decodeItems(const QByteArray& data) {
    auto stored = platform::decodeStoredArray<WatchlistItem>(data, &WatchlistItem::decode);
    if (!stored.elements.empty())
        return stored;
    auto older = platform::decodeStoredArray<Symbol>(data, &Symbol::decode);
    for (Symbol& symbol : older.elements)
        stored.elements.push_back({std::move(symbol), false});
    stored.isComplete = older.isComplete;
    return stored;
}

} // namespace

QString FileWatchlistPersistence::standardLocation(const FileManager& files) {
    const QString directory = files.applicationSupportDirectory() + QStringLiteral("/Quorvel");
    FileManager::createDirectory(directory);
    return directory + QStringLiteral("/watchlist.json");
}

QString FileWatchlistPersistence::temporaryLocation(const FileManager& files) {
    return files.temporaryDirectory() + QStringLiteral("/quorvel-watchlist.json");
}

std::vector<WatchlistItem> FileWatchlistPersistence::load() {
    const auto data = file_.read();
    auto stored = data ? decodeItems(*data) : platform::StoredArray<WatchlistItem>{{}, true};
    if (!stored.isComplete)
        file_.keepOnNextWrite();
    lostEntries_ = file_.isToBeKept();
    return std::move(stored.elements);
}

void FileWatchlistPersistence::save(const std::vector<WatchlistItem>& items) {
    file_.write(platform::encodeArray(items));
}

} // namespace quorvel
