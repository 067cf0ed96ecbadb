pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The lines of the menu. Arrows, Home, End and first letters move, Return and Space choose, Esc closes.
FocusScope {
    id: menu

    required property TrayMenuViewModel viewModel
    /// The key of the line that the keyboard or the pointer is on; empty for none.
    property string current
    readonly property int padding: 6
    readonly property var entries: viewModel.lines
    readonly property var reachable: entries.filter(entry => entry.key.length > 0 && entry.isEnabled)

    /// The widest line's, as if each had room enough.
    function lineWidth(): real {
        let width = 180
        for (let index = 0; index < lines.count; ++index)
            width = Math.max(width, lines.itemAt(index)?.implicitWidth ?? 0)
        return width
    }
    /// From the current line to the next one that can be chosen, around the ends. @param step 1 or -1
    function move(step: int) {
        const place = reachable.findIndex(entry => entry.key === current)
        const from = place < 0 && step < 0 ? 0 : place
        current = reachable[(from + step + reachable.length) % reachable.length].key
    }
    function moveTo(letter: string) {
        const place = reachable.findIndex(entry => entry.key === current)
        const after = reachable.slice(place + 1).concat(reachable.slice(0, place + 1))
        const found = after.find(entry => entry.text.toLocaleLowerCase().startsWith(letter.toLocaleLowerCase()))
        if (found)
            current = found.key
    }
    function choose() {
        if (current.length > 0)
            viewModel.choose(current)
    }
    /// Of the line at a place of the column that can be chosen; empty for none.
    function keyAt(place: point): string {
        const entry = (column.childAt(place.x, place.y) as TrayMenuLine)?.entry
        return entry?.isEnabled ? entry.key : ""
    }
    function press(event: KeyEvent) {
        event.accepted = true
        switch (event.key) {
        case Qt.Key_Down:
        case Qt.Key_Tab:
            return move(1)
        case Qt.Key_Up:
        case Qt.Key_Backtab:
            return move(-1)
        case Qt.Key_Home:
            return current = reachable[0].key
        case Qt.Key_End:
            return current = reachable[reachable.length - 1].key
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            return event.isAutoRepeat || choose()
        case Qt.Key_Escape:
            return viewModel.dismiss()
        default:
            event.accepted = event.text.trim().length > 0
            if (event.accepted)
                moveTo(event.text)
        }
    }

    implicitWidth: Math.ceil(lineWidth()) + 2 * padding
    implicitHeight: column.implicitHeight + 2 * padding
    focus: true
    Keys.onPressed: event => press(event)
    // A line that means another thing than before is another line: the key that was on its way to it must not hit it.
    onReachableChanged: if (!reachable.some(entry => entry.key === current)) current = ""
    Accessible.role: Accessible.PopupMenu
    Accessible.name: Texts.text("app.name")

    Column {
        id: column

        x: menu.padding
        y: menu.padding
        width: menu.width - 2 * menu.padding

        Repeater {
            id: lines

            model: menu.entries
            delegate: TrayMenuLine {
                required property var modelData

                width: column.width
                entry: modelData
                isCurrent: modelData.key.length > 0 && modelData.key === menu.current
                onPointed: place => menu.current = menu.keyAt(place)
                onLetGo: place => menu.viewModel.choose(menu.keyAt(place))
                onPointerLeft: if (isCurrent) menu.current = ""
                onChosen: menu.viewModel.choose(modelData.key)
            }
        }
    }
}
