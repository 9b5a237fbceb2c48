#include "Platform/Desktop/StripItem.h"

#include "Platform/Desktop/StatusNotifierIcon.h"

namespace platform {

StripItem::StripItem(const StatusItemIdentity& identity, const QDBusConnection& bus,
                     StripPosition position, QObject* parent)
    : StatusItemPresentation(parent),
      window_(position),
      icon_(
          identity,
          std::make_unique<StatusNotifierIcon>(identity, StatusNotifierIcon::Title::inToolTipOnly),
          bus) {
    window_.setWindowTitle(identity.title);
    // Not every window manager puts windows that fill the screen above docks.
    connect(&fullScreen_, &FullScreenWatch::changed, this, &StripItem::showUnlessCovered);
    connect(&window_, &StripWindow::moved, this, &StripItem::moved);
    connect(&window_, &StatusItemView::clicked, this, &StatusItemPresentation::clicked);
    connect(&window_, &StatusItemView::menuTriggered, this, &StatusItemPresentation::menuTriggered);
    connect(&icon_, &StatusItemPresentation::activated, this, &StatusItemPresentation::activated);
    connect(&icon_, &StatusItemPresentation::menuTriggered, this,
            &StatusItemPresentation::menuTriggered);
}

void StripItem::show(const StatusItemContent& content) {
    window_.adoptCompositing();
    window_.setContent(content);
    showUnlessCovered();
    icon_.show(content);
}

void StripItem::showUnlessCovered() {
    window_.setVisible(!fullScreen_.covers(window_.geometry().center()));
}

std::optional<QRect> StripItem::frame() const {
    return window_.isVisible() ? std::optional(window_.geometry()) : std::nullopt;
}

} // namespace platform
