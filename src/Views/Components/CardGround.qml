import QtQuick

import Mintaro

/// The face of a window that is a card.
Rectangle {
    radius: Theme.cornerRadius
    color: Theme.background
    border.width: Theme.borderWidth
    border.color: Theme.border
}
