// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/CommandLedger.h"

#include "Platform/JSON/JSONReader.h"
#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"

#include <utility>

namespace quorvel {

using platform::decodeJSON;
using platform::JSONValue;

namespace {

struct Answer {
    std::optional<std::int64_t> id;
    bool isRefusal = false;
    bool isEvent = false;
};

/// The exchange tells of an error beside the id, or in an object of its own.
Answer answerIn(JSONValue root) {
    Answer answer;
    root.forEachMember([&answer](std::string_view key, JSONValue value) {
        if (key == "id")
            answer.id = value.asInteger();
        else if (key == "code" || (key == "error" && value.isObject()))
            answer.isRefusal = true;
        else if (key == "stream")
            answer.isEvent = true;
    });
    return answer;
}

} // namespace

void CommandLedger::sent(std::string_view command) {
    std::int64_t id = 0;
    bool subscribes = false;
    std::vector<std::string> names;
    decodeJSON({command.data(), std::ssize(command)}, [&](JSONValue root) {
        root.forEachMember([&](std::string_view key, JSONValue value) {
            if (key == "id")
                id = value.asInteger().value_or(0);
            else if (key == "method")
                subscribes = value.asString() == rawValue(SubscriptionCommand::Method::subscribe);
            else if (key == "params")
                value.forEachElement([&](JSONValue name) { names.emplace_back(name.string()); });
        });
        return true;
    });
    if (subscribes)
        open_[id] = std::move(names);
}

std::optional<std::vector<std::string>> CommandLedger::refused(QByteArrayView frame) {
    // Nearly all frames are events, and begin so.
    if (frame.startsWith(R"({"stream":)"))
        return std::nullopt;
    Answer answer;
    try {
        answer = decodeJSON(frame, answerIn);
    } catch (const platform::DecodingError&) {
        return std::nullopt;
    }
    if (answer.isEvent || (!answer.id && !answer.isRefusal))
        return std::nullopt;
    const auto found = answer.id ? open_.find(*answer.id) : open_.begin();
    std::vector<std::string> names;
    if (found != open_.end())
        names = std::move(open_.extract(found).mapped());
    return answer.isRefusal ? std::optional(std::move(names)) : std::nullopt;
}

} // namespace quorvel
