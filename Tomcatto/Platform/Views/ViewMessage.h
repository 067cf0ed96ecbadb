#pragma once

#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <QtCore/QVariantList>

namespace tomcatto {

/// What the program and the process with its views say to each other. In brackets what comes with it. Numbers of views
/// and of objects are the program's.
enum class ViewMessageKind : quint8 {
    // From the program.
    /// An object that views read. [object, `ObjectShape` as a list, values of its properties]
    object,
    /// A list that views read. [list, names of the roles by their numbers, whether it can fetch more, rows]
    list,
    /// [object, numbers of properties, their values, numbers of the signals that told]
    changed,
    /// A signal that belongs to no property. [object, its number, arguments]
    signalled,
    /// [list, first row, rows, whether it can fetch more]
    rowsInserted,
    /// [list, first row, count]
    rowsRemoved,
    /// [list, first row, rows]
    rowsChanged,
    /// [list, whether it can fetch more, rows]
    rowsReset,
    /// [object or list]
    gone,
    /// What looks and language are read from. [object, object]
    surroundings,
    /// [view, kind, module, component, properties]
    create,
    /// [view, the token that lets it have the keyboard, empty where there is none]
    present,
    /// [view]
    destroy,
    hide,
    makeKey,
    leave,
    /// [view, rectangle]
    place,
    cover,
    /// [number, key; 0 for every one]
    watchKeys,
    /// [number]
    forgetKeys,
    /// Whether ordinary windows are in the taskbar. [bool]
    taskbar,

    // From the process.
    /// [view, why not; empty where it was made]
    created,
    /// [view]
    destroyed,
    /// [view, `ViewEvent`, whether it has the keyboard, its frame, its number at the display server]
    told,
    /// [object, name of the method, arguments]
    call,
    /// [list]
    fetchMore,
    /// [number, key, modifiers, place of the key or -1, held modifiers, whether it repeats]
    keyDown,
    /// [place]
    pressed,
    /// [level, category, line]
    logged,
};

struct ViewMessage
{
    ViewMessageKind kind{};
    QVariantList arguments;
};

/// An object that was sent before, in the place of a value.
struct ObjectReference
{
    int object = 0;
};
QDataStream &operator<<(QDataStream &stream, ObjectReference reference);
QDataStream &operator>>(QDataStream &stream, ObjectReference &reference);

}

Q_DECLARE_METATYPE(tomcatto::ObjectReference)

namespace tomcatto {

/// A property as the process builds it.
struct PropertyShape
{
    QByteArray name;
    QByteArray type;
    /// Of the object's signals; below 0 for one that never changes.
    int signal = -1;
};

/// A class as the process builds it, with numbers by the order here.
struct ObjectShape
{
    QByteArray name;
    QList<PropertyShape> properties;
    /// As moc writes them: "changed()", "stillReady(QString)".
    QList<QByteArray> signalNames;
    QList<QByteArray> methodNames;

    [[nodiscard]] QVariantList toList() const;
    [[nodiscard]] static ObjectShape fromList(const QVariantList &list);
};

/// The bytes of a message, with their number before them.
[[nodiscard]] QByteArray packed(const ViewMessage &message);

/// Takes messages out of the bytes as they come.
class ViewMessageReader final
{
public:
    // Values are read by the names of their types.
    ViewMessageReader() { qRegisterMetaType<ObjectReference>(); }

    void add(const QByteArray &bytes) { m_bytes += bytes; }
    /// The next message that has come whole. What cannot be read is an empty one of the kind `gone`.
    [[nodiscard]] std::optional<ViewMessage> next();

private:
    QByteArray m_bytes;
};

}
