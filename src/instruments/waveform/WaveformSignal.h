#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/waveform/CodeScale.h"
#include "types/waveform/NitsScale.h"

#include <QString>
#include <QStringList>

/// What a waveform has to know of the signal that it shows. A value.
struct WaveformSignal {
    using TransferCurve = Velmora::Sdi::PayloadId::TransferCurve;
    using Colourimetry = Velmora::Sdi::PayloadId::Colourimetry;
    using CodeScale = Velmora::WaveformTypes::CodeScale;
    using SLog3Mode = Velmora::WaveformTypes::SLog3Mode;

    /// From the items of the element of the active SDI standard; a signal that is not there when they are
    /// none.
    static WaveformSignal ofSdiStandard(const QStringList& items);
    /// From the items of the element of the active ST 2110-20 format.
    static WaveformSignal of2110Standard(const QStringList& items);

    bool isPresent = false;
    TransferCurve transferCurve = TransferCurve::SdrTv;
    Colourimetry colourimetry = Colourimetry::Rec709;
    int bits = 10;
    bool isFullRange = false;
    bool hasAlpha = false;
    int width = 1920; ///< active pixels of a line
    int height = 1080; ///< active lines of a frame
    double sampleRate = 148.5e6; ///< pixels a second along a line
    QString format; ///< "1080p50"
    QString sampling; ///< "YCbCr 4:2:2 10-bit"

    friend bool operator==(const WaveformSignal&, const WaveformSignal&) = default;

    CodeScale codeScale(Velmora::WaveformTypes::FullRangeMode mode, bool colourDifference) const;
    Velmora::WaveformTypes::NitsScale nitsScale(SLog3Mode mode) const;
};

/// The name of the curve as the graticule shows it: "SDR-TV", "HLG", "PQ", "S-Log3", or "SR Live" in that
/// mode of S-Log3.
QString getHdrStandardString(WaveformSignal::TransferCurve curve, WaveformSignal::SLog3Mode mode);
