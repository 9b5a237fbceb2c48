// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Alerts/AlertRule.h"
#include "Tests/Support/MarketSamples.h"

#include <string>

namespace test {

/// Two rules that have all that a rule can have between them, each with its stored form.
inline const quorvel::AlertRule repeatingBTC{
    QUuid(u"3f2504e0-4f89-41d3-9a0c-0305e82c3301"),
    btc,
    {quorvel::AlertConditionKind::priceRisesAbove, 70000},
    quorvel::AlertRule::RepeatMode::repeating(platform::TimeInterval(900)),
    true,
    platform::Date(platform::TimeInterval(785000000.25))};
inline const std::string repeatingBTCText =
    R"({"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","symbol":{"base":"BTC","quote":"USDT"},)"
    R"("condition":{"priceRisesAbove":{"_0":70000}},)"
    R"("repeatMode":{"repeating":{"cooldown":900}},"isEnabled":true,)"
    R"("lastTriggeredAt":785000000.25})";

inline const quorvel::AlertRule onceETH{QUuid(u"9b1deb4d-3b7d-4bad-9bdd-2b0d7b3dcb6d"),
                                        eth,
                                        {quorvel::AlertConditionKind::changeFallsBelow, -5},
                                        quorvel::AlertRule::RepeatMode::once(),
                                        true,
                                        std::nullopt};
inline const std::string onceETHText =
    R"({"id":"9B1DEB4D-3B7D-4BAD-9BDD-2B0D7B3DCB6D","symbol":{"base":"ETH","quote":"USDT"},)"
    R"("condition":{"changeFallsBelow":{"_0":-5}},"repeatMode":{"once":{}},"isEnabled":true})";

} // namespace test
