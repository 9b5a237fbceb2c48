// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusWindows/StatusItemView.h"

namespace platform {

class SystemAppearance;
class SystemTray;

/// The presentation for trays on the X display that take windows of any width. Docks anew in
/// whichever tray comes up.
class DockWindow final : public StatusItemView {
    Q_OBJECT

public:
    /// What is handed in must outlive the window.
    DockWindow(const StatusItemIdentity& identity, StatusItemEvents& events, const SystemTray& tray,
               const SystemAppearance& appearance);

    void setContent(const StatusItemContent& content) override;

    /// Absent as long as no tray has taken it.
    std::optional<QRect> frame() const override;

protected:
    StatusItemColors colors() const override;
    void paintGround(QPainter& painter) override;
    void takeRoom(QSize size) override;
    bool nativeEvent(const QByteArray& type, void* event, qintptr* result) override;

private:
    void dock();
    void appear();
    void setEmbedInfo(bool isMapped);

    const SystemTray& tray_;
    const SystemAppearance& appearance_;
};

} // namespace platform
