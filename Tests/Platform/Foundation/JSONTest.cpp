#include "Platform/Foundation/FailableDecodable.h"
#include "Platform/Foundation/JSONReader.h"
#include "Platform/Foundation/JSONWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace std::string_literals;
using platform::decodeJSON;
using platform::DecodingError;
using platform::JSONValue;
using platform::JSONWriter;

namespace {

constexpr auto ignore = [](JSONValue) { return 0; };

bool isWellFormed(std::string_view document) {
    try {
        decodeJSON(document, ignore);
        return true;
    } catch (const DecodingError&) {
        return false;
    }
}

std::string nested(int levels) {
    return std::string(static_cast<std::size_t>(levels), '[') +
           std::string(static_cast<std::size_t>(levels), ']');
}

/// Reads `{"a":DOCUMENT}` member by member, as readers of large documents do.
bool isWellFormedWhenVisited(const std::string& document) {
    try {
        decodeJSON("{\"a\":" + document + "}", [](JSONValue root) {
            root.forEachMember([](std::string_view, JSONValue value) {
                value.forEachMember([](std::string_view, JSONValue) {});
                value.forEachElement([](JSONValue element) { element.asString(); });
            });
            return 0;
        });
        return true;
    } catch (const DecodingError&) {
        return false;
    }
}

class MalformedJSON : public testing::TestWithParam<std::string> {};

TEST_P(MalformedJSON, IsRefusedUnreadAndRead) {
    EXPECT_FALSE(isWellFormed(GetParam()));
    EXPECT_FALSE(isWellFormedWhenVisited(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Structure, MalformedJSON,
                         testing::Values(""s, " "s, "{"s, "}"s, "["s, "]"s, "{]"s, "[}"s, "[[]"s,
                                         "{\"a\":{}"s, "[1}"s, "{\"a\":1]"s, "[1,]"s, "[,1]"s,
                                         "[1 2]"s, "[,]"s, "[1,,2]"s, "{\"a\"}"s, "{\"a\":}"s,
                                         "{\"a\" 1}"s, "{\"a\":1,}"s, "{,\"a\":1}"s,
                                         "{\"a\":1 \"b\":2}"s, "{a:1}"s, "{1:1}"s, "{\"a\"::1}"s,
                                         "{[]:1}"s, ":"s, ","s, "1 2"s, "{} {}"s, "[]]"s, "[1]x"s,
                                         "[1]\0"s, "\0"s, "\xEF\xBB\xBF{}"s, "[1] // note"s,
                                         "[[1],[2,],3]"s, "{\"x\":[{\"y\":[}]}"s));

INSTANTIATE_TEST_SUITE_P(Scalars, MalformedJSON,
                         testing::Values("tru"s, "truee"s, "True"s, "nul"s, "nullx"s, "falsee"s,
                                         "true\"\""s, "NaN"s, "Infinity"s, "undefined"s, "'a'"s,
                                         "01"s, "-"s, "-01"s, "+1"s, ".5"s, "5."s, "1.e3"s, "1e"s,
                                         "1e+"s, "1.2.3"s, "1e5.5"s, "0x10"s, "1_000"s, "--1"s,
                                         "1-"s, "1a"s, "1\"\""s,
                                         "\xC2\xA0"
                                         "1"s));

INSTANTIATE_TEST_SUITE_P(Strings, MalformedJSON,
                         testing::Values("\""s, "\"a"s, "\"\\\""s, "\"a\"b"s, "\"a\"\"b\""s,
                                         "\"\\x\""s, "\"\\u12\""s, "\"\\u12g4\""s, "\"\\u-123\""s,
                                         "\"\\ud800\""s, "\"\\udc00\""s, "\"\\ud800\\u0041\""s,
                                         "\"\\ud800\\ud800\""s, "\"\\ud83dx\""s, "\"a\nb\""s,
                                         "\"a\tb\""s, "\"a\0b\""s, "\"\x80\""s, "\"\xC3\""s,
                                         "\"\xC0\x80\""s, "\"\xED\xA0\x80\""s,
                                         "\"\xF4\x90\x80\x80\""s, "{\"\\x\":1}"s,
                                         "{\"\\ud800\":1}"s, "\xFF"s));

class WellFormedJSON : public testing::TestWithParam<std::string> {};

TEST_P(WellFormedJSON, IsAcceptedUnreadAndRead) {
    EXPECT_TRUE(isWellFormed(GetParam()));
    EXPECT_TRUE(isWellFormedWhenVisited(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(JSON, WellFormedJSON,
                         testing::Values("{}"s, "[]"s, " [ ] "s, "\t{\r\n}\n"s, "null"s, "true"s,
                                         " false "s, "0"s, "-0"s, "0.0"s, "1e400"s, "-1E-400"s,
                                         "123456789012345678901234567890"s, "\"\""s, "\"\\\\\""s,
                                         "\"\\\"\\/\\b\\f\\n\\r\\t\\u0000\""s,
                                         "\"\\ud83d\\ude00\""s, "[1 , [ ] , { } , \"x\" ]"s,
                                         "{\"a\":{\"a\":[[],[{}]]},\"a\":null}"s, "{\"\":0}"s,
                                         "\"\x7F\""s, "\"\xF0\x9F\x98\x80\""s));

TEST(JSON, LimitsNestingWithoutRecursion) {
    EXPECT_TRUE(isWellFormed(nested(512)));
    EXPECT_FALSE(isWellFormed(nested(513)));
    EXPECT_TRUE(isWellFormedWhenVisited(nested(511)));
    EXPECT_FALSE(isWellFormedWhenVisited(nested(512)));
    EXPECT_FALSE(isWellFormed(nested(1'000'000)));
    EXPECT_FALSE(isWellFormed(std::string(1'000'000, '[')));
}

TEST(JSON, RefusesAFaultBehindWhatWasRead) {
    const auto readFirst = [](JSONValue root) { return root.required("a", &JSONValue::integer); };
    EXPECT_EQ(decodeJSON(R"({"a":1,"b":[1,2]})", readFirst), 1);
    EXPECT_THROW(decodeJSON(R"({"a":1,"b":[1,2)", readFirst), DecodingError);
    EXPECT_THROW(decodeJSON(R"({"a":1,"b":tru})", readFirst), DecodingError);
    EXPECT_THROW(decodeJSON(R"({"a":1}{"a":1})", readFirst), DecodingError);
}

TEST(JSON, LetsTheLastDuplicateCount) {
    const auto read = [](JSONValue root) { return root.required("a", &JSONValue::integer); };
    EXPECT_EQ(decodeJSON(R"({"a":1,"b":0,"\u0061":2})", read), 2);
    EXPECT_THROW(decodeJSON(R"({"a":1,"a":"x"})", read), DecodingError);
}

TEST(JSON, ResolvesEscapesInKeysAndValues) {
    const auto text = decodeJSON(
        R"({"k\u00e4\n":"\"\\\/\b\f\r\t\u20ac\ud83d\ude00\u0000x"})", [](JSONValue root) {
            return root.required("k\u00e4\n",
                                 [](JSONValue value) { return std::string(value.string()); });
        });
    EXPECT_EQ(text, "\"\\/\b\f\r\t\u20ac\U0001F600\0x"s);
}

struct IntegerCase {
    const char* text;
    std::optional<std::int64_t> value;
};

class JSONInteger : public testing::TestWithParam<IntegerCase> {};

TEST_P(JSONInteger, IsExactOrAbsent) {
    const auto value = decodeJSON(GetParam().text, [](JSONValue root) { return root.asInteger(); });
    EXPECT_EQ(value, GetParam().value) << GetParam().text;
}

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

INSTANTIATE_TEST_SUITE_P(
    JSON, JSONInteger,
    testing::Values(IntegerCase{"0", 0}, IntegerCase{"-0", 0}, IntegerCase{" 42 ", 42},
                    IntegerCase{"9223372036854775807", largest},
                    IntegerCase{"-9223372036854775808", smallest},
                    IntegerCase{"9223372036854775808", std::nullopt},
                    IntegerCase{"-9223372036854775809", std::nullopt}, IntegerCase{"1e3", 1000},
                    IntegerCase{"12E+2", 1200}, IntegerCase{"1200e-2", 12},
                    IntegerCase{"125e-1", std::nullopt},
                    IntegerCase{"1e18", 1'000'000'000'000'000'000},
                    IntegerCase{"1e19", std::nullopt}, IntegerCase{"0e99999999999999999999", 0},
                    IntegerCase{"1e99999999999999999999", std::nullopt},
                    IntegerCase{"10000000000000000000000e-20", 100},
                    IntegerCase{"1.0", std::nullopt}, IntegerCase{"1.5", std::nullopt},
                    IntegerCase{"\"1\"", std::nullopt}, IntegerCase{"null", std::nullopt},
                    IntegerCase{"true", std::nullopt}, IntegerCase{"[1]", std::nullopt}));

TEST(JSON, ReadsDoublesToTheNearest) {
    const auto read = [](const char* text) {
        return decodeJSON(text, [](JSONValue root) { return root.asDouble(); });
    };
    EXPECT_EQ(read("785000000.25"), 785000000.25);
    EXPECT_EQ(read("0.1"), 0.1);
    EXPECT_EQ(read("9007199254740993"), 9007199254740992.0); // a tie: to even
    EXPECT_EQ(read("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(read("1e309"), std::nullopt);
    EXPECT_EQ(read("\"1\""), std::nullopt);
}

TEST(JSON, HandsOutTheDigitsOfANumber) {
    const auto digits = decodeJSON(" [ 0.10e+05 \n]", [](JSONValue root) {
        std::string text;
        root.forEachElement([&](JSONValue element) { text = element.digits(); });
        return text;
    });
    EXPECT_EQ(digits, "0.10e+05");
}

TEST(JSON, ReadsValuesTwiceAndOutOfOrder) {
    decodeJSON(R"({"a":[1,[2,3]],"b":{"c":"d"}})", [](JSONValue root) {
        root.forEachMember([&](std::string_view key, JSONValue value) {
            // Wanders off to other parts of the document in the middle of a walk.
            EXPECT_EQ(root.required("b", [](JSONValue b) { return b.required("c", ignore); }), 0);
            EXPECT_EQ(value.isArray(), key == "a");
            int count = 0;
            value.forEachElement([&](JSONValue) { ++count; });
            value.forEachElement([&](JSONValue) { ++count; });
            EXPECT_EQ(count, key == "a" ? 4 : 0);
        });
        return 0;
    });
}

TEST(JSON, NamesThePathOfAFault) {
    const auto readDeep = [](JSONValue root) {
        return root.required("outer", [](JSONValue outer) {
            return outer.required("inner", [](JSONValue inner) { return inner.integer(); });
        });
    };
    const auto errorOf = [&](std::string_view document) {
        try {
            decodeJSON(document, readDeep);
        } catch (const DecodingError& error) {
            return error;
        }
        return DecodingError(DecodingError::Kind::dataCorrupted, "nothing was thrown");
    };
    const auto mismatch = errorOf(R"({"outer":{"inner":"x"}})");
    EXPECT_EQ(mismatch.kind(), DecodingError::Kind::typeMismatch);
    EXPECT_EQ(mismatch.codingPath(), (std::vector<std::string>{"outer", "inner"}));
    const auto missing = errorOf(R"({"outer":{}})");
    EXPECT_EQ(missing.kind(), DecodingError::Kind::keyNotFound);
    EXPECT_EQ(missing.codingPath(), (std::vector<std::string>{"outer"}));
    EXPECT_EQ(errorOf(R"({"outer":[]})").kind(), DecodingError::Kind::typeMismatch);
}

TEST(JSON, TreatsNullAndAbsenceAlikeInOptionalMembers) {
    const auto read = [](JSONValue root) { return root.optional("a", &JSONValue::integer); };
    EXPECT_EQ(decodeJSON("{}", read), std::nullopt);
    EXPECT_EQ(decodeJSON(R"({"a":null})", read), std::nullopt);
    EXPECT_EQ(decodeJSON(R"({"a":7})", read), 7);
    EXPECT_THROW(decodeJSON(R"({"a":"7"})", read), DecodingError);
}

std::vector<std::int64_t> firstNumbers(std::string_view document) {
    return decodeJSON(document, [](JSONValue root) {
        return platform::decodeEachElement<std::int64_t>(root, [](JSONValue element) {
            std::int64_t first = 0;
            element.forEachElement([&](JSONValue inner) { first += inner.integer(); });
            return element.isArray() ? first : element.integer();
        });
    });
}

TEST(FailableDecodable, SkipsDamagedElementsAndKeepsItsPlace) {
    EXPECT_EQ(firstNumbers(R"([1,"x",[2,3],[4,"x",[5,{"a":[]}]],{"a":[6]},null,7])"),
              (std::vector<std::int64_t>{1, 5, 7}));
    EXPECT_EQ(firstNumbers("[]"), std::vector<std::int64_t>());
}

TEST(FailableDecodable, DoesNotHideAMalformedDocument) {
    EXPECT_THROW(firstNumbers(R"([1,["x",tru],2])"), DecodingError);
    EXPECT_THROW(firstNumbers(R"([1,["x",2},2])"), DecodingError);
    EXPECT_THROW(firstNumbers(R"([1,"x",2)"), DecodingError);
    EXPECT_THROW(firstNumbers("{}"), DecodingError);
}

TEST(JSON, DecodesDocumentsInsideOneAnother) {
    const auto inner = decodeJSON(R"(["[10,20]",3])", [](JSONValue root) {
        std::vector<std::int64_t> all;
        root.forEachElement([&](JSONValue element) {
            if (const auto text = element.asString())
                all = firstNumbers(*text);
            else
                all.push_back(element.integer());
        });
        return all;
    });
    EXPECT_EQ(inner, (std::vector<std::int64_t>{10, 20, 3}));
}

TEST(JSON, ReadsDocumentsLargerThanWhatItKeeps) {
    const std::string filler(700'000, 'x');
    const std::string document = "[\"" + filler + "\",1]";
    EXPECT_TRUE(isWellFormed(document));
    EXPECT_FALSE(isWellFormed(std::string_view(document).substr(0, document.size() - 1)));
    EXPECT_TRUE(isWellFormed("[1]"));
}

TEST(JSONWriter, KeepsTheOrderAndTheDigits) {
    JSONWriter writer;
    writer.beginObject().key("z").beginArray().integer(-1).digits("0.10").number(785000000.25);
    writer.beginObject().endObject().beginArray().endArray().endArray();
    writer.key("a").boolean(true).key("n").null().key("s").string("x").endObject();
    EXPECT_EQ(writer.text(), R"({"z":[-1,0.10,785000000.25,{},[]],"a":true,"n":null,"s":"x"})");
}

TEST(JSONWriter, WritesDoublesWithoutAnExponent) {
    const auto written = [](double value) {
        JSONWriter writer;
        return writer.number(value).text();
    };
    EXPECT_EQ(written(900), "900");
    EXPECT_EQ(written(785000000.0), "785000000");
    EXPECT_EQ(written(1e22), "10000000000000000000000");
    EXPECT_EQ(written(-1e-7), "-0.0000001");
    EXPECT_EQ(written(std::numeric_limits<double>::denorm_min()).size(), 326U);
    EXPECT_THROW(written(std::numeric_limits<double>::infinity()), std::invalid_argument);
}

TEST(JSONWriter, EscapesSoThatEveryTextReadsBack) {
    std::string every;
    for (int c = 0; c < 0x80; ++c)
        every += static_cast<char>(c);
    every += "\u00e4\u20ac\U0001F600";
    JSONWriter writer;
    writer.beginObject().key(every).string(every).endObject();
    const auto back = decodeJSON(writer.text(), [&](JSONValue root) {
        return root.required(every, [](JSONValue value) { return std::string(value.string()); });
    });
    EXPECT_EQ(back, every);
    EXPECT_EQ(JSONWriter().string("\"\\\n\x01/").text(), R"("\"\\\n\u0001/")");
    EXPECT_EQ(JSONWriter().string("a\xFFz").text(), "\"a\uFFFDz\"");
}

} // namespace
