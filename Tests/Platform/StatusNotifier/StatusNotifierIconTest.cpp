// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierIcon.h"

#include "Tests/Platform/StatusBar/StatusItemFixture.h"

using namespace platform;

namespace {

using StatusNotifierIcon = StatusItemFixture;

TEST_F(StatusNotifierIcon, BesideATextShownElsewhereIsAnIconWhateverTheUserHides) {
    platform::StatusNotifierIcon beside(
        {QStringLiteral("quorvel"), QStringLiteral("Quorvel"), icons_.path()},
        platform::StatusNotifierIcon::Title::inToolTipOnly);
    StatusItemContent content;
    content.image = image(Qt::red, false);
    content.title = title(QStringLiteral("BTC 1.00"));
    content.toolTip = QStringLiteral("BTC 1.00");
    const auto state = beside.render(content, false);
    EXPECT_EQ(state.label, QString());
    EXPECT_EQ(state.toolTip, content.toolTip);
    ASSERT_EQ(state.iconPixmaps.size(), 2);
    EXPECT_EQ(state.iconPixmaps[0], IconPixmap::fromImage(image(Qt::red).atSize(22)));
}

} // namespace
