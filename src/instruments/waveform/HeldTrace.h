#pragma once

#include "instruments/waveform/WaveformDisplay.h"

#include <QImage>
#include <QJsonObject>

class QPainter;

/// A picture of a waveform that was kept, with what it was drawn for: it can be laid over a graticule of
/// another size, scale or magnification, where each level and each part of the line finds its place.
class HeldTrace {
public:
    HeldTrace() = default;
    /// A premultiplied picture on a transparent ground.
    HeldTrace(const QImage& picture, const WaveformDisplay& display);

    bool isNull() const { return m_picture.isNull(); }
    /// All of it in one colour.
    HeldTrace inColour(QRgb colour) const;

    /// Draws the cells that @p display shows, too, with its picture at @p place.
    void paint(QPainter& painter, const WaveformDisplay& display, QPoint place) const;

    /// For presets, without its colours; empty when there is none or it takes too much.
    QJsonObject toJson() const;
    /// None when the object is no such trace, or one of no likely size.
    static HeldTrace fromJson(const QJsonObject& object);

private:
    QImage m_picture;
    WaveformDisplay m_display;
};
