// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/Decimal.h"

#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

using quorvel::Decimal;
using quorvel::RoundingMode;
using test::cases;
using test::decimal;

namespace {

const std::string nines38(38, '9');

TEST(Decimal, KeepsTheDigitsOfATextUpTo38RoundedToEven) {
    struct Text {
        const char* input;
        const char* plain;
    };
    for (const auto& [input, plain] :
         cases(Text{"0", "0"}, Text{"-0.000", "0"}, Text{"0e999", "0"}, Text{"  42\t", "42"},
               Text{"0042", "42"}, Text{"1.10", "1.1"}, Text{"1.5E+3", "1500"},
               Text{"1.0e-2", "0.01"}, Text{"-0.5e1", "-5"},
               Text{"18446744073709551616", "18446744073709551616"},
               Text{"99999999999999999999999999999999999999",
                    "99999999999999999999999999999999999999"},
               Text{"1234567890123456789012345678901234567850",
                    "1234567890123456789012345678901234567800"},
               Text{"1234567890123456789012345678901234567750",
                    "1234567890123456789012345678901234567800"},
               Text{"1234567890123456789012345678901234567850.000000000001",
                    "1234567890123456789012345678901234567900"},
               Text{"1.234567890123456789012345678901234567850000001",
                    "1.2345678901234567890123456789012345679"},
               Text{"0.000099999999999999999999999999999999999999995", "0.0001"},
               Text{"999999999999999999999999999999999999995",
                    "1000000000000000000000000000000000000000"}))
        EXPECT_EQ(decimal(input).plainText(), plain) << input;
}

TEST(Decimal, RefusesWhatIsNoNumberOrBeyondItsRange) {
    for (const char* text :
         cases("", " ", "+1", ".5", "5.", "-", "--1", "- 1", "1,000", "1 000", "NaN", "inf", "1a",
               "0x10", "1e", "1e+", "e5", "1e5.5", "1e 5", "1.2.3", "1\n", "1\r", "1 \r", "\r1",
               "\u00A01", "\u0661", "\uFF11", "1e128", "1e-129", "-1e200", "1e99999999999999999999",
               "1e-99999999999999999999", "0.000000000000001e-120",
               "99999999999999999999999999999999999999.5e127"))
        EXPECT_EQ(Decimal::fromAPIString(text), std::nullopt) << text;
    EXPECT_EQ(Decimal::fromAPIString(std::string_view("1\0", 2)), std::nullopt);
}

TEST(Decimal, ReachesTheBordersOfItsExponent) {
    EXPECT_EQ(decimal("1e127").plainText(), "1" + std::string(127, '0'));
    EXPECT_EQ(decimal("1.0e128"), decimal("10e127"));
    EXPECT_EQ(decimal(nines38 + "e127").plainText(), nines38 + std::string(127, '0'));
    EXPECT_EQ(decimal("-1e-128").plainText(), "-0." + std::string(127, '0') + "1");
    EXPECT_EQ(decimal("1" + std::string(2'000'000, '0') + "e-2000000"), Decimal(1));
    EXPECT_EQ(decimal("0." + std::string(1'999'999, '0') + "7e2000000"), Decimal(7));
}

TEST(Decimal, OrdersNumerically) {
    const auto ascending = cases(
        decimal("-" + nines38 + "e127"), decimal("-1e30"), decimal("-1000"), decimal("-999.99"),
        decimal("-1.1"), decimal("-1"), decimal("-1e-30"), decimal("-1e-128"), decimal("0"),
        decimal("1e-128"), decimal("1e-30"), decimal("0.9999999999999999999999999999999999999"),
        decimal("1"), decimal("1.0000000000000000000000000000000000001"), decimal("1.1"),
        decimal("1.11"), decimal("999.99"), decimal("1000"), decimal("1e30"),
        decimal("1.0000000000000000000000000000000000001e30"), decimal(nines38), decimal("1e38"),
        decimal(nines38 + "e127"));
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(ascending[i] <=> ascending[j], i <=> j) << i << " against " << j;
            EXPECT_EQ(ascending[i] == ascending[j], i == j) << i << " against " << j;
        }
    }
}

