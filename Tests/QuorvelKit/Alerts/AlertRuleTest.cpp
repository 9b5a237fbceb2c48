#include "QuorvelKit/Alerts/AlertRule.h"

#include "Platform/Foundation/JSONReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

using namespace quorvel;
using platform::Date;
using platform::DecodingError;
using platform::TimeInterval;
using testing::ElementsAre;
using enum AlertConditionKind;

namespace {

const AlertRule repeatingBTC{QUuid(u"3f2504e0-4f89-41d3-9a0c-0305e82c3301"),
                             {"BTC", "USDT"},
                             {priceRisesAbove, 70000},
                             AlertRule::RepeatMode::repeating(TimeInterval(900)),
                             true,
                             Date(TimeInterval(785000000.25))};
const AlertRule onceETH{QUuid(u"9b1deb4d-3b7d-4bad-9bdd-2b0d7b3dcb6d"),
                        {"ETH", "USDT"},
                        {changeFallsBelow, -5},
                        AlertRule::RepeatMode::once(),
                        true,
                        std::nullopt};

const std::string repeatingBTCText =
    R"({"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","symbol":{"base":"BTC","quote":"USDT"},)"
    R"("condition":{"priceRisesAbove":{"_0":70000}},)"
    R"("repeatMode":{"repeating":{"cooldown":900}},"isEnabled":true,)"
    R"("lastTriggeredAt":785000000.25})";
const std::string onceETHText =
    R"({"id":"9B1DEB4D-3B7D-4BAD-9BDD-2B0D7B3DCB6D","symbol":{"base":"ETH","quote":"USDT"},)"
    R"("condition":{"changeFallsBelow":{"_0":-5}},"repeatMode":{"once":{}},"isEnabled":true})";

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

std::string replaced(std::string text, const std::string& part, const std::string& by) {
    const std::size_t at = text.find(part);
    if (at == std::string::npos)
        throw std::logic_error("no " + part);
    return text.replace(at, part.size(), by);
}

} // namespace

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

TEST(AlertRule, DiffersByEachFieldAlsoInItsHash) {
    AlertRule later = repeatingBTC;
    later.lastTriggeredAt = Date(TimeInterval(785000000.5));
    AlertRule never = repeatingBTC;
    never.lastTriggeredAt.reset();
    AlertRule slower = repeatingBTC;
    slower.repeatMode = AlertRule::RepeatMode::repeating(TimeInterval(901));
    AlertRule falling = repeatingBTC;
    falling.condition.kind = priceFallsBelow;
    const std::hash<AlertRule> hash;
    for (const AlertRule& other : {later, never, slower, falling}) {
        EXPECT_NE(other, repeatingBTC);
        EXPECT_NE(hash(other), hash(repeatingBTC));
    }
    AlertRule samePrice = repeatingBTC;
    samePrice.condition.threshold = *Decimal::fromAPIString("70000.00");
    EXPECT_EQ(samePrice, repeatingBTC);
    EXPECT_EQ(hash(samePrice), hash(repeatingBTC));
    const auto positiveZero = AlertRule::RepeatMode::repeating(TimeInterval(0.0));
    const auto negativeZero = AlertRule::RepeatMode::repeating(TimeInterval(-0.0));
    EXPECT_EQ(positiveZero, negativeZero);
    EXPECT_EQ(positiveZero.hash(), negativeZero.hash());
    EXPECT_NE(positiveZero.hash(), AlertRule::RepeatMode::once().hash());
}

namespace {

struct Damage {
    const char* name;
    std::string part; ///< of the stored example
    std::string by;
    DecodingError::Kind kind;
    std::vector<std::string> path;
};

class DamagedRule : public testing::TestWithParam<Damage> {};

constexpr auto corrupted = DecodingError::Kind::dataCorrupted;
constexpr auto mismatch = DecodingError::Kind::typeMismatch;
constexpr auto missing = DecodingError::Kind::keyNotFound;

} // namespace

