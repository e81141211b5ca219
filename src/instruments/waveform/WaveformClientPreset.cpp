#include "instruments/waveform/WaveformClientPreset.h"

namespace {

constexpr QLatin1String kPercentReference("percentReference", 16);
constexpr QLatin1String kReadOutCorner("readOutCorner", 13);
constexpr QLatin1String kReferenceTrace("referenceTrace", 14);

QLatin1String keyOf(MeasurementCursors::Axis axis, MeasurementCursors::Cursor cursor)
{
    static constexpr QLatin1String kKeys[2][2] = {
        {QLatin1String("refCursorX", 10), QLatin1String("deltaCursorX", 12)},
        {QLatin1String("refCursorY", 10), QLatin1String("deltaCursorY", 12)}};
    return kKeys[static_cast<int>(axis)][static_cast<int>(cursor)];
}

} // namespace

WaveformClientPreset::WaveformClientPreset()
    : SettingsContentPreset(QString(kClassName))
{
}

WaveformClientPreset::WaveformClientPreset(const SerialisableDataPacket& packet)
    : SettingsContentPreset(packet)
{
}

void WaveformClientPreset::setCursorPosition(Axis axis, Cursor cursor, int position)
{
    setSetting(keyOf(axis, cursor), position);
}

bool WaveformClientPreset::containsCursorPosition(Axis axis, Cursor cursor) const
{
    return setting(keyOf(axis, cursor)).isDouble();
}

int WaveformClientPreset::getCursorPosition(Axis axis, Cursor cursor) const
{
    return setting(keyOf(axis, cursor)).toInt();
}

void WaveformClientPreset::setPercentReference(int level)
{
    setSetting(kPercentReference, level);
}

bool WaveformClientPreset::containsPercentReference() const
{
    return setting(kPercentReference).isDouble();
}

int WaveformClientPreset::getPercentReference() const
{
    return setting(kPercentReference).toInt();
}

void WaveformClientPreset::setReadOutCorner(Qt::Corner corner)
{
    setSetting(kReadOutCorner, static_cast<int>(corner));
}

bool WaveformClientPreset::containsReadOutCorner() const
{
    const int corner = setting(kReadOutCorner).toInt(-1);
    return corner >= Qt::TopLeftCorner && corner <= Qt::BottomRightCorner;
}

Qt::Corner WaveformClientPreset::getReadOutCorner() const
{
    return static_cast<Qt::Corner>(setting(kReadOutCorner).toInt());
}

void WaveformClientPreset::setReferenceTrace(const QJsonObject& trace)
{
    setSetting(kReferenceTrace, trace);
}

bool WaveformClientPreset::containsReferenceTrace() const
{
    return setting(kReferenceTrace).isObject();
}

QJsonObject WaveformClientPreset::getReferenceTrace() const
{
    return setting(kReferenceTrace).toObject();
}
