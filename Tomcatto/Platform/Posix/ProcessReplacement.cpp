#include "Platform/Posix/ProcessReplacement.h"

#include <cerrno>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <unistd.h>
#include <vector>

namespace tomcatto {

ProcessReplacement::ProcessReplacement(QString program)
    : m_program(std::move(program))
{
}

ProcessReplacement ProcessReplacement::beside(const QString &name)
{
    return ProcessReplacement(QCoreApplication::applicationDirPath() + u'/' + name);
}

bool ProcessReplacement::isPossible() const
{
    const QFileInfo file(m_program);
    return file.isFile() && file.isExecutable();
}

QString ProcessReplacement::run(const QStringList &arguments) const
{
    std::vector<QByteArray> texts{QFile::encodeName(m_program)};
    for (const QString &argument : arguments)
        texts.push_back(argument.toLocal8Bit());
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    ::execv(pointers.front(), pointers.data());
    return qt_error_string(errno);
}

}
