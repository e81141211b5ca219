#include "network/RawDataPacketRegistry.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/packets/AesPresenceDataPacket.h"
#include "network/packets/TeletextRawDataPacket.h"

#include "CollectingReceiver.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <functional>

namespace {

class Acceptor : public SerialisableDataPacketAcceptorInterface {
public:
    Acceptor(const char* name, QStringList& calls)
        : m_name(QString::fromLatin1(name))
        , m_calls(calls)
    {
    }
    bool canAcceptPacket(const QString&) const override { return true; }
    void acceptPacket(const SerialisableDataPacket&) override
    {
        m_calls << m_name;
        if (onPacket)
            onPacket();
    }
    std::function<void()> onPacket;

private:
    QString m_name;
    QStringList& m_calls;
};

} // namespace

/// The registry's order and the distributor's; requests to the server are tested with the connection.
class tst_Distribution : public WzTest {
    Q_OBJECT

private slots:
    void registryOrder()
    {
        auto& registry = RawDataPacketRegistry::getInstance();
        CollectingReceiver<TeletextRawDataPacket> other;
        CollectingReceiver<AesPresenceDataPacket> first;
        CollectingReceiver<AesPresenceDataPacket> second;
        registry.registerRawDataPacketReceiver(RawDataPacket::PID_AES_PRESENCE, &first);

        const RawDataPacketRegistry::Receivers expected{&first, &second, &first};
        QCOMPARE(registry.getReceiversForPacketIdentifier(RawDataPacket::PID_AES_PRESENCE), expected);
        const std::vector<RawDataPacket::PacketIdentifier> identifiers{RawDataPacket::PID_AES_PRESENCE,
                                                                       RawDataPacket::PID_TELETEXT};
        QVERIFY(registry.getAllRegisteredPacketIdentifiers() == identifiers);

        // A packet of another class under the identifier is ignored.
        registry.deliver(RawDataPacket::PID_AES_PRESENCE,
                         std::make_shared<TeletextRawDataPacket>(QByteArray()));
        QVERIFY(first.packets.empty());
        registry.deliver(RawDataPacket::PID_AES_PRESENCE,
                         std::make_shared<AesPresenceDataPacket>(QByteArray()));
        QCOMPARE(first.packets.size(), size_t(2));

        registry.deregisterRawDataPacketReceiver(RawDataPacket::PID_AES_PRESENCE, &first);
        QCOMPARE(registry.getReceiversForPacketIdentifier(RawDataPacket::PID_AES_PRESENCE).size(), 1);
    }

    void acceptorsInOrderOfRegistration()
    {
        SerialisableDataPacketDistributor distributor;
        QStringList calls;
        Acceptor a("a", calls);
        Acceptor b("b", calls);
        distributor.registerPacketAcceptor(&b, std::deque<QString>{QStringLiteral("X"), QString()});
        distributor.registerPacketAcceptor(&a, QStringLiteral("X"));
        distributor.acceptPacket(SerialisableDataPacket(QStringLiteral("X")));
        distributor.acceptPacket(SerialisableDataPacket());
        QCOMPARE(calls, (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("b")}));

        const auto nobody = QStringLiteral("I There are no packet acceptors registered for packets of type ");
        distributor.acceptPacket(SerialisableDataPacket(QStringLiteral("x")));
        QCOMPARE(log().lines(), QStringList{nobody + QLatin1Char('x')});
        distributor.deregisterPacketAcceptor(&b);
        distributor.acceptPacket(SerialisableDataPacket());
        QCOMPARE(log().lines().back(), nobody);
        distributor.acceptPacket(SerialisableDataPacket(QStringLiteral("X")));
        QCOMPARE(calls.size(), 4);
    }

    void acceptorsMayGoWhileAPacketIsHandedOut()
    {
        auto distributor = std::make_unique<SerialisableDataPacketDistributor>();
        QStringList calls;
        Acceptor a("a", calls);
        auto b = std::make_unique<Acceptor>("b", calls);
        Acceptor c("c", calls);
        for (Acceptor* acceptor : {&a, b.get(), &c})
            distributor->registerPacketAcceptor(acceptor, QStringLiteral("X"));
        a.onPacket = [&] {
            distributor->deregisterPacketAcceptor(b.get());
            b.reset();
            distributor->deregisterPacketAcceptor(&a);
        };
        c.onPacket = [&] { distributor.reset(); };
        distributor->acceptPacket(SerialisableDataPacket(QStringLiteral("X")));
        QCOMPARE(calls, (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
        QVERIFY(!RawDataPacketRegistry::getInstance().hasReceivers(RawDataPacket::PID_SERIALISABLE_DATA));
    }
};

WZ_TEST_CLASS(tst_Distribution)
#include "tst_Distribution.moc"
