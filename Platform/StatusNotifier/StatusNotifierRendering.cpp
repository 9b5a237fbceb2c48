// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierRendering.h"

#include "Platform/Appearance/SystemAppearance.h"
#include "Platform/StatusContent/StatusItemPainter.h"
#include "Platform/StatusNotifier/StatusItemIconFile.h"

namespace platform {

namespace {

/// The height of what a panel shows, in pixels; there is the same for screens of double density.
constexpr int height = 22;

/// The label with every digit as wide as digits get, so that the room does not depend on the price.
QString guideOf(QString label) {
    for (QChar& character : label) {
        if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
            character = QLatin1Char('8');
    }
    return label;
}

} // namespace

StatusNotifierState StatusNotifierRendering::render(const StatusItemContent& content,
                                                    bool isForNewPanel) {
    state_.isPassive = style_ == Style::spareIcon;
    state_.toolTip = content.toolTip;
    state_.widgetHint = content.widgetHint;
    state_.toolTipBody = content.notice.value_or(QString());
    if (style_ == Style::wideImage) {
        state_.iconPixmaps = wideImages(content);
        return state_;
    }
    if (style_ == Style::iconAndLabel) {
        const QString text = content.title.plainText();
        state_.label = text.isEmpty() && emptyLabel_ == EmptyLabel::isLeftOut ? std::nullopt
                                                                              : std::optional(text);
        state_.labelGuide = guideOf(text);
    }
    StatusItemImage image = content.image;
    image.isShown = image.isShown || style_ != Style::iconAndLabel;
    // The icon's file may have been cleaned away since.
    if (isForNewPanel || image_ != image)
        takeImage(image);
    return state_;
}

void StatusNotifierRendering::takeImage(const StatusItemImage& image) {
    image_ = image;
    const QImage large = image.atSize(2 * height);
    state_.iconName = StatusItemIconFile::pathOf(large, identity_.iconDirectory, identity_.id);
    state_.iconPixmaps = {IconPixmap::fromImage(image.atSize(height)),
                          IconPixmap::fromImage(large)};
}

IconPixmapList StatusNotifierRendering::wideImages(const StatusItemContent& content) const {
    // Nobody tells what a panel looks like. Those that show wide pictures are dark unless their
    // user has made them otherwise, who then will have a light desktop, too.
    const auto colors = StatusItemColors::on(appearance_.preferred().value_or(Appearance::dark));
    const StatusItemPainter painter(content, height);
    return {IconPixmap::fromImage(painter.image(1, colors)),
            IconPixmap::fromImage(painter.image(2, colors))};
}

} // namespace platform
