#pragma once

#include <QElapsedTimer>

#include <functional>
#include <vector>

/// The writes that wait for their echo, by a number of what was written: the last one of each.
class PendingWrites {
public:
    /// After this long without echo a write is overdue.
    explicit PendingWrites(int limitMs)
        : m_limitMs(limitMs)
    {
    }

    void begin(int id);
    void clear() { m_writes.clear(); }

    bool isEmpty() const { return m_writes.empty(); }
    bool contains(int id) const { return find(id); }
    bool isOverdue(int id) const;

    /// Ends the writes of which @p isSettled is true. Returns those that have ended or become overdue.
    std::vector<int> check(const std::function<bool(int id)>& isSettled);

private:
    struct Write {
        int id;
        QElapsedTimer since;
        bool isOverdue = false;
    };

    const Write* find(int id) const;

    const int m_limitMs;
    std::vector<Write> m_writes;
};
