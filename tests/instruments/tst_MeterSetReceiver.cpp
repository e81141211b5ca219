#include "network/RawDataPacketRegistry.h"
#include "network/packets/InstantPeakDbMetersData.h"
#include "network/packets/InstantPeakLinearMetersData.h"
#include "network/packets/MeterSetReceiver.h"
#include "network/packets/PeakHoldMetersData.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

namespace {

template<typename Packet>
void deliver(quint32 sequence)
{
    RawDataPacketRegistry::getInstance().deliver(
        Packet::kPacketIdentifier,
        std::make_shared<Packet>(AudioMetersDataPacket::MeterValues{{0, 0, 0, 0, -1.0F}}, 1, 0, sequence));
}

void deliverAllButPpm(quint32 sequence)
{
    deliver<PeakHoldMetersData>(sequence);
    deliver<PhaseMetersData>(sequence);
    deliver<InstantPeakDbMetersData>(sequence);
    deliver<InstantPeakLinearMetersData>(sequence);
}

void deliverAll(quint32 sequence)
{
    deliver<PpmMetersData>(sequence);
    deliverAllButPpm(sequence);
}

} // namespace

class tst_MeterSetReceiver : public WzTest {
    Q_OBJECT

private slots:
    void givesWholeSetsAndCountsTheLost()
    {
        QStringList seen;
        {
            const MeterSetReceiver receiver([&](const MeterSet& meters, int lost) {
                seen << QStringLiteral("%1-%2").arg(meters.sequenceNumber()).arg(lost);
            });
            // The first moment is torn, as when one subscribes in the middle of it: it is not lost.
            deliverAllButPpm(0xFFFFFFF0);
            deliverAll(0xFFFFFFFE);
            deliverAll(0xFFFFFFFF);
            deliver<PhaseMetersData>(0xFFFFFFFF);
            deliverAllButPpm(0);
            deliverAll(1); // the moment before it never became whole
            deliverAll(5);
            deliverAll(4); // late, and taken for the beginning of another sequence
            deliverAll(70000); // the instrument has begun anew
        }
        deliverAll(70001);
        QCOMPARE(seen,
                 (QStringList{QStringLiteral("4294967294-0"), QStringLiteral("4294967295-0"),
                              QStringLiteral("1-1"), QStringLiteral("5-3"), QStringLiteral("4-0"),
                              QStringLiteral("70000-0")}));
        QVERIFY(RawDataPacketRegistry::getInstance().getAllRegisteredPacketIdentifiers().empty());
    }
};

WZ_TEST_CLASS(tst_MeterSetReceiver)
#include "tst_MeterSetReceiver.moc"
