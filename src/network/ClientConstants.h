#pragma once

#include <QHostAddress>

#include <memory>

/// Default addresses of one instrument variant.
class ClientConstants {
public:
    virtual ~ClientConstants() = default;

    virtual QHostAddress getDefaultWzServerAddress() const { return {}; }
    /// The address on which the client listens for raw data packets.
    virtual QHostAddress getDefaultWzClientAddress() const { return QHostAddress(QHostAddress::Any); }
};

/// Client and server on the same board.
class ClientConstantsWz : public ClientConstants {
public:
    QHostAddress getDefaultWzServerAddress() const override { return QHostAddress(QHostAddress::LocalHost); }
    QHostAddress getDefaultWzClientAddress() const override { return QHostAddress(QHostAddress::LocalHost); }
};

/// Client and server on two boards of one chassis. No variant chooses it yet.
class ClientConstantsTn40 : public ClientConstants {
public:
    QHostAddress getDefaultWzServerAddress() const override
    {
        return QHostAddress(QStringLiteral("100.64.200.102"));
    }
    QHostAddress getDefaultWzClientAddress() const override
    {
        return QHostAddress(QStringLiteral("100.64.200.101"));
    }
};

class ClientConstantsFactory {
public:
    /// The constants of this process, made at the first call: always those of ClientConstantsWz.
    static std::shared_ptr<ClientConstants> instance();
};
