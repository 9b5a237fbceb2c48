// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Market/Market.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace simulator {

namespace {

struct DefaultPair {
    const char* symbol = nullptr;
    const char* price = nullptr;
    const char* change = nullptr;
    const char* status = "TRADING";
};

constexpr std::array defaultPairs = {
    DefaultPair{"BTCUSDT", "65012.34000000", "1.254"},
    DefaultPair{"ETHUSDT", "3512.47000000", "-0.842"},
    DefaultPair{"ETHBTC", "0.05403000", "-2.071"},
    DefaultPair{"BNBUSDT", "598.10000000", "0.317"},
    DefaultPair{"SOLUSDT", "151.63000000", "3.408"},
    DefaultPair{"SOLBTC", "0.00233200", "2.130"},
    DefaultPair{"XRPUSDT", "0.52370000", "-1.116"},
    DefaultPair{"DOGEUSDT", "0.12468000", "4.905"},
    DefaultPair{"ADAUSDT", "0.44610000", "0.000"},
    DefaultPair{"SHIBUSDT", "0.00002417", "-3.206"},
    DefaultPair{"PEPEUSDT", "0.00001163", "7.892"},
    DefaultPair{"BONKUSDT", "0.00002586", "-5.431"},
    DefaultPair{"TRXUSDT", "0.13120000", "0.229"},
    DefaultPair{"AVAXUSDT", "35.42000000", "-0.450"},
    DefaultPair{"DOTUSDT", "6.71300000", "1.011"},
    DefaultPair{"LINKUSDT", "14.38000000", "2.665"},
    DefaultPair{"LTCUSDT", "82.77000000", "-0.133"},
    DefaultPair{"BCHUSDT", "431.90000000", "0.884"},
    DefaultPair{"UNIUSDT", "9.84100000", "-2.518"},
    DefaultPair{"XLMUSDT", "0.10350000", "0.097"},
    DefaultPair{"ATOMUSDT", "7.92600000", "-1.740"},
    DefaultPair{"NEARUSDT", "5.61200000", "5.337"},
    DefaultPair{"APTUSDT", "8.44500000", "-0.671"},
    DefaultPair{"FILUSDT", "5.27400000", "0.418"},
    DefaultPair{"ARBUSDT", "0.94820000", "-4.020"},
    DefaultPair{"OPUSDT", "2.18700000", "1.907"},
    DefaultPair{"SUIUSDT", "1.03410000", "6.150"},
    DefaultPair{"1INCHUSDT", "0.39470000", "-0.305"},
    DefaultPair{"1000SATSUSDT", "0.00029410", "2.712"},
    DefaultPair{"WBTCBTC", "0.99950000", "0.010"},
    DefaultPair{"BTCEUR", "60140.52000000", "1.198"},
    DefaultPair{"ETHUSDC", "3511.92000000", "-0.857"},
    DefaultPair{"USDCUSDT", "0.99990000", "0.000"},
    DefaultPair{"\uff14\uff12USDT", "0.00731000", "12.480"},
    DefaultPair{"WAVESUSDT", "1.12500000", "0.000", "BREAK"},
    DefaultPair{"BTTUSDT", "0.00288500", "0.000", "BREAK"},
    DefaultPair{"XMRUSDT", "118.60000000", "-8.333", "HALT"},
    DefaultPair{"OMGUSDT", "0.61200000", "-0.164", "END_OF_DAY"},
    DefaultPair{"LUNAUSDT", "0.41870000", "-0.902", "CANCEL_ONLY"},
};

constexpr double stepDeviation = 0.0005;
constexpr double pullToAnchor = 0.001;
constexpr double shareThatMoves = 0.9;

double numberIn(const QByteArray& text, double fallback) {
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(number) ? number : fallback;
}

QString quoteAssetOf(const QString& symbol) {
    for (const char* asset : {"USDT", "USDC", "FDUSD", "BTC", "ETH", "BNB", "EUR", "TRY"}) {
        const QString quote = QString::fromLatin1(asset);
        if (symbol.size() > quote.size() && symbol.endsWith(quote))
            return quote;
    }
    return symbol.right(std::min<qsizetype>(3, symbol.size() - 1));
}

/// Five significant digits or two decimals, whatever is finer.
int decimalsFor(double price) {
    if (price <= 0)
        return 8;
    return std::clamp(4 - static_cast<int>(std::floor(std::log10(price))), 2, 8);
}

double changeOf(const Pair& pair) {
    return pair.open == 0 ? 0 : (pair.last - pair.open) / pair.open * 100;
}

void widenRange(Pair& pair) {
    pair.high = std::max({pair.high, pair.last, pair.open});
    pair.low = std::min({pair.low, pair.last, pair.open});
}

} // namespace

