#pragma once

#include "datacore/nodes/DatacoreNumber.h"

#include <functional>
#include <utility>

/// A number that is connected to what it sets: whenever valid data is processed, the receiver gets it.
template<typename T>
class DatacoreConnectedNumber : public DatacoreNumber<T> {
public:
    using Receiver = std::function<void(T)>;
    using DatacoreNumber<T>::DatacoreNumber;

    /// @p receiver is called with the first item until another one is connected; what it uses has to live as
    /// long. An empty one disconnects.
    void connectTo(Receiver receiver) { m_receiver = std::move(receiver); }

    void processData() override
    {
        if (m_receiver && !this->getDataList().isEmpty())
            m_receiver(this->getDataNumber());
    }

private:
    Receiver m_receiver;
};
