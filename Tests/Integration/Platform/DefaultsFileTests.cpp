#include "Fakes/CapturedLog.h"
#include "Platform/Portable/JsonFileUserDefaults.h"

#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <sys/stat.h>

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
    const QString folder = m_folder.filePath(QStringLiteral("folder"));
    ASSERT_TRUE(QDir().mkpath(folder) && QFile::link(folder, m_path));
    startAndSet();
    EXPECT_TRUE(QFileInfo(folder).isDir()) << "only the link is moved";
    ASSERT_TRUE(QFile::remove(m_path) && QDir().mkpath(m_path));
    startAndSet();
    EXPECT_EQ(asides().size(), 2);
    const QString target = m_folder.filePath(QStringLiteral("elsewhere/real.json"));
    ASSERT_TRUE(QFile::remove(m_path) && QFile::link(target, m_path));
    startAndSet();
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(content(target), m_fresh);
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

TEST_F(DefaultsFileTests, UnwritablePlacesCostOneLineAndAreTriedAgain)
{
    const QString folder = m_folder.filePath(QStringLiteral("blocked"));
    place(folder, "a file where the folder belongs");
    JsonFileUserDefaults defaults(folder + QStringLiteral("/defaults.json"));
    for (const bool value : {false, true, false, true}) {
        defaults.setValue(m_key, value);
        defaults.synchronize();
    }
    EXPECT_EQ(defaults.value(m_key), DefaultsValue(true));
    EXPECT_EQ(m_log.count(LogLevel::error), 1);
    ASSERT_TRUE(QFile::remove(folder));
    defaults.synchronize();
    EXPECT_EQ(content(folder + QStringLiteral("/defaults.json")), m_fresh);
    EXPECT_FALSE(QFileInfo(folder).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
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

TEST_F(DefaultsFileTests, KillingTheProcessLosesNothingThatWasSynchronized)
{
    for (int kill = 0; kill < 8; ++kill) {
        QProcess process;
        process.start(QStringLiteral(PLATFORM_TEST_PROCESS), {QStringLiteral("defaults"), m_path});
        ASSERT_TRUE(process.waitForReadyRead());
        process.waitForFinished(10 + 7 * kill);
        process.kill();
        ASSERT_TRUE(process.waitForFinished());
        const auto announced = process.readAllStandardOutput().split('\n').size() - 1;
        const JsonFileUserDefaults defaults(m_path, JsonFileUserDefaults::Access::readOnly);
        EXPECT_GE(std::get<qint64>(defaults.value(QStringLiteral("key 49")).value_or(qint64{0})), announced);
    }
    EXPECT_EQ(m_log.count(LogLevel::error), 0);
}
