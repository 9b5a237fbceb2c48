#include "QuorvelKit/MarketModel/Decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

using quorvel::Decimal;
using quorvel::RoundingMode;

namespace {

Decimal decimal(std::string_view text) {
    const auto value = Decimal::fromAPIString(text);
    EXPECT_TRUE(value.has_value()) << text;
    return value.value_or(Decimal());
}

struct Text {
    const char* input;
    const char* expected; ///< plain text
};

void PrintTo(const Text& text, std::ostream* out) {
    *out << text.input;
}

const std::string zeros30(30, '0');
const std::string nines38(38, '9');

class DecimalParse : public testing::TestWithParam<Text> {};

TEST_P(DecimalParse, KeepsEveryDigit) {
    const auto value = Decimal::fromAPIString(GetParam().input);
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(value->plainText(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, DecimalParse,
    testing::Values(
        Text{"0", "0"}, Text{"-0", "0"}, Text{"-0.000", "0"}, Text{"0e999", "0"}, Text{"42", "42"},
        Text{"  42\t", "42"}, Text{"0042", "42"}, Text{"1.10", "1.1"}, Text{"-2.5", "-2.5"},
        Text{"0.00001234", "0.00001234"}, Text{"37012.50000000", "37012.5"}, Text{"100", "100"},
        Text{"1e-8", "0.00000001"}, Text{"1.5E+3", "1500"}, Text{"12e0", "12"},
        Text{"1.0e-2", "0.01"}, Text{"-0.5e1", "-5"},
        Text{"9223372036854775808", "9223372036854775808"},
        Text{"18446744073709551616", "18446744073709551616"},
        Text{"12345678901234567890123456789012345678", "12345678901234567890123456789012345678"},
        Text{"0.12345678901234567890123456789012345678",
             "0.12345678901234567890123456789012345678"},
        Text{"99999999999999999999999999999999999999", "99999999999999999999999999999999999999"}));

INSTANTIATE_TEST_SUITE_P(
    Beyond38Digits, DecimalParse,
    testing::Values(
        Text{"1234567890123456789012345678901234567849",
             "1234567890123456789012345678901234567800"},
        Text{"1234567890123456789012345678901234567850",
             "1234567890123456789012345678901234567800"},
        Text{"1234567890123456789012345678901234567750",
             "1234567890123456789012345678901234567800"},
        Text{"1234567890123456789012345678901234567850.000000000001",
             "1234567890123456789012345678901234567900"},
        Text{"1.23456789012345678901234567890123456785", "1.2345678901234567890123456789012345678"},
        Text{"1.23456789012345678901234567890123456775", "1.2345678901234567890123456789012345678"},
        Text{"1.234567890123456789012345678901234567850000001",
             "1.2345678901234567890123456789012345679"},
        Text{"0.000099999999999999999999999999999999999999995", "0.0001"},
        Text{"999999999999999999999999999999999999995", "1000000000000000000000000000000000000000"},
        Text{"100000000000000000000000000000000000000000000",
             "100000000000000000000000000000000000000000000"}));

class DecimalRefusal : public testing::TestWithParam<const char*> {};

TEST_P(DecimalRefusal, GivesNoValue) {
    EXPECT_EQ(Decimal::fromAPIString(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Decimal, DecimalRefusal,
                         testing::Values("", " ", "\t", "+1", ".5", "5.", "-", "--1", "- 1",
                                         "1,000", "1 000", "1,5", "NaN", "nan", "inf", "abc", "1a",
                                         "0x10", "1e", "1e+", "e5", "1e5.5", "1e 5", "1.2.3", "1\n",
                                         "\n1", "1\r",
                                         "\xC2\xA0"
                                         "1",
                                         "\xD9\xA1", "\xEF\xBC\x91", "1e128", "1e-129", "-1e200",
                                         "1e99999999999999999999", "1e-99999999999999999999",
                                         "0.000000000000001e-120",
                                         "99999999999999999999999999999999999999.5e127"));

TEST(Decimal, ReachesTheBordersOfItsExponent) {
    EXPECT_EQ(decimal("1e127").plainText(), "1" + std::string(127, '0'));
    EXPECT_EQ(decimal("1.0e128"), decimal("10e127"));
    EXPECT_EQ(decimal(nines38 + "e127").plainText(), nines38 + std::string(127, '0'));
    EXPECT_EQ(decimal("-1e-128").plainText(), "-0." + std::string(127, '0') + "1");
    EXPECT_EQ(decimal("1.000e-128"), decimal("1e-128"));
}

TEST(Decimal, ScalesLongTextsByTheirExponent) {
    EXPECT_EQ(decimal("1" + std::string(2'000'000, '0') + "e-2000000"), Decimal(1));
    EXPECT_EQ(decimal("0." + std::string(1'999'999, '0') + "7e2000000"), Decimal(7));
}

TEST(Decimal, TakesAnEmbeddedNulForWhatItIs) {
    EXPECT_EQ(Decimal::fromAPIString(std::string_view("1\0", 2)), std::nullopt);
}

TEST(Decimal, OrdersNumerically) {
    const char* const ascending[] = {"-99999999999999999999999999999999999999e127",
                                     "-1e30",
                                     "-1000",
                                     "-999.99",
                                     "-1.1",
                                     "-1",
                                     "-1e-30",
                                     "-1e-128",
                                     "0",
                                     "1e-128",
                                     "1e-30",
                                     "0.9999999999999999999999999999999999999",
                                     "1",
                                     "1.0000000000000000000000000000000000001",
                                     "1.1",
                                     "1.11",
                                     "999.99",
                                     "1000",
                                     "1e30",
                                     "1.0000000000000000000000000000000000001e30",
                                     "99999999999999999999999999999999999999",
                                     "1e38",
                                     "99999999999999999999999999999999999999e127"};
    const int count = static_cast<int>(std::size(ascending));
    for (int i = 0; i < count; ++i) {
        for (int j = 0; j < count; ++j) {
            const Decimal left = decimal(ascending[i]);
            const Decimal right = decimal(ascending[j]);
            EXPECT_EQ(left <=> right, i <=> j) << ascending[i] << " against " << ascending[j];
            EXPECT_EQ(left == right, i == j) << ascending[i] << " against " << ascending[j];
        }
    }
}

TEST(Decimal, HashesEqualValuesAlike) {
    const std::hash<Decimal> hash;
    EXPECT_EQ(decimal("1.10"), decimal("1.1"));
    EXPECT_EQ(hash(decimal("1.10")), hash(decimal("1.1")));
    EXPECT_EQ(hash(decimal("100")), hash(Decimal(100)));
    EXPECT_EQ(hash(decimal("-0.0")), hash(Decimal()));
    EXPECT_NE(hash(decimal("1")), hash(decimal("-1")));
    EXPECT_NE(hash(decimal("1")), hash(decimal("10")));
}

TEST(Decimal, TakesWholeNumbersUpToTheirLimits) {
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()).plainText(),
              "-9223372036854775808");
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()).plainText(), "9223372036854775807");
    EXPECT_EQ(Decimal(-1200), decimal("-1.2e3"));
}

struct Difference {
    const char* left;
    const char* right;
    const char* expected;
};

class DecimalDifference : public testing::TestWithParam<Difference> {};

TEST_P(DecimalDifference, IsExactTo38Digits) {
    const auto& [left, right, expected] = GetParam();
    EXPECT_EQ(decimal(left) - decimal(right), decimal(expected))
        << (decimal(left) - decimal(right)).plainText();
    EXPECT_EQ(decimal(right) - decimal(left), -decimal(expected));
}

INSTANTIATE_TEST_SUITE_P(
    Decimal, DecimalDifference,
    testing::Values(Difference{"0", "0", "0"}, Difference{"1.5", "1.5", "0"},
                    Difference{"5", "0", "5"}, Difference{"-5", "0", "-5"},
                    Difference{"0.3", "0.1", "0.2"}, Difference{"1", "0.00000001", "0.99999999"},
                    Difference{"-2", "3", "-5"}, Difference{"-2", "-3", "1"},
                    Difference{"100", "99.999", "0.001"},
                    Difference{"99999999999999999999999999999999999999", "-1", "1e38"},
                    Difference{"99999999999999999999999999999999999999", "-6",
                               "100000000000000000000000000000000000000e0"},
                    Difference{"1e30", "1e-7", "999999999999999999999999999999.9999999"},
                    Difference{"1e30", "1e-30", "1e30"}, Difference{"1e127", "1e-128", "1e127"},
                    Difference{"1e38", "1", "99999999999999999999999999999999999999"},
                    Difference{"1e38", "0.5", "1e38"}, // a tie at the 38th digit: to even
                    Difference{"1e38", "0.50000000000000000000000000000001",
                               "99999999999999999999999999999999999999"},
                    Difference{"12345678901234567890123456789012345678", "-0.5",
                               "12345678901234567890123456789012345678"},
                    Difference{"12345678901234567890123456789012345677", "-0.5",
                               "12345678901234567890123456789012345678"}));

struct Rounding {
    const char* value;
    int digits;
    const char* toEven;
    const char* away;
};

class DecimalPlaces : public testing::TestWithParam<Rounding> {};

TEST_P(DecimalPlaces, AreRounded) {
    const auto& [value, digits, toEven, away] = GetParam();
    EXPECT_EQ(decimal(value).rounded(digits, RoundingMode::halfToEven), decimal(toEven));
    EXPECT_EQ(decimal(value).rounded(digits, RoundingMode::halfAwayFromZero), decimal(away));
}

INSTANTIATE_TEST_SUITE_P(
    Decimal, DecimalPlaces,
    testing::Values(Rounding{"0.005", 2, "0", "0.01"}, Rounding{"-0.005", 2, "0", "-0.01"},
                    Rounding{"0.015", 2, "0.02", "0.02"}, Rounding{"0.025", 2, "0.02", "0.03"},
                    Rounding{"0.0250000000000000000000000000000000001", 2, "0.03", "0.03"},
                    Rounding{"0.004", 2, "0", "0"}, Rounding{"0.0049999", 2, "0", "0"},
                    Rounding{"0.05", 0, "0", "0"}, Rounding{"0.5", 0, "0", "1"},
                    Rounding{"1.5", 0, "2", "2"}, Rounding{"0.6", 0, "1", "1"},
                    Rounding{"9.995", 2, "10", "10"}, Rounding{"-9.985", 2, "-9.98", "-9.99"},
                    Rounding{"1200", 2, "1200", "1200"}, Rounding{"1e-128", 2, "0", "0"},
                    Rounding{"99999999999999999999999999999999999.995", 2, "1e35", "1e35"},
                    Rounding{"0.99999999999999999999999999999999999999", 37, "1", "1"}));

class DecimalSignificance : public testing::TestWithParam<Rounding> {};

TEST_P(DecimalSignificance, IsCountedFromTheFirstDigit) {
    const auto& [value, digits, toEven, away] = GetParam();
    EXPECT_EQ(decimal(value).roundedToSignificantDigits(digits, RoundingMode::halfToEven),
              decimal(toEven));
    EXPECT_EQ(decimal(value).roundedToSignificantDigits(digits, RoundingMode::halfAwayFromZero),
              decimal(away));
}

INSTANTIATE_TEST_SUITE_P(
    Decimal, DecimalSignificance,
    testing::Values(Rounding{"0.000012345678", 6, "0.0000123457", "0.0000123457"},
                    Rounding{"0.1234565", 6, "0.123456", "0.123457"},
                    Rounding{"0.1234575", 6, "0.123458", "0.123458"},
                    Rounding{"0.9999995", 6, "1", "1"},
                    Rounding{"123456789", 3, "123000000", "123000000"}, Rounding{"0", 3, "0", "0"},
                    Rounding{"-25", 1, "-20", "-30"}, Rounding{"0.5", 6, "0.5", "0.5"}));

TEST(Decimal, FillsUpPlacesOnRequest) {
    EXPECT_EQ(decimal("1000").plainText(2), "1000.00");
    EXPECT_EQ(decimal("-0.5").plainText(2), "-0.50");
    EXPECT_EQ(decimal("0.125").plainText(2), "0.125");
    EXPECT_EQ(Decimal().plainText(2), "0.00");
}

TEST(Decimal, GivesTheNearestDouble) {
    EXPECT_EQ(decimal("0.1").toDouble(), 0.1);
    EXPECT_EQ(decimal("-37012.5").toDouble(), -37012.5);
    EXPECT_EQ(decimal("9007199254740993").toDouble(), 9007199254740992.0);
    EXPECT_EQ(decimal("0.30000000000000004440892098500626").toDouble(), 0.30000000000000004);
    EXPECT_EQ(decimal("1e127").toDouble(), 1e127);
    EXPECT_EQ(decimal("1e-128").toDouble(), 1e-128);
    EXPECT_EQ(Decimal().toDouble(), 0.0);
}

TEST(Decimal, DividesToADouble) {
    EXPECT_EQ(Decimal::quotient(Decimal(1), Decimal(4)), 0.25);
    EXPECT_DOUBLE_EQ(Decimal::quotient(Decimal(-1), Decimal(3)), -1.0 / 3.0);
    EXPECT_TRUE(std::isinf(Decimal::quotient(Decimal(1), Decimal())));
    EXPECT_TRUE(std::isnan(Decimal::quotient(Decimal(), Decimal())));
}

TEST(Decimal, AgreesWithSmallWholeNumbers) {
    // Thousandths as plain integers say what the differences, orders and texts have to be.
    std::mt19937_64 random(20240229);
    std::uniform_int_distribution<std::int64_t> thousandths(-5'000'000, 5'000'000);
    const auto of = [](std::int64_t value) { return decimal(std::to_string(value) + "e-3"); };
    for (int round = 0; round < 2000; ++round) {
        const std::int64_t left = thousandths(random);
        const std::int64_t right = thousandths(random);
        EXPECT_EQ(of(left) - of(right), of(left - right)) << left << ' ' << right;
        EXPECT_EQ(of(left) <=> of(right), left <=> right) << left << ' ' << right;
        EXPECT_EQ(of(left).toDouble(), static_cast<double>(left) / 1000.0) << left;
        EXPECT_EQ(decimal(of(left).plainText()), of(left)) << left;
    }
}

} // namespace
