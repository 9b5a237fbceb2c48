// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierRendering.h"

#include "Platform/Appearance/SystemAppearance.h"
#include "Tests/Support/ManualClock.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace platform;
using Style = StatusNotifierRendering::Style;
using EmptyLabel = StatusNotifierRendering::EmptyLabel;

namespace {

class StatusNotifierRenderings : public testing::Test {
protected:
    StatusNotifierRenderings() {
        content_.title.runs = {{QStringLiteral("ETH 2,345.67"), std::nullopt, 0},
                               {QStringLiteral(" \u25B2"), std::nullopt, -2}};
        content_.toolTip = QStringLiteral("ETH 2,345.67 \u25B2");
        for (const int size : {22, 44}) {
            QImage rendering(size, size, QImage::Format_ARGB32);
            rendering.fill(QColor(1, 2, 3));
            rendering.setPixelColor(size - 1, 0, QColor(200, 100, 50, 128));
            content_.image.renderings.push_back(rendering.convertToFormat(QImage::Format_RGBA8888));
        }
    }

    StatusNotifierRendering rendering(Style style, EmptyLabel emptyLabel = EmptyLabel::isLeftOut) {
        return {style, emptyLabel, identity_, appearance_};
    }

    QTemporaryDir icons_;
    StatusItemIdentity identity_{QStringLiteral("quorvel"), QStringLiteral("Quorvel"),
                                 icons_.path()};
    test::ManualClock clock_;
    SystemAppearance appearance_{QDBusConnection(QStringLiteral("no such connection")), clock_};
    StatusItemContent content_;
};

TEST_F(StatusNotifierRenderings, LabelKeepsRoomForTheWidestDigitsAndIsLeftOutWhenEmpty) {
    auto label = rendering(Style::iconAndLabel);
    const auto full = label.render(content_, false);
    EXPECT_EQ(full.label, content_.toolTip);
    EXPECT_EQ(full.labelGuide, QStringLiteral("ETH 8,888.88 \u25B2"));
    EXPECT_EQ(full.toolTip, content_.toolTip);
    content_.title = {};
    const auto empty = label.render(content_, false);
    EXPECT_EQ(empty.label, std::nullopt);
    EXPECT_EQ(empty.labelGuide, QString());
    EXPECT_EQ(rendering(Style::iconAndLabel, EmptyLabel::isKept).render(content_, false).label,
              QString());
    EXPECT_EQ(empty.iconName, full.iconName);
}

TEST_F(StatusNotifierRenderings, PixmapsAreInNetworkOrder) {
    const auto pixmaps = rendering(Style::iconAndLabel).render(content_, false).iconPixmaps;
    ASSERT_EQ(pixmaps.size(), 2);
    for (qsizetype index = 0; index < 2; ++index) {
        const qsizetype size = index == 0 ? 22 : 44;
        const IconPixmap& pixmap = pixmaps[index];
        EXPECT_EQ(pixmap.width, size);
        EXPECT_EQ(pixmap.height, size);
        ASSERT_EQ(pixmap.bytes.size(), size * size * 4);
        EXPECT_EQ(pixmap.bytes.first(4), QByteArray("\xff\x01\x02\x03"));
        EXPECT_EQ(pixmap.bytes.mid((size - 1) * 4, 4), QByteArray("\x80\xc8\x64\x32"));
    }
}

TEST_F(StatusNotifierRenderings, EachImageHasAnIconFileOfItsOwnThatComesBackForANewPanel) {
    auto label = rendering(Style::iconAndLabel);
    const QString shown = label.render(content_, false).iconName;
    EXPECT_TRUE(QDir::isAbsolutePath(shown));
    EXPECT_EQ(QImage(shown).pixelColor(10, 10), QColor(1, 2, 3));

    content_.image.isShown = false;
    const QString hidden = label.render(content_, false).iconName;
    EXPECT_NE(hidden, shown);
    EXPECT_EQ(QImage(hidden).size(), QSize(44, 44));
    EXPECT_EQ(QImage(hidden).pixelColor(10, 10).alpha(), 0);

    ASSERT_TRUE(QFile::remove(hidden));
    EXPECT_EQ(label.render(content_, true).iconName, hidden);
    EXPECT_TRUE(QFile::exists(hidden));
    content_.image.isShown = true;
    EXPECT_EQ(label.render(content_, false).iconName, shown);
    EXPECT_EQ(QDir(icons_.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(StatusNotifierRenderings, DoWithoutAnIconFileWhereNoneCanBeWritten) {
    QFile blocker(icons_.filePath(QStringLiteral("blocker")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    identity_.iconDirectory = blocker.fileName() + QStringLiteral("/icons");
    const auto state = rendering(Style::iconAndLabel).render(content_, false);
    EXPECT_EQ(state.iconName, QString());
    EXPECT_EQ(state.iconPixmaps.size(), 2);
}

TEST_F(StatusNotifierRenderings, AnIconBesideATextShownElsewhereIsThereWhateverTheUserHides) {
    const auto shown = rendering(Style::icon).render(content_, false);
    content_.image.isShown = false;
    EXPECT_EQ(rendering(Style::icon).render(content_, false), shown);
    EXPECT_EQ(shown.label, std::nullopt);
    EXPECT_EQ(shown.toolTip, content_.toolTip);
}

TEST_F(StatusNotifierRenderings, AWideImageIsOnePictureInTwoSizesAndNothingElseToShow) {
    auto wide = rendering(Style::wideImage);
    const auto state = wide.render(content_, false);
    ASSERT_EQ(state.iconPixmaps.size(), 2);
    EXPECT_EQ(state.iconPixmaps[0].height, 22);
    EXPECT_EQ(state.iconPixmaps[1].height, 44);
    EXPECT_GT(state.iconPixmaps[0].width, 60);
    EXPECT_EQ(state.iconPixmaps[1].width, 2 * state.iconPixmaps[0].width);
    EXPECT_EQ(state.iconName, QString());
    EXPECT_EQ(state.label, std::nullopt);
    EXPECT_EQ(state.toolTip, content_.toolTip);
    content_.image.isShown = false;
    EXPECT_LT(wide.render(content_, false).iconPixmaps[0].width, state.iconPixmaps[0].width);
}

} // namespace
