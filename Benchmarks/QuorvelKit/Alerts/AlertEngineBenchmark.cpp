// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertEngine.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

using namespace quorvel;

namespace {

constexpr int ruleCount = 10'000;
const platform::Date now{platform::TimeInterval(785000000)};

void require(bool condition) {
    if (!condition)
        std::abort();
}

/// Rules of every kind spread over so many pairs, with thresholds from 0 up that a quote near
/// `ruleCount` is beyond.
AlertRuleList rulesOver(int pairs) {
    std::vector<AlertRule> rules;
    for (int i = 0; i < ruleCount; ++i)
        rules.push_back(
            {QUuid::createUuid(),
             {"COIN" + std::to_string(i % pairs), "USDT"},
             {allCases<AlertConditionKind>()[static_cast<std::size_t>(i / pairs) % 4], i},
             AlertRule::RepeatMode::repeating(AlertRule::RepeatMode::defaultCooldown),
             true,
             std::nullopt});
    return AlertRuleList(std::move(rules));
}

Quote quoteOf(int coin, const char* value) {
    const Decimal decimal = Decimal::fromAPIString(value).value();
    return {{"COIN" + std::to_string(coin), "USDT"}, decimal, decimal, now};
}

/// The search that a list without order costs: for a key that is not there.
void keyScan(benchmark::State& state) {
    std::vector<std::uint64_t> keys(ruleCount);
    for (std::size_t i = 0; i < keys.size(); ++i)
        keys[i] = i * 0x9E3779B97F4A7C15;
    std::uint64_t wanted = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(wanted);
        benchmark::DoNotOptimize(keys.data());
        require(std::ranges::find(keys, wanted) == keys.end());
    }
}

/// A quote that crosses none of the thresholds, as nearly all do.
void quietQuote(benchmark::State& state) {
    const AlertRuleList rules = rulesOver(static_cast<int>(state.range(0)));
    const std::optional<Quote> previous = quoteOf(0, "5000.25");
    const Quote current = quoteOf(0, "5000.75");
    for (auto _ : state)
        require(AlertEngine::triggeredRules(previous, current, rules, now).empty());
}

BENCHMARK(keyScan)->Name("alertEvaluation/reference")->Arg(1)->Arg(500)->Arg(ruleCount);
BENCHMARK(quietQuote)->Name("alertEvaluation/subject")->Arg(1)->Arg(500)->Arg(ruleCount);

/// Every rule of the pair lies between the two quotes and half of them fire.
void crossingQuote(benchmark::State& state) {
    const AlertRuleList rules = rulesOver(500);
    const std::optional<Quote> previous = quoteOf(0, "-1");
    const Quote current = quoteOf(0, "10001");
    for (auto _ : state)
        require(AlertEngine::triggeredRules(previous, current, rules, now).size() == 10);
}
BENCHMARK(crossingQuote);

/// What each change of a rule costs beside saving.
void indexing(benchmark::State& state) {
    const AlertRuleList rules = rulesOver(500);
    for (auto _ : state)
        benchmark::DoNotOptimize(AlertRuleList(rules.all()));
}
BENCHMARK(indexing)->Unit(benchmark::kMicrosecond);

} // namespace
