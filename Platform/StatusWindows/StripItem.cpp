// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/StripItem.h"

#include "Platform/StatusNotifier/StatusNotifierIcon.h"

#include <utility>

namespace platform {

StripItem::StripItem(StatusItemIdentity identity, const QDBusConnection& bus,
                     const StatusItemDesktopObserver& desktop, StripPosition position,
                     QObject* parent)
    : StatusItemPresentation(parent),
      identity_(std::move(identity)),
      bus_(bus),
      desktop_(desktop),
      window_(position) {
    window_.setWindowTitle(identity_.title);
    connect(&desktop, &StatusItemDesktopObserver::changed, this, &StripItem::showIcon);
    // Not every window manager puts windows that fill the screen above docks.
    connect(&fullScreen_, &FullScreenWatch::changed, this, &StripItem::showUnlessCovered);
    connect(&window_, &StripWindow::moved, this, &StripItem::moved);
    connect(&window_, &StatusItemView::clicked, this, &StatusItemPresentation::clicked);
    connect(&window_, &StatusItemView::menuTriggered, this, &StatusItemPresentation::menuTriggered);
}

void StripItem::show(const StatusItemContent& content) {
    content_ = content;
    window_.adoptCompositing();
    window_.setContent(content);
    showUnlessCovered();
    showIcon();
}

void StripItem::showUnlessCovered() {
    if (content_)
        window_.setVisible(!fullScreen_.covers(window_.geometry().center()));
}

void StripItem::showIcon() {
    // Not registered in advance: a panel that comes up may make another presentation possible,
    // and is not to be shown two items.
    if (!desktop_.desktop().hasWatcher) {
        icon_.reset();
        return;
    }
    if (!content_)
        return;
    if (!icon_) {
        icon_ = std::make_unique<StatusNotifierItem>(
            identity_,
            std::make_unique<StatusNotifierIcon>(identity_,
                                                 StatusNotifierIcon::Title::inToolTipOnly),
            bus_);
        connect(icon_.get(), &StatusItemPresentation::activated, this,
                &StatusItemPresentation::activated);
        connect(icon_.get(), &StatusItemPresentation::menuTriggered, this,
                &StatusItemPresentation::menuTriggered);
    }
    icon_->show(*content_);
}

std::optional<QRect> StripItem::frame() const {
    return window_.isVisible() ? std::optional(window_.geometry()) : std::nullopt;
}

} // namespace platform
