#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <QtCore/QStringDecoder>

namespace tomcatto {

/// Turns a terminal's input bytes into keys: UTF-8, also when a character arrives in pieces. Cursor and function keys
/// and combinations with Alt come as escape sequences; they are left out whole, so that their letters do not act as
/// keys.
class KeyDecoder final
{
public:
    /// The keys in the next bytes. An escape character that ends the bytes is the Esc key.
    [[nodiscard]] QString decode(QByteArrayView bytes);

private:
    enum class State { ground, escape, controlSequence, singleShift };

    [[nodiscard]] bool isKey(QChar character, bool isLast);

    QStringDecoder m_decoder{QStringDecoder::Utf8};
    State m_state = State::ground;
};

}
