// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusWindows/StatusItemView.h"

namespace platform {

class SystemAppearance;
class SystemTray;

/// The window that a `DockItem` puts into one tray. Goes with the tray.
class DockWindow final : public StatusItemView {
    Q_OBJECT

public:
    /// Both must outlive the window; there must be a tray.
    DockWindow(const SystemTray& tray, const SystemAppearance& appearance);

    /// Asks the tray to take it, with the room that its content needs.
    void dock();

    /// Where it is on the screen; absent as long as the tray has not taken it.
    std::optional<QRect> frame() const;

protected:
    StatusItemColors colors() const override;
    void paintGround(QPainter& painter) override;
    void contentResized(QSize size) override;
    bool nativeEvent(const QByteArray& type, void* event, qintptr* result) override;

private:
    void appear();
    void setEmbedInfo(bool isMapped);

    const SystemTray& tray_;
    const SystemAppearance& appearance_;
    bool isTranslucent_;
};

} // namespace platform
