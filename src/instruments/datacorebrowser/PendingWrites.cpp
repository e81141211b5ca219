#include "instruments/datacorebrowser/PendingWrites.h"

#include <algorithm>

void PendingWrites::begin(int id)
{
    std::erase_if(m_writes, [id](const Write& other) { return other.id == id; });
    m_writes.push_back({id, {}});
    m_writes.back().since.start();
}

bool PendingWrites::isOverdue(int id) const
{
    const Write* const write = find(id);
    return write && write->isOverdue;
}

std::vector<int> PendingWrites::check(const std::function<bool(int id)>& isSettled)
{
    std::vector<int> changed;
    std::erase_if(m_writes, [&](Write& write) {
        const bool settled = isSettled(write.id);
        if (settled || (!write.isOverdue && write.since.hasExpired(m_limitMs))) {
            write.isOverdue = true;
            changed.push_back(write.id);
        }
        return settled;
    });
    return changed;
}

const PendingWrites::Write* PendingWrites::find(int id) const
{
    const auto found =
        std::find_if(m_writes.begin(), m_writes.end(), [id](const Write& write) { return write.id == id; });
    return found == m_writes.end() ? nullptr : &*found;
}
