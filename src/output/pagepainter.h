#pragma once
// The one routine that draws composed pages, on any painter: PDF writer, printer, preview.

#include "output/pageobjects.h"

class QPainter;

// Draws `page` scaled so that the page's width fills `deviceWidth` device pixels.
void PaintPage(QPainter &painter, const TPage &page, double deviceWidth);
