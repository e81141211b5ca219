#include "instruments/waveform/ReferenceTrace.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace {

constexpr char kFormat[] = "PNG";
/// A trace of a full screen of noise takes about 1 MB. All presets have to go through a packet.
constexpr int kMostTextLength = 4 * 1024 * 1024;
constexpr int kLargestSide = 4096;

} // namespace

ReferenceTrace::ReferenceTrace(const QImage& picture)
{
    if (picture.isNull())
        return;
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    m_light = QImage(source.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < source.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        std::transform(from, from + source.width(), m_light.scanLine(y), [](QRgb pixel) {
            return static_cast<uchar>(std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}));
        });
    }
}

QImage ReferenceTrace::inColour(QRgb colour) const
{
    if (m_light.isNull())
        return {};
    QVector<QRgb> shades;
    for (int light = 0; light < 256; ++light)
        shades.append(qPremultiply((colour & RGB_MASK) | static_cast<QRgb>(light) << 24));
    QImage picture(m_light.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* const from = m_light.constScanLine(y);
        std::transform(from, from + picture.width(), reinterpret_cast<QRgb*>(picture.scanLine(y)),
                       [&shades](uchar light) { return shades.at(light); });
    }
    return picture;
}

QString ReferenceTrace::toText() const
{
    if (m_light.isNull())
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!m_light.save(&buffer, kFormat))
        return {};
    const QByteArray text = bytes.toBase64();
    return text.size() <= kMostTextLength ? QString::fromLatin1(text) : QString();
}

ReferenceTrace ReferenceTrace::fromText(const QString& text)
{
    ReferenceTrace trace;
    if (text.isEmpty() || text.size() > kMostTextLength)
        return trace;
    QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, kFormat);
    // Before the pixels are made room for.
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > kLargestSide || size.height() > kLargestSide)
        return trace;
    trace.m_light = reader.read().convertToFormat(QImage::Format_Grayscale8);
    return trace;
}
