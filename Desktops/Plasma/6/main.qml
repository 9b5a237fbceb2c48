// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

// Untried: written from the documented form of widgets for this version.

import QtQuick
import org.kde.kirigami as Kirigami
import org.kde.plasma.core as PlasmaCore
import org.kde.plasma.plasma5support as Plasma5Support
import org.kde.plasma.plasmoid

/// Takes the line from the status item, as the desktop's own tray does.
PlasmoidItem {
    id: root

    Plasma5Support.DataSource {
        id: items
        engine: "statusnotifieritem"
        connectedSources: sources
    }

    /// The status item's name; empty while the program does not run.
    readonly property string source: {
        for (let i = 0; i < items.connectedSources.length; ++i) {
            const item = items.data[items.connectedSources[i]]
            if (item && item.Id === "quorvel")
                return items.connectedSources[i]
        }
        return ""
    }
    readonly property var item: source === "" ? ({}) : items.data[source] || ({})

    function openPanel(place) {
        if (source === "")
            return
        const service = items.serviceForSource(source)
        const call = service.operationDescription("Activate")
        call.x = Math.round(place.x)
        call.y = Math.round(place.y)
        service.startOperationCall(call)
    }

    compactRepresentation: Line {
        title: root.item.ToolTipTitle || "Quorvel"
        notice: root.source === "" ? "-" : root.item.ToolTipSubTitle || ""
        colorScheme: root.item.AttentionMovieName || ""
        isUpright: Plasmoid.formFactor === PlasmaCore.Types.Vertical
        font: Kirigami.Theme.defaultFont
        color: Kirigami.Theme.textColor
        onClicked: place => root.openPanel(place)
    }

    preferredRepresentation: compactRepresentation
    fullRepresentation: Item {}
    toolTipMainText: item.ToolTipTitle || "Quorvel"
    toolTipSubText: item.ToolTipSubTitle || ""
}
