// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONWriter.h"
#include "Platform/JSON/StoredArray.h"

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

bool reads(std::string_view document, auto&& read) {
    try {
        decodeJSON(document, read);
        return true;
    } catch (const DecodingError&) {
        return false;
    }
}

bool isWellFormed(std::string_view document) {
    return reads(document, ignore);
}

/// Reads `{"a":DOCUMENT}` member by member, as readers of large documents do.
bool isWellFormedWhenVisited(const std::string& document) {
    return reads("{\"a\":" + document + "}", [](JSONValue root) {
        root.forEachMember([](std::string_view, JSONValue value) {
            value.forEachMember([](std::string_view, JSONValue) {});
            value.forEachElement([](JSONValue element) { element.asString(); });
        });
        return 0;
    });
}

std::string nested(int levels) {
    return std::string(static_cast<std::size_t>(levels), '[') +
           std::string(static_cast<std::size_t>(levels), ']');
}

/// The documents of a text that has blanks between them; `_` stands for a blank inside one.
std::vector<std::string> documents(std::string_view text) {
    std::vector<std::string> documents(1);
    for (const char c : text) {
        if (c == ' ' || c == '\n')
            documents.emplace_back();
        else
            documents.back() += c == '_' ? ' ' : c;
    }
    std::erase(documents, "");
    return documents;
}

TEST(JSON, RefusesMalformedDocumentsUnreadAndRead) {
    auto all = documents(R"(
        _ { } [ ] {] [} [[] {"a":{} [1} {"a":1] [1,] [,1] [1_2] [,] {"a"} {"a":} {"a"_1} {"a":1,}
        {,"a":1} {"a":1_"b":2} {a:1} {1:1} {"a"::1} {[]:1} : 1_2 {}_{} [1]x [1]_//_note
        [[1],[2,],3] {"x":[{"y":[}]}

        tru truee True nul nullx falsee true"" NaN 'a' 01 - -01 +1 .5 5. 1.e3 1e 1e+ 1.2.3 1e5.5
        0x10 --1 1- 1a 1""

        " "a "\" "a"b" "a""b" "\x" "\u12" "\u12g4" "\u-123" "\ud800" "\udc00" "\ud800\u0041"
        "\ud800\ud800" "\ud83dx" {"\x":1} {"\ud800":1})");
    all.insert(all.end(), {""s, "[1]\0"s, "\0"s, "\xEF\xBB\xBF{}"s, "\u00A01"s, "\"a\nb\""s,
                           "\"a\0b\""s, "\"\x80\""s, "\"\xC3\""s, "\"\xC0\x80\""s,
                           "\"\xED\xA0\x80\""s, "\"\xF4\x90\x80\x80\""s, "\xFF"s});
    for (const std::string& document : all) {
        EXPECT_FALSE(isWellFormed(document)) << document;
        EXPECT_FALSE(isWellFormedWhenVisited(document)) << document;
    }
}

TEST(JSON, AcceptsWellFormedDocumentsUnreadAndRead) {
    auto all = documents(R"(
        {} [] _[_]_ null true _false_ 0 -0 0.0 1e400 -1E-400 123456789012345678901234567890 ""
        "\\" "\"\/\b\f\n\r\t\u0000" "\ud83d\ude00" [1_,_[_]_,_{_}_,_"x"_] {"":0}
        {"a":{"a":[[],[{}]]},"a":null})");
    all.insert(all.end(), {"\t{\r\n}\n"s, "\"\x7F\""s, "\"\U0001F600\""s});
    for (const std::string& document : all) {
        EXPECT_TRUE(isWellFormed(document)) << document;
        EXPECT_TRUE(isWellFormedWhenVisited(document)) << document;
    }
}

TEST(JSON, LimitsNestingWithoutRecursion) {
    EXPECT_TRUE(isWellFormed(nested(512)));
    EXPECT_FALSE(isWellFormed(nested(513)));
    EXPECT_TRUE(isWellFormedWhenVisited(nested(511)));
    EXPECT_FALSE(isWellFormedWhenVisited(nested(512)));
    EXPECT_FALSE(isWellFormed(nested(1'000'000)));
    EXPECT_FALSE(isWellFormed(std::string(1'000'000, '[')));
}

TEST(JSON, LetsTheLastDuplicateCount) {
    const auto read = [](JSONValue root) { return root.required("a", &JSONValue::number); };
    EXPECT_EQ(decodeJSON(R"({"a":1,"b":0,"\u0061":2})", read), 2);
    EXPECT_THROW(decodeJSON(R"({"a":1,"a":"x"})", read), DecodingError);
}

TEST(JSON, EndsANumberAtWhateverBlankFollows) {
    for (const std::string& blank : {""s, " "s, "\t"s, "\n"s, "\r"s, "\r\n"s, " \r\n\t "s}) {
        EXPECT_EQ(decodeJSON("-12" + blank, &JSONValue::asInteger), -12);
        std::vector<std::string> digits;
        std::string text = "[1.50_,{\"a\":2e3_}_]";
        for (auto place = text.find('_'); place != std::string::npos; place = text.find('_', place))
            text.replace(place, 1, blank);
        decodeJSON(text, [&](JSONValue root) {
            return root.forEachElement([&](JSONValue element) {
                digits.emplace_back(element.isObject() ? element.required("a", &JSONValue::digits)
                                                       : element.digits());
            });
        });
        EXPECT_EQ(digits, (std::vector<std::string>{"1.50", "2e3"}));
    }
}

TEST(JSON, ResolvesEscapesInKeysAndValues) {
    const auto text = decodeJSON(
        R"({"k\u00e4\n":"\"\\\/\b\f\r\t\u20ac\ud83d\ude00\u0000x"})", [](JSONValue root) {
            return root.required("k\u00e4\n",
                                 [](JSONValue value) { return std::string(value.string()); });
        });
    EXPECT_EQ(text, "\"\\/\b\f\r\t\u20ac\U0001F600\0x"s);
}

