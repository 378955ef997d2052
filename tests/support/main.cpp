// Runs the tests of a room in an application without a display.
#include <gtest/gtest.h>

#include <QApplication>

#include "text/Fonts.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CUPS_SERVER", "/nonexistent"); // no test prints on the printers of this computer
    const QApplication application(argc, argv);
    installFontSubstitutions();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
