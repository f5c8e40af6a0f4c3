// Renders the program's icon (an SVG) into the PNG sizes desktops look for in the hicolor
// theme: make-icons ICON.svg FOLDER SIZE... writes FOLDER/<SIZE>x<SIZE>/apps/quillmark.png.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 4) {
        std::fprintf(stderr, "usage: make-icons ICON.svg FOLDER SIZE...\n");
        return 1;
    }
    QSvgRenderer svg(args.at(1));
    if (!svg.isValid()) {
        std::fprintf(stderr, "make-icons: cannot read %s\n", qPrintable(args.at(1)));
        return 2;
    }
    for (const QString &sizeText : args.mid(3)) {
        const int size = sizeText.toInt();
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        svg.render(&painter);
        painter.end();
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(args.at(2)).arg(size);
        if (!QDir().mkpath(folder) || !image.save(folder + QStringLiteral("/quillmark.png"))) {
            std::fprintf(stderr, "make-icons: cannot write into %s\n", qPrintable(folder));
            return 3;
        }
    }
    return 0;
}
