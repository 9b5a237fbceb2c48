#include "Quorvel/Shell/StatusIcon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

using namespace quorvel;

namespace {

/// A rounded rectangle in points; y counts upward from the icon's lower edge.
struct Shape {
    double x;
    double y;
    double width;
    double height;
    double radius;

    bool contains(double pointX, double pointY) const {
        const double dx = std::max(std::abs(pointX - x - width / 2) - width / 2 + radius, 0.0);
        const double dy = std::max(std::abs(pointY - y - height / 2) - height / 2 + radius, 0.0);
        return std::hypot(dx, dy) <= radius;
    }
};

/// The wick and the body of each candle, left to right.
constexpr std::array<std::array<Shape, 2>, 3> candles{{
    {{{2.05, 1.8, 0.9, 9.3, 0.45}, {1.2, 3.5, 2.6, 5.8, 0.7}}},
    {{{6.65, 2.3, 0.9, 10.5, 0.45}, {5.8, 4.7, 2.6, 7.0, 0.7}}},
    {{{11.25, 2.4, 0.9, 9.3, 0.45}, {10.4, 4.1, 2.6, 5.8, 0.7}}},
}};

const std::array colors{QColor(243, 44, 45), QColor(42, 199, 75), QColor(42, 199, 75)};

/// The share of a pixel that a candle covers, sampled at 8 x 8 points.
double coverage(const std::array<Shape, 2>& candle, int column, int row, int pixelSize) {
    constexpr int samples = 8;
    int inside = 0;
    for (int index = 0; index < samples * samples; ++index) {
        const double x = (column + (index % samples + 0.5) / samples) * 14 / pixelSize;
        const double y = 14 - (row + (index / samples + 0.5) / samples) * 14 / pixelSize;
        inside += candle[0].contains(x, y) || candle[1].contains(x, y);
    }
    return inside / double{samples * samples};
}

/// Equal but for opacity and what mixing with nothing rounds away.
bool isNear(const QColor& left, const QColor& right) {
    return std::abs(left.red() - right.red()) <= 2 && std::abs(left.green() - right.green()) <= 2 &&
           std::abs(left.blue() - right.blue()) <= 2;
}

class StatusIconPixels : public testing::TestWithParam<int> {};

TEST_P(StatusIconPixels, FollowTheGeometry) {
    const int size = GetParam();
    const QImage image = StatusIcon::image(size, 2.0);
    ASSERT_EQ(image.size(), QSize(size, size));
    EXPECT_EQ(image.devicePixelRatio(), 2.0);
    for (int index = 0; index < size * size; ++index) {
        const int x = index % size;
        const int y = index / size;
        const QColor pixel = image.pixelColor(x, y);
        // Candles are at least two pixels apart, so at most one touches a pixel.
        double covered = 0;
        for (std::size_t candle = 0; candle < candles.size(); ++candle) {
            const double share = coverage(candles[candle], x, y, size);
            covered += share;
            if (share > 0.5)
                EXPECT_TRUE(isNear(pixel, colors[candle])) << x << ", " << y;
        }
        // Edges of wick and body blend one over the other, which is a little off the joint area.
        EXPECT_NEAR(pixel.alphaF(), covered, 0.15) << x << ", " << y;
    }
}

INSTANTIATE_TEST_SUITE_P(StatusIcon, StatusIconPixels, testing::Values(14, 22, 44, 100));

TEST(StatusIcon, ComesInTheSizesThatPanelsAskFor) {
    EXPECT_EQ(StatusIcon::statusItemImage(true).atSize(44), StatusIcon::image(44));
    EXPECT_EQ(StatusIcon::statusItemImage(true).atSize(22), StatusIcon::image(22));
    EXPECT_EQ(StatusIcon::statusItemImage(false).atSize(22).pixelColor(11, 11).alpha(), 0);
}

} // namespace
