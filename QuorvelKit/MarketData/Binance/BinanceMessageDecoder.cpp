// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceMessageDecoder.h"

#include "Platform/JSON/JSONReader.h"

#include <optional>
#include <string_view>

namespace quorvel {

namespace {

using platform::JSONValue;

/// The keys of a ticker event that matter, each absent when missing or of another type.
struct TickerPayload {
    std::optional<std::string_view> eventType;
    std::optional<std::int64_t> eventTimeMilliseconds;
    std::optional<std::string_view> symbolID;
    std::optional<std::string_view> lastPrice;
    std::optional<std::string_view> changePercent;

    bool isComplete() const {
        return eventType && eventTimeMilliseconds && symbolID && lastPrice && changePercent;
    }
};

/// Everything a frame may say, from one walk through it.
struct Frame {
    std::optional<std::string_view> stream;
    TickerPayload data; ///< empty unless the frame has such an object
    std::optional<std::int64_t> id;
};

void read(JSONValue data, TickerPayload& payload) {
    payload = TickerPayload(); // of a repeated key, the last one counts
    data.forEachMember([&payload](std::string_view key, JSONValue value) {
        if (key.size() != 1)
            return;
        switch (key.front()) {
        case 'e':
            payload.eventType = value.asString();
            break;
        case 'E':
            payload.eventTimeMilliseconds = value.asInteger();
            break;
        case 's':
            payload.symbolID = value.asString();
            break;
        case 'c':
            payload.lastPrice = value.asString();
            break;
        case 'P':
            payload.changePercent = value.asString();
            break;
        default:
            break;
        }
    });
}

Frame frameIn(JSONValue root) {
    Frame frame;
    root.forEachMember([&frame](std::string_view key, JSONValue value) {
        if (key == "data")
            read(value, frame.data);
        else if (key == "stream")
            frame.stream = value.asString();
        else if (key == "id")
            frame.id = value.asInteger();
    });
    return frame;
}

/// The quote of a complete event.
BinanceMessage quoteOf(const TickerPayload& event) {
    if (*event.eventType != "24hrTicker")
        return IgnoredMessage();
    auto symbol = Symbol::fromPairID(*event.symbolID);
    if (!symbol)
        return IgnoredMessage();
    const auto lastPrice = Decimal::fromAPIString(*event.lastPrice);
    const auto changePercent = Decimal::fromAPIString(*event.changePercent);
    if (!lastPrice || !changePercent)
        return IgnoredMessage();
    const platform::TimeInterval sinceEpoch(static_cast<double>(*event.eventTimeMilliseconds) /
                                            1000.0);
    return Quote{std::move(*symbol), *lastPrice, *changePercent,
                 platform::dateSince1970(sinceEpoch)};
}

BinanceMessage messageIn(JSONValue root) {
    const Frame frame = frameIn(root);
    if (frame.stream && frame.data.isComplete())
        return quoteOf(frame.data);
    if (frame.id)
        return ControlAck{*frame.id};
    return IgnoredMessage();
}

} // namespace

BinanceMessage BinanceMessageDecoder::decode(QByteArrayView frame) const {
    try {
        return platform::decodeJSON(frame, messageIn);
    } catch (const platform::DecodingError&) {
        return IgnoredMessage();
    }
}

} // namespace quorvel
