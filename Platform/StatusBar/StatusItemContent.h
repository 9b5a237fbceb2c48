#pragma once

#include "Platform/StatusBar/AttributedTitle.h"
#include "Platform/StatusBar/MenuEntry.h"
#include "Platform/StatusBar/StatusItemImage.h"

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
