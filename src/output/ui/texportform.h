#pragma once
// The export object that lives for the whole run: the routines behind the EPS, metafile,
// RTF and clipboard commands, and the name of the file being written.

#include "output/eps.h"

#include <QObject>
#include <QString>

#include <functional>

class TExportForm : public QObject {
    Q_OBJECT
public:
    explicit TExportForm(QObject *parent = nullptr);
    ~TExportForm() override;

    QString ExportFileName;
    QString PuzzleSpecText;

    // Each writer throws TPuzzleIOError with the reason when a file cannot be written; a
    // file is written whole or not at all, and files a failing set created are removed.
    // The .TXT clue list, the numbered .EPS and the -A.EPS answer grid, in that order, as
    // one set: a failure leaves none of the files it had created.
    void ExportEpsFiles(const QString &fileName, EpsStyle style);
    // Target 0: the .TXT, .WMF and -A.WMF files; 1..3: the picture of that grid kind on the
    // clipboard.
    void ExportGridPicture(const QString &fileName, int target);
    // Writes the .RTF manuscript, then puts the numbered answer grid on the clipboard.
    void ExportRtfManuscript(const QString &fileName);
    void CopyCluesToClipboard();

    // Opens a written document in the system's editor; tests replace it.
    static std::function<void(const QString &)> OpenDocument;
};

extern TExportForm *ExportForm;
