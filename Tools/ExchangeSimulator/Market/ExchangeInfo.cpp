// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Market/ExchangeInfo.h"

#include <array>
#include <cmath>

namespace simulator {

namespace {

const QByteArray head =
    R"({"timezone":"UTC","serverTime":$TIME,"rateLimits":[)"
    R"({"rateLimitType":"REQUEST_WEIGHT","interval":"MINUTE","intervalNum":1,"limit":6000},)"
    R"({"rateLimitType":"ORDERS","interval":"SECOND","intervalNum":10,"limit":100},)"
    R"({"rateLimitType":"RAW_REQUESTS","interval":"MINUTE","intervalNum":5,"limit":61000}],)"
    R"("exchangeFilters":[],"symbols":[)";

const QByteArray entryText =
    R"({"symbol":"$BASE$QUOTE","status":"$STATUS","baseAsset":"$BASE","baseAssetPrecision":8,)"
    R"("quoteAsset":"$QUOTE","quotePrecision":8,"quoteAssetPrecision":8,)"
    R"("baseCommissionPrecision":8,"quoteCommissionPrecision":8,)"
    R"("orderTypes":["LIMIT","LIMIT_MAKER","MARKET","STOP_LOSS","STOP_LOSS_LIMIT","TAKE_PROFIT","TAKE_PROFIT_LIMIT"],)"
    R"("icebergAllowed":true,"ocoAllowed":true,"otoAllowed":true,"quoteOrderQtyMarketAllowed":true,)"
    R"("allowTrailingStop":true,"cancelReplaceAllowed":true,"amendAllowed":true,)"
    R"("isSpotTradingAllowed":$TRADES,"isMarginTradingAllowed":false,"filters":[)"
    R"({"filterType":"PRICE_FILTER","minPrice":$STEP,"maxPrice":"1000000.00000000","tickSize":$STEP},)"
    R"({"filterType":"LOT_SIZE","minQty":"0.00001000","maxQty":"9000.00000000","stepSize":"0.00001000"},)"
    R"({"filterType":"ICEBERG_PARTS","limit":10},)"
    R"({"filterType":"MARKET_LOT_SIZE","minQty":"0.00000000","maxQty":"117.18741000","stepSize":"0.00000000"},)"
    R"({"filterType":"TRAILING_DELTA","minTrailingAboveDelta":10,"maxTrailingAboveDelta":2000,)"
    R"("minTrailingBelowDelta":10,"maxTrailingBelowDelta":2000},)"
    R"({"filterType":"PERCENT_PRICE_BY_SIDE","bidMultiplierUp":"5","bidMultiplierDown":"0.2",)"
    R"("askMultiplierUp":"5","askMultiplierDown":"0.2","avgPriceMins":5},)"
    R"({"filterType":"NOTIONAL","minNotional":"5.00000000","applyMinToMarket":true,)"
    R"("maxNotional":"9000000.00000000","applyMaxToMarket":false,"avgPriceMins":5},)"
    R"({"filterType":"MAX_NUM_ORDERS","maxNumOrders":200},)"
    R"({"filterType":"MAX_NUM_ALGO_ORDERS","maxNumAlgoOrders":5}],"permissions":[],)"
    R"("permissionSets":[["SPOT","MARGIN","TRD_GRP_004","TRD_GRP_005","TRD_GRP_006","TRD_GRP_009",)"
    R"("TRD_GRP_010","TRD_GRP_011","TRD_GRP_012","TRD_GRP_013","TRD_GRP_014","TRD_GRP_015"],["TRD_GRP_021"]],)"
    R"("defaultSelfTradePreventionMode":"EXPIRE_MAKER",)"
    R"("allowedSelfTradePreventionModes":["EXPIRE_TAKER","EXPIRE_MAKER","EXPIRE_BOTH","DECREMENT"]})";

QByteArray entry(const QByteArray& base, const QByteArray& quote, const QByteArray& status,
                 int decimals) {
    QByteArray text = entryText;
    text.replace("$BASE", base).replace("$QUOTE", quote).replace("$STATUS", status);
    text.replace("$TRADES", status == "TRADING" ? "true" : "false");
    return text.replace("$STEP", Pair::amount(std::pow(10, -decimals)));
}

QByteArray madeUpEntry(int number) {
    static constexpr std::array quotes = {"USDT", "BTC", "USDC"};
    const QByteArray base = "SIM" + QByteArray::number(number).rightJustified(5, '0');
    const auto* const quote = quotes[static_cast<std::size_t>(number) % quotes.size()];
    return entry(base, quote, number % 2 == 0 ? "TRADING" : "BREAK", 5);
}

} // namespace

QByteArray madeUpEntries(qsizetype bytes) {
    QByteArray text;
    for (int number = 0; text.size() < bytes; ++number)
        text += madeUpEntry(number) + ',';
    return text;
}

QByteArray exchangeInfo(const std::vector<Pair>& pairs, qint64 serverTime,
                        const QByteArray& madeUp) {
    QByteArray text = head;
    text.replace("$TIME", QByteArray::number(serverTime));
    for (const Pair& pair : pairs) {
        text += entry(pair.baseAsset.toUtf8(), pair.quoteAsset.toUtf8(), pair.status.toUtf8(),
                      pair.decimals);
        text += ',';
    }
    text += madeUp;
    if (text.endsWith(','))
        text.chop(1);
    return text + "]}";
}

} // namespace simulator
