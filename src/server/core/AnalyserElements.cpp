#include "server/core/AnalyserElements.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "datacore/nodes/DatacorePoint.h"
#include "datacore/nodes/DatacoreVideoStandard2110AndStatus.h"
#include "server/core/ChoiceNode.h"
#include "types/sdi/SdiTypes.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;
using Sdi::PayloadId::Colourimetry;
namespace Paths = ElementPaths::PayloadIdOverride;

constexpr char kSdiMode[] = "SDI";

QString codeOf(Colourimetry colourimetry)
{
    return QString::number(static_cast<unsigned>(colourimetry));
}

} // namespace

AnalyserElements::AnalyserElements(InstrumentTrees& trees, DatacoreService& datacores)
    : m_trees(trees)
    , m_datacores(datacores)
{
    const QString mode = QString::fromLatin1(kSdiMode);
    m_trees.add<ChoiceNode>(Tree::Configuration, ElementPaths::Analyser::kMode, mode, QStringList{mode});
    addPictureCursor();
    addOverrides();
    addNetworkInputs();
}

void AnalyserElements::addPictureCursor()
{
    m_cursor = &m_trees.add<DatacorePoint>(Tree::Configuration, ElementPaths::PictureCursor::kPosition,
                                           PointValue{});
    m_datacores.onWritten(*m_cursor, [this] {
        DatacorePoint::Messages faults;
        const auto point = m_cursor->getValueAndValidateThatItIsDeserialisable(faults);
        m_cursorPosition = {point->x, point->y};
        emit changed();
    });
}

void AnalyserElements::addOverrides()
{
    using Sdi::SubImagePixelMappingFormat;
    m_chosenColourimetry = codeOf(Colourimetry::Rec709);
    m_colourimetry =
        &m_trees.add<ChoiceNode>(Tree::Configuration, Paths::kColourimetry, m_chosenColourimetry,
                                 QStringList{codeOf(Colourimetry::Rec709), codeOf(Colourimetry::Rec2020),
                                             codeOf(Colourimetry::Rec601)});
    m_isColourimetryOverridden =
        &m_trees.add<DatacoreBool>(Tree::Configuration, Paths::kColourimetryEnable, false);
    m_datacores.onWritten(*m_colourimetry, [this] {
        m_chosenColourimetry = m_colourimetry->getData();
        emit changed();
    });
    m_datacores.onWritten(*m_isColourimetryOverridden, [this] { emit changed(); });

    // The curve moves scales and markers, which are the clients'; the pictures here have one image alone.
    m_trees.add<DatacoreNumberLimits<unsigned>>(Tree::Configuration, Paths::kTransferCurve, 0U, 0U,
                                                static_cast<unsigned>(Sdi::PayloadId::TransferCurve::SLog3));
    m_trees.add<DatacoreBool>(Tree::Configuration, Paths::kTransferCurveEnable, false);
    m_trees.addAbsent<DatacoreNumberLimits<unsigned>>(
        Tree::Configuration, Paths::kSubImageMapping, 0U, 0U,
        static_cast<unsigned>(SubImagePixelMappingFormat::SquareDivision));
    m_trees.addAbsent<DatacoreBool>(Tree::Configuration, Paths::kSubImageMappingEnable, false);
}

void AnalyserElements::addNetworkInputs()
{
    m_trees.addAbsent<DatacoreBase>(Tree::Configuration, ElementPaths::Ip2110Input::kRequestedVideoFlows);
    m_trees.addAbsent<DatacoreBool>(Tree::Configuration, ElementPaths::Ip2110Input::kIp20227Mode, false);
    m_trees.addAbsent<DatacoreVideoStandard2110AndStatus>(Tree::Status,
                                                          ElementPaths::Ip2110InputStatus::kActiveStandard);
    m_trees.addAbsent<DatacoreBool>(Tree::Status, ElementPaths::Ip2110InputStatus::kVideoLoss, true);
}

std::optional<Sdi::PayloadId::Colourimetry> AnalyserElements::colourimetry() const
{
    if (!m_isColourimetryOverridden->getDataBool())
        return std::nullopt;
    return static_cast<Colourimetry>(m_chosenColourimetry.toUInt());
}

} // namespace Velmora::Server
