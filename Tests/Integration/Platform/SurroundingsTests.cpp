#include "Fakes/ManualFact.h"
#include "Platform/Ports/AnyFactSource.h"

#include <gmock/gmock.h>
#include <QtCore/QCoreApplication>

using namespace tomcatto;
using enum Fact;

TEST(AnyFactSource, IsTheStrongestOfAllForEveryWatcherAndLooksOnlyMeanwhile)
{
    ManualFact first;
    ManualFact second;
    AnyFactSource any({first, second});
    std::vector<Fact> told;
    std::vector<Fact> late;
    Cancellable watch = any.watch([&told](Fact fact) { told.push_back(fact); });
    const auto takeTurns = [] {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    };
    const auto tell = [&takeTurns](ManualFact &source, Fact fact) {
        source.tell(fact);
        takeTurns();
    };
    for (const auto &[source, fact] : {std::pair(&first, untold),
                                       {&second, untold},
                                       {&first, no},
                                       {&second, unknown},
                                       {&second, yes},
                                       {&first, yes},
                                       {&second, untold}})
        tell(*source, fact);
    EXPECT_THAT(told, testing::ElementsAre(untold, no, yes));

    Cancellable other;
    other = any.watch([&](Fact fact) {
        late.push_back(fact);
        other.cancel();
    });
    EXPECT_THAT(late, testing::IsEmpty());
    tell(first, no);
    EXPECT_THAT(late, testing::ElementsAre(yes));
    EXPECT_THAT(told, testing::ElementsAre(untold, no, yes, no));

    // What was on its way to one who has let go does not come.
    tell(second, no);
    second.tell(yes);
    watch.cancel();
    takeTurns();
    EXPECT_EQ(told.back(), no);
    EXPECT_FALSE(first.isWatched || second.isWatched);
    watch = any.watch([&told](Fact fact) { told.push_back(fact); });
    tell(second, yes);
    EXPECT_EQ(told.back(), yes);
}
