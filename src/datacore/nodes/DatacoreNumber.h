#pragma once

#include "datacore/DatacoreBase.h"

#include <type_traits>

/// A number, or a list of them, as text in base 10. For unsigned int, unsigned short, int, long long and
/// double.
template<typename T>
class DatacoreNumber : public DatacoreBase {
public:
    DatacoreNumber(QString instanceName, DatacoreBase* parent);
    DatacoreNumber(QString instanceName, DatacoreBase* parent, T initial);
    DatacoreNumber(QString className, QString instanceName, DatacoreBase* parent);
    DatacoreNumber(QString className, QString instanceName, DatacoreBase* parent, T initial);
    DatacoreNumber(QString instanceName, DatacoreBase* parent, const std::deque<T>& initial);

    /// The first number; 0 when there is none or it cannot be read. What an unsigned int cannot hold is cut
    /// to its largest value.
    T getDataNumber() const;
    std::deque<T> getDataNumberArray() const;
    void setDataNumber(T value);
    void setDataNumberArray(const std::deque<T>& values);

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override;

protected:
    /// What an item is read as. An unsigned int is read with 64 bits, so that one too large is a number all
    /// the same.
    using Parsed = std::conditional_t<std::is_same_v<T, unsigned int>, quint64, T>;

    static T narrowed(Parsed number);
};
