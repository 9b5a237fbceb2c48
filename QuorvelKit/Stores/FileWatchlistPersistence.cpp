#include "QuorvelKit/Stores/FileWatchlistPersistence.h"

#include "Platform/Foundation/FailableDecodable.h"
#include "Platform/Foundation/JSONReader.h"
#include "Platform/Foundation/JSONWriter.h"

#include <utility>

namespace quorvel {

using platform::DecodingError;
using platform::FileManager;
using platform::JSONValue;

namespace {

/// The elements of an array that decode; none where the document is no array, or not JSON at all.
template <typename Element>
std::vector<Element> decodeElements(const QByteArray& data) {
    try {
        return platform::decodeJSON(
            {data.data(), static_cast<std::size_t>(data.size())}, [](JSONValue root) {
                return platform::decodeEachElement<Element>(root, &Element::decode);
            });
    } catch (const DecodingError&) {
        return {};
    }
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
    const auto data = FileManager::contents(fileURL_);
    if (!data)
        return {};
    auto items = decodeElements<WatchlistItem>(*data);
    if (!items.empty())
        return items;
    for (Symbol& symbol : decodeElements<Symbol>(*data))
        items.push_back({std::move(symbol), false});
    return items;
}

void FileWatchlistPersistence::save(const std::vector<WatchlistItem>& items) {
    platform::JSONWriter writer;
    writer.beginArray();
    for (const WatchlistItem& item : items)
        item.encode(writer);
    writer.endArray();
    FileManager::writeAtomically(QByteArray::fromStdString(writer.text()), fileURL_);
}

} // namespace quorvel
