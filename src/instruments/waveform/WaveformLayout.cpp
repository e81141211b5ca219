#include "instruments/waveform/WaveformLayout.h"

namespace {

using Detail = Velmora::WaveformTypes::WaveformGeometry::Detail;

/// Of the scales that lie over a picture of the full width.
int overlaidScaleWidth(Detail detail)
{
    switch (detail) {
    case Detail::Small:
        return 44;
    case Detail::Medium:
        return 56;
    case Detail::Full:
        break;
    }
    return 96;
}

} // namespace

WaveformLayout::WaveformLayout(const Velmora::WaveformTypes::WaveformGeometry& geometry, QSize content,
                               QPoint origin, bool isFullWidth)
{
    const QRect image = geometry.imageRect().translated(origin);
    graticule = QRect(QPoint(image.left(), 0), image.bottomRight());
    picture = image.topLeft() - graticule.topLeft();
    const QRect whole(QPoint(0, 0), content);
    leftScale = QRect(whole.topLeft(), QPoint(image.left() - 1, whole.bottom()));
    rightScale = QRect(QPoint(image.right() + 1, 0), whole.bottomRight());
    if (isFullWidth) {
        leftScale = QRect(whole.left(), 0, overlaidScaleWidth(geometry.detail()), image.bottom() + 1);
        rightScale = leftScale;
        rightScale.moveRight(whole.right());
    }
    if (geometry.detail() != Detail::Small)
        horizontalScale =
            QRect(QPoint(image.left(), image.bottom() + 1), QPoint(image.right(), whole.bottom()));
}