TEST(JSON, ReadsWholeNumbersThatFitExactly) {
    const auto read = [](const char* text) { return decodeJSON(text, &JSONValue::asInteger); };
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(read("9223372036854775807"), -(smallest + 1));
    EXPECT_EQ(read("-9223372036854775808"), smallest);
    EXPECT_EQ(read("12E+2"), 1200);
    EXPECT_EQ(read("1200e-2"), 12);
    EXPECT_EQ(read("0e99999999999999999999"), 0);
    for (const char* text :
         {"9223372036854775808", "125e-1", "1e19", "1e999999999", "1e99999999999999999999",
          "1e-999999999", "1.0", "0.0", "1.5", "\"1\"", "null", "[1]"})
        EXPECT_EQ(read(text), std::nullopt) << text;
}

TEST(JSON, ReadsDoublesToTheNearest) {
    const auto read = [](const char* text) { return decodeJSON(text, &JSONValue::asDouble); };
    EXPECT_EQ(read("9007199254740993"), 9007199254740992.0); // a tie: to even
    EXPECT_EQ(read("1e309"), std::nullopt);
    EXPECT_EQ(read("\"1\""), std::nullopt);
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
    using Kind = DecodingError::Kind;
    using Path = std::vector<std::string>;
    const auto read = [](JSONValue root) {
        return root.required(
            "outer", [](JSONValue outer) { return outer.required("inner", &JSONValue::number); });
    };
    for (const auto& [document, kind, path] :
         {std::tuple(R"({"outer":{"inner":"x"}})", Kind::typeMismatch, Path{"outer", "inner"}),
          std::tuple(R"({"outer":{}})", Kind::keyNotFound, Path{"outer"}),
          std::tuple(R"({"outer":[]})", Kind::typeMismatch, Path{"outer"})}) {
        try {
            decodeJSON(document, read);
            ADD_FAILURE() << document << " was read";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), kind);
            EXPECT_EQ(error.codingPath(), path);
        }
    }
}

TEST(JSON, TreatsNullAndAbsenceAlikeInOptionalMembers) {
    const auto read = [](JSONValue root) { return root.optional("a", &JSONValue::boolean); };
    EXPECT_EQ(decodeJSON("{}", read), std::nullopt);
    EXPECT_EQ(decodeJSON(R"({"a":null})", read), std::nullopt);
    EXPECT_EQ(decodeJSON(R"({"a":false})", read), false);
    EXPECT_THROW(decodeJSON(R"({"a":"true"})", read), DecodingError);
}

platform::StoredArray<double> numbers(const char* document) {
    return platform::decodeStoredArray<double>(document, [](JSONValue element) {
        double sum = 0;
        const auto add = [&sum](JSONValue inner) { sum += inner.number(); };
        return element.forEachElement(add) ? sum : element.number();
    });
}

TEST(StoredArray, SkipsDamagedElementsAndTells) {
    const auto damaged = numbers(R"([1,"x",[2,3],[4,"x",[5,{"a":[]}]],{"a":[6]},null,7])");
    EXPECT_EQ(damaged.elements, (std::vector<double>{1, 5, 7}));
    EXPECT_FALSE(damaged.isComplete);
    EXPECT_TRUE(numbers("[]").isComplete);
    EXPECT_TRUE(numbers("[[1,2],3]").isComplete);
    for (const char* lost : {R"([1,["x",tru],2])", R"([1,["x",2},2])", R"([1,"x",2)", "{}", ""}) {
        EXPECT_TRUE(numbers(lost).elements.empty()) << lost;
        EXPECT_FALSE(numbers(lost).isComplete) << lost;
    }
}

TEST(JSON, DecodesDocumentsInsideOneAnother) {
    decodeJSON(R"(["[10,20]",3])", [](JSONValue root) {
        double sum = 0;
        root.forEachElement([&](JSONValue element) {
            const auto inner = element.asString();
            sum += inner ? numbers(std::string(*inner).c_str()).elements.back() : element.number();
        });
        EXPECT_EQ(sum, 23);
        return 0;
    });
}

TEST(JSON, ReadsDocumentsLargerThanWhatItKeeps) {
    const std::string document = "[\"" + std::string(700'000, 'x') + "\",1";
    EXPECT_TRUE(isWellFormed(document + "]"));
    EXPECT_FALSE(isWellFormed(document));
    EXPECT_TRUE(isWellFormed("[1]"));
}

TEST(JSONWriter, KeepsTheOrderAndTheDigits) {
    JSONWriter writer;
    writer.beginObject().key("z").beginArray().integer(-1).digits("0.10").number(785000000.25);
    writer.beginObject().endObject().beginArray().endArray().endArray();
    writer.key("a").boolean(true).key("s").string("x").endObject();
    EXPECT_EQ(writer.text(), R"({"z":[-1,0.10,785000000.25,{},[]],"a":true,"s":"x"})");
}

TEST(JSONWriter, WritesDoublesWithoutAnExponent) {
    const auto written = [](double value) {
        JSONWriter writer;
        return writer.number(value).text();
    };
    EXPECT_EQ(written(785000000.0), "785000000");
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
    EXPECT_EQ(JSONWriter().string("\"\\\n\x01/").text(), R"("\"\\\u000a\u0001/")");
    EXPECT_EQ(JSONWriter().string("a\xFFz").text(), "\"a\uFFFDz\"");
}

} // namespace
