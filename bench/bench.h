#pragma once
// The parts of quillmark-bench, each printing its own figures.

// Word lists, the pattern index and the word finder.
void BenchWordLists();
