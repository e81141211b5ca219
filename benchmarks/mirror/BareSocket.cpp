#include "Contestant.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

#include <simdjson.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Mirror {

namespace {

constexpr int kLengthSize = 4;

/// The fields of a value, appended to what is to be sent, behind their length.
void appendFrame(QByteArray& bytes, std::string_view path, std::string_view text)
{
    const int start = bytes.size();
    bytes.append(kLengthSize, '\0');
    bytes.append(R"({"Class":"DatacorePacket","Datacore":{"class":"DatacoreNumber","data":")");
    bytes.append(text.data(), static_cast<int>(text.size()));
    bytes.append(R"(","reasonsForBeingInactive":[],"reasonsForBeingInvalid":[]},"Path":")");
    bytes.append(path.data(), static_cast<int>(path.size()));
    bytes.append("\"}");
    qToBigEndian<quint32>(static_cast<quint32>(bytes.size() - start - kLengthSize), bytes.data() + start);
}

/// The texts by their paths, and the frames of a socket.
class Values {
public:
    /// Takes in what the socket has; calls @p visit(path, text) for each frame.
    template<typename Visit>
    void read(QTcpSocket& socket, Visit&& visit)
    {
        m_bytes.append(socket.readAll());
        int place = 0;
        while (m_bytes.size() - place >= kLengthSize) {
            const int size = static_cast<int>(qFromBigEndian<quint32>(m_bytes.constData() + place));
            if (m_bytes.size() - place - kLengthSize < size)
                break;
            const auto root =
                m_parser.parse(m_bytes.constData() + place + kLengthSize, static_cast<size_t>(size));
            const std::string_view path = root["Path"];
            const std::string_view text = root["Datacore"]["data"];
            texts[std::string(path)] = text;
            visit(path, text);
            place += kLengthSize + size;
        }
        m_bytes.remove(0, place);
    }

    std::unordered_map<std::string, std::string> texts;

private:
    QByteArray m_bytes;
    simdjson::dom::parser m_parser;
};

class BareServer : public Server {
public:
    BareServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { onConnected(); });
    }

    quint16 port() const override { return m_server.serverPort(); }
    void changeAll() override
    {
        ++m_round;
        for (QTcpSocket* socket : m_server.findChildren<QTcpSocket*>())
            sendAll(*socket);
    }

private:
    void onConnected()
    {
        QTcpSocket* const socket = m_server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            QByteArray echo;
            m_values.read(*socket, [&](auto path, auto text) { appendFrame(echo, path, text); });
            socket->write(echo);
            socket->flush();
        });
        sendAll(*socket);
    }
    void sendAll(QTcpSocket& socket)
    {
        QByteArray bytes;
        for (int i = 0; i < kValueCount; ++i)
            appendFrame(bytes, pathOf(i).toStdString(), initialText(i + m_round).toStdString());
        socket.write(bytes);
    }

    QTcpServer m_server;
    Values m_values;
    int m_round = 0;
};

class BareClient : public Client {
public:
    explicit BareClient(quint16 port)
    {
        QObject::connect(&m_socket, &QTcpSocket::readyRead, &m_socket,
                         [this] { m_values.read(m_socket, [this](auto, auto) { ++received; }); });
        m_socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    }

    void write(int index, const QString& text) override
    {
        QByteArray bytes;
        appendFrame(bytes, pathOf(index).toStdString(), text.toStdString());
        m_socket.write(bytes);
        m_socket.flush();
    }
    QString text(int index) const override
    {
        const auto found = m_values.texts.find(pathOf(index).toStdString());
        return found == m_values.texts.end() ? QString() : QString::fromStdString(found->second);
    }

private:
    QTcpSocket m_socket;
    Values m_values;
};

} // namespace

const Contestant kBareSocket{
    "bare socket",
    []() -> std::unique_ptr<Server> { return std::make_unique<BareServer>(); },
    [](quint16 port) -> std::unique_ptr<Client> { return std::make_unique<BareClient>(port); },
};

} // namespace Mirror
