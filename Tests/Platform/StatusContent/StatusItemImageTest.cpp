// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StatusItemImage.h"

#include <QColor>

#include <gtest/gtest.h>

using namespace platform;

namespace {

QImage square(int size, Qt::GlobalColor color) {
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

const StatusItemImage threeSizes{
    .renderings = {square(16, Qt::red), square(44, Qt::blue), square(22, Qt::green)}};

TEST(StatusItemImage, ComesFromTheSmallestRenderingThatIsLargeEnough) {
    for (const auto& [size, color] :
         {std::pair(12, Qt::red), std::pair(16, Qt::red), std::pair(17, Qt::green),
          std::pair(22, Qt::green), std::pair(24, Qt::blue), std::pair(64, Qt::blue)}) {
        const QImage image = threeSizes.atSize(size);
        EXPECT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(image.pixelColor(size / 2, size / 2), QColor(color)) << size;
    }
}

TEST(StatusItemImage, IsTransparentAtFullSizeWhenNotShownOrNotThere) {
    StatusItemImage hidden = threeSizes;
    hidden.isShown = false;
    for (const StatusItemImage& image : {hidden, StatusItemImage{}})
        EXPECT_EQ(image.atSize(22).convertToFormat(QImage::Format_ARGB32),
                  square(22, Qt::transparent));
}

} // namespace
