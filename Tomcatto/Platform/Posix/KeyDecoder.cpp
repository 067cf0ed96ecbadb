#include "Platform/Posix/KeyDecoder.h"

namespace tomcatto {

namespace {

constexpr QChar escapeCharacter{u'\x1b'};

}

QString KeyDecoder::decode(QByteArrayView bytes)
{
    const QString text = m_decoder.decode(bytes);
    QString keys;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (isKey(text.at(index), index + 1 == text.size()))
            keys += text.at(index);
    }
    return keys;
}

bool KeyDecoder::isKey(QChar character, bool isLast)
{
    switch (m_state) {
    case State::ground:
        if (character != escapeCharacter || isLast)
            return true;
        m_state = State::escape;
        return false;
    case State::escape:
        if (character == u'[')
            m_state = State::controlSequence;
        else if (character == u'O')
            m_state = State::singleShift;
        else if (character != escapeCharacter || isLast)
            m_state = State::ground;
        return false;
    case State::controlSequence:
        // The Linux console's function keys have a second bracket before their letter.
        if (character == u'[')
            m_state = State::singleShift;
        else if (character >= u'@' && character <= u'~')
            m_state = State::ground;
        return false;
    case State::singleShift:
        m_state = State::ground;
        return false;
    }
    return true;
}

}
