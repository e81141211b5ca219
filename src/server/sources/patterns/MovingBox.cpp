#include "server/sources/patterns/MovingBox.h"

#include "server/sources/patterns/BurntInText.h"
#include "server/sources/patterns/FrameCounterStrip.h"

#include <algorithm>

namespace Velmora::Server {

namespace {

constexpr std::size_t kDigits = 8;
constexpr int kCrossingSeconds = 4;

BurntInText counterOf(const PictureCanvas& canvas)
{
    const int dot = std::max(canvas.height() / 72, 1);
    return {canvas.width() / 16, canvas.height() / 16, dot};
}

/// The box as it stands at a moment; a moment is a frame or a field.
class Box {
public:
    explicit Box(PictureCanvas& canvas)
        : m_canvas(canvas)
        , m_fields(canvas.format().interlaced ? 2 : 1)
        , m_size(canvas.height() / 6 / 2 * 2)
    {
        const VideoFormat& format = canvas.format();
        const int moments = kCrossingSeconds * m_fields * format.rateNumerator / format.rateDenominator;
        // Even, so that the box is the same in luminance and in halved colour differences.
        m_step = std::max(canvas.width() / std::max(moments, 1) / 2 * 2, 2);
    }

    void paint(std::uint64_t frame, double level)
    {
        const Colour colour = m_canvas.codes().grey(level);
        for (int field = 0; field < m_fields; ++field) {
            const bool isLater = m_fields == 2 && (field == 0) != m_canvas.format().topFieldFirst;
            const int x = placeAt(frame * static_cast<unsigned>(m_fields) + (isLater ? 1 : 0));
            const int y = (m_canvas.height() - m_size) / 4 * 2; // even: field 0 has line 0 of the frame
            m_canvas.fill({x, y + field, x + m_size, y + m_size}, colour, m_fields);
        }
    }

private:
    int placeAt(std::uint64_t moment) const
    {
        const auto way = static_cast<std::uint64_t>(m_canvas.width() - m_size) / 2;
        return static_cast<int>(moment * static_cast<unsigned>(m_step / 2) % way) * 2;
    }

    PictureCanvas& m_canvas;
    int m_fields;
    int m_size;
    int m_step;
};

} // namespace

void MovingBox::paint(PictureCanvas& canvas) const
{
    canvas.fill(canvas.codes().grey(0.0));
    Box(canvas).paint(0, 1.0);
    counterOf(canvas).paint(canvas, BurntInText::number(0, kDigits));
    FrameCounterStrip::paint(canvas, 0);
}

void MovingBox::advance(PictureCanvas& canvas, std::uint64_t number) const
{
    Box box(canvas);
    box.paint(number - 1, 0.0);
    box.paint(number, 1.0);
    counterOf(canvas).repaint(canvas, BurntInText::number(number - 1, kDigits),
                              BurntInText::number(number, kDigits));
    FrameCounterStrip::advance(canvas, static_cast<std::uint32_t>(number));
}

} // namespace Velmora::Server
