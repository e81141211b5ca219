#include "types/Device.h"
#include "types/Types.h"
#include "types/audio/AudioTypes.h"
#include "types/hdr/HdrTypes.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QStringList>

using namespace Velmora;

class tst_ValueTypes : public WzTest {
    Q_OBJECT

private slots:
    void meterScales()
    {
        QStringList byValue;
        for (int value = 0; value < 256; ++value)
            byValue += Types::convertPPMScaleTypeToString(static_cast<Types::PPMScaleType>(value));
        byValue.removeAll(QString());
        QCOMPARE(byValue.join(QLatin1Char('|')),
                 QStringLiteral("dBFS|dBu -18dBFS|dBu -20dBFS|BBC|NordicN9|DIN45406"));

        QStringList inMenu;
        for (const auto type : Types::getPPMScaleTypesInMenuOrder())
            inMenu += Types::convertPPMScaleTypeToString(type);
        QCOMPARE(inMenu.join(QLatin1Char('|')),
                 QStringLiteral("dBFS|dBu -18dBFS|dBu -20dBFS|BBC|DIN45406|NordicN9"));
    }

    void ballistics()
    {
        using AudioTypes::AudioMonitor::AudioMonitorBallisticsSelection;
        QStringList texts;
        for (int value = 0; value < 256; ++value)
            texts += convertBallisticsToString(static_cast<AudioMonitorBallisticsSelection>(value));
        QCOMPARE(texts.mid(0, 5).join(QLatin1Char('|')),
                 QStringLiteral("PPM Type I|PPM Type II|Vu|VuFr|Fast"));
        QCOMPARE(texts.count(QString()), 251);
    }

    void sLog3Modes()
    {
        using HdrTypes::SLog3Mode;
        QCOMPARE(convertSLog3ModeToString(static_cast<SLog3Mode>(0)), QStringLiteral("S-Log3"));
        QCOMPARE(convertSLog3ModeToString(static_cast<SLog3Mode>(1)), QStringLiteral("SR Live"));
        QCOMPARE(convertSLog3ModeToString(static_cast<SLog3Mode>(255)), QStringLiteral("SR Live"));
    }

    void deviceFeatures()
    {
        using Wz::Device;
        const Device noIp(Device::Generator | Device::EyeAndJitter);
        QVERIFY(noIp.supports(Device::Generator));
        QVERIFY(!noIp.supports(Device::St2110));
        QVERIFY(!noIp.supports(Device::Generator | Device::St2110));
        QVERIFY(Device().supports({}));
        QVERIFY(Device::full().supports(Device::DolbyDecoding));
        QVERIFY(noIp != Device::full());
    }
};

WZ_TEST_CLASS(tst_ValueTypes)
#include "tst_ValueTypes.moc"
