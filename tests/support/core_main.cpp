#include "testsupport.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    IsolateUserFolders();
    QGuiApplication app(argc, argv);  // the picture exports measure text
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
