// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertRule.h"

#include "Platform/JSON/JSONReader.h"
#include "Tests/QuorvelKit/Alerts/AlertSamples.h"
#include "Tests/Support/Cases.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

using namespace quorvel;
using namespace test;
using platform::Date;
using platform::DecodingError;
using platform::TimeInterval;
using testing::ElementsAre;
using enum AlertConditionKind;

namespace {

template <typename Value>
std::string textOf(const Value& value) {
    platform::JSONWriter writer;
    value.encode(writer);
    return writer.text();
}

template <typename Value>
Value valueOf(const std::string& text) {
    return platform::decodeJSON(std::string_view(text), &Value::decode);
}

TEST(AlertRule, IsStoredInOneFormAndReadBack) {
    EXPECT_EQ(textOf(repeatingBTC), repeatingBTCText);
    EXPECT_EQ(textOf(onceETH), onceETHText);
    EXPECT_EQ(valueOf<AlertRule>(repeatingBTCText), repeatingBTC);
    EXPECT_EQ(valueOf<AlertRule>(onceETHText), onceETH);
}

TEST(AlertRule, IsReadInAnyOrderAndCaseWithKeysItDoesNotKnow) {
    EXPECT_EQ(
        valueOf<AlertRule>(
            R"({"lastTriggeredAt":null,"note":[1],"isEnabled":true,"repeatMode":{"note":"x","once":{"x":1}},)"
            R"("condition":{"other":0,"changeFallsBelow":{"_0":-5.0,"_1":2}},)"
            R"("symbol":{"quote":"USDT","base":"ETH"},"id":"9b1deb4d-3B7D-4bad-9BDD-2b0d7b3dcb6d"})"),
        onceETH);
}

TEST(AlertRule, HasAHashOfEachField) {
    const std::hash<AlertRule> hash;
    const auto differs = [&hash](auto change) {
        AlertRule other = repeatingBTC;
        change(other);
        return hash(other) != hash(repeatingBTC);
    };
    EXPECT_TRUE(differs([](AlertRule& rule) { *rule.lastTriggeredAt += TimeInterval(1); }));
    EXPECT_TRUE(differs([](AlertRule& rule) { rule.lastTriggeredAt.reset(); }));
    EXPECT_TRUE(differs([](AlertRule& rule) { rule.repeatMode.cooldown = TimeInterval(901); }));
    EXPECT_TRUE(differs([](AlertRule& rule) { rule.condition.kind = priceFallsBelow; }));
    EXPECT_FALSE(differs([](AlertRule& rule) { rule.condition.threshold = decimal("7.00e4"); }));
    const auto zero = AlertRule::RepeatMode::repeating(TimeInterval(0.0));
    EXPECT_EQ(zero.hash(), AlertRule::RepeatMode::repeating(TimeInterval(-0.0)).hash());
    EXPECT_NE(zero.hash(), AlertRule::RepeatMode::once().hash());
}

TEST(AlertRule, IsRefusedWithTheKindAndPlaceOfTheDamage) {
    constexpr auto corrupted = DecodingError::Kind::dataCorrupted;
    constexpr auto mismatch = DecodingError::Kind::typeMismatch;
    constexpr auto missing = DecodingError::Kind::keyNotFound;
    struct Damage {
        const char* part; ///< of the stored example
        const char* by;
        DecodingError::Kind kind;
        const char* path;
    };
    const char* const mode = R"({"repeating":{"cooldown":900}})";
    for (const auto& [part, by, kind, path] : cases(
             Damage{R"("id")", R"("Id")", missing, ""},
             Damage{"3F2504E0-", "3F2504E-", corrupted, "id"},
             Damage{"3301", "33010", corrupted, "id"},
             Damage{"E0-4F89-", "E0A4F89A", corrupted, "id"},
             Damage{"3F25", "3G25", corrupted, "id"},
             Damage{R"("id":)", R"("id":7,"x":)", mismatch, "id"},
             Damage{"BTC", "btc", corrupted, "symbol"},
             Damage{R"("quote")", R"("to")", missing, "symbol"},
             Damage{R"("condition")", R"("conditions")", missing, ""},
             Damage{"70000", R"("70000")", mismatch, "condition.priceRisesAbove._0"},
             Damage{"70000", "7e400", corrupted, "condition.priceRisesAbove._0"},
             Damage{"_0", "_1", missing, "condition.priceRisesAbove"},
             Damage{R"({"_0":70000})", "70000", mismatch, "condition.priceRisesAbove"},
             Damage{R"("repeatMode")", R"("mode")", missing, ""},
             Damage{"cooldown", "pause", missing, "repeatMode.repeating"},
             Damage{"900", R"("900")", mismatch, "repeatMode.repeating.cooldown"},
             Damage{mode, R"({"once":null})", mismatch, "repeatMode.once"},
             Damage{R"("isEnabled":true,)", "", missing, ""},
             Damage{"true", "1", mismatch, "isEnabled"},
             Damage{"785000000.25", R"("2025-11-16")", mismatch, "lastTriggeredAt"},
             Damage{"785000000.25", "1e999", mismatch, "lastTriggeredAt"},
             // A condition and a repeat mode name exactly one of their cases.
             Damage{mode, "{}", mismatch, "repeatMode"},
             Damage{mode, R"({"twice":{}})", mismatch, "repeatMode"},
             Damage{mode, R"({"once":{},"repeating":null})", mismatch, "repeatMode"},
             Damage{"priceRisesAbove", "PriceRisesAbove", mismatch, "condition"},
             Damage{"\"priceR", R"("priceFallsBelow":{"_0":1},"priceR)", mismatch, "condition"})) {
        std::string damaged = repeatingBTCText;
        damaged.replace(damaged.find(part), std::string_view(part).size(), by);
        try {
            valueOf<AlertRule>(damaged);
            ADD_FAILURE() << damaged << " was read";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), kind) << damaged;
            std::string place;
            for (const std::string& key : error.codingPath())
                place += (place.empty() ? "" : ".") + key;
            EXPECT_EQ(place, path) << damaged;
        }
    }
}

