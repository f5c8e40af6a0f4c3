// Settings saved on another screen, or edited by hand, never put a window where the user
// cannot see or reach it: the program starts with each and its windows are on the screen.

#include "windowtest.h"
#include "settings/screenfit.h"

#include <QMenuBar>
#include <QScreen>

class TestScreenFit : public QObject {
    Q_OBJECT

private slots:
    void windowsStayOnTheScreen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("main window saved on a second monitor that is gone")
            << "ScreenBoundsMain" << QVariant(QStringLiteral("100000,50,300,400"));
        QTest::newRow("main window bounds at the limits of a number")
            << "ScreenBoundsMain" << QVariant(QStringLiteral("2147483647,2147483647,2147483647,2147483647"));
        QTest::newRow("grid window far past the left edge") << "ScreenBoundsGrid" << QVariant(QStringLiteral("-5000,-5000,300,300"));
        QTest::newRow("square size of the largest number") << "ScreenSquare" << QVariant(2147483647);
        QTest::newRow("status font of 700 points") << "StatusFontSize" << QVariant(700);
        QTest::newRow("grid letters of 700 points") << "FontSize" << QVariant(700);
    }

    void windowsStayOnTheScreen()
    {
        QFETCH(QString, name);
        QFETCH(QVariant, value);
        ResetSettings();
        WriteSetting(name, value);
        TScratchDir dir;
        TPuzzle p;
        p.ClearPuzzle(23, 'N', "A. Setter", 0);
        const QString path = dir.path("big.xwd");
        WriteFileAtomically(path, EncodePuzzle(p));
        TDialogScript dialogs;

        TProgram program;
        program.Start({path});
        QVERIFY(QTest::qWaitForWindowExposed(program.MainForm));
        QVERIFY(QTest::qWaitForWindowExposed(program.GridForm));

        const QRect screen = program.MainForm->screen()->availableGeometry();
        const QMenuBar *menus = program.MainForm->menuBar();
        const QRect menuBar(menus->mapToGlobal(QPoint(0, 0)), menus->size());
        QVERIFY2(screen.contains(menuBar), qPrintable(QStringLiteral("menu bar at %1,%2 %3x%4")
                                                          .arg(menuBar.x()).arg(menuBar.y()).arg(menuBar.width()).arg(menuBar.height())));
        const QRect grid = program.GridForm->frameGeometry();
        QVERIFY2(screen.contains(grid), qPrintable(QStringLiteral("grid window at %1,%2 %3x%4")
                                                       .arg(grid.x()).arg(grid.y()).arg(grid.width()).arg(grid.height())));
        QVERIFY(SquareSize >= 1);
        QCOMPARE(program.GridForm->width(), GridWindowExtent(23, SquareSize));
        QVERIFY(program.GridForm->font().pointSize() <= MaxFontPointSize);
        QVERIFY(program.MainForm->frameGeometry().height() <= screen.height());
    }
};

QUILLMARK_UI_TEST_MAIN(TestScreenFit)
#include "tst_screenfit.moc"
