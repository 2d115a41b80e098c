#include "Stage.h"

#include <QGuiApplication>

#include <gmock/gmock.h>

/// Runs the tests of views: with an application object, and the renderer that the program uses.
int main(int argc, char **argv) {
    // CTest asks for the list of tests without the environment that they run in.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vantrel::gallery::Stage::prepare();
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
