#include "server/core/SfpElements.h"

#include "datacore/ElementPaths.h"
#include "server/core/ChoiceNode.h"
#include "server/core/DatacoreService.h"
#include "server/core/HostAddressNode.h"
#include "server/core/InstrumentTrees.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

constexpr QLatin1String kNone{"None", 4};
constexpr QLatin1String kSdi{"SDI", 3};
constexpr QLatin1String kIp{"IP", 2};

} // namespace

SfpElements::SfpElements(InstrumentTrees& trees, DatacoreService& datacores, QObject* parent)
    : QObject(parent)
    , m_simulated(&trees.add<ChoiceNode>(Tree::Configuration, ElementPaths::Sfp::kSimulatedModule,
                                         QString(kNone), QStringList{kNone, kSdi, kIp}))
    , m_address(&trees.add<HostAddressNode>(Tree::Configuration, ElementPaths::Sfp::kIpAddress))
    , m_modules(&trees.add<DatacoreBase>(Tree::Status, ElementPaths::SfpStatus::kModules))
    , m_withoutAddress(&trees.add<DatacoreBase>(Tree::Status, ElementPaths::SfpStatus::kWithoutAddress))
{
    for (const DatacoreBase* const written : {m_simulated, m_address})
        datacores.onWritten(*written, [this] { update(); });
    m_withoutAddress->setData(QString());
    m_modules->setDataList({});
    for (DatacoreBase* const node : {m_modules, m_withoutAddress})
        node->resetChangedStatus();
}

void SfpElements::update()
{
    const QString kind = m_simulated->getData();
    const QString name = QStringLiteral("SFP E");
    m_modules->setDataList(kind == kNone ? QStringList()
                                         : QStringList{QStringLiteral("%1: %2 (simulated)").arg(name, kind)});
    const bool lacksAddress = kind == kIp && m_address->getData().isEmpty();
    m_withoutAddress->setData(lacksAddress ? name : QString());
}

} // namespace Velmora::Server
