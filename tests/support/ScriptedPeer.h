#pragma once

#include "network/FrameStream.h"

#include <QHostAddress>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

#include <map>
#include <vector>

/// A server on the loopback address that speaks the framing, counts what it receives, and misbehaves on
/// demand.
class ScriptedPeer : public QObject {
    Q_OBJECT
public:
    /// What is done to the frames that send() is given.
    enum class Fault {
        None,
        GarbageBeforeFrame, ///< bytes that begin no frame, a lone magic among them
        SplitFrame, ///< the frame arrives in many pieces
        WrongTrailer,
        CutInFrame, ///< the connection ends in the middle of the frame
    };

    /// Listens on @p port, or on a free one when it is 0.
    explicit ScriptedPeer(quint16 port = 0, const QHostAddress& address = QHostAddress::LocalHost);
    ~ScriptedPeer() override;

    bool isListening() const { return m_server.isListening(); }
    quint16 port() const { return m_server.serverPort(); }
    void stopListening() { m_server.close(); }

    QTcpSocket* client() const { return m_client; }
    /// Ends the client's connection.
    void cut();
    /// Sends one frame with the fault done to it.
    void send(const QByteArray& frame, Fault fault = Fault::None);

    int connectionCount() const { return m_connectionCount; }
    int frameCount() const { return static_cast<int>(m_frames.size()); }
    const std::vector<QByteArray>& frames() const { return m_frames; }
    /// Register and deregister packets received for an identifier.
    int registrations(quint16 identifier) const;
    int deregistrations(quint16 identifier) const;

signals:
    void clientConnected();
    void clientDisconnected();
    void frameReceived();

private:
    void onNewConnection();
    void onReadyRead();
    void write(const QByteArray& bytes);

    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
    FrameStream m_stream;
    int m_connectionCount = 0;
    std::vector<QByteArray> m_frames;
    std::map<quint16, int> m_registrations;
    std::map<quint16, int> m_deregistrations;
};
