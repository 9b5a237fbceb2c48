// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusNotifier/StatusNotifierRendering.h"

namespace platform {

class SystemAppearance;

/// For panels that show a picture in its natural width: icon and text painted into one. There is no
/// icon file, which a panel would prefer, and no square picture, which it might pick.
class StatusNotifierWideImage final : public StatusNotifierRendering {
public:
    /// @param appearance must outlive this
    explicit StatusNotifierWideImage(const SystemAppearance& appearance)
        : appearance_(appearance) {}

    StatusNotifierState render(const StatusItemContent& content, bool isForNewPanel) override;

private:
    const SystemAppearance& appearance_;
};

} // namespace platform
