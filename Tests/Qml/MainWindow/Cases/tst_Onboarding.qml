import QtQuick
import QtTest
import Tomcatto.MainWindow

TestCase {
    id: test

    name: "Onboarding"
    when: windowShown

    Component {
        id: maker

        OnboardingWindow {
            viewModel: world.onboarding
        }
    }
    SignalSpy {
        id: finished

        target: world.onboarding
        signalName: "finished"
    }

    function test_returnLeadsThroughAllSteps() {
        const window = maker.createObject(null)
        window.show()
        window.requestActivate()
        tryCompare(window, "active", true)
        for (let step = 0; step < 3; ++step) {
            compare(world.onboarding.step, step)
            verify(window.activeFocusItem.compact, "the primary button has the keyboard")
            keyClick(Qt.Key_Return)
        }
        compare(world.onboarding.step, 3)
        compare(finished.count, 0)
        keyClick(Qt.Key_Escape)
        compare(world.onboarding.step, 2)
        keyClick(Qt.Key_Return)
        keyClick(Qt.Key_Return)
        compare(finished.count, 1)
        window.destroy()
    }
}
