#include "Platform/Desktop/StatusItemImage.h"

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

struct Case {
    int size;
    Qt::GlobalColor color;
};

class StatusItemImageSizes : public testing::TestWithParam<Case> {};

TEST_P(StatusItemImageSizes, ComeFromTheSmallestRenderingThatIsLargeEnough) {
    const QImage image = threeSizes.atSize(GetParam().size);
    EXPECT_EQ(image.size(), QSize(GetParam().size, GetParam().size));
    EXPECT_EQ(image.pixelColor(image.width() / 2, image.height() / 2), QColor(GetParam().color));
}

INSTANTIATE_TEST_SUITE_P(StatusItemImage, StatusItemImageSizes,
                         testing::Values(Case{12, Qt::red}, Case{16, Qt::red}, Case{17, Qt::green},
                                         Case{22, Qt::green}, Case{24, Qt::blue},
                                         Case{44, Qt::blue}, Case{64, Qt::blue}));

TEST(StatusItemImage, IsTransparentAtFullSizeWhenNotShownOrNotThere) {
    StatusItemImage hidden = threeSizes;
    hidden.isShown = false;
    for (const StatusItemImage& image : {hidden, StatusItemImage{}}) {
        const QImage made = image.atSize(22);
        ASSERT_EQ(made.size(), QSize(22, 22));
        QImage transparent(22, 22, QImage::Format_ARGB32);
        transparent.fill(Qt::transparent);
        EXPECT_EQ(made.convertToFormat(QImage::Format_ARGB32), transparent);
    }
}

} // namespace
