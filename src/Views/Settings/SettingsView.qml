pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// The settings: six tabs, of which the first is open at first.
FocusScope {
    id: root

    required property SettingsViewController controller

    property int currentIndex: 0
    readonly property list<string> titles: [qsTrId("General"), qsTrId("Appearance"), qsTrId("Calendars"), qsTrId("Shortcuts"), qsTrId("World Clock"), qsTrId("About")]
    readonly property list<string> symbols: ["gear", "paintbrush", "calendar", "keyboard", "globe", "info.circle"]

    width: Theme.settingsWidth
    height: Theme.settingsHeight
    focus: true
    Keys.onEscapePressed: root.controller.close()

    Shortcut {
        sequences: ["Ctrl+W"]
        onActivated: root.controller.close()
    }
    Shortcut {
        sequences: ["Ctrl+Q"]
        onActivated: root.controller.quit()
    }
    Shortcut {
        sequences: ["Ctrl+Tab", "Ctrl+PgDown"]
        onActivated: root.turn(1)
    }
    Shortcut {
        sequences: ["Ctrl+Shift+Tab", "Ctrl+PgUp"]
        onActivated: root.turn(-1)
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.background
    }
    Row {
        id: bar
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 6 }
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTrId("Settings")
        Keys.onLeftPressed: root.turn(-1)
        Keys.onRightPressed: root.turn(1)

        Repeater {
            id: tabs
            model: root.titles

            SettingsTab {
                required property int index
                required property string modelData
                width: bar.width / root.titles.length
                title: modelData
                symbol: root.symbols[index]
                isCurrent: root.currentIndex === index
                focus: isCurrent
                onClicked: root.currentIndex = index
            }
        }
    }
    Rectangle {
        id: divider
        anchors { left: parent.left; right: parent.right; top: bar.bottom; topMargin: 6 }
        height: 1
        color: Theme.separator
    }
    Item {
        id: pages
        anchors { left: parent.left; right: parent.right; top: divider.bottom; bottom: unsaved.top }

        Page {
            index: 0
            view: "GeneralSettingsView"
            controller: root.controller.general
        }
        Page {
            index: 1
            view: "AppearanceSettingsView"
            controller: root.controller.appearance
        }
        Page {
            index: 2
            view: "CalendarsSettingsView"
            controller: root.controller.calendars
        }
        Page {
            index: 3
            view: "ShortcutsSettingsView"
        }
        Page {
            index: 4
            view: "WorldClockSettingsView"
            controller: root.controller.worldClock
        }
        Page {
            index: 5
            view: "AboutSettingsView"
            controller: root.controller.about
        }
    }

    Text {
        id: unsaved
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: visible ? implicitHeight : 0
        visible: root.controller.hasUnsavedChanges
        padding: 6
        text: qsTrId("settings.unsaved")
        font: Theme.caption
        color: Theme.red
        textFormat: Text.PlainText
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    /// Made when it is first seen, and kept.
    component Page: Loader {
        id: page

        required property int index
        required property string view
        property QtObject controller: null
        readonly property bool isCurrent: root.currentIndex === page.index

        anchors.fill: parent
        visible: page.isCurrent
        onIsCurrentChanged: page.load()
        Component.onCompleted: page.load()

        function load() {
            if (page.isCurrent && page.status === Loader.Null)
                page.setSource(page.view + ".qml", page.controller ? { controller: page.controller } : {});
        }
    }

    /// To the tab so many places on, with the keyboard on it.
    function turn(by: int) {
        root.currentIndex = (root.currentIndex + by + root.titles.length) % root.titles.length;
        tabs.itemAt(root.currentIndex).forceActiveFocus(Qt.TabFocusReason);
    }
}
