#pragma once
// How a puzzle's byline reads wherever it is shown: "--" means the puzzle has no byline,
// an empty one stands for the program itself.

#include "model/puzzle.h"

#include <QString>

// The byline as such: empty for "--", "a Quillmark puzzle" when there is none.
QString BylineText(const TPuzzle &p);
// The byline as a caption under a title: "by " and the byline, cut to 63 characters.
QString BylineCaption(const TPuzzle &p);
