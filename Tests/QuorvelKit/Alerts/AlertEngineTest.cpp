// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertEngine.h"

#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using platform::Date;
using platform::TimeInterval;
using testing::ElementsAre;
using testing::IsEmpty;
using enum AlertConditionKind;

namespace {

const Date noon{TimeInterval(785000000)};

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

} // namespace

TEST(AlertEngine, FiresTheRulesOfTheDirectionThatCrosses) {
    struct Move {
        const char* from;
        const char* to;
        const char* threshold;
        bool firesRising;
        bool firesFalling;
    };
    for (const auto& [from, to, threshold, firesRising, firesFalling] :
         cases(Move{"99", "100", "100", false, false}, Move{"99", "101", "100", true, false},
               Move{"100", "100.01", "100", true, false}, Move{"100.0", "100", "100", false, false},
               Move{"100", "99.99", "100", false, true}, Move{"101", "100", "100", false, false},
               Move{"101", "102", "100", false, false}, Move{"-4.9", "-5.1", "-5", false, true},
               Move{"0.12345678901234567890123456789012345678",
                    "0.12345678901234567890123456789012345680",
                    "0.12345678901234567890123456789012345679", true, false})) {
        for (const AlertConditionKind kind : allCases<AlertConditionKind>()) {
            const bool fires = isRising(kind) ? firesRising : firesFalling;
            EXPECT_EQ(fired(from, to, {ruleOf(kind, decimal(threshold))}).size(), fires ? 1u : 0u)
                << rawValue(kind) << " from " << from << " to " << to;
        }
    }
}

TEST(AlertEngine, FiresNothingWithoutAQuoteBefore) {
    EXPECT_THAT(AlertEngine::triggeredRules(std::nullopt, quoteOf(500),
                                            AlertRuleList({ruleOf(priceRisesAbove, 100)}), noon),
                IsEmpty());
}

TEST(AlertEngine, FiresOnlyRulesOfThePair) {
    AlertRule otherBase = ruleOf(priceRisesAbove, 100);
    otherBase.symbol.base = "ETH";
    AlertRule otherQuote = ruleOf(priceRisesAbove, 100);
    otherQuote.symbol.quote = "USDC";
    EXPECT_THAT(fired("99", "101", {otherBase, otherQuote}), IsEmpty());
}

TEST(AlertEngine, HoldsARuleBackUntilItsCooldownIsOver) {
    AlertRule rule = ruleOf(priceRisesAbove, 100);
    rule.lastTriggeredAt = noon;
    EXPECT_THAT(fired("99", "101", {rule}, noon + 24h), IsEmpty()) << "it fires once";
    rule.repeatMode = AlertRule::RepeatMode::repeating(AlertRule::RepeatMode::defaultCooldown);
    EXPECT_THAT(fired("99", "101", {rule}, noon + 14min + 59s), IsEmpty());
    EXPECT_THAT(fired("99", "101", {rule}, noon + 15min), ElementsAre(rule));
    EXPECT_THAT(fired("101", "102", {rule}, noon + 15min), IsEmpty());
    EXPECT_THAT(fired("99", "101", {rule}, noon - 1h), IsEmpty()) << "the clock was set back";
    rule.lastTriggeredAt.reset();
    EXPECT_THAT(fired("99", "101", {rule}), ElementsAre(rule));
}

TEST(AlertEngine, FindsAmongManyRulesWhatLookingAtEachFindsInTheirOrder) {
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
