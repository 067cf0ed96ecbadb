#include "Platform/Qt/JsonFileUserDefaults.h"

namespace tomcatto {

JsonFileUserDefaults::JsonFileUserDefaults(const QString &path, Access access)
    : m_file(path)
{
    constexpr int idleThreadMilliseconds = 500;
    m_writer.setMaxThreadCount(1);
    m_writer.setExpiryTimeout(idleThreadMilliseconds);
    load(access);
}

JsonFileUserDefaults::~JsonFileUserDefaults()
{
    synchronize();
    m_writer.waitForDone();
}

void JsonFileUserDefaults::load(Access access)
{
    DefaultsFile::Content content = m_file.read();
    m_document = std::move(content.document);
    m_mayWrite = access == Access::readWrite;
    const QString name = QStringLiteral("user defaults %1").arg(m_file.path());
    switch (content.state) {
    case DefaultsFile::State::sound:
        return;
    case DefaultsFile::State::unreadable:
        m_mayWrite = false;
        m_logger.error(name + QStringLiteral(" cannot be read, changes are not kept: ") + content.problem);
        return;
    case DefaultsFile::State::corrupt:
        break;
    }
    const auto aside = m_mayWrite ? m_file.setAside() : std::nullopt;
    m_mayWrite = aside.has_value();
    m_logger.error(name + QStringLiteral(" is corrupt (%1), ").arg(content.problem) +
                   (aside ? QStringLiteral("set aside as ") + *aside : QStringLiteral("left as it is")));
}

std::optional<DefaultsValue> JsonFileUserDefaults::value(const QString &key) const
{
    return storedValue(key);
}

std::optional<DefaultsValue> JsonFileUserDefaults::storedValue(const QString &key) const
{
    const std::lock_guard lock(m_mutex);
    return m_document.value(key);
}

void JsonFileUserDefaults::setValue(const QString &key, const DefaultsValue &value)
{
    const std::lock_guard lock(m_mutex);
    if (m_document.setValue(key, value))
        noteChange();
}

void JsonFileUserDefaults::remove(const QString &key)
{
    const std::lock_guard lock(m_mutex);
    if (m_document.remove(key))
        noteChange();
}

bool JsonFileUserDefaults::synchronize()
{
    std::unique_lock lock(m_mutex);
    if (m_hasFailed && !m_isWriting)
        noteChange();
    m_progress.wait(lock, [this, target = m_wantedGeneration] { return m_writtenGeneration >= target; });
    return m_mayWrite && !m_hasFailed;
}

void JsonFileUserDefaults::noteChange()
{
    if (!m_mayWrite)
        return;
    ++m_wantedGeneration;
    if (m_isWriting)
        return;
    m_isWriting = true;
    m_writer.start([this] { writeUntilCurrent(); });
}

void JsonFileUserDefaults::writeUntilCurrent()
{
    std::unique_lock lock(m_mutex);
    while (m_writtenGeneration < m_wantedGeneration) {
        const quint64 generation = m_wantedGeneration;
        const QByteArray text = m_document.text();
        lock.unlock();
        const QString problem = m_file.write(text);
        lock.lock();
        report(problem);
        m_writtenGeneration = generation;
        m_progress.notify_all();
    }
    m_isWriting = false;
}

void JsonFileUserDefaults::report(const QString &problem)
{
    const bool hadFailed = std::exchange(m_hasFailed, !problem.isEmpty());
    if (m_hasFailed && !hadFailed)
        m_logger.error(QStringLiteral("user defaults %1 cannot be written: %2").arg(m_file.path(), problem));
    else if (hadFailed && !m_hasFailed)
        m_logger.info(QStringLiteral("user defaults %1 are written again").arg(m_file.path()));
}

}
