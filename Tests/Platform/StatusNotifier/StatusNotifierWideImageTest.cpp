// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierTypes.h"
#include "Tests/Platform/StatusBar/StatusItemFixture.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class StatusNotifierWideImage : public StatusItemFixture {
protected:
    StatusNotifierWideImage() {
        showItem({.presentation = StatusItemPresentationKind::image, .stripPosition = {}});
    }

    IconPixmapList pixmaps() { return qdbus_cast<IconPixmapList>(property("IconPixmap")); }
};

TEST_F(StatusNotifierWideImage, IsOnePictureInTwoSizesAndNothingElseThatAPanelCouldShow) {
    const auto list = pixmaps();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0].height, 22);
    EXPECT_EQ(list[1].height, 44);
    EXPECT_GT(list[0].width, 60);
    EXPECT_EQ(list[1].width, 2 * list[0].width);
    EXPECT_EQ(property("IconName"), QString());
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabel")));
}

TEST_F(StatusNotifierWideImage, ChangesWithTheTextOnceASecond) {
    const auto before = pixmaps();
    for (const char* text : {"BTC 1.20", "BTC 1.30", "BTC 1.40"}) {
        item_->setTitle(title(QString::fromLatin1(text)));
        clock_.advance(300ms);
    }
    EXPECT_THAT(takeSignals(), IsEmpty());
    clock_.advance(100ms);
    EXPECT_THAT(takeSignals(), ElementsAre("NewIcon()"));
    EXPECT_NE(pixmaps()[0].bytes, before[0].bytes);
    clock_.advance(1s);
    item_->setImage(image(Qt::red, false));
    clock_.advance(0ms);
    EXPECT_LT(pixmaps()[0].width, before[0].width);
}

TEST_F(StatusNotifierWideImage, IsWhatComesBackWithThePanel) {
    const QString before = service_;
    watcher_.reset();
    item_->setTitle(title(QStringLiteral("BTC 2.00")));
    clock_.advance(1s);
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    waitForRegistrations(1);
    EXPECT_EQ(service_, before);
    EXPECT_EQ(pixmaps().size(), 2);
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabel")));
    EXPECT_EQ(watcher_->registered().size(), 1);
}

} // namespace
