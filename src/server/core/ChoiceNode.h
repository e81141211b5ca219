#pragma once

#include "datacore/DatacoreBase.h"

#include <QStringList>

namespace Velmora::Server {

/// A text that has to be one of some given.
class ChoiceNode : public DatacoreBase {
public:
    ChoiceNode(const QString& instanceName, DatacoreBase* parent, const QString& initial,
               const QStringList& choices);

    /// Reports that the value is not supported, unless it is one item and among the choices.
    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override;

private:
    QStringList m_choices;
};

} // namespace Velmora::Server
