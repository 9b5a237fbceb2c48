// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertRule.h"

#include "Platform/JSON/JSONReader.h"
#include "Tests/QuorvelKit/Alerts/AlertSamples.h"
#include "Tests/Support/Cases.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace quorvel;
using namespace test;
using platform::DecodingError;
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

TEST(AlertCondition, DescribesItself) {
    const auto description = [](AlertConditionKind kind, const char* threshold) {
        return condition(kind, decimal(threshold)).description().toStdString();
    };
    EXPECT_EQ(description(priceRisesAbove, "65000"), "Rises above 65,000.00");
    EXPECT_EQ(description(priceFallsBelow, "0.5"), "Falls below 0.5");
    EXPECT_EQ(description(changeRisesAbove, "5"), "Gain exceeds +5.00%");
    EXPECT_EQ(description(changeFallsBelow, "5"), "Loss exceeds +5.00%");
}

} // namespace
