// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15

/// The line as text, in the panel's font, with arrows in the user's colours. Upright panels turn it.
Item {
    id: line

    /// What the status item's tooltip says first: the line with its arrows, in plain text.
    property string title
    /// What it says below: empty while prices are live.
    property string notice
    property string colorScheme
    property bool isUpright: false
    property font font
    property color color
    /// A place on the screen, in its coordinates.
    signal clicked(point place)

    readonly property bool isOnDark: color.hslLightness > 0.5
    readonly property color green: isOnDark ? "#2ac74b" : "#157a31"
    readonly property color red: isOnDark ? "#ff6b6c" : "#c41e20"
    readonly property bool isUpRed: colorScheme === "redUpGreenDown"

    // Room for the widest price of as many figures, so that neighbours do not jump at each.
    readonly property real length: Math.ceil(widest.advanceWidth) + 12
    Layout.minimumWidth: isUpright ? -1 : length
    Layout.minimumHeight: isUpright ? length : -1
    Layout.preferredWidth: Layout.minimumWidth
    Layout.preferredHeight: Layout.minimumHeight

    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.description: notice
    Accessible.onPressAction: line.open()

    function open() {
        line.clicked(line.mapToGlobal(line.width / 2, line.height / 2))
    }

    function colored(arrow, color) {
        return "<font color=\"" + color + "\">" + arrow + "</font>"
    }

    function markup(plain) {
        return plain.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/ {2}/g, "&nbsp; ")
            .replace(/▲/g, colored("▲", isUpRed ? red : green))
            .replace(/▼/g, colored("▼", isUpRed ? green : red))
    }

    TextMetrics {
        id: widest
        font: line.font
        text: line.title.replace(/[0-9]/g, "8").replace(/-/g, "+").replace(/▼/g, "▲")
    }

    Text {
        anchors.centerIn: parent
        width: widest.advanceWidth
        rotation: line.isUpright ? 90 : 0
        font: line.font
        color: line.color
        opacity: line.notice === "" ? 1 : 0.55
        textFormat: Text.StyledText
        text: line.markup(line.title)
    }

    MouseArea {
        anchors.fill: parent
        onClicked: line.open()
    }
}
