// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/WatchlistItem.h"

namespace quorvel {

WatchlistItem WatchlistItem::decode(platform::JSONValue value) {
    return {value.required("symbol", &Symbol::decode),
            value.required("isPinnedToStatusBar", &platform::JSONValue::boolean)};
}

void WatchlistItem::encode(platform::JSONWriter& writer) const {
    writer.beginObject().key("symbol");
    symbol.encode(writer);
    writer.key("isPinnedToStatusBar").boolean(isPinnedToStatusBar).endObject();
}

} // namespace quorvel
