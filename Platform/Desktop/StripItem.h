#pragma once

#include "Platform/Desktop/FullScreenWatch.h"
#include "Platform/Desktop/StatusItemIdentity.h"
#include "Platform/Desktop/StatusItemPresentation.h"
#include "Platform/Desktop/StatusNotifierItem.h"
#include "Platform/Desktop/StripWindow.h"

#include <QDBusConnection>

namespace platform {

/// The presentation for desktops whose panels show no text, or that have none: a strip at the
/// screen's edge, and the icon alone in the tray where there is one.
class StripItem final : public StatusItemPresentation {
    Q_OBJECT

public:
    StripItem(const StatusItemIdentity& identity, const QDBusConnection& bus,
              StripPosition position, QObject* parent = nullptr);

    void show(const StatusItemContent& content) override;
    std::optional<QRect> frame() const override;

Q_SIGNALS:
    /// The user dragged the strip there.
    void moved(StripPosition position);

private:
    void showUnlessCovered();

    FullScreenWatch fullScreen_;
    StripWindow window_;
    StatusNotifierItem icon_;
};

} // namespace platform
