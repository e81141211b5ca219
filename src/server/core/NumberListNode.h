#pragma once

#include "datacore/nodes/DatacoreNumberLimits.h"

namespace Velmora::Server {

/// A list of so many numbers, all within limits.
template<typename T>
class NumberListNode : public DatacoreNumberLimits<T> {
public:
    NumberListNode(const QString& instanceName, DatacoreBase* parent, const std::deque<T>& initial, T minimum,
                   T maximum)
        : DatacoreNumberLimits<T>(instanceName, parent, T{}, minimum, maximum)
        , m_count(static_cast<int>(initial.size()))
    {
        this->setDataNumberArray(initial);
    }

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override
    {
        DatacoreNumberLimits<T>::regenerateInvalidationStatusMessages(messages);
        const int count = this->getDataList().size();
        if (count < m_count)
            messages.emplace_back(DatacoreValidStatusMessage::TooFewItems);
        else if (count > m_count)
            messages.emplace_back(DatacoreValidStatusMessage::TooManyItems);
    }

private:
    int m_count;
};

} // namespace Velmora::Server
