// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StripPosition.h"

#include <gtest/gtest.h>

using namespace platform;
using Edge = StripPosition::Edge;

namespace {

TEST(StripPosition, IsReadFromTextAndWrittenToIt) {
    struct Text {
        const char* text = nullptr;
        std::optional<StripPosition> position;
        const char* written = nullptr;
    };
    for (const auto& [text, position, written] : {
             Text{"top,1.0", StripPosition{Edge::top, 1}, "top,1.0"},
             Text{"bottom,0", StripPosition{Edge::bottom, 0}, "bottom,0.0"},
             Text{" left , 0.25 ", StripPosition{Edge::left, 0.25}, "left,0.25"},
             Text{"right,0.3333", StripPosition{Edge::right, 0.3333}, "right,0.333"},
             Text{"top,1.1", std::nullopt, ""},
             Text{"top,-0.1", std::nullopt, ""},
             Text{"top,nan", std::nullopt, ""},
             Text{"middle,0.5", std::nullopt, ""},
             Text{"top", std::nullopt, ""},
             Text{"top,0,5", std::nullopt, ""},
             Text{"", std::nullopt, ""},
         }) {
        const auto read = StripPosition::fromString(QString::fromLatin1(text));
        EXPECT_EQ(read, position) << text;
        if (read)
            EXPECT_EQ(read->toString(), QString::fromLatin1(written));
    }
}

TEST(StripPosition, LiesAlongTheEdgesAndIsFoundAgain) {
    const QRect area(1000, 30, 800, 600);
    const QSize strip(200, 20);
    struct Place {
        StripPosition position;
        QPoint corner;
    };
    for (const auto& [position, corner] : {
             Place{{Edge::top, 1}, {1600, 30}},
             Place{{Edge::top, 0.5}, {1300, 30}},
             Place{{Edge::bottom, 0.25}, {1150, 610}},
             Place{{Edge::left, 0.5}, {1000, 320}},
             Place{{Edge::right, 0.75}, {1600, 465}},
         }) {
        EXPECT_EQ(position.corner(strip, area), corner);
        EXPECT_EQ(StripPosition::nearest(QRect(corner, strip), area), position);
    }
    // Dragged somewhere within, or beyond the edge.
    EXPECT_EQ(StripPosition::nearest({{1300, 60}, strip}, area), (StripPosition{Edge::top, 0.5}));
    EXPECT_EQ(StripPosition::nearest({{1700, 320}, strip}, area),
              (StripPosition{Edge::right, 0.5}));
    EXPECT_EQ(StripPosition::nearest({{900, -50}, strip}, area), (StripPosition{Edge::left, 0}));
}

TEST(StripPosition, KeepsTheBeginningOfWhatDoesNotFitOnTheScreen) {
    const QRect area(0, 0, 100, 100);
    EXPECT_EQ((StripPosition{Edge::bottom, 1}).corner({300, 20}, area), QPoint(0, 80));
    EXPECT_EQ(StripPosition::nearest({0, 0, 300, 20}, area).fraction, 0);
}

} // namespace
