// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemContent.h"
#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusNotifier/StatusNotifierState.h"

#include <optional>

namespace platform {

class SystemAppearance;

/// What an item on the bus says of itself to show its content. Panels differ in what they show.
class StatusNotifierRendering {
public:
    enum class Style {
        /// A square icon, as pixmaps and as a file, with a label for panels that write one.
        iconAndLabel,

        /// The same without the label, because the text is shown elsewhere. The icon is shown
        /// whatever the content says, since there would be nothing else.
        icon,

        /// An icon that panels may put away among those that are rarely needed.
        spareIcon,

        /// Icon and text painted into one picture, for panels that show it in its natural width.
        /// There is no icon file, which a panel would prefer, and no square picture, which it might
        /// pick.
        wideImage,
    };

    /// What the item does with its label while there is no text.
    enum class EmptyLabel {
        isLeftOut, ///< as one panel drops an item whose label is there but empty
        isKept,    ///< as another never shows a label that its first reading lacked
    };

    /// Both references must outlive this.
    StatusNotifierRendering(Style style, EmptyLabel emptyLabel, const StatusItemIdentity& identity,
                            const SystemAppearance& appearance)
        : style_(style), emptyLabel_(emptyLabel), identity_(identity), appearance_(appearance) {}

    /// @param isForNewPanel whether the panel has just come up, and what was made for another one
    ///                      may not be there any more
    StatusNotifierState render(const StatusItemContent& content, bool isForNewPanel);

private:
    void takeImage(const StatusItemImage& image);
    IconPixmapList wideImages(const StatusItemContent& content) const;

    Style style_;
    EmptyLabel emptyLabel_;
    const StatusItemIdentity& identity_;
    const SystemAppearance& appearance_;
    /// What the icon in `state_` was made of.
    std::optional<StatusItemImage> image_;
    StatusNotifierState state_;
};

} // namespace platform
