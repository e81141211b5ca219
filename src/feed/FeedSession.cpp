#include "feed/FeedSession.h"

#include "feed/PictureScaler.h"
#include "feed/SegmentNames.h"
#include "logging/LogThrottle.h"

#include <QTcpSocket>

namespace Velmora::Feed {

namespace {

/// Requests beyond this wait in the socket.
constexpr qint64 kReadBufferBytes = 4096;

} // namespace

FeedSession::FeedSession(QTcpSocket* socket, int port, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_port(port)
{
    m_socket->setParent(this);
    m_socket->setReadBufferSize(kReadBufferBytes);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_socket, &QTcpSocket::readyRead, this, &FeedSession::onReadyRead);
    connect(m_socket, &QTcpSocket::disconnected, this, &FeedSession::finished);
}

void FeedSession::onReadyRead()
{
    while (m_socket->bytesAvailable() >= FeedRequest::kBytes) {
        const QByteArray bytes = m_socket->read(FeedRequest::kBytes);
        const auto request = FeedRequest::parse(bytes.constData());
        if (!request) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::warn,
                         "Picture feed: a reader sends what is no request and is cut off");
            m_socket->abort();
            return;
        }
        accept(*request);
    }
}

void FeedSession::accept(const FeedRequest& request)
{
    const bool isNewImage = !m_request || m_request->image != request.image;
    m_request = request;
    m_isWaiting = true;
    if (isNewImage) {
        m_reader = std::make_unique<SharedPictureReader>(SegmentNames::nameOf(m_port, request.image));
        m_toldState.reset();
    }
}

void FeedSession::poll()
{
    if (!m_isWaiting || m_socket->bytesToWrite() > 0)
        return;
    const QByteArray reply = nextReply();
    if (reply.isEmpty())
        return;
    m_isWaiting = false;
    m_socket->write(reply);
}

QByteArray FeedSession::nextReply()
{
    const auto state = m_reader->state();
    const bool isStale = state == PictureReader::State::Stale;
    QByteArray reply;
    const auto result = m_reader->read(
        [&](const PictureView& picture) {
            PictureView shown = picture;
            std::vector<std::uint32_t> pixels;
            if (picture.width > m_request->size.width() || picture.height > m_request->size.height())
                pixels = reduced(picture, m_request->size.width(), m_request->size.height(), shown);
            reply = FeedReply::serialise(shown, isStale);
        },
        m_request->again);
    if (result == PictureReader::Result::Torn)
        return {};
    if (reply.isEmpty() && isStale && m_toldState != state)
        reply = FeedReply::serialise({}, true);
    m_toldState = state;
    return reply;
}

} // namespace Velmora::Feed
