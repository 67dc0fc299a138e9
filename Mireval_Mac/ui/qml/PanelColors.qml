import QtQuick

// Pure black and white at the panel's fixed opacities, for both colour schemes.
QtObject {
    id: colors

    required property bool dark

    readonly property color ink: dark ? "#ffffff" : "#000000"
    readonly property color paper: dark ? "#000000" : "#ffffff"
    readonly property color stroke: shade(0.08, 0.10)
    readonly property color cardFill: shade(0.04, 0.05)
    readonly property color modeFill: shade(0.12, 0.18)
    readonly property color transportFill: shade(0.08, 0.12)
    readonly property color captionText: shade(0.30, 0.35)
    readonly property color quietText: shade(0.52, 0.55)

    function shade(light: real, dark: real): color {
        return colors.dark ? Qt.rgba(1, 1, 1, dark) : Qt.rgba(0, 0, 0, light);
    }
}
