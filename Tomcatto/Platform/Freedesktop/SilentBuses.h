#pragma once

#include <QtCore/QByteArrayList>

namespace tomcatto {

/// Makes the process go without the message buses that take a connection but do not answer: libraries would wait for
/// them at the start, without end. Called before anything asks for a bus, while there is one thread. Waits for a bus
/// for at most a second. @return the environment's variables that name those buses
QByteArrayList avoidSilentBuses();

}
