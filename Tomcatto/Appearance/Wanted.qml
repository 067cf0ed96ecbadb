import QtQuick

/// Makes its one child as long as it is wanted. A `Loader` cannot: Qt 6.4 makes it nothing that is bound to ids around it.
Repeater {
    property bool when: true

    model: when ? 1 : 0
}
