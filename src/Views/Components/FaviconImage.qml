import QtQuick

import Mintaro

/// The icon of the web site that `url` leads to; until there is one, the symbol of a link.
Item {
    id: root

    property alias url: picture.url

    implicitWidth: Theme.faviconSize
    implicitHeight: Theme.faviconSize
    Accessible.ignored: true

    Symbol {
        anchors.centerIn: parent
        visible: !picture.hasIcon
        name: "link"
        color: Theme.secondary
        size: Theme.caption.pixelSize
    }
    FaviconPicture {
        id: picture
        anchors.fill: parent
    }
}