TEST(AlertRule, KeepsEveryDigitOfAThreshold) {
    for (const std::string digits :
         {"12345678901234567890123456789012345678", "-99999999999999999999999999999999999999",
          "1234567890123456789.0123456789012345678", "0.00012", "9007199254740993"}) {
        const std::string stored = R"({"priceFallsBelow":{"_0":)" + digits + "}}";
        const auto condition = valueOf<AlertRule::Condition>(stored);
        EXPECT_EQ(condition.threshold, decimal(digits));
        EXPECT_EQ(textOf(condition), stored);
    }
    // The ends of the range are long, but they are numbers that read back.
    for (const char* extreme : {"99999999999999999999999999999999999999e127", "1e-128"}) {
        const AlertRule::Condition condition{changeRisesAbove, decimal(extreme)};
        EXPECT_EQ(valueOf<AlertRule::Condition>(textOf(condition)), condition);
    }
}

TEST(AlertRule, KeepsEveryBitOfInstantsAndCooldowns) {
    const auto bits = [](TimeInterval time) { return std::bit_cast<std::uint64_t>(time.count()); };
    for (const double seconds :
         {785000000.12345684, 0.1 + 0.2, 1e-300, -0.0, std::numeric_limits<double>::max()}) {
        AlertRule rule = repeatingBTC;
        rule.lastTriggeredAt = Date(TimeInterval(seconds));
        rule.repeatMode.cooldown = TimeInterval(seconds);
        const auto read = valueOf<AlertRule>(textOf(rule));
        EXPECT_EQ(bits(read.lastTriggeredAt->time_since_epoch()), bits(TimeInterval(seconds)));
        EXPECT_EQ(bits(*read.repeatMode.cooldown), bits(TimeInterval(seconds)));
    }
}

TEST(AlertCondition, DescribesItself) {
    const auto description = [](AlertConditionKind kind, const char* threshold) {
        return condition(kind, decimal(threshold)).description().toStdString();
    };
    EXPECT_EQ(description(priceRisesAbove, "65000"), "Rises above 65,000.00");
    EXPECT_EQ(description(priceFallsBelow, "0.5"), "Falls below 0.5");
    EXPECT_EQ(description(changeRisesAbove, "5"), "Gain exceeds +5.00%");
    EXPECT_EQ(description(changeFallsBelow, "5"), "Loss exceeds +5.00%");
}

TEST(AlertConditionKind, ListsItsCasesForTheForm) {
    std::vector<std::string> labels;
    for (const AlertConditionKind kind : allCases<AlertConditionKind>())
        labels.push_back(label(kind).toStdString() + (isPercentage(kind) ? " %" : ""));
    EXPECT_THAT(labels, ElementsAre("Price rises above", "Price falls below", "Gain exceeds %",
                                    "Loss exceeds %"));
}

} // namespace
