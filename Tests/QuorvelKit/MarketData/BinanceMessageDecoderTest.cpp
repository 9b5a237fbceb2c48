#include "QuorvelKit/MarketData/BinanceMessageDecoder.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;
using quorvel::BinanceMessage;
using quorvel::BinanceMessageDecoder;
using quorvel::ControlAck;
using quorvel::Decimal;
using quorvel::IgnoredMessage;
using quorvel::Quote;

namespace {

BinanceMessage decode(const std::string& frame) {
    return BinanceMessageDecoder().decode(
        QByteArrayView(frame.data(), static_cast<qsizetype>(frame.size())));
}

/// Seconds after 1970.
Quote quote(const char* base, const char* price, const char* change, double seconds) {
    return {{base, "USDT"},
            Decimal::fromAPIString(price).value(),
            Decimal::fromAPIString(change).value(),
            platform::dateSince1970(platform::TimeInterval(seconds))};
}

/// An envelope around the given members of the event.
std::string enveloped(const std::string& members) {
    return R"({"stream":"btcusdt@ticker","data":{)" + members + "}}";
}

const std::string complete =
    R"({"stream":"btcusdt@ticker","data":{"e":"24hrTicker","E":1700000000123,"s":"BTCUSDT",)"
    R"("c":"37012.50000000","P":"-1.250","o":"37480.00"}})";

TEST(BinanceMessageDecoder, ReadsATicker) {
    EXPECT_EQ(decode(complete), BinanceMessage(quote("BTC", "37012.5", "-1.25", 1700000000.123)));
}

TEST(BinanceMessageDecoder, IgnoresATickerCutOffAnywhere) {
    for (std::size_t length = 0; length < complete.size(); ++length)
        EXPECT_EQ(decode(complete.substr(0, length)), BinanceMessage(IgnoredMessage())) << length;
}

TEST(BinanceMessageDecoder, SurvivesEveryDamagedByte) {
    for (std::size_t at = 0; at < complete.size(); ++at) {
        for (const char c : {'\0', '"', '{', '}', '[', '\\', ',', ' ', '9', '\x80', '\xFF'}) {
            std::string damaged = complete;
            damaged[at] = c;
            const auto message = decode(damaged);
            if (!std::holds_alternative<Quote>(message))
                continue;
            // What still is a ticker still has a pair in USDT.
            EXPECT_EQ(std::get<Quote>(message).symbol.quote, "USDT") << damaged;
        }
    }
}

struct TickerCase {
    std::string frame;
    Quote expected;
};

class Ticker : public testing::TestWithParam<TickerCase> {};

TEST_P(Ticker, GivesAQuote) {
    EXPECT_EQ(decode(GetParam().frame), BinanceMessage(GetParam().expected)) << GetParam().frame;
}

INSTANTIATE_TEST_SUITE_P(
    BinanceMessageDecoder, Ticker,
    testing::Values(
        TickerCase{enveloped(R"("e":"24hrTicker","E":0,"s":"btcusdt","c":"1","P":"0")"),
                   quote("BTC", "1", "0", 0)},
        TickerCase{
            enveloped(
                R"("P":"+"   ,"P":" 2 ","c":"\t123.4 ","s":"ETHUSDT","E":-1000,"e":"24hrTicker")"),
            quote("ETH", "123.4", "2", -1)},
        TickerCase{enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1e-8","P":"-3.5")"),
                   quote("BTC", "0.00000001", "-3.5", 0.001)},
        TickerCase{
            enveloped(
                R"("\u0065":"24hr\u0054icker","E":1e3,"s":"\u00e4usdt","c":"\u0031","P":"1")"),
            quote("\u00c4", "1", "1", 1)},
        TickerCase{enveloped(R"("e":"24hrTicker","E":1,"s":"１２USDT","c":"1","P":"1")"),
                   quote("\uff11\uff12", "1", "1", 0.001)},
        TickerCase{" {\r\n\t\"id\" : 5 , \"data\" : { \"e\" : \"24hrTicker\" , \"E\" : 1 , \"s\" : "
                   "\"AUSDT\" , "
                   "\"c\" : \"1\" , \"P\" : \"1\" } , \"stream\" : \"\" } \n",
                   quote("A", "1", "1", 0.001)},
        // Numbers that no type holds, in keys that nobody reads.
        TickerCase{
            enveloped(
                R"("x":1e999,"y":123456789012345678901234567890,"z":-1e-999,"e":"24hrTicker",)"
                R"("E":1,"s":"BTCUSDT","c":"1","P":"1","w":[[{"e":"x","c":[]}],{"s":null}])"),
            quote("BTC", "1", "1", 0.001)},
        // A repeated key: the last one counts, at every level.
        TickerCase{
            R"({"stream":1,"stream":"s","data":{"c":"9"},"data":{"e":"24hrTicker","E":"x","E":1,)"
            R"("s":"BTCUSDT","c":"8","c":"7","P":"1"}})",
            quote("BTC", "7", "1", 0.001)}));

