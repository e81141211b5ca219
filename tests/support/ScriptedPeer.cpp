#include "support/ScriptedPeer.h"

#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/RegisterRawDataPacket.h"

ScriptedPeer::ScriptedPeer(quint16 port, const QHostAddress& address)
    : m_stream("peer", 64 * 1024 * 1024, 4096)
{
    m_server.listen(address, port);
    connect(&m_server, &QTcpServer::newConnection, this, &ScriptedPeer::onNewConnection);
}

ScriptedPeer::~ScriptedPeer()
{
    delete m_client;
}

void ScriptedPeer::cut()
{
    if (m_client)
        m_client->abort();
}

void ScriptedPeer::send(const QByteArray& frame, Fault fault)
{
    switch (fault) {
    case Fault::None:
        write(frame);
        break;
    case Fault::GarbageBeforeFrame:
        write(QByteArray("garbage \xCA\xFE\xBA\x6E\x1F\x00\xD3\x21 more \xCA", 23) + frame);
        break;
    case Fault::SplitFrame:
        for (int i = 0; i < frame.size(); i += 7) {
            write(frame.mid(i, 7));
            m_client->waitForBytesWritten(1000);
        }
        break;
    case Fault::WrongTrailer:
        write(frame.left(frame.size() - 1) + 'X');
        break;
    case Fault::CutInFrame:
        write(frame.left(frame.size() / 2));
        m_client->disconnectFromHost();
        break;
    }
}

int ScriptedPeer::registrations(quint16 identifier) const
{
    const auto found = m_registrations.find(identifier);
    return found == m_registrations.end() ? 0 : found->second;
}

int ScriptedPeer::deregistrations(quint16 identifier) const
{
    const auto found = m_deregistrations.find(identifier);
    return found == m_deregistrations.end() ? 0 : found->second;
}

void ScriptedPeer::onNewConnection()
{
    delete m_client;
    m_client = m_server.nextPendingConnection();
    m_client->setParent(this);
    m_stream.clear();
    ++m_connectionCount;
    connect(m_client, &QTcpSocket::readyRead, this, &ScriptedPeer::onReadyRead);
    connect(m_client, &QTcpSocket::disconnected, this, &ScriptedPeer::clientDisconnected);
    emit clientConnected();
}

void ScriptedPeer::onReadyRead()
{
    m_stream.appendAll(*m_client);
    m_stream.consumeFrames([this](FrameScanner& scanner) {
        const QByteArray frame(scanner.frame().constData(), scanner.frame().size());
        m_frames.push_back(frame);
        if (scanner.header().packetIdentifier == RawDataPacket::PID_REGISTER_RAW_DATA)
            ++m_registrations[RegisterRawDataPacket(frame, scanner.header()).getRawDataPacketID()];
        if (scanner.header().packetIdentifier == RawDataPacket::PID_DEREGISTER_RAW_DATA)
            ++m_deregistrations[DeregisterRawDataPacket(frame, scanner.header()).getRawDataPacketID()];
        return true;
    });
    emit frameReceived();
}

void ScriptedPeer::write(const QByteArray& bytes)
{
    m_client->write(bytes);
    m_client->flush();
}
