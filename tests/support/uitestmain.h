#pragma once
// main() for a Qt Test program of a window: the user's folders and settings are swapped for
// temporary ones before the application starts.

#include "testsupport.h"

#include <QApplication>
#include <QTest>

#define QUILLMARK_UI_TEST_MAIN(TestClass)                                                          \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        IsolateUserFolders();                                                                      \
        QApplication app(argc, argv);                                                              \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
