#pragma once

#include <QString>

#include <chrono>

/// How often the format of the pictures has changed, and for how long it stayed the same. The time is given
/// to it, by any clock that never goes back. A value.
class FormatHistory {
public:
    using Time = std::chrono::milliseconds;

    /// The format is this from now on. The first one is no change, nor is the same again.
    void note(const QString& format, Time now);
    /// The format is not known any more; whatever comes next is no change.
    void forget(Time now);
    /// Counts from zero. The format stays as it is, and since when.
    void resetCounts(Time now);

    /// Empty while it is not known.
    QString format() const { return m_format; }
    int changes() const { return m_changes; }
    Time unchangedFor(Time now) const { return isKnown() ? now - m_since : Time(0); }
    /// The longest time without a change since the counts were reset, that of now included.
    Time longestUnchanged(Time now) const;

private:
    bool isKnown() const { return !m_format.isEmpty(); }

    QString m_format;
    Time m_since{0};
    Time m_countedSince{0};
    Time m_longest{0};
    int m_changes = 0;
};