TEST(Decimal, SubtractsExactlyTo38Digits) {
    struct Difference {
        std::string left;
        std::string right;
        std::string expected;
    };
    // Among them ties at the 38th digit, which go to the even one.
    for (const auto& [left, right, expected] :
         cases(Difference{"5", "0", "5"}, Difference{"-5", "0", "-5"},
               Difference{std::to_string(std::numeric_limits<std::int64_t>::min()), "1",
                          "-9223372036854775809"},
               Difference{"1", "0.00000001", "0.99999999"}, Difference{"-2", "3", "-5"},
               Difference{"-2", "-3", "1"}, Difference{"100", "99.999", "0.001"},
               Difference{nines38, "-1", "1e38"}, Difference{nines38, "-6", "1e38"},
               Difference{"1e30", "1e-7", "999999999999999999999999999999.9999999"},
               Difference{"1e30", "1e-30", "1e30"}, Difference{"1e127", "1e-128", "1e127"},
               Difference{"1e38", "1", nines38}, Difference{"1e38", "0.5", "1e38"},
               Difference{"1e38", "0.50000000000000000000000000000001", nines38},
               Difference{"12345678901234567890123456789012345678", "-0.5",
                          "12345678901234567890123456789012345678"},
               Difference{"12345678901234567890123456789012345677", "-0.5",
                          "12345678901234567890123456789012345678"})) {
        EXPECT_EQ(decimal(left) - decimal(right), decimal(expected)) << left << " - " << right;
        EXPECT_EQ(decimal(right) - decimal(left), Decimal() - decimal(expected))
            << right << " - " << left;
    }
}

TEST(Decimal, RoundsToPlaces) {
    struct Rounding {
        const char* value;
        int digits;
        const char* toEven;
        const char* away;
    };
    for (const auto& [value, digits, toEven, away] :
         {Rounding{"-0.005", 2, "0", "-0.01"}, Rounding{"0.015", 2, "0.02", "0.02"},
          Rounding{"0.0250000000000000000000000000000000001", 2, "0.03", "0.03"},
          Rounding{"0.0049999", 2, "0", "0"}, Rounding{"0.05", 0, "0", "0"},
          Rounding{"0.5", 0, "0", "1"}, Rounding{"0.6", 0, "1", "1"},
          Rounding{"9.995", 2, "10", "10"}, Rounding{"1200", 2, "1200", "1200"},
          Rounding{"1e-128", 2, "0", "0"},
          Rounding{"99999999999999999999999999999999999.995", 2, "1e35", "1e35"}}) {
        const Decimal number = decimal(value);
        EXPECT_EQ(number.rounded(digits, RoundingMode::halfToEven), decimal(toEven)) << value;
        EXPECT_EQ(number.rounded(digits, RoundingMode::halfAwayFromZero), decimal(away)) << value;
    }
    EXPECT_EQ(decimal("123456789").roundedToSignificantDigits(3), decimal("123000000"));
    EXPECT_EQ(decimal("-25").roundedToSignificantDigits(1), decimal("-20"));
    EXPECT_EQ(Decimal().roundedToSignificantDigits(3), Decimal());
}

TEST(Decimal, DividesToTheNearestDouble) {
    EXPECT_EQ(Decimal::quotient(Decimal(-1), Decimal(4)), -0.25);
    EXPECT_EQ(Decimal::quotient(decimal("0.30000000000000004440892098500626"), 1),
              0.30000000000000004);
    EXPECT_EQ(Decimal::quotient(decimal("1e127"), decimal("1e-128")), 1e127 / 1e-128);
    EXPECT_TRUE(std::isinf(Decimal::quotient(Decimal(1), Decimal())));
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
        EXPECT_EQ(Decimal::quotient(of(left), 1), static_cast<double>(left) / 1000.0) << left;
        EXPECT_EQ(decimal(of(left).plainText()), of(left)) << left;
    }
}

} // namespace
