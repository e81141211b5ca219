#pragma once

#include <QObject>

class DatacoreBase;

namespace Velmora::Server {

class DatacoreService;
class InstrumentTrees;

/// The elements of the pluggable network modules. A software instrument has none: the one that can be put in
/// by an element is simulated, and named so.
class SfpElements : public QObject {
    Q_OBJECT
public:
    SfpElements(InstrumentTrees& trees, DatacoreService& datacores, QObject* parent = nullptr);

private:
    void update();

    const DatacoreBase* m_simulated = nullptr;
    const DatacoreBase* m_address = nullptr;
    DatacoreBase* m_modules = nullptr;
    DatacoreBase* m_withoutAddress = nullptr;
};

} // namespace Velmora::Server
