#pragma once

#include <QtGlobal>

/// Finds out by sequence numbers what was lost on the way.
class MeterSequence {
public:
    /// How many are missing between the number before and this one; none before the first.
    int lostBefore(quint32 sequenceNumber);

    /// How many all sequences of this program have lost.
    static quint64 totalLost() { return s_totalLost; }

private:
    static quint64 s_totalLost;

    bool m_hasBegun = false;
    quint32 m_last = 0;
};
