#pragma once

#include "Foundation/Logger.h"

#include <gtest/gtest.h>
#include <mutex>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <sqlite3.h>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

/// An application support directory of a test's own, its store seen through another connection, and the log's lines.
class StoreFolder : public testing::Test
{
protected:
    StoreFolder()
    {
        setLogSink([this](LogLevel level, const QString &category, const QString &message) {
            const std::lock_guard lock(m_mutex);
            if (level == LogLevel::error)
                m_errors.push_back(category + QStringLiteral(": ") + message);
        });
    }
    ~StoreFolder() override { setLogSink({}); }

    [[nodiscard]] QString directory() const { return m_directory.path(); }
    [[nodiscard]] QString storePath() const { return directory() + QStringLiteral("/Tomcatto/Tomcatto.sqlite"); }
    [[nodiscard]] SQLite::Database openRaw() const
    {
        QDir().mkpath(directory() + QStringLiteral("/Tomcatto"));
        return {storePath().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 5'000};
    }
    void executeRaw(const char *sql) const { openRaw().exec(sql); }
    [[nodiscard]] std::string readRaw(const char *sql) const { return openRaw().execAndGet(sql).getString(); }
    [[nodiscard]] QStringList takeErrors()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_errors, {});
    }
    [[nodiscard]] QByteArray storeBytes() const
    {
        QFile file(storePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_directory;

private:
    std::mutex m_mutex;
    QStringList m_errors;
};

}
