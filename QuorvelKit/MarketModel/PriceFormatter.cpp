// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/PriceFormatter.h"

#include <string>

namespace quorvel {

namespace {

QString fixed(const Decimal& value, int decimals) {
    return QString::fromStdString(
        value.rounded(decimals, RoundingMode::halfToEven).plainText(decimals));
}

/// Puts a comma between groups of three digits in front of the point.
QString grouped(QString number) {
    const qsizetype firstDigit = number.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (qsizetype at = number.indexOf(QLatin1Char('.')) - 3; at > firstDigit; at -= 3)
        number.insert(at, QLatin1Char(','));
    return number;
}

} // namespace

QString PriceFormatter::price(const Decimal& value) {
    constexpr int significantDigits = 6;
    const Decimal magnitude = value.magnitude();
    if (magnitude >= Decimal(1000))
        return grouped(fixed(value, 2));
    if (magnitude >= Decimal(1))
        return fixed(value, 4);
    if (magnitude.isZero())
        return fixed(value, 2);
    return QString::fromStdString(value.roundedToSignificantDigits(significantDigits).plainText());
}

QString PriceFormatter::changePercent(const Decimal& value) {
    const Decimal rounded = value.rounded(2, RoundingMode::halfAwayFromZero);
    // A negative value brings its own sign.
    const QString sign = rounded > Decimal() ? QStringLiteral("+") : QString();
    return sign + QString::fromStdString(rounded.plainText(2)) + QLatin1Char('%');
}

} // namespace quorvel
