// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import org.kde.plasma.core 2.0 as PlasmaCore
import org.kde.plasma.plasmoid 2.0

/// Takes the line from the status item, as the desktop's own tray does.
Item {
    id: root

    PlasmaCore.DataSource {
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

    Plasmoid.compactRepresentation: Line {
        title: root.item.ToolTipTitle || "Quorvel"
        notice: root.source === "" ? "-" : root.item.ToolTipSubTitle || ""
        colorScheme: root.item.AttentionMovieName || ""
        isUpright: Plasmoid.formFactor === PlasmaCore.Types.Vertical
        font: PlasmaCore.Theme.defaultFont
        color: PlasmaCore.ColorScope.textColor
        onClicked: place => root.openPanel(place)
    }

    Plasmoid.preferredRepresentation: Plasmoid.compactRepresentation
    Plasmoid.fullRepresentation: Item {}
    Plasmoid.toolTipMainText: item.ToolTipTitle || "Quorvel"
    Plasmoid.toolTipSubText: item.ToolTipSubTitle || ""
}
