#include "output/ui/texportform.h"

#include "model/cp1252.h"
#include "model/puzzle.h"
#include "model/puzzlefile.h"
#include "output/clipboardtext.h"
#include "output/gridpicture.h"
#include "output/rtf.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QUrl>

TExportForm *ExportForm = nullptr;

std::function<void(const QString &)> TExportForm::OpenDocument = [](const QString &path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
};

TExportForm::TExportForm(QObject *parent) : QObject(parent)
{
    setObjectName(QStringLiteral("ExportForm"));
    if (!ExportForm)
        ExportForm = this;
}

TExportForm::~TExportForm()
{
    if (ExportForm == this)
        ExportForm = nullptr;
}

void TExportForm::ExportEpsFiles(const QString &fileName, EpsStyle style)
{
    const QList<TExportFile> files = EpsExportSet(Puzzle, fileName, style, ShortDateToday());
    ExportFileName = files.at(1).Path;
    WriteExportSet(files);
}

void TExportForm::ExportGridPicture(const QString &fileName, int target)
{
    if (target == 0) {
        const QList<TExportFile> files = WmfExportSet(Puzzle, fileName);
        ExportFileName = files.at(2).Path;
        WriteExportSet(files);
        return;
    }
    const TGridPicture picture = DrawGridPicture(Puzzle, GridKind(target));
    const QByteArray png = GridPicturePng(picture);
    auto *data = new QMimeData;
    data->setData(QStringLiteral("image/svg+xml"), GridPictureSvg(picture, QFileInfo(ExportFileName).fileName()));
    data->setData(QStringLiteral("image/png"), png);
    data->setImageData(QImage::fromData(png, "PNG"));
    QGuiApplication::clipboard()->setMimeData(data);
}

void TExportForm::ExportRtfManuscript(const QString &fileName)
{
    ExportFileName = RtfFilePath(fileName);
    WriteFileAtomically(ExportFileName,
                        RtfManuscript(Puzzle, RtfAddressFromSettings(), RtfBaseName(fileName), PuzzleSpecText));
    ExportGridPicture(fileName, int(GridKind::NumberedAnswerGrid));
}

void TExportForm::CopyCluesToClipboard()
{
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(FromCp1252(ClueListText(Puzzle)));
}
