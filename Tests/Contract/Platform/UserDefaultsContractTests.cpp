#include "CommandLine/ArgumentDomain.h"
#include "Fakes/FakeUserDefaults.h"
#include "Platform/Qt/JsonFileUserDefaults.h"

#include <gtest/gtest.h>
#include <limits>
#include <QtCore/QTemporaryDir>

using namespace tomcatto;

namespace {

using Reopen = std::function<UserDefaults &()>;
using Limits = std::numeric_limits<qint64>;

void keepsValuesWithTheirTypesUntilRemoved(const Reopen &reopen)
{
    const std::vector<DefaultsValue> values{
        true,
        qint64(0),
        qint64(1),
        Limits::min(),
        Limits::max(),
        1.0,
        0.1,
        -1e300,
        4e15,
        QString(),
        QStringLiteral("true"),
        QStringLiteral("line\nquote\" \u00e9 \U0001F408 ") + QChar(u'\0'),
        QByteArray("[]"),
        QByteArray("{}"),
        false,
        QByteArray(R"({"phase":"work","seconds":1500,"pausedAt":null,"b":{"a":[1,2.5]}})")};
    const auto key = [](std::size_t index) { return QStringLiteral("key %1 \u00fc\"").arg(index); };
    // Each pass changes the types of all values.
    for (const std::size_t pass : {0U, 1U}) {
        UserDefaults &defaults = reopen();
        for (std::size_t index = 0; index < values.size(); ++index) {
            defaults.setValue(key(index), values.at((index + pass) % values.size()));
            EXPECT_EQ(defaults.value(key(index)), values.at((index + pass) % values.size())) << index;
        }
        const UserDefaults &reopened = reopen();
        for (std::size_t index = 0; index < values.size(); ++index)
            EXPECT_EQ(reopened.storedValue(key(index)), values.at((index + pass) % values.size())) << index;
    }
    reopen().remove(key(0));
    reopen().remove(QStringLiteral("absent"));
    EXPECT_FALSE(reopen().value(key(0)));
    EXPECT_TRUE(reopen().value(key(1)));
}

}

TEST(UserDefaultsContract, HoldsForTheFakeAndTheFile)
{
    FakeUserDefaults fake;
    keepsValuesWithTheirTypesUntilRemoved([&fake]() -> UserDefaults & { return fake; });
    const QTemporaryDir folder;
    std::unique_ptr<UserDefaults> file;
    keepsValuesWithTheirTypesUntilRemoved([&]() -> UserDefaults & {
        file.reset();
        file =
            std::make_unique<JsonFileUserDefaults>(folder.filePath(QStringLiteral("made/when needed/defaults.json")));
        return *file;
    });
}

TEST(ArgumentDomainTests, ValuesForOneRunHideStoredOnesUntilTheKeyIsSetOrRemoved)
{
    FakeUserDefaults under;
    const QString set = QStringLiteral("set");
    const QString removed = QStringLiteral("removed");
    under.stored = {{set, qint64{1}}, {removed, qint64{1}}};
    ArgumentDomain defaults(under, {{set, qint64{5}}, {removed, qint64{5}}});
    EXPECT_EQ(defaults.value(set), DefaultsValue(qint64{5}));
    EXPECT_EQ(defaults.storedValue(set), DefaultsValue(qint64{1}));
    defaults.setValue(set, qint64{7});
    EXPECT_EQ(defaults.value(set), DefaultsValue(qint64{7}));
    defaults.remove(removed);
    EXPECT_EQ(defaults.value(removed), std::nullopt);
    EXPECT_EQ(under.stored, (std::map<QString, DefaultsValue>{{set, qint64{7}}}));
}
