#pragma once

#include "server/core/AnalyserElements.h"
#include "server/core/SignalInput.h"
#include "server/core/WaveformElements.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QThread>
#include <QTimer>

#include <map>

namespace Velmora::Server {

class PictureMeasurement;

/// Has waveforms of the input drawn for whoever says that he looks at one, in a thread of its own.
class WaveformService : public QObject {
    Q_OBJECT
public:
    WaveformService(InstrumentTrees& trees, DatacoreService& datacores, SignalInput& input);
    ~WaveformService() override;

    /// From now on pictures are drawn; the port of the instrument names them.
    void start(int instrumentPort);

private:
    void onWanted();
    void endLeases();
    void sendWanted();
    void sendSettings();
    void sendPictures();
    template<typename Call>
    void inMeasurement(Call call);

    SignalInput& m_input;
    AnalyserElements m_analyser;
    WaveformElements m_elements;
    DatacorePoint* m_wantPicture = nullptr;

    struct Lease {
        QSize content;
        QDeadlineTimer end;
    };
    std::vector<Lease> m_leases;
    QTimer m_leaseTimer;
    QThread m_thread;
    PictureMeasurement* m_measurement = nullptr; ///< lives in the thread and ends with it
};

} // namespace Velmora::Server
