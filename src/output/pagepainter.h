#pragma once
// The one routine that draws composed pages, on any painter: PDF writer, printer, preview.

#include "output/pageobjects.h"

#include <QSizeF>

class QPainter;

// Draws `page` at its top left, as large as fits a `device` of that many device pixels.
void PaintPage(QPainter &painter, const TPage &page, const QSizeF &device);
