#include "Fakes/CapturedLog.h"
#include "Platform/Qt/JsonFileUserDefaults.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

using namespace tomcatto;

namespace {

class DefaultsFileTests : public testing::Test
{
protected:
    [[nodiscard]] static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    static void place(const QString &path, const QByteArray &text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    void startAndSet() const { JsonFileUserDefaults(m_path).setValue(m_key, true); }
    [[nodiscard]] QStringList asides() const
    {
        return QDir(m_folder.path()).entryList({QStringLiteral("*.corrupt-*")});
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("defaults.json"));
    QString m_key = QStringLiteral("key");
    QByteArray m_fresh = "{\n  \"key\": true\n}\n";
    CapturedLog m_log;
};

}

TEST_F(DefaultsFileTests, CorruptFilesAreSetAsideAndTheStoreStartsEmpty)
{
    const QByteArray tooDeep = "{\"a\":" + QByteArray(100'000, '[') + QByteArray(100'000, ']') + "}";
    const QList<QByteArray> corrupt{
        "", "{", "[]", "5", "{}{}", "{\"key\":true} more", "{\"a\":1,}", "{\"a\":1e999}", "{\"a\":\"\xff\"}", tooDeep};
    for (const QByteArray &text : corrupt) {
        place(m_path, text);
        startAndSet();
        EXPECT_EQ(content(m_path), m_fresh) << text.left(40).constData();
    }
    EXPECT_EQ(m_log.count(LogLevel::error), corrupt.size());
    QList<QByteArray> kept;
    for (const QString &name : asides())
        kept << content(m_folder.filePath(name));
    EXPECT_THAT(kept, testing::UnorderedElementsAreArray(corrupt)) << "none replaces an older one";
}

TEST_F(DefaultsFileTests, WhatIsNoFileIsSetAsideAndLinksAreWrittenThrough)
{
    ASSERT_TRUE(QDir().mkpath(m_path));
    startAndSet();
    EXPECT_EQ(asides().size(), 1);
    const QString target = m_folder.filePath(QStringLiteral("elsewhere/real.json"));
    ASSERT_TRUE(QFile::remove(m_path) && QFile::link(target, m_path));
    startAndSet();
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(content(target), m_fresh);
    EXPECT_FALSE(QFileInfo(target).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
}

TEST_F(DefaultsFileTests, WritesOnlyChangesAndLeavesOtherKeysAndTheirOrder)
{
    const QByteArray before = R"({"z":null,"huge":18446744073709551615,"key":1,"deep":{"b":[1.5,"x"],"a":{}},"a":1.0})";
    place(m_path, before);
    JsonFileUserDefaults defaults(m_path);
    defaults.setValue(m_key, qint64{1});
    defaults.setValue(QStringLiteral("deep"), QByteArray(R"( {"b": [1.5, "x"], "a": {}} )"));
    defaults.remove(QStringLiteral("absent"));
    defaults.synchronize();
    EXPECT_EQ(content(m_path), before) << "not even its blanks";
    EXPECT_FALSE(defaults.value(QStringLiteral("z")));
    EXPECT_EQ(defaults.value(QStringLiteral("huge")), DefaultsValue(18446744073709551615.0));
    defaults.setValue(m_key, 1.0);
    defaults.setValue(QStringLiteral("infinite"), std::numeric_limits<double>::infinity());
    defaults.synchronize();
    EXPECT_EQ(content(m_path).simplified().replace(' ', ""), QByteArray(before).replace(":1,", ":1.0,"));
}

TEST_F(DefaultsFileTests, AFullDiskKeepsTheOldFileCostsOneLineAndIsTriedAgain)
{
    const auto run = [this](const char *command) {
        return std::system((command + m_folder.path().toUtf8()).constData());
    };
    ASSERT_EQ(run("mount -t tmpfs -o size=8k tmpfs "), 0);
    JsonFileUserDefaults defaults(m_path);
    defaults.setValue(m_key, true);
    EXPECT_TRUE(defaults.synchronize());
    for (const qsizetype size : {10'000, 20'000}) {
        defaults.setValue(QStringLiteral("large"), QString(size, QLatin1Char('x')));
        EXPECT_FALSE(defaults.synchronize());
        EXPECT_EQ(content(m_path), m_fresh);
    }
    EXPECT_EQ(m_log.count(LogLevel::error), 1);
    defaults.remove(QStringLiteral("large"));
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(content(m_path), m_fresh);
    EXPECT_EQ(run("umount "), 0);
}

TEST_F(DefaultsFileTests, WhatCannotBeReadOrMayNotBeTouchedStays)
{
    // It opens, but its beginning cannot be read.
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), m_path));
    startAndSet();
    EXPECT_EQ(QFileInfo(m_path).symLinkTarget(), QStringLiteral("/proc/self/mem"));
    EXPECT_EQ(m_log.count(LogLevel::error), 1);
    ASSERT_TRUE(QFile::remove(m_path));
    place(m_path, "corrupt");
    JsonFileUserDefaults defaults(m_path, JsonFileUserDefaults::Access::readOnly);
    defaults.setValue(m_key, true);
    defaults.synchronize();
    EXPECT_EQ(defaults.value(m_key), DefaultsValue(true));
    EXPECT_EQ(content(m_path), "corrupt");
}
