#pragma once

#include "gui/picture/PictureHost.h"

#include <QBasicTimer>
#include <QImage>
#include <QObject>
#include <QPainter>
#include <QRect>

/// A picture of the instrument in a window, drawn straight from where it lies.
///
/// While it is watched it says every second that it is wanted, and looks as often as the screen is refreshed
/// whether a newer one is there. The widget repaints the place of the picture then, and calls paint(). While
/// it is not watched it costs nothing.
class FeedPicture : public QObject {
    Q_OBJECT
public:
    enum class State {
        None, ///< nothing has come yet
        Live,
        Stale, ///< whoever draws it is gone; the last picture remains
        OtherSize, ///< what comes does not fit its place, so that it would show wrong values
    };

    explicit FeedPicture(QObject* parent = nullptr);
    ~FeedPicture() override;

    void setHost(const PictureHost& host);
    /// The name of the image, of which nothing larger than @p largest is of use.
    void setImage(const std::string& name, QSize largest);
    /// What its pictures have to be of to fit their place.
    void setSize(QSize size);
    void setWatched(bool watched);

    State state() const { return m_state; }

    /// Draws the newest picture at @p place, in design pixels, as far as the painter's clip wants it. Nothing
    /// while there is none that fits. @p background is drawn before the picture, again when a picture was
    /// overwritten while it was drawn.
    template<typename Background>
    void paint(QPainter& painter, QPoint place, Background background);

    /// A copy of the newest picture; null while there is none that fits.
    QImage copy();

signals:
    /// To be said to the instrument.
    void wanted();
    /// A newer picture is there.
    void arrived();
    void stateChanged();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    using Reader = Velmora::Feed::PictureReader;

    void renewReader();
    void look(bool again = false);
    void setState(State state);
    void setIdle(bool idle);
    bool fits(const Velmora::Feed::PictureView& view) const;
    Reader::Result read(const std::function<void(const QImage&)>& use, bool again);

    PictureHost m_host;
    std::string m_image;
    QSize m_largest;
    QSize m_size;
    bool m_watched = false;
    State m_state = State::None;
    bool m_newestFits = false;
    bool m_hasMoved = false; ///< since the picture was last said to be wanted
    bool m_isIdle = false;
    std::unique_ptr<Reader> m_reader;
    QBasicTimer m_renewal;
    QBasicTimer m_refresh;
};

template<typename Background>
void FeedPicture::paint(QPainter& painter, QPoint place, Background background)
{
    // A picture is overwritten three frames after it was published; a second time running that is too slow a
    // machine, which gets along without this one.
    constexpr int kTries = 2;
    for (int i = 0; i < kTries; ++i) {
        background();
        if (read([&](const QImage& picture) { painter.drawImage(place, picture); }, true)
            != Reader::Result::Torn)
            return;
    }
    background();
}