class NoTicker : public testing::TestWithParam<std::string> {};

TEST_P(NoTicker, IsIgnored) {
    EXPECT_EQ(decode(GetParam()), BinanceMessage(IgnoredMessage())) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(
    Malformed, NoTicker,
    testing::Values(
        ""s, " "s, "hello"s, "null"s, "[]"s, "5"s, "{}"s, complete + complete, complete + "}",
        complete + "x", complete + " 1", complete + "\0"s, "\xEF\xBB\xBF" + complete,
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":tru)"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":01)"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":"\ud800")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":"\q")"),
        enveloped("\"e\":\"24hrTicker\",\"E\":1,\"s\":\"BTCUSDT\",\"c\":\"1\",\"P\":\"1\",\"x\":"
                  "\"\xC3\""),
        enveloped(
            "\"e\":\"24hrTicker\",\"E\":1,\"s\":\"BTCUSDT\",\"c\":\"1\",\"P\":\"1\",\"x\":\"\n\""),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1",)"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":[1,2)"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":)" +
                  std::string(100'000, '[')),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","x":)" +
                  std::string(600, '[') + std::string(600, ']')),
        R"({"result":null,"id":7)"s, R"({"result":null,"id":7}})"s, R"({"result":nul,"id":7})"s));

INSTANTIATE_TEST_SUITE_P(
    Incomplete, NoTicker,
    testing::Values(
        // One of the required keys missing, null or of another type.
        R"({"data":{"e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1"}})"s,
        R"({"stream":null,"data":{"e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1"}})"s,
        R"({"stream":"s","data":null})"s, R"({"stream":"s","data":[]})"s,
        R"({"stream":"s","DATA":{"e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1"}})"s,
        R"({"e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1"})"s,
        enveloped(R"("E":1,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1.5,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":"1","s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":null,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":9223372036854775808,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":7,"c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":1,"P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","p":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1","P":1)")));

INSTANTIATE_TEST_SUITE_P(
    NotWanted, NoTicker,
    testing::Values(
        enveloped(R"("e":"24hrticker","E":1,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrMiniTicker","E":1,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker ","E":1,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker\u0000","E":1,"s":"BTCUSDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"USDT","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"ETHBTC","c":"1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"+1","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":".5","P":"1")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"1","P":"1,5")"),
        enveloped(R"("e":"24hrTicker","E":1,"s":"BTCUSDT","c":"","P":"1")"),
        // A valid envelope is never an acknowledgement, even where it is dropped.
        R"({"id":5,"stream":"s","data":{"e":"x","E":1,"s":"BTCUSDT","c":"1","P":"1"}})"s));

struct AckCase {
    std::string frame;
    BinanceMessage expected;
};

class ControlResponse : public testing::TestWithParam<AckCase> {};

TEST_P(ControlResponse, CarriesAnIntegerId) {
    EXPECT_EQ(decode(GetParam().frame), GetParam().expected) << GetParam().frame;
}

INSTANTIATE_TEST_SUITE_P(
    BinanceMessageDecoder, ControlResponse,
    testing::Values(AckCase{R"({"result":null,"id":7})", ControlAck{7}},
                    AckCase{R"({"code":2,"msg":"Invalid request","id":-9223372036854775808})",
                            ControlAck{std::numeric_limits<std::int64_t>::min()}},
                    AckCase{R"({"stream":"s","data":{"e":"24hrTicker"},"id":3})", ControlAck{3}},
                    AckCase{R"({"id":1,"id":2})", ControlAck{2}},
                    AckCase{R"({"id":1,"id":"2"})", IgnoredMessage()},
                    AckCase{R"({"id":null})", IgnoredMessage()},
                    AckCase{R"({"id":"7"})", IgnoredMessage()},
                    AckCase{R"({"id":7.5})", IgnoredMessage()},
                    AckCase{R"({"ID":7})", IgnoredMessage()},
                    AckCase{R"({"id":9223372036854775808})", IgnoredMessage()},
                    AckCase{R"([{"id":7}])", IgnoredMessage()},
                    AckCase{R"({"code":1,"msg":"x"})", IgnoredMessage()}));

} // namespace
