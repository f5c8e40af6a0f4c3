#include "output/rtf.h"

#include "model/cp1252.h"
#include "output/eps.h"
#include "settings/txwdprocs.h"

#include <QFileInfo>

namespace {

QByteArray settingBytes(const TSettingKey &key)
{
    return ToCp1252(ReadText(key));
}

QByteArray clueLine(const TPuzzle &p, int number, int c, int r, Direction d)
{
    return "\\par\\tab " + QByteArray::number(number) + "\\tab " + ConvertClueQuotes(p.wordClue(c, r, d))
           + "\\tab " + p.GetWord(c, r, char(d)) + "\r\n";
}

// `length` characters from the first occurrence of `label`, or from the start without one.
QByteArray sliceFrom(const QByteArray &text, const char *label, int length)
{
    return text.mid(qMax<qsizetype>(0, text.indexOf(label)), length);
}

}  // namespace

TRtfAddress RtfAddressFromSettings()
{
    return {settingBytes(Setting::NameOnPages), settingBytes(Setting::Address[0]), settingBytes(Setting::Address[1]),
            settingBytes(Setting::Address[2]), settingBytes(Setting::Address[3])};
}

QByteArray ConvertClueQuotes(const QByteArray &clue)
{
    QByteArray out = clue;
    bool opening = true;
    for (char &ch : out) {
        if (ch == '"') {
            ch = char(opening ? 147 : 148);
            opening = !opening;
        } else if (ch == '\'') {
            ch = char(146);
        }
    }
    return out;
}

QString RtfFilePath(const QString &chosen)
{
    return ChangeFileExt(chosen, QStringLiteral(".RTF"));
}

QString RtfBaseName(const QString &chosen)
{
    const QString name = QFileInfo(QString(chosen).replace(u'\\', u'/')).fileName();
    return name.left(qMax<qsizetype>(0, name.size() - 4));
}

QByteArray RtfManuscript(const TPuzzle &p, const TRtfAddress &a, const QString &baseName, const QString &specText)
{
    const QByteArray base = ToCp1252(baseName);
    const QByteArray spec = ToCp1252(specText);
    const QByteArray header = "\\header\\pgnucltr\\pgnx1180\\pard\\plain\\tqr\\tx9525\\f4\\fs20 " + base + "\\tab Page";
    const bool add4 = !a.Add4.isEmpty();

    QByteArray out;
    out += "{\\rtf\\ansi \\deff4\\deff5\\deflang1033\\margl1250\\margr1150\r\n";
    out += "{\\fonttbl{\\f4\\froman\\fcharset0\\fprq2\\ftruetype Times New Roman;}"
           "{\\f5\\fswiss\\fcharset0\\fprq2\\ftruetype Arial;}}\r\n";
    out += "{\\info{\\title " + base + "}{\\author Quillmark 6}{\\creatim\\yr2003\\mo1\\dy21\\hr4\\min01}{\\version1}}\r\n";
    out += "{\\sectd" + header + "\r\n";
    out += "\\par}{\\tx6400\\f4\\fs22 " + a.Name + "\r\n";
    out += "\\par " + a.Add1 + "\\tab " + spec.left(17) + "\r\n";
    out += "\\par " + a.Add2 + "\\tab " + sliceFrom(spec, "Bl", 18) + "\r\n";
    out += "\\par " + a.Add3 + "\\tab " + sliceFrom(spec, "Wo", 15) + "\r\n";
    if (add4)
        out += "\\par " + a.Add4 + "\r\n";
    out += "\\par}\r\n";
    out += "\\par{\\f5\\fs22\\sl440\\b ACROSS}{\\tqr\\tx350\\tx500\\tx6400\\f4\\fs22\\sl440\r\n";
    QByteArray downs;
    for (const TWordRef &w : WordsInSlotOrder(p))
        (w.Dir == Direction::Across ? out : downs) += clueLine(p, w.Number, w.Column, w.Row, w.Dir);
    out += "\\par}\r\n";
    out += "\\par{\\f5\\fs22\\sl440\\b DOWN}{\\tqr\\tx350\\tx500\\tx6400\\f4\\fs22\\sl440\r\n";
    out += downs;
    out += "{\\sect" + header + "\\par}\r\n";
    out += "{\\pard\\f4\\fs22 " + a.Name + "\r\n";
    out += "\\par " + a.Add1 + "\r\n";
    out += "\\par " + a.Add2 + "\r\n";
    out += "\\par " + a.Add3 + "\r\n";
    if (add4)
        out += "\\par " + a.Add4 + "\r\n";
    out += "\\par\\par}\r\n";
    out += "{\\f4\\fs20\\b\\qc Insert puzzle grid as graphic file or paste from clipboard.\\par}\r\n";
    out += "\\par}}\r\n";
    return out;
}
