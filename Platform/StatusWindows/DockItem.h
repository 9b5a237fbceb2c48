// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemPresentation.h"

#include <memory>

namespace platform {

class DockWindow;
class SystemAppearance;
class SystemTray;

/// The presentation for trays on the X display that take windows of any width. Docks anew in
/// whichever tray comes up.
class DockItem final : public StatusItemPresentation {
    Q_OBJECT

public:
    /// Both must outlive the item.
    DockItem(const SystemTray& tray, const SystemAppearance& appearance, QObject* parent = nullptr);
    ~DockItem() override;

    void show(const StatusItemContent& content) override;
    std::optional<QRect> frame() const override;

private:
    void dock();

    const SystemTray& tray_;
    const SystemAppearance& appearance_;
    std::optional<StatusItemContent> content_;
    std::unique_ptr<DockWindow> window_; ///< none while there is no tray
};

} // namespace platform
