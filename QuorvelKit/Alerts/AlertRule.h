// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "Platform/JSON/JSONValue.h"
#include "Platform/JSON/JSONWriter.h"
#include "QuorvelKit/Alerts/AlertConditionKind.h"
#include "QuorvelKit/MarketModel/Decimal.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QString>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>
#include <span>

namespace quorvel {

/// A wish to be told when a pair's price or 24-hour change crosses a threshold.
///
/// A plain value. Identifiers are made by whoever makes a rule, from a source of random ones.
struct AlertRule {
    /// What is compared with which threshold.
    struct Condition {
        AlertConditionKind kind = AlertConditionKind::priceRisesAbove;
        /// As the user typed it, a price in the pair's quote asset or a percentage by the kind. A
        /// loss is negative.
        Decimal threshold;

        /// Such as "Rises above 65,000.00", in the interface language; the number is the same in
        /// every language.
        QString description() const;

        /// Reads `{"<kind>":{"_0":<threshold>}}`; other keys beside the kind are ignored.
        /// @throws platform::DecodingError, a typeMismatch for no kind and for several
        static Condition decode(platform::JSONValue value);

        /// Writes what `decode` reads, the threshold with all its digits.
        void encode(platform::JSONWriter& writer) const;

        std::size_t hash() const;

        friend bool operator==(const Condition&, const Condition&) = default;
    };

    /// Whether a rule that has fired may fire again.
    struct RepeatMode {
        /// Between two firings of the rules that the user makes.
        static constexpr platform::TimeInterval defaultCooldown{900};

        /// How long after firing the rule may fire again; absent for a rule that fires once.
        std::optional<platform::TimeInterval> cooldown;

        static constexpr RepeatMode once() { return {std::nullopt}; }
        static constexpr RepeatMode repeating(platform::TimeInterval cooldown) {
            return {cooldown};
        }

        bool isOnce() const { return !cooldown; }

        /// Reads `{"once":{}}` or `{"repeating":{"cooldown":<seconds>}}`; other keys are ignored.
        /// @throws platform::DecodingError, a typeMismatch for none of the two and for both
        static RepeatMode decode(platform::JSONValue value);

        /// Writes what `decode` reads.
        void encode(platform::JSONWriter& writer) const;

        std::size_t hash() const;

        friend bool operator==(const RepeatMode&, const RepeatMode&) = default;
    };

    QUuid id;
    Symbol symbol;
    Condition condition;
    RepeatMode repeatMode;
    bool isEnabled = true; ///< a rule that is not never fires
    /// When the rule last fired; absent where it never did, or was armed anew.
    std::optional<platform::Date> lastTriggeredAt;

    /// What the rule says of which pair, such as "BTC Rises above 65,000.00".
    /// @param inSight the pairs that this one must be told apart from, as for `displayName`
    QString title(std::span<const Symbol> inSight) const;

    /// Reads a rule as files hold it. Unknown keys are ignored; only `lastTriggeredAt` may be
    /// missing.
    /// @throws platform::DecodingError
    static AlertRule decode(platform::JSONValue value);

    /// Writes what `decode` reads, the keys in the order of the members.
    /// @throws std::invalid_argument for an instant or a cooldown that is not finite
    void encode(platform::JSONWriter& writer) const;

    friend bool operator==(const AlertRule&, const AlertRule&) = default;
};

/// The condition of this kind.
inline AlertRule::Condition condition(AlertConditionKind kind, const Decimal& threshold) {
    return {kind, threshold};
}

} // namespace quorvel

template <>
struct std::hash<quorvel::AlertRule> {
    std::size_t operator()(const quorvel::AlertRule& rule) const noexcept;
};
