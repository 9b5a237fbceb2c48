#include "QuorvelKit/Alerts/AlertEngine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace quorvel;
using namespace std::chrono_literals;
using platform::Date;
using platform::TimeInterval;
using testing::ElementsAre;
using testing::IsEmpty;
using enum AlertConditionKind;

namespace {

const Symbol btc{"BTC", "USDT"};
const Date noon{TimeInterval(785000000)};

Decimal decimal(const std::string& text) {
    return Decimal::fromAPIString(text).value();
}

AlertRule ruleOf(AlertConditionKind kind, const Decimal& threshold) {
    return {QUuid::createUuid(),           btc,  {kind, threshold},
            AlertRule::RepeatMode::once(), true, std::nullopt};
}

/// A quote whose price and change are both the value, so that only the kind of a rule tells them
/// apart.
Quote quoteOf(const Decimal& value) {
    return {btc, value, value, noon};
}

std::vector<AlertRule> fired(const char* from, const char* to, std::vector<AlertRule> rules,
                             Date now = noon) {
    return AlertEngine::triggeredRules(quoteOf(decimal(from)), quoteOf(decimal(to)),
                                       AlertRuleList(std::move(rules)), now);
}

struct Move {
    const char* name;
    const char* from;
    const char* to;
    const char* threshold;
    bool firesRising;
    bool firesFalling;
};

class Crossing : public testing::TestWithParam<Move> {};

} // namespace

TEST_P(Crossing, FiresTheRulesOfItsDirection) {
    const Move& move = GetParam();
    for (const AlertConditionKind kind : allCases<AlertConditionKind>()) {
        const AlertRule rule = ruleOf(kind, decimal(move.threshold));
        const bool fires = isRising(kind) ? move.firesRising : move.firesFalling;
        EXPECT_EQ(fired(move.from, move.to, {rule}).size(), fires ? 1u : 0u) << rawValue(kind);
    }
}

INSTANTIATE_TEST_SUITE_P(
    AlertEngine, Crossing,
    testing::Values(Move{"FromBelowToBelow", "98", "99", "100", false, false},
                    Move{"FromBelowOntoIt", "99", "100", "100", false, false},
                    Move{"FromBelowToAbove", "99", "101", "100", true, false},
                    Move{"FromItToAbove", "100", "100.01", "100", true, false},
                    Move{"StayingOnIt", "100.0", "100", "100", false, false},
                    Move{"FromItToBelow", "100", "99.99", "100", false, true},
                    Move{"FromAboveToBelow", "101", "99", "100", false, true},
                    Move{"FromAboveOntoIt", "101", "100", "100", false, false},
                    Move{"FromAboveToAbove", "101", "102", "100", false, false},
                    Move{"FurtherDownBelow", "-5.1", "-6", "-5", false, false},
                    Move{"DownThroughALoss", "-4.9", "-5.1", "-5", false, true},
                    Move{"DownFromALoss", "-5", "-5.1", "-5", false, true},
                    Move{"UpThroughZero", "-0.01", "0.01", "0", true, false},
                    Move{"ByTheLastOf38Digits", "0.12345678901234567890123456789012345678",
                         "0.12345678901234567890123456789012345680",
                         "0.12345678901234567890123456789012345679", true, false}),
    [](const auto& info) { return info.param.name; });

TEST(AlertEngine, LooksAtPriceAndChangeApart) {
    const AlertRule price = ruleOf(priceRisesAbove, 100);
    const AlertRule gain = ruleOf(changeRisesAbove, 2);
    const AlertRuleList rules({price, gain});
    const Quote before{btc, 99, 1, noon};
    EXPECT_THAT(AlertEngine::triggeredRules(before, {btc, 101, 1, noon}, rules, noon),
                ElementsAre(price));
    EXPECT_THAT(AlertEngine::triggeredRules(before, {btc, 99, 3, noon}, rules, noon),
                ElementsAre(gain));
}

TEST(AlertEngine, FiresNothingWithoutAQuoteBefore) {
    EXPECT_THAT(AlertEngine::triggeredRules(std::nullopt, quoteOf(500),
                                            AlertRuleList({ruleOf(priceRisesAbove, 100)}), noon),
                IsEmpty());
}

