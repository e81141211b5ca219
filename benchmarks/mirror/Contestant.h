#pragma once

#include <QString>

#include <memory>

/// A way to mirror many named values from a server to a client in another process. Each value has a class
/// name, a list of texts and two lists of reasons, and at the client a signal of its own.
namespace Mirror {

constexpr int kValueCount = 10'000;

/// The path of a value, of the length and depth that the instrument's have, in its configuration tree.
const QString& pathOf(int index);
QString initialText(int index);

/// The server's end. Ports are free ones of the loopback address.
class Server {
public:
    virtual ~Server() = default;
    virtual quint16 port() const = 0;
    /// Gives every value another text and sends each of them.
    virtual void changeAll() = 0;
};

/// The client's end, which connects when it is made.
class Client {
public:
    virtual ~Client() = default;
    /// A local change, to be sent to the server, which sends it back.
    virtual void write(int index, const QString& text) = 0;
    /// The text of the value at hand; empty before there is one.
    virtual QString text(int index) const = 0;

    /// Counts every signal of every value that comes of what the server has sent.
    int received = 0;
};

struct Contestant {
    const char* name;
    std::unique_ptr<Server> (*makeServer)();
    std::unique_ptr<Client> (*makeClient)(quint16 port);
};

extern const Contestant kDatacores;
/// Qt Remote Objects, by its model replica.
extern const Contestant kModelReplica;
/// Qt Remote Objects, by a protocol of one's own on top.
extern const Contestant kSnapshotReplica;
/// What the same values cost at the least as JSON over a socket.
extern const Contestant kBareSocket;

} // namespace Mirror
