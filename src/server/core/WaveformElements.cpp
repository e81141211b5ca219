#include "server/core/WaveformElements.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "server/core/NumberListNode.h"

namespace Velmora::Server {

using namespace WaveformTypes;
namespace Paths = ElementPaths::Waveform;

namespace {

constexpr auto kTree = InstrumentTrees::Tree::Configuration;
/// Elements that act on the clients' scales alone.
constexpr auto kShared = [](auto) {};

CustomChannels customChannelsOf(const std::deque<unsigned>& numbers)
{
    CustomChannels channels;
    for (std::size_t i = 0; i < channels.size() && i < numbers.size(); ++i)
        channels[i] = {numbers[i] != kNoComponent, static_cast<Component>(numbers[i])};
    return channels;
}

} // namespace

WaveformElements::WaveformElements(InstrumentTrees& trees, DatacoreService& datacores)
    : m_trees(trees)
    , m_datacores(datacores)
{
    addSignalPart();
    addTrace();
    addChannels();
    addScales();
    addUserMarkers();
}

void WaveformElements::addSignalPart()
{
    WaveformView& view = m_settings.view;
    addNumber(Paths::kVerticalMagnification, Limits::kVerticalMagnification,
              [&view](double times) { view.verticalMagnification = times; });
    addNumber(Paths::kVerticalPosition, Limits::kVerticalPosition,
              [&view](double percent) { view.verticalPosition = percent; });
    addNumber(Paths::kHorizontalMagnification, Limits::kHorizontalMagnification,
              [&view](double times) { view.horizontalMagnification = times; });
    addNumber(Paths::kHorizontalPosition, Limits::kHorizontalPosition,
              [&view](double percent) { view.horizontalPosition = percent / 100.0; });
    addFlag(Paths::kSingleLineMode, [this](bool isSingle) { m_isSingleLine = isSingle; });
    addFlag(Paths::kFullWidthMode, [this](bool isFull) { m_settings.fullWidth = isFull; });
    addChoice(Paths::kOnVideoLoss, OnVideoLoss::Hold,
              Apply<OnVideoLoss>([this](auto action) { m_settings.onVideoLoss = action; }));
    addChoice(Paths::kFullRangeMode, FullRangeMode::SdiProtected,
              Apply<FullRangeMode>([this](auto mode) { m_settings.fullRangeMode = mode; }));
}

void WaveformElements::addTrace()
{
    addChoice(Paths::kFilter, Filter::Raw,
              Apply<Filter>([this](auto filter) { m_settings.filter = filter; }));
    addNumber(Paths::kBrightness, Limits::kBrightness,
              [this](double percent) { m_settings.brightness = percent / 100.0; });
    addNumber(Paths::kGamma, Limits::kGamma, [this](double gamma) { m_settings.gamma = gamma; });
    addNumber(Paths::kPersistenceAttack, Limits::kPersistence,
              [this](double seconds) { m_settings.attackSeconds = seconds; });
    addNumber(Paths::kPersistenceDecay, Limits::kPersistence,
              [this](double seconds) { m_settings.decaySeconds = seconds; });
    addChoice(Paths::kColourMode, ColourMode::Monochrome,
              Apply<ColourMode>([this](auto mode) { m_settings.colourMode = mode; }));
}

void WaveformElements::addChannels()
{
    addChoice(Paths::kDisplayMode, DisplayMode::Custom,
              Apply<DisplayMode>([this](auto mode) { m_settings.displayMode = mode; }));
    addChoice(Paths::kPresentationMode, Presentation::Overlay,
              Apply<Presentation>([this](auto mode) { m_settings.presentation = mode; }));

    const std::deque<unsigned> luma{static_cast<unsigned>(Component::Y), kNoComponent, kNoComponent,
                                    kNoComponent};
    m_settings.customChannels = customChannelsOf(luma);
    const auto& custom =
        m_trees.add<NumberListNode<unsigned>>(kTree, Paths::kCustomDisplayMode, luma, 0U, kNoComponent);
    bind(custom,
         [this, &custom] { m_settings.customChannels = customChannelsOf(custom.getDataNumberArray()); });

    const auto& gains = m_trees.add<NumberListNode<double>>(
        kTree, Paths::kBlenderGains, std::deque<double>(kChannels, Limits::kGain.initial),
        Limits::kGain.least, Limits::kGain.most);
    bind(gains, [this, &gains] {
        const auto numbers = gains.getDataNumberArray();
        std::copy(numbers.begin(), numbers.end(), m_settings.gains.begin());
    });
}

void WaveformElements::addScales()
{
    addChoice(Paths::kVerticalScaleMode, VerticalScale::Millivolts, Apply<VerticalScale>(kShared));
    addChoice(Paths::kVerticalNitsScaleMode, NitsScaleSide::Left, Apply<NitsScaleSide>(kShared));
    addChoice(Paths::kHorizontalScaleMode, HorizontalScale::Pixels, Apply<HorizontalScale>(kShared));
    addChoice(Paths::kSLog3Mode, SLog3Mode::SrLive, Apply<SLog3Mode>(kShared));
}

void WaveformElements::addUserMarkers()
{
    addFlag(Paths::kUserMarkerLumaRgbEnable, kShared);
    addFlag(Paths::kUserMarkerCbCrEnable, kShared);
    for (const auto path : {Paths::kUserMarkerLumaRgb1, Paths::kUserMarkerLumaRgb2, Paths::kUserMarkerCbCr1,
                            Paths::kUserMarkerCbCr2})
        addNumber(path, Limits::kUserMarker, kShared);
}

/// Only valid values come here, so whatever the node holds later the settings keep the last one.
template<typename Node, typename Read>
void WaveformElements::bind(const Node& node, Read read)
{
    m_datacores.onWritten(node, [this, read] {
        read();
        emit changed();
    });
}

void WaveformElements::addNumber(const QString& path, const Limits::Range& range, Apply<double> apply)
{
    const auto& node =
        m_trees.add<DatacoreNumberLimits<double>>(kTree, path, range.initial, range.least, range.most);
    apply(range.initial);
    bind(node, [&node, apply] { apply(node.getDataNumber()); });
}

void WaveformElements::addFlag(const QString& path, Apply<bool> apply)
{
    const auto& node = m_trees.add<DatacoreBool>(kTree, path, false);
    bind(node, [&node, apply] { apply(node.getDataBool()); });
}

template<typename Enumeration>
void WaveformElements::addChoice(const QString& path, Enumeration last, Apply<Enumeration> apply)
{
    const auto& node =
        m_trees.add<DatacoreNumberLimits<unsigned>>(kTree, path, 0U, 0U, static_cast<unsigned>(last));
    bind(node, [&node, apply] { apply(static_cast<Enumeration>(node.getDataNumber())); });
}

} // namespace Velmora::Server
