#include "instruments/waveform/CursorReadOut.h"

#include "instruments/waveform/WaveformColours.h"

#include <QCoreApplication>

#include <algorithm>

using Axis = MeasurementCursors::Axis;
using Cursor = MeasurementCursors::Cursor;
using XMode = MeasurementCursorLabels::XScaleMode;
using YMode = MeasurementCursorLabels::YScaleMode;

namespace {

QString tr(const char* words)
{
    return QCoreApplication::translate("CursorReadOut", words);
}

QString headingOf(XMode mode)
{
    switch (mode) {
    case XMode::Time:
        return tr("Time");
    case XMode::Pixels:
        return tr("Pixel");
    case XMode::Frequency:
        return tr("Frequency");
    case XMode::Percent:
        break;
    }
    return tr("Line");
}

QString headingOf(YMode mode)
{
    switch (mode) {
    case YMode::PercentRelative:
        return tr("Relative");
    case YMode::Millivolts:
        return tr("Voltage");
    case YMode::Hex:
    case YMode::Decimal:
        return tr("Code");
    case YMode::Nits:
        return tr("Nits");
    case YMode::Percent:
        break;
    }
    return tr("Level");
}

template<typename Mode>
std::vector<Mode> columns(Mode chosen, std::vector<Mode> others, int most)
{
    others.erase(std::remove(others.begin(), others.end(), chosen), others.end());
    others.insert(others.begin(), chosen);
    others.resize(std::min(others.size(), static_cast<std::size_t>(most)));
    return others;
}

} // namespace

CursorReadOut CursorReadOut::of(const MeasurementCursors& cursors, const MeasurementCursorLabels& labels,
                                XMode xMode, YMode yMode, bool isHdr, int mostColumns)
{
    CursorReadOut readOut;
    const Axis axis = cursors.axis();
    const int first = cursors.position(axis, Cursor::Reference);
    const int second = cursors.position(axis, Cursor::Delta);
    Row reference{tr("Ref"), WaveformColours::kReferenceCursor, {}};
    Row delta{tr("Delta"), WaveformColours::kDeltaCursor, {}};
    Row difference{tr("Diff"), 0, {}};
    if (axis == Axis::X) {
        for (const XMode mode : columns(xMode, {XMode::Percent, XMode::Time, XMode::Pixels}, mostColumns)) {
            readOut.headings << headingOf(mode);
            reference.values << labels.getMeasurementCursorXLabel(mode, first);
            delta.values << labels.getMeasurementCursorXLabel(mode, second);
            difference.values << labels.getMeasurementCursorXDiffLabel(mode, first, second);
        }
    } else {
        const YMode third = isHdr ? YMode::Nits : YMode::Millivolts;
        for (const YMode mode : columns(yMode, {YMode::Percent, YMode::Decimal, third}, mostColumns)) {
            readOut.headings << headingOf(mode);
            reference.values << labels.getMeasurementCursorYLabel(mode, first);
            delta.values << labels.getMeasurementCursorYLabel(mode, second);
            difference.values << labels.getMeasurementCursorYDiffLabel(mode, first, second);
        }
    }
    if (cursors.isShown(Cursor::Reference))
        readOut.rows.push_back(reference);
    if (cursors.isShown(Cursor::Delta)) {
        readOut.rows.push_back(delta);
        readOut.rows.push_back(difference);
    }
    return readOut;
}
