#include "Foundation/DetachedJobs.h"

#include <gtest/gtest.h>
#include <QtCore/QStringList>
#include <semaphore>

namespace tomcatto {

TEST(DetachedJobs, GoOneAfterTheOtherForAFileAndHoldUpNeitherOthersNorTheEnd)
{
    struct Shared
    {
        std::binary_semaphore disk{0};
        QStringList written;
    };
    const auto shared = std::make_shared<Shared>();
    {
        DetachedJobs jobs;
        for (const char *text : {"first", "second", "third"})
            jobs.start(QStringLiteral("/a"), [shared, text] { shared->written += QString::fromLatin1(text); });
    }
    EXPECT_EQ(shared->written.join(QLatin1Char(' ')), QStringLiteral("first second third")) << "the end waits";

    shared->written.clear();
    {
        DetachedJobs jobs(std::chrono::milliseconds(100));
        jobs.start(QStringLiteral("/dead/a"), [shared] { shared->disk.acquire(); });
        jobs.start(QStringLiteral("/dead/a"), [] { ADD_FAILURE() << "what comes before it hangs"; });
        std::binary_semaphore isDone(0);
        jobs.start(QStringLiteral("/b"), [&isDone] { isDone.release(); });
        isDone.acquire();
    }
    // It is left behind, with what it uses.
    EXPECT_EQ(shared.use_count(), 2);
}

}