TEST_P(DamagedRule, IsRefused) {
    const auto& [name, part, by, kind, path] = GetParam();
    try {
        valueOf<AlertRule>(replaced(repeatingBTCText, part, by));
        FAIL() << "was read";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), kind);
        EXPECT_EQ(error.codingPath(), path);
    }
}

INSTANTIATE_TEST_SUITE_P(
    AlertRule, DamagedRule,
    testing::Values(
        Damage{"NoID", R"("id")", R"("Id")", missing, {}},
        Damage{"ShortID", "3F2504E0-", "3F2504E-", corrupted, {"id"}},
        Damage{"LongID", "3301", "33010", corrupted, {"id"}},
        Damage{"IDInBraces",
               R"("3F2504E0-4F89-41D3-9A0C-0305E82C3301")",
               R"("{3F2504E0-4F89-41D3-9A0C-0305E82C3301}")",
               corrupted,
               {"id"}},
        Damage{"IDWithoutDashes", "E0-4F89-", "E0A4F89A", corrupted, {"id"}},
        Damage{"IDNotHexadecimal", "3F25", "3G25", corrupted, {"id"}},
        Damage{"IDNotText", R"("3F2504E0-4F89-41D3-9A0C-0305E82C3301")", "7", mismatch, {"id"}},
        Damage{"LowerCaseAsset", "BTC", "btc", corrupted, {"symbol"}},
        Damage{"NoQuoteAsset", R"("quote")", R"("to")", missing, {"symbol"}},
        Damage{"NoCondition", R"("condition")", R"("conditions")", missing, {}},
        Damage{"ThresholdAsText",
               "70000",
               R"("70000")",
               mismatch,
               {"condition", "priceRisesAbove", "_0"}},
        Damage{"ThresholdBeyondRange",
               "70000",
               "7e400",
               corrupted,
               {"condition", "priceRisesAbove", "_0"}},
        Damage{"NoThreshold", "_0", "_1", missing, {"condition", "priceRisesAbove"}},
        Damage{"BareThreshold",
               R"({"_0":70000})",
               "70000",
               mismatch,
               {"condition", "priceRisesAbove"}},
        Damage{"NoRepeatMode", R"("repeatMode")", R"("mode")", missing, {}},
        Damage{"NoCooldown", "cooldown", "pause", missing, {"repeatMode", "repeating"}},
        Damage{
            "CooldownAsText", "900", R"("900")", mismatch, {"repeatMode", "repeating", "cooldown"}},
        Damage{"OnceWithoutObject",
               R"({"repeating":{"cooldown":900}})",
               R"({"once":null})",
               mismatch,
               {"repeatMode", "once"}},
        Damage{"NoSwitch", R"("isEnabled":true,)", "", missing, {}},
        Damage{"SwitchAsNumber", "true", "1", mismatch, {"isEnabled"}},
        Damage{"InstantAsText", "785000000.25", R"("2025-11-16")", mismatch, {"lastTriggeredAt"}},
        Damage{"InstantBeyondRange", "785000000.25", "1e999", mismatch, {"lastTriggeredAt"}}),
    [](const auto& info) { return info.param.name; });

TEST(AlertRule, NamesExactlyOneCaseOfConditionAndRepeatMode) {
    const auto faultOf = [](const std::string& part, const std::string& by) {
        try {
            valueOf<AlertRule>(replaced(repeatingBTCText, part, by));
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), mismatch);
            EXPECT_EQ(error.description(), "Invalid number of keys found, expected one.");
            EXPECT_EQ(error.codingPath().size(), 1u);
            return error.codingPath().front();
        }
        return std::string("none");
    };
    const std::string mode = R"({"repeating":{"cooldown":900}})";
    EXPECT_EQ(faultOf(mode, "{}"), "repeatMode");
    EXPECT_EQ(faultOf(mode, R"({"twice":{}})"), "repeatMode");
    EXPECT_EQ(faultOf(mode, R"({"once":{},"repeating":{"cooldown":60}})"), "repeatMode");
    EXPECT_EQ(faultOf(mode, R"({"once":{},"repeating":null})"), "repeatMode");
    EXPECT_EQ(faultOf(mode, R"({"once":{},"once":{}})"), "none");
    EXPECT_EQ(faultOf("priceRisesAbove", "PriceRisesAbove"), "condition");
    EXPECT_EQ(faultOf(R"({"_0":70000})", R"({"_0":70000},"priceFallsBelow":{"_0":1})"),
              "condition");
}

