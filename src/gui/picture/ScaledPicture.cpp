#include "gui/picture/ScaledPicture.h"

#include <QMetaMethod>
#include <QPaintEvent>

ScaledPicture::ScaledPicture(int index, QWidget* parent)
    : QWidget(parent)
    , m_index(index)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&m_picture, &FeedPicture::arrived, this, qOverload<>(&QWidget::update));
    connect(&m_picture, &FeedPicture::stateChanged, this, qOverload<>(&QWidget::update));
}

void ScaledPicture::showCopy(const QImage& copy)
{
    m_copy = copy;
    update();
}

void ScaledPicture::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const auto background = [&] { painter.fillRect(event->rect(), Qt::black); };
    if (m_copy.isNull()) {
        m_picture.paint(painter, {}, background);
        if (isSignalConnected(QMetaMethod::fromSignal(&ScaledPicture::shown)))
            emit shown(m_picture.copy());
        return;
    }
    background();
    QRect place({}, m_copy.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_copy);
}

void ScaledPicture::resizeEvent(QResizeEvent*)
{
    m_picture.setSize(size());
}
