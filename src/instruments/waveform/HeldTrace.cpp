#include "instruments/waveform/HeldTrace.h"

#include "types/waveform/WaveformLimits.h"
#include "types/waveform/WaveformPictures.h"

#include <QBuffer>
#include <QImageReader>
#include <QJsonArray>
#include <QPainter>

#include <algorithm>

using namespace Velmora::WaveformTypes;

namespace {

constexpr char kFormat[] = "PNG";
/// A trace of a full screen of noise takes about 1 MB. All presets have to go through a packet.
constexpr int kMostTextLength = 4 * 1024 * 1024;

constexpr QLatin1String kPicture("picture", 7);
constexpr QLatin1String kWidth("width", 5);
constexpr QLatin1String kHeight("height", 6);
constexpr QLatin1String kPresentation("presentation", 12);
constexpr QLatin1String kComponentsKey("components", 10);
constexpr QLatin1String kFullWidth("fullWidth", 9);
constexpr QLatin1String kView("view", 4);

/// How bright the pixels are, as 8 bits of grey.
QImage lightOf(const QImage& picture)
{
    QImage light(picture.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::transform(from, from + picture.width(), light.scanLine(y), [](QRgb pixel) {
            return static_cast<uchar>(std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}));
        });
    }
    return light;
}

QImage coloured(const QImage& light, QRgb colour)
{
    std::array<QRgb, 256> shades;
    for (std::size_t i = 0; i < shades.size(); ++i)
        shades[i] = qPremultiply((colour & RGB_MASK) | static_cast<QRgb>(i) << 24);
    QImage picture(light.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* const from = light.constScanLine(y);
        std::transform(from, from + picture.width(), reinterpret_cast<QRgb*>(picture.scanLine(y)),
                       [&shades](uchar shade) { return shades[shade]; });
    }
    return picture;
}

/// Where the place of a whole cell of @p from is in a cell of @p to, by levels and parts of the line.
QRectF placeOfCell(const WaveformGeometry& from, const WaveformGeometry& to)
{
    const QSize size = from.cells().front().size();
    const double percentPerRow = to.percent(0) - to.percent(1);
    const double linePerColumn = to.linePosition(1) - to.linePosition(0);
    // A row has its level in its middle, a column its position at its left edge.
    const auto y = [&](double row) {
        const double level = from.percent(0) - row * (from.percent(0) - from.percent(1));
        return (to.percent(0) - level) / percentPerRow + 0.5;
    };
    const auto x = [&](int column) {
        return (from.linePosition(column) - to.linePosition(0)) / linePerColumn;
    };
    return {QPointF(x(0), y(-0.5)), QPointF(x(size.width()), y(size.height() - 0.5))};
}

std::optional<WaveformView> viewOf(const QJsonArray& numbers)
{
    const auto isWithin = [](const QJsonValue& value, double least, double most) {
        return value.isDouble() && value.toDouble() >= least && value.toDouble() <= most;
    };
    if (!isWithin(numbers.at(0), Limits::kHorizontalMagnification.least,
                  Limits::kHorizontalMagnification.most)
        || !isWithin(numbers.at(1), 0.0, 1.0)
        || !isWithin(numbers.at(2), Limits::kVerticalMagnification.least, Limits::kVerticalMagnification.most)
        || !isWithin(numbers.at(3), Limits::kVerticalPosition.least, Limits::kVerticalPosition.most))
        return std::nullopt;
    return WaveformView{numbers.at(0).toDouble(), numbers.at(1).toDouble(), numbers.at(2).toDouble(),
                        numbers.at(3).toDouble()};
}

QImage imageOf(const QString& text, QSize expected)
{
    if (text.size() > kMostTextLength)
        return {};
    QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, kFormat);
    // Before the pixels are made room for.
    if (expected.isEmpty() || reader.size() != expected)
        return {};
    return reader.read().convertToFormat(QImage::Format_Grayscale8);
}

} // namespace

HeldTrace::HeldTrace(const QImage& picture, const WaveformDisplay& display)
    : m_picture(picture.convertToFormat(QImage::Format_ARGB32_Premultiplied))
    , m_display(display)
{
}

HeldTrace HeldTrace::inColour(QRgb colour) const
{
    return isNull() ? HeldTrace() : HeldTrace(coloured(lightOf(m_picture), colour), m_display);
}

void HeldTrace::paint(QPainter& painter, const WaveformDisplay& display, QPoint place) const
{
    const WaveformGeometry from = m_display.geometry();
    const WaveformGeometry to = display.geometry();
    if (isNull() || from.cells().empty() || to.cells().empty())
        return;
    const QRectF cellPlace = placeOfCell(from, to);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, cellPlace.size() != from.cells().front().size());
    for (std::size_t i = 0; i < to.cells().size(); ++i) {
        const QRect cell = to.cells()[i].translated(place);
        const auto components = display.componentsOf(static_cast<int>(i));
        for (std::size_t k = 0; k < from.cells().size(); ++k) {
            if (m_display.componentsOf(static_cast<int>(k)) != components)
                continue;
            painter.setClipRect(cell);
            painter.drawImage(cellPlace.translated(cell.topLeft()), m_picture, QRectF(from.cells()[k]));
            break;
        }
    }
    painter.restore();
}

QJsonObject HeldTrace::toJson() const
{
    if (isNull())
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const bool isWritten = lightOf(m_picture).save(&buffer, kFormat);
    const QByteArray text = bytes.toBase64();
    if (!isWritten || text.size() > kMostTextLength)
        return {};
    QJsonArray components;
    for (const Channel& channel : m_display.channels)
        components.append(static_cast<int>(channel.component));
    const WaveformView& view = m_display.view;
    return {{kPicture, QString::fromLatin1(text)},
            {kWidth, m_display.content.width()},
            {kHeight, m_display.content.height()},
            {kPresentation, static_cast<int>(m_display.presentation)},
            {kComponentsKey, components},
            {kFullWidth, m_display.isFullWidth},
            {kView,
             QJsonArray{view.horizontalMagnification, view.horizontalPosition, view.verticalMagnification,
                        view.verticalPosition}}};
}

HeldTrace HeldTrace::fromJson(const QJsonObject& object)
{
    WaveformDisplay display;
    display.content = {object.value(kWidth).toInt(), object.value(kHeight).toInt()};
    const int presentation = object.value(kPresentation).toInt(-1);
    const auto view = viewOf(object.value(kView).toArray());
    const QJsonArray components = object.value(kComponentsKey).toArray();
    if (display.content.boundedTo(Pictures::kLargestContent) != display.content || !view || presentation < 0
        || presentation > static_cast<int>(Presentation::Overlay)
        || components.size() > static_cast<int>(kChannels))
        return {};
    for (const QJsonValue& component : components) {
        const int number = component.toInt(-1);
        if (number < 0 || number >= static_cast<int>(kComponents))
            return {};
        display.channels.push_back({display.channels.size(), static_cast<Component>(number)});
    }
    display.presentation = static_cast<Presentation>(presentation);
    display.isFullWidth = object.value(kFullWidth).toBool();
    display.view = *view;
    const QImage light = imageOf(object.value(kPicture).toString(), display.geometry().imageRect().size());
    return light.isNull() ? HeldTrace() : HeldTrace(coloured(light, qRgb(255, 255, 255)), display);
}
