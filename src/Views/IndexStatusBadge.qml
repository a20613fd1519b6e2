import QtQuick
import Jotwell

// A pill with a dot in the colour of the index's state and a text that wraps where it has to.
Rectangle {
    id: badge

    required property IndexStatusBadgeState status
    property real maximumWidth: Infinity

    readonly property int horizontalPadding: 8
    readonly property int verticalPadding: 4

    implicitWidth: row.width + 2 * horizontalPadding
    implicitHeight: row.height + 2 * verticalPadding
    radius: height / 2
    color: Theme.badgeBackground

    Accessible.role: Accessible.StaticText
    Accessible.name: status.statusText

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 4

        Rectangle {
            id: dot

            objectName: "dot"
            anchors.verticalCenter: parent.verticalCenter
            width: 6
            height: 6
            radius: 3
            color: Theme.named(badge.status.statusColor)
        }
        Text {
            objectName: "statusText"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, badge.maximumWidth - 2 * badge.horizontalPadding
                            - dot.width - row.spacing)
            wrapMode: Text.Wrap
            text: badge.status.statusText
            textFormat: Text.PlainText
            color: Theme.secondaryText
            font.pixelSize: Theme.badgeFontSize
            Accessible.ignored: true
        }
    }
}
