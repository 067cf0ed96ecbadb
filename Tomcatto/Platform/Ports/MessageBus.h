#pragma once

#include <functional>
#include <optional>
#include <QtCore/QVariant>

namespace tomcatto {

/// Why a call from another program was not done.
enum class BusProblem {
    /// There is no such method.
    unknownMethod,
    /// Its arguments are not of the number and the types that they should be.
    wrongArguments,
    /// The operation does not apply now.
    notApplicable,
    /// An argument is out of bounds, or names nothing there is.
    badValue,
    /// A file, the store or a view failed.
    failed,
    /// The application is ending.
    ending,
};

/// What a call is answered with.
struct BusAnswer
{
    /// Why it failed; not set if it was done.
    std::optional<BusProblem> problem;
    /// What to tell people about the problem.
    QString message;
    /// What the method returns: texts, truth values, whole and other numbers, lists and maps of them.
    QVariantList values;

    bool operator==(const BusAnswer &) const = default;
};

/// What other programs reach the application by. Main thread only.
class BusObject
{
public:
    /// Takes the answer; called once, at once or later.
    using Answer = std::function<void(const BusAnswer &answer)>;

    virtual ~BusObject() = default;

    /// @param arguments texts as `QString`, whole numbers as `qlonglong`
    virtual void call(const QString &method, const QVariantList &arguments, const Answer &answer) = 0;
    /// All properties of this moment, each always of one type.
    [[nodiscard]] virtual QVariantMap properties() const = 0;
};

/// Offers the application to the user's other programs. None of them, and not the bus either, is ever waited for, but
/// at the end. Main thread only.
class MessageBus
{
public:
    virtual ~MessageBus() = default;

    /// From now on others may call, as many as like and as often. @param object is called until `withdraw`
    virtual void offer(BusObject &object) = 0;
    /// No call comes after it; those that came are refused as `ending`. Waits for a moment until the bus has what was
    /// answered.
    virtual void withdraw() = 0;
    /// Tells that these properties have changed.
    virtual void announceChange(const QVariantMap &properties) = 0;
    virtual void announce(const QString &signal, const QVariantList &arguments) = 0;
};

}
