#pragma once

#include "Platform/Desktop/AttributedTitle.h"
#include "Platform/Desktop/MenuEntry.h"
#include "Platform/Desktop/StatusItemImage.h"

#include <vector>

namespace platform {

/// Everything that a status item shows at one moment.
struct StatusItemContent {
    StatusItemImage image;
    AttributedTitle title;
    QString toolTip;
    std::vector<MenuEntry> menu;

    bool operator==(const StatusItemContent&) const = default;
};

} // namespace platform
