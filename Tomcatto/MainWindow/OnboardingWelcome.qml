import QtQuick
import Tomcatto.Appearance

/// The first step: what it is, with the cat.
Item {
    id: step

    implicitHeight: heading.y + heading.implicitHeight + 16

    Image {
        width: step.width
        height: 262
        source: "qrc:/tomcatto/onboarding/onboarding-rain.jpg"
        fillMode: Image.PreserveAspectCrop
        smooth: true
        Accessible.ignored: true
    }
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 218
        width: 88
        height: 88
        radius: 22
        color: Theme.paper

        Logo {
            anchors.centerIn: parent
            size: 90
            variant: Logo.Plate
        }
    }
    OnboardingHeading {
        id: heading

        y: 313
        title: Texts.text("onboarding.welcome.title")
        text: Texts.text("onboarding.welcome.body")
    }
}
