// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusIcon.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

/// In points; heights count upward from the icon's lower edge.
struct Candle {
    double left = 0;
    double bodyBottom = 0;
    double bodyTop = 0;
    double wickBottom = 0;
    double wickTop = 0;
    QColor color;
};

TEST(StatusIcon, DrawsThreeCandles) {
    constexpr int scale = 100; // pixels to a point, for probes close to every edge
    const QImage image = StatusIcon::image(14 * scale);
    const auto at = [&image](double x, double y) {
        return image.pixelColor(static_cast<int>(x * scale), static_cast<int>((14 - y) * scale));
    };
    const QColor none(0, 0, 0, 0);
    for (const auto& [left, bottom, top, wickBottom, wickTop, color] :
         {Candle{1.2, 3.5, 9.3, 1.8, 11.1, {243, 44, 45}},
          Candle{5.8, 4.7, 11.7, 2.3, 12.8, {42, 199, 75}},
          Candle{10.4, 4.1, 9.9, 2.4, 11.7, {42, 199, 75}}}) {
        const std::pair<QPointF, QPointF> edges[] = {
            // inside, outside
            {{left + 0.05, 7}, {left - 0.05, 7}},
            {{left + 2.55, 7}, {left + 2.65, 7}},
            {{left + 0.78, bottom + 0.05}, {left + 0.78, bottom - 0.05}},
            {{left + 0.78, top - 0.05}, {left + 0.78, top + 0.05}},
            {{left + 0.3, bottom + 0.3}, {left + 0.1, bottom + 0.1}},
            {{left + 1.3, wickBottom + 0.05}, {left + 1.3, wickBottom - 0.05}},
            {{left + 1.3, wickTop - 0.05}, {left + 1.3, wickTop + 0.05}},
            {{left + 0.9, wickTop - 0.5}, {left + 0.8, wickTop - 0.5}}};
        for (const auto& [inside, outside] : edges) {
            EXPECT_EQ(at(inside.x(), inside.y()), color) << inside.x() << ", " << inside.y();
            EXPECT_EQ(at(outside.x(), outside.y()), none) << outside.x() << ", " << outside.y();
        }
    }
}

TEST(StatusIcon, ComesInTheSizesThatPanelsAskFor) {
    EXPECT_EQ(StatusIcon::image(22, 2.0).size(), QSize(22, 22));
    EXPECT_EQ(StatusIcon::image(22, 2.0).devicePixelRatio(), 2.0);
    EXPECT_EQ(StatusIcon::statusItemImage(true).atSize(44), StatusIcon::image(44));
    EXPECT_EQ(StatusIcon::statusItemImage(true).atSize(22), StatusIcon::image(22));
    EXPECT_EQ(StatusIcon::statusItemImage(false).atSize(22).pixelColor(11, 11).alpha(), 0);
}

} // namespace
