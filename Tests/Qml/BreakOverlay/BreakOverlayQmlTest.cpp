#include "Qml/ShippedTexts.h"

#include <QtQuickTest/quicktest.h>

QUICK_TEST_MAIN_WITH_SETUP(breakoverlay, tomcatto::ShippedTexts)
