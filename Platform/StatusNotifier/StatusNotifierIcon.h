// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusNotifier/StatusNotifierRendering.h"

#include <optional>

namespace platform {

/// For panels that show a square icon: as pixmaps and as a file, with a label beside it for those
/// that write labels.
class StatusNotifierIcon final : public StatusNotifierRendering {
public:
    enum class Title {
        asLabel,
        /// The text is in the tooltip alone, because it is shown elsewhere. The icon is shown
        /// whatever the content says, since there would be nothing else.
        inToolTipOnly,
    };

    StatusNotifierIcon(StatusItemIdentity identity, Title title);

    StatusNotifierState render(const StatusItemContent& content, bool isForNewPanel) override;

private:
    void takeImage(const StatusItemImage& image);

    StatusItemIdentity identity_;
    Title title_;
    StatusNotifierState state_;
    /// What the icon in `state_` was made of.
    std::optional<StatusItemImage> image_;
};

} // namespace platform
