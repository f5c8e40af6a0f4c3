#pragma once
// The parts of quillmark-bench, each printing its own figures.

#include <QStringList>

// Word lists, the pattern index and the word finder.
void BenchWordLists();
// Autofill over grid files: quillmark-bench fill LIST GRID...
int FillBench(const QStringList &args);
