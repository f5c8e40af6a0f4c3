#include "solving/clocktime.h"

void TClockTime::Tick()
{
    if (++Seconds == 3600) {
        Seconds = 0;
        if (++Hours == 10)
            Hours = 0;
    }
}

QString TClockTime::Text() const
{
    // 1MMSS: the leading 1 keeps the zeros of the minutes and seconds.
    const QString digits = QString::number((Seconds / 60) * 100 + 10000 + Seconds % 60);
    return QStringLiteral("%1:%2:%3").arg(Hours).arg(digits.mid(1, 2), digits.mid(3, 2));
}
