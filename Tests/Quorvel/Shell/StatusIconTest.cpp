// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusIcon.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

TEST(StatusIcon, ComesInTheSizesThatPanelsAskFor) {
    EXPECT_EQ(StatusIcon::image(22, 2.0).size(), QSize(22, 22));
    EXPECT_EQ(StatusIcon::image(22, 2.0).devicePixelRatio(), 2.0);
    EXPECT_EQ(StatusIcon::statusItemImage(true).atSize(44), StatusIcon::image(44));
    EXPECT_EQ(StatusIcon::statusItemImage(true).atSize(22), StatusIcon::image(22));
    EXPECT_EQ(StatusIcon::statusItemImage(false).atSize(22).pixelColor(11, 11).alpha(), 0);
}

} // namespace
