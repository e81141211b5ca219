#pragma once

#include <QImage>
#include <QString>

/// A waveform that was kept to compare others with: how bright it was, without its colours.
class ReferenceTrace {
public:
    ReferenceTrace() = default;
    /// From a premultiplied picture on a transparent ground.
    explicit ReferenceTrace(const QImage& picture);

    bool isNull() const { return m_light.isNull(); }
    /// In one colour, to be laid over something; null when there is none.
    QImage inColour(QRgb colour) const;

    /// As text, for presets; empty when there is none or it takes too much.
    QString toText() const;
    /// None when the text is no such picture, or one of no likely size.
    static ReferenceTrace fromText(const QString& text);

private:
    QImage m_light; ///< 8 bits of grey
};
