#pragma once
// The solving clock's count: seconds within the hour and hours that wrap at ten.

#include <QString>

struct TClockTime {
    int Seconds = 0;  // 0 to 3599
    int Hours = 0;    // 0 to 9

    void Tick();
    void Reset() { Seconds = Hours = 0; }
    // "H:MM:SS", for example 1:05:09.
    QString Text() const;
};
