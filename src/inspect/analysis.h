#pragma once
// The statistics of the grid's solution layer, as the analysis window shows them.

#include "model/puzzle.h"

#include <QByteArray>
#include <QString>

#include <array>

struct TAnalysis {
    int BlackSquares = 0;
    int AcrossWords = 0;
    int DownWords = 0;
    int Words = 0;
    int ThreeLetterWords = 0;
    int TwoLetterWords = 0;
    int WordsEndingInS = 0;
    int AverageLength = 0;  // letters div words; 0 for a grid without words
    int UnkeyedSquares = 0;
    bool Symmetric = true;  // every black square has its half-turn partner
    // "FIRST - SECOND    15x" from the first two across words, or "INCOMPLETE".
    QByteArray Identifier;
    std::array<int, 26> Letters{};  // "A" to "Z"
    int OpenSquares = 0;            // shown as "?"
    QString Caption;                // "Puzzle Analysis" and the language's suffix
};

TAnalysis AnalysePuzzle(const TPuzzle &p);
// Unkeyed across or down: a white square with no word of two or more squares that way.
bool IsUnkeyed(const TPuzzle &p, int c, int r);
