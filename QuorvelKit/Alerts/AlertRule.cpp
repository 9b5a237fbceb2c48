// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertRule.h"

#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/MarketModel/DisplayName.h"
#include "QuorvelKit/MarketModel/PriceFormatter.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvel {

using platform::DecodingError;
using platform::JSONValue;
using platform::JSONWriter;

namespace {

/// The cases of a repeat mode, as files name them.
enum class RepeatModeCase { once, repeating };

} // namespace

template <>
inline constexpr auto rawValues<RepeatModeCase> =
    std::to_array<std::string_view>({"once", "repeating"});

namespace {

/// The one case that an object names among its keys.
template <RawRepresentable Case>
Case onlyCase(JSONValue object) {
    std::optional<Case> found;
    int count = 0;
    for (const Case candidate : allCases<Case>()) {
        if (!object.member(rawValue(candidate)))
            continue;
        found = candidate;
        ++count;
    }
    if (count != 1)
        throw DecodingError(DecodingError::Kind::typeMismatch,
                            "Invalid number of keys found, expected one.");
    return *found;
}

Decimal decimalOf(JSONValue value) {
    const auto decimal = Decimal::fromJSONNumber(value.digits());
    if (!decimal)
        throw DecodingError(DecodingError::Kind::dataCorrupted,
                            "The number lies beyond the range of a decimal.");
    return *decimal;
}

/// 32 hexadecimal digits of either case in groups of 8, 4, 4, 4 and 12, and nothing else.
bool isUUIDText(std::string_view text) {
    constexpr std::string_view pattern = "hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh";
    static constexpr std::string_view digits = "0123456789ABCDEFabcdef";
    return std::ranges::equal(text, pattern, [](char c, char wanted) {
        return wanted == '-' ? c == '-' : digits.contains(c);
    });
}

QUuid uuidOf(JSONValue value) {
    const std::string_view text = value.string();
    if (!isUUIDText(text))
        throw DecodingError(DecodingError::Kind::dataCorrupted,
                            "Expected the text of a UUID, not \"" + std::string(text) + "\".");
    return QUuid::fromString(QLatin1StringView(text.data(), static_cast<qsizetype>(text.size())));
}

std::string uuidText(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toUpper().toStdString();
}

platform::Date dateOf(JSONValue value) {
    return platform::Date(platform::TimeInterval(value.number()));
}

std::size_t combined(std::initializer_list<std::size_t> hashes) {
    constexpr std::size_t multiplier = 0x9E3779B97F4A7C15; // 2^64 over the golden ratio
    std::size_t result = 0;
    for (const std::size_t hash : hashes)
        result = (result ^ hash) * multiplier;
    return result;
}

/// Absent and 0 are told apart.
std::size_t hashOf(const std::optional<platform::TimeInterval>& seconds) {
    return seconds ? combined({1, std::hash<double>()(seconds->count())}) : 0;
}

std::optional<platform::TimeInterval> sinceEpoch(const std::optional<platform::Date>& date) {
    return date.transform([](platform::Date instant) { return instant.time_since_epoch(); });
}

} // namespace

QString AlertRule::Condition::description() const {
    const QString number = isPercentage(kind) ? PriceFormatter::changePercent(threshold)
                                              : PriceFormatter::price(threshold);
    switch (kind) {
    case AlertConditionKind::priceRisesAbove:
        break;
    case AlertConditionKind::priceFallsBelow:
        return platform::localized("QuorvelKit", "Falls below %1").arg(number);
    case AlertConditionKind::changeRisesAbove:
        return platform::localized("QuorvelKit", "Gain exceeds %1").arg(number);
    case AlertConditionKind::changeFallsBelow:
        return platform::localized("QuorvelKit", "Loss exceeds %1").arg(number);
    }
    return platform::localized("QuorvelKit", "Rises above %1").arg(number);
}

QString AlertRule::title(std::span<const Symbol> inSight) const {
    return displayName(symbol, inSight) + u' ' + condition.description();
}

AlertRule::Condition AlertRule::Condition::decode(JSONValue value) {
    const auto kind = onlyCase<AlertConditionKind>(value);
    return value.required(rawValue(kind), [kind](JSONValue payload) {
        return Condition{kind, payload.required("_0", decimalOf)};
    });
}

void AlertRule::Condition::encode(JSONWriter& writer) const {
    writer.beginObject().key(rawValue(kind)).beginObject();
    writer.key("_0").digits(threshold.plainText()).endObject().endObject();
}

std::size_t AlertRule::Condition::hash() const {
    return combined({static_cast<std::size_t>(kind), threshold.hash()});
}

AlertRule::RepeatMode AlertRule::RepeatMode::decode(JSONValue value) {
    const auto mode = onlyCase<RepeatModeCase>(value);
    return value.required(rawValue(mode), [mode](JSONValue payload) {
        if (mode == RepeatModeCase::repeating)
            return repeating(
                platform::TimeInterval(payload.required("cooldown", &JSONValue::number)));
        if (!payload.isObject())
            throw DecodingError(DecodingError::Kind::typeMismatch, "Expected an object.");
        return once();
    });
}

void AlertRule::RepeatMode::encode(JSONWriter& writer) const {
    const RepeatModeCase mode = isOnce() ? RepeatModeCase::once : RepeatModeCase::repeating;
    writer.beginObject().key(rawValue(mode)).beginObject();
    if (cooldown)
        writer.key("cooldown").number(cooldown->count());
    writer.endObject().endObject();
}

std::size_t AlertRule::RepeatMode::hash() const {
    return hashOf(cooldown);
}

AlertRule AlertRule::decode(JSONValue value) {
    return {value.required("id", uuidOf),
            value.required("symbol", &Symbol::decode),
            value.required("condition", &Condition::decode),
            value.required("repeatMode", &RepeatMode::decode),
            value.required("isEnabled", &JSONValue::boolean),
            value.optional("lastTriggeredAt", dateOf)};
}

void AlertRule::encode(JSONWriter& writer) const {
    writer.beginObject().key("id").string(uuidText(id)).key("symbol");
    symbol.encode(writer);
    writer.key("condition");
    condition.encode(writer);
    writer.key("repeatMode");
    repeatMode.encode(writer);
    writer.key("isEnabled").boolean(isEnabled);
    if (lastTriggeredAt)
        writer.key("lastTriggeredAt").number(lastTriggeredAt->time_since_epoch().count());
    writer.endObject();
}

} // namespace quorvel

std::size_t
std::hash<quorvel::AlertRule>::operator()(const quorvel::AlertRule& rule) const noexcept {
    return quorvel::combined({qHash(rule.id), std::hash<quorvel::Symbol>()(rule.symbol),
                              rule.condition.hash(), rule.repeatMode.hash(),
                              std::size_t{rule.isEnabled},
                              quorvel::hashOf(quorvel::sinceEpoch(rule.lastTriggeredAt))});
}
