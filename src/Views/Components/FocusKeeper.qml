import QtQuick

/// Who had the keyboard before something that floats took it, and gets it back.
QtObject {
    id: root

    property Item owner: null
    /// The innermost group of the owner's, for when the owner goes meanwhile: another of its items has taken its place.
    property Item scope: null

    function remember(item: Item) {
        root.owner = item;
        root.scope = item?.parent ?? null;
        while (root.scope && !root.scope.activeFocus)
            root.scope = root.scope.parent;
    }

    function giveBack(reason: int) {
        // A row that is about to end is out of its list already.
        (root.owner?.parent && root.owner.visible ? root.owner : root.scope)?.forceActiveFocus(reason);
    }
}
