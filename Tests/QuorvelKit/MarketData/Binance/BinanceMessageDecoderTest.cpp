// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceMessageDecoder.h"

#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace quorvel;
using namespace std::string_literals;
using test::cases;
using test::decimal;

namespace {

BinanceMessage decode(const std::string& frame) {
    return BinanceMessageDecoder().decode(
        QByteArrayView(frame.data(), static_cast<qsizetype>(frame.size())));
}

/// @param seconds after 1970
Quote quote(const char* base, const char* price, const char* change, double seconds) {
    return {{base, "USDT"},
            decimal(price),
            decimal(change),
            platform::dateSince1970(platform::TimeInterval(seconds))};
}

const std::string complete =
    R"({"stream":"btcusdt@ticker","data":{"e":"24hrTicker","E":1700000000123,"s":"BTCUSDT",)"
    R"("c":"37012.50000000","P":"-1.250","o":"37480.00"}})";

/// The complete frame with its only `part` replaced.
std::string with(const std::string& part, const std::string& by) {
    const std::size_t at = complete.find(part);
    if (at == std::string::npos || complete.find(part, at + 1) != std::string::npos)
        throw std::logic_error("not once: " + part);
    return std::string(complete).replace(at, part.size(), by);
}

TEST(BinanceMessageDecoder, IgnoresATickerCutOffAnywhere) {
    for (std::size_t length = 0; length < complete.size(); ++length)
        EXPECT_EQ(decode(complete.substr(0, length)), BinanceMessage(IgnoredMessage())) << length;
}

TEST(BinanceMessageDecoder, ReadsATickerHoweverItIsWritten) {
    const Quote usual = quote("BTC", "37012.5", "-1.25", 1700000000.123);
    struct Ticker {
        std::string frame;
        Quote expected;
    };
    for (
        const auto& [frame, expected] : cases(
            Ticker{complete, usual}, Ticker{with("BTCUSDT", "btcusdt"), usual},
            Ticker{with("37012.50000000", "\\t3.70125E4 "), usual},
            Ticker{with("\"e\"", "\"\\u0065\""), usual},
            Ticker{with("1700000000123", "-1e3"), quote("BTC", "37012.5", "-1.25", -1)},
            Ticker{with("BTCUSDT", "\\u00e4１USDT"),
                   quote("\u00c4\uff11", "37012.5", "-1.25", 1700000000.123)},
            // Numbers that no type holds, in keys that nobody reads.
            Ticker{with("\"37480.00\"", "[1e999,{\"e\":123456789012345678901234567890}]"), usual},
            // Of a repeated key the last one counts, at every level.
            Ticker{with("{\"stream\"", "{\"stream\":1,\"data\":{\"c\":\"9\"},\"stream\""), usual},
            Ticker{with("\"E\"", "\"E\":\"x\",\"c\":\"8\",\"E\""), usual},
            Ticker{
                R"({"id":5,"data":{"e":"24hrTicker","E":0,"s":"AUSDT","c":"1","P":"2"},"stream":""})",
                quote("A", "1", "2", 0)}))
        EXPECT_EQ(decode(frame), BinanceMessage(expected)) << frame;
}

TEST(BinanceMessageDecoder, IgnoresWhatIsNoTickerInUSDT) {
    for (const std::string& frame :
         cases("hello"s, "[]"s, "{}"s, complete + complete,
               with("\"37480.00\"", "tru"), // in what nobody reads
               // A required key missing or of another type.
               with("stream", "Stream"), with("\"btcusdt@ticker\"", "null"), with("data", "DATA"),
               with("\"e\"", "\"x\""), with("\"E\"", "\"x\""), with("\"P\"", "\"p\""),
               with("1700000000123", "1.5"), with("1700000000123", "\"1\""),
               with("1700000000123", "null"), with("1700000000123", "9223372036854775808"),
               with("\"BTCUSDT\"", "7"), with("\"37012.50000000\"", "1"), with("\"-1.250\"", "1"),
               with("\"o\"", "\"c\":1,\"o\""), R"({"stream":"s","data":[]})"s,
               // Another event, pair or number; an envelope is no acknowledgement even then.
               with("24hrTicker", "24hrticker"), with("24hrTicker", "24hrMiniTicker"),
               with("24hrTicker", "24hrTicker\\u0000"), with("BTCUSDT", "USDT"),
               with("BTCUSDT", "ETHBTC"), with("37012.50000000", "+1"), with("-1.250", "1,5"),
               with("-1.250", ""), with("24hrTicker", "x").replace(1, 0, "\"id\":5,")))
        EXPECT_EQ(decode(frame), BinanceMessage(IgnoredMessage())) << frame;
}

TEST(BinanceMessageDecoder, FindsTheWholeNumberOfAControlResponse) {
    EXPECT_EQ(decode(R"({"result":null,"id":7})"), BinanceMessage(ControlAck{7}));
    EXPECT_EQ(decode(R"({"code":2,"msg":"Invalid request","id":-8})"),
              BinanceMessage(ControlAck{-8}));
    EXPECT_EQ(decode(R"({"stream":"s","data":{"e":"24hrTicker"},"id":3})"),
              BinanceMessage(ControlAck{3}));
    for (const char* frame : {R"({"id":1,"id":"2"})", R"({"id":null})", R"({"id":7.5})",
                              R"({"ID":7})", R"([{"id":7}])", R"({"code":1,"msg":"x"})"})
        EXPECT_EQ(decode(frame), BinanceMessage(IgnoredMessage())) << frame;
}

} // namespace
