// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StatusItemPainter.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

constexpr int height = 22;
constexpr int iconSide = 16;

const QColor iconColor(200, 0, 200);
const DynamicColor arrowColor{QColor(0, 100, 0), QColor(0, 255, 0)};

StatusItemContent content(const QString& text, bool hasIcon, bool hasArrow) {
    QImage icon(iconSide, iconSide, QImage::Format_ARGB32);
    icon.fill(iconColor);
    StatusItemContent made;
    made.image = {.renderings = {icon}, .isShown = hasIcon};
    if (!text.isEmpty())
        made.title.runs.push_back({text, std::nullopt, 0});
    if (hasArrow)
        made.title.runs.push_back({QStringLiteral(" \u25B2"), arrowColor, -2});
    return made;
}

const QString price = QStringLiteral("BTC 65,432.10 +1.23%");

/// The columns of an image in which pixels of just this colour are: the first and the last.
std::optional<std::pair<int, int>> columnsOf(const QColor& color, const QImage& image) {
    std::optional<std::pair<int, int>> columns;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) == color)
                columns = {columns ? columns->first : x, x};
        }
    }
    return columns;
}

/// Whether a pixel between two columns has any ink.
bool hasInk(const QImage& image, int from, int to) {
    for (int x = from; x < to; ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).alpha() != 0)
                return true;
        }
    }
    return false;
}

struct Ground {
    Appearance appearance;
    int scale;
};

class EachGround : public testing::TestWithParam<Ground> {};

TEST_P(EachGround, ShowsIconThenTextThenColouredArrow) {
    const auto [ground, scale] = GetParam();
    const auto colors = StatusItemColors::on(ground);
    const StatusItemPainter painter(content(price, true, true), height);
    const QImage image = painter.image(scale, colors);
    EXPECT_EQ(image.size(), painter.size() * scale);
    EXPECT_EQ(image.height(), height * scale);

    EXPECT_EQ(columnsOf(iconColor, image), std::pair(0, iconSide * scale - 1));
    const auto text = columnsOf(colors.text, image);
    const auto arrow = columnsOf(arrowColor.resolved(ground), image);
    ASSERT_TRUE(text && arrow);
    EXPECT_GT(text->first, iconSide * scale);
    EXPECT_GT(arrow->first, text->second);
    // The other colour is nowhere, and no room is left over.
    const auto other = ground == Appearance::dark ? arrowColor.light : arrowColor.dark;
    EXPECT_FALSE(columnsOf(other, image));
    EXPECT_TRUE(hasInk(image, image.width() - 3 * scale, image.width()));
    EXPECT_EQ(image.pixelColor(image.width() - 1, 0).alpha(), 0);
}

INSTANTIATE_TEST_SUITE_P(Grounds, EachGround,
                         testing::Values(Ground{Appearance::light, 1}, Ground{Appearance::dark, 1},
                                         Ground{Appearance::light, 2},
                                         Ground{Appearance::dark, 2}));

TEST(StatusItemPainter, StandsTextInTheMiddle) {
    const StatusItemPainter painter(content(QStringLiteral("H0"), false, false), height);
    const QImage image = painter.image(2, StatusItemColors::on(Appearance::dark));
    const QImage turned = image.transformed(QTransform().rotate(90));
    const auto rows = columnsOf(Qt::white, turned);
    ASSERT_TRUE(rows);
    EXPECT_NEAR(rows->first, turned.width() - 1 - rows->second, 2);
}

TEST(StatusItemPainter, KeepsItsWidthWhileDigitsChange) {
    const auto width = [](const char* text) {
        return StatusItemPainter(content(QString::fromLatin1(text), true, true), height)
            .size()
            .width();
    };
    EXPECT_EQ(width("BTC 11,111.11 +1.11%"), width("BTC 64,208.97 +5.30%"));
    EXPECT_LT(width("BTC 1.11"), width("BTC 11.11"));
}

TEST(StatusItemPainter, DrawsFaintlyWhatIsNotToBeTrusted) {
    StatusItemContent doubtful = content(price, true, false);
    const auto strongest = [&doubtful] {
        const QImage image =
            StatusItemPainter(doubtful, height).image(1, StatusItemColors::on(Appearance::dark));
        int alpha = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                alpha = std::max(alpha, image.pixelColor(x, y).alpha());
        }
        return alpha;
    };
    EXPECT_EQ(strongest(), 255);
    doubtful.notice = QStringLiteral("old");
    EXPECT_NEAR(strongest(), 115, 2) << "icon and text";
}

TEST(StatusItemPainter, TakesNoRoomForWhatIsNotShown) {
    const StatusItemPainter iconAlone(content({}, true, false), height);
    EXPECT_EQ(iconAlone.size(), QSize(iconSide, height));
    const StatusItemPainter textAlone(content(price, false, false), height);
    const QImage image = textAlone.image(1, StatusItemColors::on(Appearance::light));
    EXPECT_FALSE(columnsOf(iconColor, image));
    EXPECT_TRUE(hasInk(image, 0, 3));
    EXPECT_LT(image.width(), StatusItemPainter(content(price, true, false), height).size().width());
}

TEST(StatusItemColors, TellTheGroundFromTheTextThatIsWrittenOnIt) {
    EXPECT_EQ(StatusItemColors::with(QColor(238, 238, 236)).appearance, Appearance::dark);
    EXPECT_EQ(StatusItemColors::with(QColor(46, 52, 54)).appearance, Appearance::light);
}

} // namespace
