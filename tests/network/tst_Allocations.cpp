#include "network/JsonObjectWriter.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/packets/PpmMetersData.h"

#include "AllocationCounter.h"
#include "support/Frames.h"
#include "support/ScriptedPeer.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

namespace {

class ClassNameReader : public SerialisableDataPacketAcceptorInterface {
public:
    bool canAcceptPacket(const QString&) const override { return true; }
    void acceptPacket(const SerialisableDataPacket& packet) override
    {
        if (packet.getPacketClassName() == m_expected)
            ++count;
    }
    int count = 0;

private:
    QString m_expected = QStringLiteral("DatacorePacket");
};

} // namespace

/// Frames are counted through real sockets, many to a read; what a read itself allocates is the allowance.
class tst_Allocations : public WzTest {
    Q_OBJECT

private slots:
    void perFrame_data()
    {
        QTest::addColumn<bool>("delivered");
        QTest::addColumn<int>("allowedPerFrame");
        QTest::newRow("skipped") << false << 0;
        QTest::newRow("delivered") << true << 3;
    }
    void perFrame()
    {
        if (!AllocationCounter::works())
            QSKIP("allocations cannot be counted under a sanitizer");
        QFETCH(bool, delivered);
        QFETCH(int, allowedPerFrame);
        constexpr int kFrames = 300;
        constexpr int kAllowance = 60;

        ClassNameReader acceptor;
        std::unique_ptr<SerialisableDataPacketDistributor> distributor;
        if (delivered) {
            distributor = std::make_unique<SerialisableDataPacketDistributor>();
            distributor->registerPacketAcceptor(&acceptor, QStringLiteral("DatacorePacket"));
        }
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        QVERIFY(connection.connectToHost(QHostAddress(QHostAddress::LocalHost), peer.port()));
        QTRY_VERIFY(peer.client());

        const QByteArray frame = Frames::json(JsonObjectWriter()
                                                  .string("Class", QStringLiteral("DatacorePacket"))
                                                  .string("Path", QString(220, QLatin1Char('p')))
                                                  .take());
        peer.send(frame); // makes buffers and the JSON parser ready
        QTest::qWait(20);
        acceptor.count = 0;

        // The last frame is one that is refused aloud: everything before it has been handled then.
        const auto refused = QStringLiteral("Discarding unexpected raw data packet");
        log().expectError(refused);
        peer.send(frame.repeated(kFrames) + Frames::raw(0x1011, ""));
        long allocations = 0;
        QVERIFY(QTest::qWaitFor([&] {
            const AllocationCounter counter;
            QCoreApplication::processEvents();
            allocations += counter.count();
            return log().contains(refused);
        }));
        QCOMPARE(acceptor.count, delivered ? kFrames : 0);
        QVERIFY2(allocations <= allowedPerFrame * kFrames + kAllowance,
                 qPrintable(QString::number(allocations)));
    }

    void perRawFrame()
    {
        if (!AllocationCounter::works())
            QSKIP("allocations cannot be counted under a sanitizer");
        // The values of a meter packet are decoded into one block of their own.
        const QByteArray frame =
            Frames::of(PpmMetersData(AudioMetersDataPacket::MeterValues(16), 0xFF, 0, 1));
        FrameScanner scanner("test", 4096);
        scanner.begin(frame.constData(), frame.size());
        QVERIFY(scanner.next());
        scanner.frame();
        const AllocationCounter counter;
        scanner.begin(frame.constData(), frame.size());
        scanner.next();
        const long skipped = counter.count();
        std::make_shared<PpmMetersData>(scanner.frame(), scanner.header());
        const long delivered = counter.count();
        QCOMPARE(skipped, 0L);
        QCOMPARE(delivered, 3L);
    }
};

WZ_TEST_CLASS(tst_Allocations)
#include "tst_Allocations.moc"
