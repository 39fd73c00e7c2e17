pragma Singleton

import QtQuick

import Mintaro

/// Colours, text styles and measures of all views. Whatever has a name here stands nowhere else as a literal.
QtObject {
    id: root

    readonly property bool dark: ThemeController.isDark

    // Colours
    readonly property color background: root.dark ? "#242427" : "#f7f7f8"
    readonly property color border: root.ink(root.dark ? 0.20 : 0.14)
    readonly property color separator: root.ink(root.dark ? 0.11 : 0.09)
    readonly property color primary: root.ink(root.dark ? 0.89 : 0.87)
    readonly property color secondary: root.ink(root.dark ? 0.64 : 0.61)
    readonly property color tertiary: root.ink(root.dark ? 0.54 : 0.58)
    readonly property color accentFill: ThemeController.accentFill
    readonly property color accentText: ThemeController.accentText
    readonly property color onAccent: "#ffffff"
    readonly property color blue: root.dark ? "#6aabff" : "#0059d6"
    readonly property color badge: Qt.rgba(root.blue.r, root.blue.g, root.blue.b, 0.10)
    /// What takes something away, as text or symbol, and as a fill behind white text.
    readonly property color red: root.dark ? "#ff7a72" : "#c8102e"
    readonly property color redFill: "#c8102e"
    /// The ground of buttons, and of menus and other things that float.
    readonly property color controlFace: root.dark ? root.ink(0.13) : "#ffffff"
    readonly property color fieldFace: root.dark ? root.ink(0.07) : root.ink(0.04)
    readonly property color floatingGround: root.dark ? "#303034" : "#ffffff"
    readonly property color switchTrack: root.ink(root.dark ? 0.36 : 0.42)
    readonly property color shadow: Qt.rgba(0, 0, 0, root.dark ? 0.12 : 0.04)
    readonly property color selectionGround: Qt.rgba(root.accentFill.r, root.accentFill.g, root.accentFill.b, root.dark ? 0.45 : 0.25)
    readonly property color sectionBand: root.ink(root.dark ? 0.05 : 0.03)
    /// Over what has to wait for a sheet.
    readonly property color veil: Qt.rgba(0, 0, 0, root.dark ? 0.45 : 0.20)
    readonly property color hover: root.ink(root.dark ? 0.08 : 0.06)
    readonly property color press: root.ink(root.dark ? 0.15 : 0.11)

    // Text styles
    readonly property string family: "Inter"
    readonly property font titleBold: Qt.font({ family: root.family, pixelSize: 22, weight: Font.Bold })
    readonly property font headline: Qt.font({ family: root.family, pixelSize: 13, weight: Font.DemiBold })
    readonly property font body: Qt.font({ family: root.family, pixelSize: 13 })
    readonly property font bodyBold: Qt.font({ family: root.family, pixelSize: 13, weight: Font.Bold })
    readonly property font labelText: Qt.font({ family: root.family, pixelSize: 13, weight: Font.Medium })
    readonly property font callout: Qt.font({ family: root.family, pixelSize: 12 })
    readonly property font keys: Qt.font({ family: "monospace", pixelSize: 12 })
    readonly property font subheadline: Qt.font({ family: root.family, pixelSize: 11 })
    readonly property font tabCurrent: Qt.font({ family: root.family, pixelSize: 11, weight: Font.Medium })
    readonly property font caption: Qt.font({ family: root.family, pixelSize: 10 })
    readonly property font sectionHeading: Qt.font({ family: root.family, pixelSize: 10, weight: Font.DemiBold, capitalization: Font.AllUppercase })
    readonly property font caption2: Qt.font({ family: root.family, pixelSize: 10, weight: Font.Medium })

    // Measures, in points
    readonly property int editorWidth: 320
    readonly property int notificationWidth: 320
    readonly property int settingsWidth: 450
    readonly property int settingsHeight: 350
    /// For each notch of a mouse's wheel.
    readonly property int wheelStep: 60
    readonly property int pickerWidth: 300
    readonly property int pickerHeight: 400
    readonly property int pickerRowHeight: 40
    readonly property int aboutIconSize: 128
    /// Of a symbol in place of a large title.
    readonly property int largeTitleSize: 26
    readonly property int calendarDotSize: 10
    readonly property int fadeHeight: 14
    readonly property int margin: 12
    readonly property int gridMargin: 8
    readonly property int weekNumberWidth: 20
    readonly property int cellHeight: 32
    readonly property int dotsSpacing: 2
    /// What a day's dots take below its number, their spacing included.
    readonly property int dotsHeight: 8
    readonly property int borderWidth: 1
    /// From a popup to the window's edge: it stays on the card, since clicks on the shadow go to other windows.
    readonly property int popupMargin: ThemeController.shadowMargin + 4
    readonly property int cornerRadius: ThemeController.cornerRadius
    readonly property int chipRadius: 6
    readonly property int controlRadius: 5
    readonly property int groupRadius: 8
    readonly property int sheetPadding: 16
    readonly property int formRowHeight: 32
    readonly property int controlHeight: 24
    readonly property int menuRowHeight: 24
    readonly property int focusRingWidth: 2
    readonly property real disabledOpacity: 0.4
    readonly property int badgeRadius: 3
    readonly property int faviconSize: 12
    readonly property int barRadius: 2
    readonly property real pastOpacity: 0.5
    readonly property real neighbourOpacity: 0.4
    readonly property int monthAnimation: 200
    readonly property int quickAnimation: 120

    /// What fades to it.
    function clear(ground: color): color {
        return Qt.rgba(ground.r, ground.g, ground.b, 0);
    }

    /// Black on light grounds, white on dark ones, at this opacity.
    function ink(opacity: real): color {
        return root.dark ? Qt.rgba(1, 1, 1, opacity) : Qt.rgba(0, 0, 0, opacity);
    }
}