TEST(AlertEngine, FiresOnlyEnabledRulesOfThePair) {
    AlertRule disabled = ruleOf(priceRisesAbove, 100);
    disabled.isEnabled = false;
    AlertRule otherBase = ruleOf(priceRisesAbove, 100);
    otherBase.symbol.base = "ETH";
    AlertRule otherQuote = ruleOf(priceRisesAbove, 100);
    otherQuote.symbol.quote = "USDC";
    EXPECT_THAT(fired("99", "101", {disabled, otherBase, otherQuote}), IsEmpty());
}

TEST(AlertEngine, FiresAOnceRuleNeverAgain) {
    AlertRule rule = ruleOf(priceRisesAbove, 100);
    rule.lastTriggeredAt = noon - 24h;
    EXPECT_THAT(fired("99", "101", {rule}), IsEmpty());
}

TEST(AlertEngine, HoldsARepeatingRuleBackUntilItsCooldownIsOver) {
    AlertRule rule = ruleOf(priceRisesAbove, 100);
    rule.repeatMode = AlertRule::RepeatMode::repeating(AlertRule::RepeatMode::defaultCooldown);
    EXPECT_EQ(fired("99", "101", {rule}).size(), 1u);
    rule.lastTriggeredAt = noon;
    EXPECT_THAT(fired("99", "101", {rule}, noon), IsEmpty());
    EXPECT_THAT(fired("99", "101", {rule}, noon + 14min + 59s), IsEmpty());
    EXPECT_THAT(fired("99", "101", {rule}, noon + 15min), ElementsAre(rule));
    EXPECT_THAT(fired("101", "102", {rule}, noon + 15min), IsEmpty());
    // The clock was set back by an hour.
    EXPECT_THAT(fired("99", "101", {rule}, noon - 1h), IsEmpty());
    EXPECT_THAT(fired("99", "101", {rule}, noon - 1h + 15min), IsEmpty());
}

TEST(AlertEngine, KeepsTheListsOrder) {
    const AlertRule high = ruleOf(priceRisesAbove, 105);
    const AlertRule gain = ruleOf(changeRisesAbove, 101);
    const AlertRule outOfReach = ruleOf(priceRisesAbove, 110);
    const AlertRule low = ruleOf(priceRisesAbove, 100);
    const AlertRule sameAsHigh = ruleOf(priceRisesAbove, 105);
    EXPECT_THAT(fired("99", "110", {high, gain, outOfReach, low, sameAsHigh}),
                ElementsAre(high, gain, low, sameAsHigh));
}

TEST(AlertEngine, FindsAmongManyRulesWhatLookingAtEachFinds) {
    std::mt19937 random(7);
    const auto upTo = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    std::vector<AlertRule> rules;
    for (int i = 0; i < 400; ++i) {
        rules.push_back(ruleOf(allCases<AlertConditionKind>()[random() % 4], upTo(21) - 10));
        rules.back().isEnabled = upTo(5) != 0;
    }
    const AlertRuleList list(rules);
    for (int i = 0; i < 500; ++i) {
        const Quote from{btc, upTo(23) - 11, upTo(23) - 11, noon};
        const Quote to{btc, upTo(23) - 11, upTo(23) - 11, noon};
        std::vector<AlertRule> expected;
        std::ranges::copy_if(rules, std::back_inserter(expected), [&](const AlertRule& rule) {
            const auto& [kind, threshold] = rule.condition;
            const auto value = isPercentage(kind) ? &Quote::changePercent24h : &Quote::lastPrice;
            return rule.isEnabled &&
                   (isRising(kind) ? from.*value <= threshold && to.*value > threshold
                                   : from.*value >= threshold && to.*value < threshold);
        });
        EXPECT_EQ(AlertEngine::triggeredRules(from, to, list, noon), expected);
    }
}

TEST(AlertEngine, MarksWhatHasFired) {
    AlertRule once = ruleOf(priceRisesAbove, 100);
    AlertRule repeating = once;
    repeating.repeatMode = AlertRule::RepeatMode::repeating(15min);
    repeating.lastTriggeredAt = noon - 1h;
    const AlertRule firedOnce = AlertEngine::applying(once, noon);
    const AlertRule firedAgain = AlertEngine::applying(repeating, noon);
    once.isEnabled = false;
    once.lastTriggeredAt = noon;
    repeating.lastTriggeredAt = noon;
    EXPECT_EQ(firedOnce, once);
    EXPECT_EQ(firedAgain, repeating);
}
