#pragma once

#include <QString>

// Moves a file to the desktop's trash, from where the user can restore it; false when the
// trash cannot take it (the file then stays where it was).
bool MoveToTrash(const QString &path);
