#include "server/core/WaveformService.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacorePoint.h"
#include "logging/LogThrottle.h"
#include "server/measure/PictureMeasurement.h"
#include "types/waveform/WaveformPictures.h"

#include <algorithm>

namespace Velmora::Server {

namespace {

namespace Pictures = WaveformTypes::Pictures;

/// More than the windows of a screen.
constexpr std::size_t kMostLeases = 32;

} // namespace

WaveformService::WaveformService(InstrumentTrees& trees, DatacoreService& datacores, SignalInput& input)
    : m_input(input)
    , m_analyser(trees, datacores)
    , m_elements(trees, datacores)
{
    m_wantPicture = &trees.add<DatacorePoint>(InstrumentTrees::Tree::Command,
                                              ElementPaths::WaveformCommands::kWantPicture, PointValue{});
    datacores.onWritten(*m_wantPicture, [this] { onWanted(); });
    connect(&m_leaseTimer, &QTimer::timeout, this, &WaveformService::endLeases);
    connect(&m_analyser, &AnalyserElements::changed, this, &WaveformService::sendSettings);
    connect(&m_elements, &WaveformElements::changed, this, &WaveformService::sendSettings);
    connect(&m_input, &SignalInput::picturesChanged, this, &WaveformService::sendPictures);
}

WaveformService::~WaveformService()
{
    m_thread.quit();
    m_thread.wait();
}

void WaveformService::start(int instrumentPort)
{
    m_measurement = new PictureMeasurement(instrumentPort, [this](const auto& pictures, const auto& format) {
        QMetaObject::invokeMethod(
            this, [this, pictures, format] { m_input.notePictures(pictures, format); }, Qt::QueuedConnection);
    });
    m_measurement->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_measurement, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("pictures"));
    m_thread.start();
    sendPictures();
    sendSettings();
    sendWanted();
}

template<typename Call>
void WaveformService::inMeasurement(Call call)
{
    if (m_measurement)
        QMetaObject::invokeMethod(m_measurement, [measurement = m_measurement, call] { call(*measurement); });
}

void WaveformService::onWanted()
{
    DatacorePoint::Messages faults;
    const auto wanted = m_wantPicture->getValueAndValidateThatItIsDeserialisable(faults);
    const QSize content(wanted->x, wanted->y);
    if (content.isEmpty() || content.boundedTo(Pictures::kLargestContent) != content)
        return;
    const QDeadlineTimer end(Pictures::kLease);
    const auto lease = std::find_if(m_leases.begin(), m_leases.end(),
                                    [&](const Lease& held) { return held.content == content; });
    if (lease != m_leases.end()) {
        lease->end = end;
        return;
    }
    if (m_leases.size() >= kMostLeases) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Waveforms of more than {} sizes are wanted; one is left out",
                     kMostLeases);
        return;
    }
    m_leases.push_back({content, end});
    m_leaseTimer.start(Pictures::kRenewal);
    sendWanted();
}

void WaveformService::endLeases()
{
    const auto before = m_leases.size();
    m_leases.erase(std::remove_if(m_leases.begin(), m_leases.end(),
                                  [](const Lease& lease) { return lease.end.hasExpired(); }),
                   m_leases.end());
    if (m_leases.empty())
        m_leaseTimer.stop();
    if (m_leases.size() != before)
        sendWanted();
}

void WaveformService::sendWanted()
{
    std::vector<QSize> contents;
    for (const Lease& lease : m_leases)
        contents.push_back(lease.content);
    inMeasurement([contents](PictureMeasurement& measurement) { measurement.setWantedContents(contents); });
}

void WaveformService::sendSettings()
{
    WaveformSettings settings = m_elements.settings();
    settings.colourimetry = m_analyser.colourimetry();
    if (m_elements.isSingleLine())
        settings.singleLine = std::max(0, m_analyser.pictureCursor().y());
    inMeasurement([settings](PictureMeasurement& measurement) { measurement.setWaveformSettings(settings); });
}

void WaveformService::sendPictures()
{
    inMeasurement([pictures = m_input.pictures()](PictureMeasurement& measurement) {
        measurement.setSource(pictures);
    });
}

} // namespace Velmora::Server