void Market::addDefaults() {
    for (const DefaultPair& pair : defaultPairs)
        add(QString::fromUtf8(pair.symbol), pair.price, pair.change,
            QString::fromLatin1(pair.status));
}

Pair& Market::at(const QString& symbol) {
    const auto found = std::ranges::find(pairs_, symbol, &Pair::symbol);
    if (found != pairs_.end())
        return *found;
    const QString quote = quoteAssetOf(symbol);
    return pairs_.emplace_back(Pair{.symbol = symbol,
                                    .baseAsset = symbol.chopped(quote.size()),
                                    .quoteAsset = quote,
                                    .status = QStringLiteral("TRADING"),
                                    .open = 1,
                                    .high = 1,
                                    .low = 1,
                                    .last = 1,
                                    .lastText = "1.00000000",
                                    .changeText = "0.000",
                                    .volume = 1'000'000,
                                    .trades = 250'000,
                                    .anchor = 1});
}

void Market::add(const QString& symbol, const QByteArray& price, const QByteArray& change,
                 const QString& status) {
    Pair& pair = at(symbol);
    push(symbol, price.isEmpty() ? "1.00000000" : price, change.isEmpty() ? "0.000" : change);
    pair.status = status;
    pair.high = std::max(pair.last, pair.open) * 1.01;
    pair.low = std::min(pair.last, pair.open) * 0.99;
    pair.volume = 50'000'000 / std::max(std::abs(pair.last), 1e-8);
    pair.changed = false;
}

void Market::restrictTo(const QStringList& symbols) {
    std::vector<Pair> kept;
    for (const QString& symbol : symbols)
        kept.push_back(at(symbol));
    pairs_ = std::move(kept);
}

const Pair& Market::push(const QString& symbol, const std::optional<QByteArray>& price,
                         const std::optional<QByteArray>& change) {
    Pair& pair = at(symbol);
    if (price) {
        pair.lastText = *price;
        pair.last = numberIn(*price, pair.last);
        pair.anchor = pair.last;
        pair.decimals = decimalsFor(pair.last);
    }
    const double growth = 1 + numberIn(change.value_or("x"), changeOf(pair)) / 100;
    if (change && growth > 0)
        pair.open = pair.last / growth;
    pair.changeText = change.value_or(QByteArray::number(changeOf(pair), 'f', 3));
    widenRange(pair);
    ++pair.trades;
    pair.changed = true;
    return pair;
}

void Market::step() {
    std::uniform_real_distribution<> chance(0, 1);
    for (Pair& pair : pairs_) {
        if (pair.isTrading() && chance(random_) < shareThatMoves)
            move(pair);
    }
}

void Market::move(Pair& pair) {
    std::normal_distribution<> noise(0, stepDeviation);
    const double pull =
        pair.last > 0 && pair.anchor > 0 ? pullToAnchor * std::log(pair.anchor / pair.last) : 0;
    const double scale = std::pow(10, pair.decimals);
    pair.last = std::round(pair.last * std::exp(noise(random_) + pull) * scale) / scale;
    pair.lastText = QByteArray::number(pair.last, 'f', 8);
    pair.changeText = QByteArray::number(changeOf(pair), 'f', 3);
    pair.volume *= 1 + std::abs(noise(random_)) / 100;
    pair.trades += 1 + static_cast<qint64>(random_() % 200);
    widenRange(pair);
    pair.changed = true;
}

const Pair* Market::find(const QString& symbol) const {
    const auto found = std::ranges::find(pairs_, symbol, &Pair::symbol);
    return found == pairs_.end() ? nullptr : &*found;
}

void Market::markSent(const Pair& pair) {
    at(pair.symbol).changed = false;
}

} // namespace simulator
