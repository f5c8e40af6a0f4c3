#pragma once
// The program's own pictures and cursors, drawn as SVG so they stay crisp at any scale.

#include <QCursor>
#include <QIcon>
#include <QString>

// A tool-button or image glyph by its resource name ("MOUSEACR", "DIAGSYMMETRY", ...).
QIcon Glyph(const QString &name);
// A custom cursor by its resource name ("PENCIL", "HANDPNT"), with its hot spot.
QCursor AppCursor(const QString &name);