TEST(AlertRule, KeepsEveryDigitOfAThreshold) {
    for (const std::string digits :
         {"12345678901234567890123456789012345678", "-99999999999999999999999999999999999999",
          "1234567890123456789.0123456789012345678", "0.12345678901234567890123456789012345678",
          "-0.00000000000000000000000000000000000001", "0.00012", "9007199254740993", "0.1"}) {
        const std::string stored = R"({"priceFallsBelow":{"_0":)" + digits + "}}";
        const auto condition = valueOf<AlertRule::Condition>(stored);
        EXPECT_EQ(condition.threshold, Decimal::fromAPIString(digits));
        EXPECT_EQ(textOf(condition), stored);
    }
    // The ends of the range are long, but they are numbers that read back.
    for (const char* extreme : {"99999999999999999999999999999999999999e127", "1e-128"}) {
        const AlertRule::Condition condition{changeRisesAbove, *Decimal::fromAPIString(extreme)};
        EXPECT_EQ(valueOf<AlertRule::Condition>(textOf(condition)), condition);
    }
}

TEST(AlertRule, KeepsEveryBitOfInstantsAndCooldowns) {
    for (const double seconds :
         {785000000.1, 785000000.12345684, -978307200.0, 0.1 + 0.2, 1e-300, -0.0,
          std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
        AlertRule rule = repeatingBTC;
        rule.lastTriggeredAt = Date(TimeInterval(seconds));
        rule.repeatMode.cooldown = TimeInterval(seconds);
        const AlertRule read = valueOf<AlertRule>(textOf(rule));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(read.lastTriggeredAt->time_since_epoch().count()),
                  std::bit_cast<std::uint64_t>(seconds));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(read.repeatMode.cooldown->count()),
                  std::bit_cast<std::uint64_t>(seconds));
    }
    AlertRule endless = repeatingBTC;
    endless.lastTriggeredAt = Date(TimeInterval(std::numeric_limits<double>::infinity()));
    EXPECT_THROW(textOf(endless), std::invalid_argument);
}

TEST(AlertCondition, DescribesItself) {
    const auto description = [](AlertConditionKind kind, const char* threshold) {
        return condition(kind, *Decimal::fromAPIString(threshold)).description().toStdString();
    };
    EXPECT_EQ(description(priceRisesAbove, "65000"), "Rises above 65,000.00");
    EXPECT_EQ(description(priceFallsBelow, "0.5"), "Falls below 0.5");
    EXPECT_EQ(description(changeRisesAbove, "5"), "Gain exceeds +5.00%");
    EXPECT_EQ(description(changeFallsBelow, "-5"), "Loss exceeds -5.00%");
    EXPECT_EQ(description(changeFallsBelow, "5"), "Loss exceeds +5.00%");
}

TEST(AlertConditionKind, ListsItsCasesForTheForm) {
    std::vector<std::string> labels;
    std::vector<bool> percentages;
    for (const AlertConditionKind kind : allCases<AlertConditionKind>()) {
        labels.push_back(label(kind).toStdString());
        percentages.push_back(isPercentage(kind));
        EXPECT_EQ(fromRawValue<AlertConditionKind>(rawValue(kind)), kind);
    }
    EXPECT_THAT(labels, ElementsAre("Price rises above", "Price falls below", "Gain exceeds",
                                    "Loss exceeds"));
    EXPECT_THAT(percentages, ElementsAre(false, false, true, true));
    EXPECT_EQ(fromRawValue<AlertConditionKind>("PriceRisesAbove"), std::nullopt);
}
