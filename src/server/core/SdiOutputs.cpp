#include "server/core/SdiOutputs.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "server/core/ChoiceNode.h"
#include "server/core/DatacoreService.h"
#include "server/core/GeneratorStandardNode.h"
#include "server/core/NumberListNode.h"
#include "server/sources/PatternCatalogue.h"
#include "server/sources/VideoFormats.h"

#include <QTimerEvent>

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;
namespace Driver = ElementPaths::SdiDriver;
namespace DriverStatus = ElementPaths::SdiDriverStatus;
constexpr unsigned kHighestStep = Sdi::DriverCharacteristics::kGainSteps - 1;
/// Of a driver that was never calibrated.
constexpr unsigned kFirstGain = 20;
constexpr VideoFormat kFirstFormat{.width = 1920, .height = 1080, .rateNumerator = 50};

/// What a calibration has found, or nothing.
class CharacteristicsNode : public DatacoreBase {
public:
    using DatacoreBase::DatacoreBase;

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override
    {
        messages.clear();
        if (!getDataList().isEmpty() && !Sdi::DriverCharacteristics::fromItems(getDataList()))
            messages.emplace_back(DatacoreValidStatusMessage::NotFloatingPoint);
    }
};

QString inMillivolts(double amplitude)
{
    return QString::number(amplitude, 'f', 1);
}

} // namespace

SdiOutputs::SdiOutputs(unsigned seed, InstrumentTrees& trees, DatacoreService& datacores, QObject* parent)
    : QObject(parent)
    , m_trees(trees)
    , m_datacores(datacores)
    , m_outputs{{{SimulatedSdiDriver(seed)},
                 {SimulatedSdiDriver(seed + 1)},
                 {SimulatedSdiDriver(seed + 2)},
                 {SimulatedSdiDriver(seed + 3)}}}
{
    addGenerator();
    addDrivers();
    onGenerate();
}

void SdiOutputs::addGenerator()
{
    using namespace ElementPaths::SdiOutput;
    using namespace ElementPaths::SdiOutputStatus;
    QStringList patterns;
    for (const auto& entry : PatternCatalogue::entries())
        patterns << QString::fromLatin1(entry.name);
    m_trees.add<GeneratorStandardNode>(Tree::Configuration, kVideoStandard,
                                       VideoStandardValue::of(*VideoFormats::standardOf(kFirstFormat)));
    m_trees.add<ChoiceNode>(Tree::Configuration, kTestPattern, patterns.first(), patterns);
    m_generate = &m_trees.add<DatacoreBool>(Tree::Configuration, kGenerate, false);
    m_idle = &m_trees.add<DatacoreBool>(Tree::Status, kIdle, true);
    m_trees.add<DatacoreBase>(Tree::Status, kTestPatterns).setDataList(patterns);
    m_datacores.onWritten(*m_generate, [this] { onGenerate(); });
}

void SdiOutputs::addDrivers()
{
    m_trees.add<DatacoreBase>(Tree::Status, DriverStatus::kKind, QStringLiteral("Simulated"));
    for (std::size_t i = 0; i < kOutputs; ++i) {
        Output& output = m_outputs[i];
        output.gain = &m_trees.add<DatacoreNumberLimits<unsigned int>>(
            Tree::PersistentConfiguration, Driver::kGain[i], kFirstGain, 0U, kHighestStep);
        m_trees.add<CharacteristicsNode>(Tree::PersistentConfiguration, Driver::kCharacteristics[i]);
        output.amplitude = &m_trees.add<DatacoreBase>(Tree::Status, DriverStatus::kAmplitude[i]);
        m_datacores.onWritten(*output.gain, [this, &output] { showAmplitude(output); });
    }
    m_measure =
        &m_trees.add<NumberListNode<unsigned int>>(Tree::Command, ElementPaths::SdiDriverCommands::kMeasure,
                                                   std::deque<unsigned>{0, 0}, 0U, kHighestStep);
    m_measurement = &m_trees.add<DatacoreBase>(Tree::Status, DriverStatus::kMeasurement);
    m_datacores.onWritten(*m_measure, [this] { onMeasure(); });
}

void SdiOutputs::onGenerate()
{
    const bool isIdle = !m_generate->getDataBool();
    m_idle->setDataBool(isIdle);
    for (Output& output : m_outputs)
        showAmplitude(output);
    if (isIdle)
        m_waiting.clear();
}

/// What an oscilloscope at the output would show.
void SdiOutputs::showAmplitude(Output& output)
{
    if (m_idle->getDataBool()) {
        output.amplitude->setDataList({});
        output.amplitude->setActive({DatacoreActiveStatusMessage(DatacoreActiveStatusMessage::NoNeed)});
        return;
    }
    output.amplitude->setActive({});
    output.amplitude->setData(
        inMillivolts(output.driver.amplitudeAt(static_cast<int>(output.gain->getDataNumber()))));
}

void SdiOutputs::onMeasure()
{
    const QStringList& items = m_measure->getDataList();
    const std::size_t output = items.at(0).toUInt();
    if (output >= kOutputs) {
        m_measure->setValid({DatacoreValidStatusMessage(DatacoreValidStatusMessage::ValueNotSupported)});
    } else if (m_idle->getDataBool() || m_waiting.size() >= kMostWaiting) {
        // Nothing can be measured where nothing is sent.
        m_measure->setValid({DatacoreValidStatusMessage(DatacoreValidStatusMessage::ConfigurationInvalid)});
    } else {
        m_waiting.push_back({output, items.at(1).toInt()});
        m_timer.start(kMeasureMs, Qt::PreciseTimer, this);
    }
}

void SdiOutputs::timerEvent(QTimerEvent*)
{
    if (!m_waiting.empty()) {
        const auto [output, step] = m_waiting.front();
        m_waiting.pop_front();
        m_measurement->setDataList({QString::number(output), QString::number(step),
                                    inMillivolts(m_outputs.at(output).driver.measure(step)),
                                    QString::number(++m_measured)});
        m_datacores.publishChanges();
    }
    if (m_waiting.empty())
        m_timer.stop();
}

} // namespace Velmora::Server
