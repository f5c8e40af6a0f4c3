#include "mainwindow/ui/windowarrangement.h"

#include "clues/ui/tautoclueform.h"
#include "mainwindow/screenlayout.h"
#include "settings/screenfit.h"
#include "settings/settingkeys.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"

#include <QScreen>
#include <QWidget>

#include <optional>

namespace {

void writeBoundsOf(const TSettingKey &key, const QWidget *window)
{
    WriteBounds(key.Name, window->x(), window->y(), window->width(), window->height());
}

QRect screenOf(const QWidget *window)
{
    return window->screen() ? window->screen()->availableGeometry() : QRect(0, 0, 1024, 768);
}

}  // namespace

void TWindowArrangement::PlaceAtStart()
{
    // Clear of the grid window, which opens at the top left; on the screen, title bar and all.
    if (const auto bounds = ReadScreenBounds(Setting::ScreenBoundsMain.Name))
        main_->move(FitBoundsToScreen(QRect(bounds->topLeft(), main_->size() + QSize(0, TitleBarAllowance)),
                                      AvailableScreenArea(bounds->topLeft()))
                        .topLeft());
    else if (const QScreen *screen = main_->screen())
        main_->move(screen->availableGeometry().right() - main_->width() - 4, 2);
}

void TWindowArrangement::AutoArrange(QSize minimum)
{
    if (const auto bounds = ReadScreenBounds(Setting::ScreenBoundsMain.Name)) {
        main_->move(bounds->topLeft());
        main_->resize(bounds->size());
    } else {
        main_->move(screenOf(main_).width() - minimum.width() - 4, 2);
        main_->resize(minimum);
    }
    if (XwdGridForm && XwdGridForm->isVisible())
        XwdGridForm->ArrangeFromSettings();
    for (auto [window, setting] : {std::pair<QWidget *, const TSettingKey *>{CluesForm, &Setting::ScreenBoundsClues},
                                   std::pair<QWidget *, const TSettingKey *>{AutoclueForm, &Setting::ScreenBoundsAutoclue}})
        if (window && window->isVisible())
            if (const auto bounds = ReadScreenBounds(setting->Name)) {
                window->move(bounds->topLeft());
                window->resize(bounds->size());
            }
}

void TWindowArrangement::Arrange(int code, QSize minimum)
{
    if (code < 1 || code > ArrangementCount || !XwdGridForm)
        return;
    const TScreenLayout layout = ArrangementLayout(code, screenOf(main_), minimum, XwdGridForm->size());
    main_->move(layout.Main.topLeft());
    main_->resize(layout.Main.size().expandedTo(minimum));
    XwdGridForm->move(layout.Grid.topLeft());
    if (CluesForm)
        CluesForm->setGeometry(layout.Clues);
}

void TWindowArrangement::WriteWindowBounds()
{
    writeBoundsOf(Setting::ScreenBoundsMain, main_);
    if (XwdGridForm)
        writeBoundsOf(Setting::ScreenBoundsGrid, XwdGridForm);
    if (CluesForm)
        writeBoundsOf(Setting::ScreenBoundsClues, CluesForm);
    if (AutoclueForm && AutoclueForm->isVisible())
        writeBoundsOf(Setting::ScreenBoundsAutoclue, AutoclueForm);
    WriteSetting(Setting::ScreenSquare, SquareSize);
}

void TWindowArrangement::FitMainWindow(QSize fitted)
{
    main_->setMinimumSize(fitted.boundedTo(AvailableScreenArea(main_->pos()).size() - QSize(0, TitleBarAllowance)));
    main_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    main_->resize(main_->minimumSize());
    main_->move(FitBoundsToScreen(main_->frameGeometry(), AvailableScreenArea(main_->pos())).topLeft());
}
