#include "network/packets/MeterSequence.h"

namespace {

/// A larger step of the sequence number, and one backwards, is another sequence: the instrument began anew.
constexpr quint32 kLargestGap = 3000;

} // namespace

quint64 MeterSequence::s_totalLost = 0;

int MeterSequence::lostBefore(quint32 sequenceNumber)
{
    const quint32 gap = sequenceNumber - m_last - 1; // modulo 2^32, as the number itself
    const quint32 lost = m_hasBegun && gap <= kLargestGap ? gap : 0;
    m_hasBegun = true;
    m_last = sequenceNumber;
    s_totalLost += lost;
    return static_cast<int>(lost);
}
