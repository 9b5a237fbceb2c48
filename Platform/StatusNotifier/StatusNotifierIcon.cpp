// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierIcon.h"

#include "Platform/StatusNotifier/StatusItemIconFile.h"

#include <utility>

namespace platform {

namespace {

/// Sides of the pixmaps in pixels: a panel's usual icon, and the same for screens of double
/// density.
constexpr int normalSize = 22;
constexpr int doubleSize = 44;

/// The label with every digit as wide as digits get, so that the room does not depend on the price.
QString guideOf(QString label) {
    for (QChar& character : label) {
        if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
            character = QLatin1Char('8');
    }
    return label;
}

} // namespace

StatusNotifierIcon::StatusNotifierIcon(StatusItemIdentity identity, Title title)
    : identity_(std::move(identity)), title_(title) {}

StatusNotifierState StatusNotifierIcon::render(const StatusItemContent& content,
                                               bool isForNewPanel) {
    StatusItemImage image = content.image;
    image.isShown = image.isShown || title_ == Title::inToolTipOnly;
    // The icon's file may have been cleaned away since.
    if (isForNewPanel || image_ != image)
        takeImage(image);
    if (title_ == Title::asLabel) {
        state_.label = content.title.plainText();
        state_.labelGuide = guideOf(state_.label);
    }
    state_.toolTip = content.toolTip;
    return state_;
}

void StatusNotifierIcon::takeImage(const StatusItemImage& image) {
    image_ = image;
    const QImage large = image.atSize(doubleSize);
    state_.iconName = StatusItemIconFile::pathOf(large, identity_.iconDirectory, identity_.id);
    state_.iconPixmaps = {IconPixmap::fromImage(image.atSize(normalSize)),
                          IconPixmap::fromImage(large)};
}

} // namespace platform
