#include "Fakes/FakeViewHost.h"
#include "Fakes/ManualRunLoop.h"
#include "ViewWindows/ViewWindows.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

class ViewWindowsTest : public testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<ViewWindow> make()
    {
        const std::shared_ptr<int> held(new int, [this](const int *gone) {
            EXPECT_EQ(host.alive, 0) << "the view goes before what it shows";
            ++let;
            delete gone;
        });
        return windows->make({}, held);
    }

    ManualRunLoop runLoop;
    FakeViewHost host{runLoop};
    std::unique_ptr<ViewWindows> windows = std::make_unique<ViewWindows>(host, runLoop);
    int let = 0;
};

}

TEST_F(ViewWindowsTest, HideAtOnceAndGoInALaterTurn)
{
    auto window = make();
    window->view().present();
    QWindow &shown = *host.current;
    QObject::connect(window.get(), &ViewWindow::closed, window.get(), [] { ADD_FAILURE() << "nobody else closed it"; });
    window.reset();
    EXPECT_FALSE(shown.isVisible());
    EXPECT_EQ(let, 0) << "the closing call may come from the view";
    runLoop.drain();
    EXPECT_EQ(let, 1);

    host.isBroken = true;
    EXPECT_EQ(make(), nullptr);
    EXPECT_EQ(let, 2);
}

TEST_F(ViewWindowsTest, TellOfAClosingThatLastsAndMayEndInIt)
{
    auto window = make();
    int closed = 0;
    QObject::connect(window.get(), &ViewWindow::closed, windows.get(), [&] {
        ++closed;
        window.reset();
    });
    window->view().present();
    host.current->hide();
    window->view().present();
    runLoop.drain();
    host.current->close();
    window->view().present();
    runLoop.drain();
    EXPECT_EQ(closed, 0) << "it was shown again";
    host.current->close();
    EXPECT_EQ(closed, 0);
    runLoop.drain();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(host.alive, 0);
}

TEST_F(ViewWindowsTest, EndWithWhatHasNotGoneYet)
{
    make().reset();
    windows.reset();
    EXPECT_EQ(let, 1) << "at the end of the process no later turn comes";
    runLoop.drain();
}

}
