#pragma once

#include "Foundation/Cancellable.h"

#include <chrono>

namespace tomcatto {

/// What is known of one fact about what a person is doing at this computer.
enum class Fact {
    /// Not told yet; it counts as no.
    unknown,
    no,
    yes,
    /// Nothing here tells. It may come later, as when a sound server is started.
    untold,
};

/// Tells one fact for as long as somebody wants to know it; nobody polls. Main thread only.
class FactSource
{
public:
    using Handler = std::function<void(Fact)>;

    virtual ~FactSource() = default;

    /// Begins to look, until the result is cancelled. `handler` is told the present fact and each change of it, in
    /// turns of the main loop of their own. Several may watch. What has to be asked for it is loaded now and goes with
    /// the last one who watches.
    [[nodiscard]] virtual Cancellable watch(Handler handler) = 0;
};

/// Tells whether keys and pointer rest. Main thread only.
class IdleSource
{
public:
    virtual ~IdleSource() = default;

    /// Like `FactSource::watch`. It is `yes` once nothing was pressed or moved for `rest`, which may have begun before
    /// (a source that cannot look back counts from now on), and `no` with the next touch.
    [[nodiscard]] virtual Cancellable watch(std::chrono::seconds rest, FactSource::Handler handler) = 0;
};

/// What is told about the surroundings of a person.
struct Surroundings
{
    /// Another program records from a microphone or has a camera open.
    FactSource &call;
    /// A window of another program that has the keyboard covers a screen.
    FactSource &fullScreen;
    /// The session is locked.
    FactSource &lock;
    IdleSource &idle;
};

}
