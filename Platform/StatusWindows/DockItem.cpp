// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/DockItem.h"

#include "Platform/Desktop/SystemTray.h"
#include "Platform/StatusWindows/DockWindow.h"

namespace platform {

DockItem::DockItem(const SystemTray& tray, const SystemAppearance& appearance, QObject* parent)
    : StatusItemPresentation(parent), tray_(tray), appearance_(appearance) {
    connect(&tray, &SystemTray::managerChanged, this, &DockItem::dock);
}

DockItem::~DockItem() = default;

void DockItem::show(const StatusItemContent& content) {
    content_ = content;
    if (window_)
        window_->setContent(content);
    else
        dock();
}

void DockItem::dock() {
    // The window went with its tray.
    window_.reset();
    if (!content_ || !tray_.manager())
        return;
    window_ = std::make_unique<DockWindow>(tray_, appearance_);
    connect(window_.get(), &StatusItemView::clicked, this, &StatusItemPresentation::clicked);
    connect(window_.get(), &StatusItemView::menuTriggered, this,
            &StatusItemPresentation::menuTriggered);
    window_->setContent(*content_);
    window_->dock();
}

std::optional<QRect> DockItem::frame() const {
    return window_ ? window_->frame() : std::nullopt;
}

} // namespace platform
