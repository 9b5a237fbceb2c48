// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Choices/PresentationBox.h"

#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Choices/Choices.h"

#include <QStandardItemModel>

namespace quorvel {

using platform::localized;
using Kind = PresentationChoice::Kind;

namespace {

Choices<std::optional<Kind>> presentations() {
    return {
        {std::nullopt, localized("Quorvel", "Automatic")},
        {Kind::label, localized("Quorvel", "Panel's label")},
        {Kind::image, localized("Quorvel", "Picture")},
        {Kind::dock, localized("Quorvel", "Docked window")},
        {Kind::strip, localized("Quorvel", "Strip")},
        {Kind::icon, localized("Quorvel", "Icon only")},
    };
}

} // namespace

QComboBox* makePresentationBox(PresentationChoice& choice) {
    QComboBox* const box = makeComboBox(
        presentations(), choice, &PresentationChoice::preferredChanged,
        [&choice] { return choice.preferred(); },
        [&choice](std::optional<Kind> kind) { choice.setPreferred(kind); });
    const auto mark = [box, &choice] {
        auto& items = static_cast<QStandardItemModel&>(*box->model());
        int index = 0;
        for (const auto& each : presentations()) {
            const auto obstacle = each.first ? choice.obstacle(*each.first) : std::nullopt;
            QStandardItem& item = *items.item(index++);
            item.setEnabled(!obstacle);
            item.setToolTip(obstacle.value_or(QString()));
            item.setAccessibleDescription(item.toolTip());
        }
    };
    mark();
    QObject::connect(&choice, &PresentationChoice::desktopChanged, box, mark);
    return box;
}

QString presentationPurpose(std::optional<Kind> kind) {
    if (!kind)
        return localized("Quorvel", "What fits this desktop");
    switch (*kind) {
    case Kind::label:
        return localized("Quorvel", "Text in the panel's own font, beside the icon");
    case Kind::image:
        return localized("Quorvel", "The line in colour, for panels that show wide pictures");
    case Kind::dock:
        return localized("Quorvel", "The line in colour, in trays that take windows");
    case Kind::strip:
        return localized("Quorvel", "A slim window at the screen's edge; drag it where you like");
    case Kind::icon:
        return localized("Quorvel", "Prices in the tooltip and the popover alone");
    }
    return {};
}

} // namespace quorvel
