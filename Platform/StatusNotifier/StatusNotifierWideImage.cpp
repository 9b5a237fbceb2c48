// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierWideImage.h"

#include "Platform/Appearance/SystemAppearance.h"
#include "Platform/StatusContent/StatusItemPainter.h"

namespace platform {

StatusNotifierState StatusNotifierWideImage::render(const StatusItemContent& content, bool) {
    constexpr int height = 22;
    // Nobody tells what a panel looks like. Those that show wide pictures are dark unless their
    // user has made them otherwise, who then will have a light desktop, too.
    const auto colors = StatusItemColors::on(appearance_.preferred().value_or(Appearance::dark));
    const StatusItemPainter painter(content, height);
    return {.label = {},
            .labelGuide = {},
            .toolTip = content.toolTip,
            .iconName = {},
            .iconPixmaps = {IconPixmap::fromImage(painter.image(1, colors)),
                            IconPixmap::fromImage(painter.image(2, colors))}};
}

} // namespace platform
