// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/PriceFormatter.h"

#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

using quorvel::PriceFormatter;
using test::cases;
using test::decimal;

namespace {

struct Case {
    const char* value;
    const char* text;
};

TEST(PriceFormatter, WritesAPriceByItsMagnitude) {
    for (const auto& [value, text] :
         cases(Case{"65432.1", "65,432.10"}, Case{"1000", "1,000.00"}, Case{"-1500", "-1,500.00"},
               Case{"-999", "-999.0000"}, Case{"1234567.891", "1,234,567.89"},
               Case{"-123456", "-123,456.00"}, Case{"999999.995", "1,000,000.00"},
               Case{"1000.005", "1,000.00"}, Case{"1000.015", "1,000.02"},
               Case{"1e20", "100,000,000,000,000,000,000.00"}, Case{"999.99999", "1000.0000"},
               Case{"1", "1.0000"}, Case{"1.00005", "1.0000"}, Case{"1.00015", "1.0002"},
               Case{"0.000012345678", "0.0000123457"}, Case{"0.5", "0.5"},
               Case{"0.1234565", "0.123456"}, Case{"0.9999999", "1"}, Case{"-0.9999999", "-1"},
               Case{"1e-12", "0.000000000001"}, Case{"0", "0.00"}))
        EXPECT_EQ(PriceFormatter::price(decimal(value)).toStdString(), text) << value;
}

TEST(PriceFormatter, GivesAChangeItsSignAfterRounding) {
    for (const auto& [value, text] :
         cases(Case{"2.345", "+2.35%"}, Case{"-2.345", "-2.35%"}, Case{"-0.001", "0.00%"},
               Case{"0.004", "0.00%"}, Case{"0.005", "+0.01%"}, Case{"-0.005", "-0.01%"},
               Case{"-0.0049999", "0.00%"}, Case{"0", "0.00%"}, Case{"1234.5", "+1234.50%"},
               Case{"-100", "-100.00%"}))
        EXPECT_EQ(PriceFormatter::changePercent(decimal(value)).toStdString(), text) << value;
}

} // namespace
