// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Desktop/FullScreenWatch.h"
#include "Platform/Desktop/StatusItemDesktopObserver.h"
#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusContent/StatusItemPresentation.h"
#include "Platform/StatusNotifier/StatusNotifierItem.h"
#include "Platform/StatusWindows/StripWindow.h"

#include <QDBusConnection>

#include <memory>
#include <optional>

namespace platform {

/// The presentation for desktops whose panels show no text, or that have none: a strip at the
/// screen's edge, and the icon alone in the tray where there is one.
class StripItem final : public StatusItemPresentation {
    Q_OBJECT

public:
    /// @param desktop must outlive the item
    StripItem(StatusItemIdentity identity, const QDBusConnection& bus,
              const StatusItemDesktopObserver& desktop, StripPosition position,
              QObject* parent = nullptr);

    void show(const StatusItemContent& content) override;
    std::optional<QRect> frame() const override;

Q_SIGNALS:
    /// The user dragged the strip there.
    void moved(StripPosition position);

private:
    void showUnlessCovered();
    void showIcon();

    StatusItemIdentity identity_;
    QDBusConnection bus_;
    const StatusItemDesktopObserver& desktop_;
    std::optional<StatusItemContent> content_;
    FullScreenWatch fullScreen_;
    StripWindow window_;
    std::unique_ptr<StatusNotifierItem> icon_; ///< none without a watcher
};

} // namespace platform
