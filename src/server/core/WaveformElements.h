#pragma once

#include "server/core/DatacoreService.h"
#include "server/core/InstrumentTrees.h"
#include "server/measure/waveform/WaveformSettings.h"
#include "types/waveform/WaveformLimits.h"

#include <QObject>

namespace Velmora::Server {

/// The elements by which clients set what the waveform shows, and how.
class WaveformElements : public QObject {
    Q_OBJECT
public:
    /// Adds its elements to the trees.
    WaveformElements(InstrumentTrees& trees, DatacoreService& datacores);

    /// What was written last and is valid, as far as it is set here.
    const WaveformSettings& settings() const { return m_settings; }
    /// Whether only one line shall be shown.
    bool isSingleLine() const { return m_isSingleLine; }

signals:
    void changed();

private:
    void addSignalPart();
    void addTrace();
    void addChannels();
    void addScales();
    void addUserMarkers();

    template<typename Value>
    using Apply = std::function<void(Value)>;
    void addNumber(const QString& path, const WaveformTypes::Limits::Range& range, Apply<double> apply);
    void addFlag(const QString& path, Apply<bool> apply);
    /// Of an enumeration with the values 0 to @p last.
    template<typename Enumeration>
    void addChoice(const QString& path, Enumeration last, Apply<Enumeration> apply);
    template<typename Node, typename Read>
    void bind(const Node& node, Read read);

    InstrumentTrees& m_trees;
    DatacoreService& m_datacores;
    WaveformSettings m_settings;
    bool m_isSingleLine = false;
};

} // namespace Velmora::Server
