import QtQuick

import Mintaro

/// A heading over a box of rows. It stands in a FormPage.
Column {
    id: root

    property alias heading: title.text
    default property alias rows: box.rows

    width: parent.width - 2 * Theme.margin
    spacing: 6

    Text {
        id: title
        x: Theme.margin
        visible: text !== ""
        font: Theme.headline
        color: Theme.primary
        textFormat: Text.PlainText
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    FormSection {
        id: box
        width: parent.width
    }
}
