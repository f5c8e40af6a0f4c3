#include "testsupport.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    IsolateUserFolders();
    // Pictures and pages measure text; that needs the GUI library, never a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
