#include "instruments/MeteringFixture.h"

#include "network/RawDataPacketRegistry.h"
#include "presets/SettingsContentPreset.h"
#include "server/measure/AudioMeters.h"
#include "server/sources/ToneGenerator.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QImage>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QtEndian>

#include <cmath>
#include <limits>

using namespace Velmora;
using Server::Ballistics;
using Types::AudioInput;
using Types::PPMScaleType;

Q_DECLARE_METATYPE(Velmora::Server::Ballistics)

namespace {

constexpr auto kLeft = PairLayout::Left;
constexpr auto kRight = PairLayout::Right;
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

/// The uppermost row of the bar in one of the colours of a lit bar, on the screen; its height when none is.
int topOfBar(AudioMeterWidget& meter)
{
    const QImage image = meter.grab().toImage();
    for (int row = 0; row < image.height(); ++row) {
        const QColor colour = image.pixelColor(image.width() / 2, row);
        const bool isHat = colour == Qt::white;
        if (!isHat && colour.value() > 100)
            return row;
    }
    return image.height();
}

/// The level that a bar shows, as far as its pixels tell.
double shownDbfs(const AudioMeterPairWidget& pair, PairLayout::Side side)
{
    AudioMeterWidget& meter = pair.meter(side);
    return -70.0 * topOfBar(meter) / meter.height();
}

/// Records which parts of a widget are painted.
class PaintedRegion : public QObject {
public:
    explicit PaintedRegion(QWidget& widget) { widget.installEventFilter(this); }

    QRegion region;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

} // namespace

class tst_AudioMetering : public WzTest {
    Q_OBJECT

private slots:
    /// The alignment tone on every scale and in every size of window: the row at which its reading stands is
    /// the first that is lit.
    void alignmentToneStandsOnItsRow_data()
    {
        QTest::addColumn<PPMScaleType>("type");
        QTest::addColumn<QSize>("window");
        QTest::addColumn<int>("row"); // below the top of the bar
        const auto rows = [](const char* name, PPMScaleType type, int small, int middle, int large) {
            QTest::addRow("%s small", name) << type << QSize(480, 270) << small;
            QTest::addRow("%s", name) << type << QSize(960, 540) << middle;
            QTest::addRow("%s large", name) << type << QSize(1920, 1080) << large;
        };
        rows("dBFS", PPMScaleType::DbFs, 36, 90, 216);
        rows("dBu -18", PPMScaleType::DbuMinus18DbFs, 36, 90, 216);
        rows("dBu -20", PPMScaleType::DbuMinus20DbFs, 36, 90, 216);
        rows("BBC", PPMScaleType::Bbc, 60, 144, 360);
        rows("NordicN9", PPMScaleType::NordicN9, 27, 72, 162);
        rows("DIN45406", PPMScaleType::Din45406, 28, 84, 210);
    }
    void alignmentToneStandsOnItsRow()
    {
        QFETCH(PPMScaleType, type);
        QFETCH(QSize, window);
        MeteringFixture fixture(window);
        fixture.metering->setPPMScaleType(type);
        // Without a hat, which would cover the row.
        fixture.deliver(MeterSet::Ppm, MeteringFixture::values({-18.0F, -18.0F}));
        fixture.show();
        QTEST(topOfBar(fixture.pair(0).meter(kLeft)), "row");
        QTEST(topOfBar(fixture.pair(0).meter(kRight)), "row");
        const FixedScale& scale = fixture.pair(0).pairLayout().scale;
        const double reading = MeterScale::of(type)->fromDbfs(-18);
        QTEST(scale.rowOf(reading) - scale.top(), "row");
    }

    /// Bursts from the generator, measured, sent as frames, and read back from the screen.
    void burstsReadBackFromTheScreen_data()
    {
        QTest::addColumn<Ballistics>("ballistics");
        QTest::addColumn<double>("seconds");
        QTest::addColumn<double>("expectedDb");
        QTest::addColumn<double>("toleranceDb");
        QTest::newRow("type I, 10 ms") << Ballistics::PpmTypeI << 0.010 << -1.0 << 0.5;
        QTest::newRow("type I, 5 ms") << Ballistics::PpmTypeI << 0.005 << -2.0 << 1.0;
        QTest::newRow("type I, 0.4 ms") << Ballistics::PpmTypeI << 0.0004 << -15.0 << 4.0;
        QTest::newRow("type II, 100 ms") << Ballistics::PpmTypeII << 0.100 << 0.0 << 0.5;
        QTest::newRow("type II, 10 ms") << Ballistics::PpmTypeII << 0.010 << -2.2 << 0.5;
        QTest::newRow("type II, 1.5 ms") << Ballistics::PpmTypeII << 0.0015 << -9.0 << 1.0;
        QTest::newRow("VU, 300 ms") << Ballistics::Vu << 0.300 << -0.1 << 0.2;
        QTest::newRow("French VU, 207 ms") << Ballistics::VuFr << 0.207 << -2.0 << 1.0;
        QTest::newRow("fast, one period") << Ballistics::Fast << 0.0002 << 0.0 << 0.1;
    }
    void burstsReadBackFromTheScreen()
    {
        constexpr double kSteadyDbfs = -9.0;
        QFETCH(Ballistics, ballistics);
        QFETCH(double, seconds);
        QFETCH(double, expectedDb);
        QFETCH(double, toleranceDb);
        Server::ToneChannel tone;
        tone.signal = Server::ToneSignal::Bursts;
        tone.frequencyHz = 5000;
        tone.levelDbfs = kSteadyDbfs;
        tone.burstProgramme = Server::BurstProgramme::Single;
        tone.burstSeconds = seconds;
        tone.burstPeriodSeconds = 3600;
        Server::ToneGenerator generator(2);
        generator.setAllChannels(tone);
        Server::AudioMeters meters(Server::AudioMeters::Banks::SelectedOnly);
        meters.setBallistics(ballistics);

        MeteringFixture fixture({1920, 1080});
        double highest = -99;
        Server::AudioBuffer buffer(Server::AudioMeters::kFramesPerReading);
        for (int reading = 0; reading < 30; ++reading) {
            meters.process(generator.read(buffer.planes()), [&](const Server::AudioMeterReading& measured) {
                const PpmMetersData sent(MeteringFixture::values({measured.levelDb()[0]}), 1, 0,
                                         static_cast<quint32>(reading));
                const QByteArray payload = sent.getSerialisedPayloadForTransmit();
                const QByteArray frame = QByteArray(RawDataPacket::kHeaderSize, '\0') + payload;
                RawDataPacket::Header header;
                header.payloadSize = static_cast<quint32>(payload.size());
                fixture.metering->onMeterPacket(MeterSet::Ppm, PpmMetersData(frame, header));
            });
            fixture.show();
            highest = std::max(highest, shownDbfs(fixture.pair(0), kLeft));
        }
        QVERIFY2(std::abs(highest - kSteadyDbfs - expectedDb) <= toleranceDb,
                 qPrintable(QString::number(highest - kSteadyDbfs)));
    }

    void hatsStandAtTheHeldPeak()
    {
        MeteringFixture fixture;
        fixture.deliver(MeterSet::Ppm, MeteringFixture::values({-30.0F, -30.0F}));
        fixture.deliver(MeterSet::PeakHold, MeteringFixture::values({-12.0F, kNoNumber}));
        fixture.show();
        const QImage left = fixture.pair(0).grab().toImage();
        const QRect bar = fixture.pair(0).pairLayout().bar(kLeft);
        const int row = bar.top() + 60; // 5 pixels a decibel
        QCOMPARE(left.pixelColor(bar.center().x(), row - 2) == Qt::white, false);
        for (int i = -1; i <= 1; ++i)
            QCOMPARE(left.pixelColor(bar.center().x(), row + i), QColor(Qt::white));
        QCOMPARE(left.pixelColor(bar.center().x(), row + 2) == Qt::white, false);
    }

    /// A burst, and how many readings later the hat on the screen has fallen to the floor.
    void hatsFallAfterTheHoldTime_data()
    {
        QTest::addColumn<double>("holdSeconds");
        QTest::addColumn<int>("readings"); // 50 a second; 0 for never
        QTest::newRow("shortest") << 0.1 << 5;
        QTest::newRow("usual") << 1.0 << 50;
        QTest::newRow("Infinite") << -0.1 << 0;
    }
    void hatsFallAfterTheHoldTime()
    {
        QFETCH(double, holdSeconds);
        QFETCH(int, readings);
        Server::AudioMeters meters(Server::AudioMeters::Banks::SelectedOnly);
        meters.setBallistics(Ballistics::Fast);
        meters.setPeakHoldSeconds(holdSeconds);
        MeteringFixture fixture({1920, 1080});
        AudioMeterWidget& meter = fixture.pair(0).meter(kLeft);
        Server::AudioBuffer buffer(Server::AudioMeters::kFramesPerReading);
        buffer.plane(0)[0] = 0.5F;
        int held = 0;
        for (int reading = 0; reading < 100; ++reading) {
            meters.process(buffer.block(0, 2), [&](const Server::AudioMeterReading& measured) {
                fixture.deliver(MeterSet::PeakHold, MeteringFixture::values({measured.peakHoldDb[0]}));
            });
            buffer.plane(0)[0] = 0;
            fixture.show();
            const int row = static_cast<int>(std::lround(6.02 * meter.height() / 70));
            held += meter.grab().toImage().pixelColor(5, row) == Qt::white ? 1 : 0;
        }
        QCOMPARE(held, readings == 0 ? 100 : readings + 1);
    }

    /// Rows between the old and the new level, and the places of the hat; nothing when nothing changes.
    void onlyChangesArePainted()
    {
        MeteringFixture fixture;
        fixture.deliverLevels({-18.0F, -18.0F});
        fixture.show();
        QApplication::processEvents();
        AudioMeterWidget& meter = fixture.pair(0).meter(kLeft);
        PaintedRegion painted(meter);
        PaintedRegion other(fixture.pair(1).meter(kLeft));
        fixture.deliver(MeterSet::Ppm, MeteringFixture::values({-20.0F, -18.0F}));
        fixture.show();
        QApplication::processEvents();
        QCOMPARE(painted.region, QRegion(0, 90, meter.width(), 10));
        painted.region = {};
        fixture.deliver(MeterSet::Ppm, MeteringFixture::values({-20.01F, -18.0F}));
        fixture.show();
        QApplication::processEvents();
        QVERIFY(painted.region.isEmpty());
        QVERIFY(other.region.isEmpty());
    }

    /// However often readings come, the screen follows fifty times a second at most; nothing runs without.
    void oneTickForAllMeters()
    {
        MeteringFixture fixture;
        PaintedRegion painted(fixture.pair(0).meter(kLeft));
        int pictures = 0;
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; clock.elapsed() < 200; ++i) {
            fixture.deliver(MeterSet::Ppm, MeteringFixture::values({-20.0F - static_cast<float>(i % 40)}));
            QApplication::processEvents();
            pictures += painted.region.isEmpty() ? 0 : 1;
            painted.region = {};
        }
        QVERIFY2(pictures >= 2 && pictures <= 12, qPrintable(QString::number(pictures)));
    }

    void receivesOnlyWhileItCanBeSeen()
    {
        const auto wanted = [] {
            return RawDataPacketRegistry::getInstance().getAllRegisteredPacketIdentifiers().size();
        };
        MeteringFixture fixture;
        QTRY_COMPARE(wanted(), std::size_t{5});
        fixture.deliverLevels({-18.0F, -18.0F});
        fixture.screen.hide();
        fixture.metering->setExposed(false);
        QCOMPARE(wanted(), std::size_t{0});
        QCOMPARE(fixture.pair(0).levelDbfs(kLeft), AudioMeterWidget::kLowest);
    }

    void readingsGoToTheirMeters_data()
    {
        QTest::addColumn<AudioInput>("input");
        QTest::addColumn<int>("program");
        QTest::addColumn<QList<quint32>>("sources"); // each sends 4 channels
        QTest::addColumn<int>("shownSource"); // which stands in the first pair
        const QList<quint32> all{0, 1, 2, 3, 4, 5, 11};
        QTest::newRow("embedded") << AudioInput::EmbeddedSdi << 0 << all << 0;
        QTest::newRow("AES") << AudioInput::Aes << 0 << all << 2;
        QTest::newRow("flows") << AudioInput::St2110_30 << 0 << all << 3;
        QTest::newRow("first programme") << AudioInput::DolbyE << 0 << all << 4;
        QTest::newRow("last programme") << AudioInput::DolbyE << 7 << all << 11;
    }
    void readingsGoToTheirMeters()
    {
        QFETCH(AudioInput, input);
        QFETCH(int, program);
        QFETCH(QList<quint32>, sources);
        QFETCH(int, shownSource);
        MeteringFixture fixture;
        fixture.metering->setMeteringSource(input, program);
        MeteringFixture::Values values;
        for (const quint32 source : qAsConst(sources)) {
            const float level = -1.0F - static_cast<float>(source);
            const auto own = MeteringFixture::values({level, level - 20, level - 40, level - 60}, source);
            values.insert(values.end(), own.begin(), own.end());
        }
        fixture.deliver(MeterSet::Ppm, values, ~0U, ~0U);
        const float level = -1.0F - static_cast<float>(shownSource);
        QCOMPARE(fixture.pair(0).levelDbfs(kLeft), level);
        QCOMPARE(fixture.pair(0).levelDbfs(kRight), level - 20);
        QCOMPARE(fixture.pair(1).levelDbfs(kRight), level - 60);
        QVERIFY(fixture.pair(0).isPresent(kLeft) && !fixture.pair(2).isPresent(kLeft));
        // Those of link B stand behind those of link A.
        if (input == AudioInput::EmbeddedSdi) {
            QCOMPARE(static_cast<int>(fixture.metering->pairs().size()), 32);
            QCOMPARE(fixture.pair(16).levelDbfs(kLeft), -2.0F);
        }
    }

    /// A channel that is silent has bars without light; one that is absent has none.
    void absentIsNotSilent()
    {
        MeteringFixture fixture;
        fixture.deliver(MeterSet::Ppm, MeteringFixture::values({-99.0F, -99.0F, -18.0F}), 0b11U);
        QVERIFY(fixture.pair(0).isPresent(kLeft) && fixture.pair(0).isPresent(kRight));
        QVERIFY(fixture.pair(1).isPresent(kLeft) && !fixture.pair(1).isPresent(kRight));
        QVERIFY(fixture.pair(0).meter(kLeft).isVisible());
        QVERIFY(fixture.pair(1).meter(kLeft).isVisible() && !fixture.pair(1).meter(kRight).isVisible());
        // A reading of a pair whose bit says that it is not there.
        MeteringFixture other;
        other.deliver(MeterSet::Ppm, MeteringFixture::values({-18.0F, -18.0F}), 0);
        QVERIFY(!other.pair(0).isPresent(kLeft));
    }

    /// Channels that come and go with each packet do not make their meters come and go.
    void flickeringChannelsStay()
    {
        MeteringFixture fixture;
        const auto there = MeteringFixture::values({-18.0F, -18.0F});
        for (int i = 0; i < 20; ++i) {
            fixture.deliver(MeterSet::Ppm, i % 2 == 0 ? there : MeteringFixture::Values());
            QVERIFY(fixture.pair(0).isPresent(kLeft));
        }
        QCOMPARE(fixture.pair(0).levelDbfs(kLeft), AudioMeterWidget::kLowest);
        for (int i = 0; i < 25; ++i)
            fixture.deliver(MeterSet::Ppm, {});
        QVERIFY(!fixture.pair(0).isPresent(kLeft));
        fixture.deliver(MeterSet::Ppm, there);
        QVERIFY(fixture.pair(0).isPresent(kLeft));
    }

    void damagedReadings()
    {
        MeteringFixture fixture;
        fixture.deliver(MeterSet::Ppm, MeteringFixture::values({kNoNumber, kInfinite, -kInfinite, -1e30F}));
        fixture.deliver(MeterSet::PeakHold, MeteringFixture::values({kNoNumber, kInfinite, -kInfinite}));
        fixture.deliver(MeterSet::InstantPeakDb, MeteringFixture::values({kNoNumber, kInfinite}));
        fixture.deliver(MeterSet::InstantPeakLinear, MeteringFixture::values({kNoNumber, 0.5F}));
        fixture.deliver(MeterSet::Phase, MeteringFixture::values({kNoNumber, 0, kInfinite}));
        fixture.show();
        QCOMPARE(topOfBar(fixture.pair(0).meter(kLeft)), fixture.pair(0).meter(kLeft).height());
        QVERIFY(topOfBar(fixture.pair(0).meter(kRight)) <= AudioMeterWidget::kHatHeight);
        QCOMPARE(topOfBar(fixture.pair(1).meter(kLeft)), fixture.pair(0).meter(kLeft).height());
        QVERIFY(!fixture.pair(0).isClipped(kLeft));
        // Channels and sources out of any range.
        fixture.deliver(MeterSet::Ppm, {{255, 127, 0xFFFFFFFF, 0, -3.0F}, {255, 0xFFFFFFFF, 0, 0, -3.0F}});
        QVERIFY(!fixture.metering->grab().isNull());
    }

    void lyingPacketsAreLeftOut_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<quint32>("count");
        QTest::newRow("no header") << 8 << 0U;
        QTest::newRow("more than there is") << 16 << 1U;
        QTest::newRow("far more") << 64 << 0xFFFFFFFFU;
        QTest::newRow("cut within the last") << 16 + 24 + 23 << 2U;
    }
    void lyingPacketsAreLeftOut()
    {
        QFETCH(int, size);
        QFETCH(quint32, count);
        MeteringFixture fixture;
        fixture.deliverLevels({-18.0F, -18.0F});
        QByteArray frame(RawDataPacket::kHeaderSize + size, '\0');
        if (size >= 16)
            qToBigEndian(count, frame.data() + RawDataPacket::kHeaderSize + 12);
        RawDataPacket::Header header;
        header.payloadSize = static_cast<quint32>(size);
        for (int i = 0; i < 30; ++i)
            fixture.metering->onMeterPacket(MeterSet::Ppm, PpmMetersData(frame, header));
        QCOMPARE(fixture.pair(0).levelDbfs(kLeft), -18.0F);
        QVERIFY(fixture.pair(0).isPresent(kLeft));
    }

    void clipStaysUntilTouched()
    {
        MeteringFixture fixture;
        fixture.deliver(MeterSet::InstantPeakLinear, MeteringFixture::values({0.9999F, 1.0F, 1.2F}));
        fixture.deliver(MeterSet::InstantPeakDb, MeteringFixture::values({-0.1F, 0.0F, 1.6F}));
        fixture.deliver(MeterSet::InstantPeakLinear, MeteringFixture::values({0.1F, 0.1F, 0.1F}));
        fixture.deliver(MeterSet::InstantPeakDb, MeteringFixture::values({-20.0F, -20.0F, -20.0F}));
        QVERIFY(!fixture.pair(0).isClipped(kLeft) && fixture.pair(0).isClipped(kRight));
        QCOMPARE(fixture.pair(0).samplePeakDbfs(kRight), 0.0F);
        QTest::mouseClick(&fixture.pair(0), Qt::LeftButton);
        QVERIFY(!fixture.pair(0).isClipped(kRight));
        QVERIFY(fixture.pair(1).isClipped(kLeft));
        fixture.deliver(MeterSet::InstantPeakDb, MeteringFixture::values({-20.0F, -20.0F}));
        QCOMPARE(fixture.pair(0).samplePeakDbfs(kRight), -20.0F);
        fixture.metering->meteringSettings().resetPeaks->press();
        QVERIFY(!fixture.pair(1).isClipped(kLeft));
    }

    void valuesOutsideTheTableLeaveTheScale()
    {
        MeteringFixture fixture;
        fixture.metering->fromConfigCoreAudioMeteringPpmScaleTypeUpdated({QStringLiteral("3")}, {}, true);
        for (const char* const value : {"6", "255", "256", "-1", "4294967299", "x", ""}) {
            const QStringList values{QString::fromLatin1(value)};
            fixture.metering->fromConfigCoreAudioMeteringPpmScaleTypeUpdated(values, {}, true);
            QCOMPARE(fixture.metering->ppmScaleType(), PPMScaleType::Bbc);
        }
        fixture.pair(0).setScaleType(static_cast<PPMScaleType>(6));
        QCOMPARE(fixture.pair(0).scaleType(), PPMScaleType::Bbc);
    }

    void statesComeBackFromThePreset()
    {
        MeteringFixture first;
        first.metering->setPPMScaleType(PPMScaleType::Din45406);
        first.metering->meteringSettings().pairs->choose(QStringLiteral("4"));
        first.metering->meteringSettings().firstPair->choose(QStringLiteral("3"));
        first.metering->meteringSettings().dolbyELineMode->choose(QStringLiteral("false"));
        SerialisableDataPacket preset = first.metering->getWidgetStatesAsPreset();

        MeteringFixture second;
        QSignalSpy chosen(second.metering, &AudioMetering::toConfigCoreAudioMeteringPpmScaleTypeChosen);
        second.metering->loadWidgetStatesFromPreset(preset);
        QCOMPARE(second.metering->ppmScaleType(), PPMScaleType::Din45406);
        QCOMPARE(chosen.value(0).value(0).toUInt(), 5U);
        QCOMPARE(static_cast<int>(second.metering->pairs().size()), 4);
        QCOMPARE(second.pair(0).pairIndex(), 2);
        second.pair(0).setDolbyELines(23, 21);
        QCOMPARE(second.pair(0).dolbyELineText(), QStringLiteral("Line 23"));
        // Of another class, or with a scale that there is none of.
        SettingsContentPreset other{QStringLiteral("WaveformClientPreset")};
        other.setSetting(QLatin1String("ppmScaleType"), 1);
        second.metering->loadWidgetStatesFromPreset(other);
        SettingsContentPreset wrong{preset.getPacketClassName()};
        wrong.setSetting(QLatin1String("ppmScaleType"), 259);
        second.metering->loadWidgetStatesFromPreset(wrong);
        QCOMPARE(second.metering->ppmScaleType(), PPMScaleType::Din45406);
    }

    void titlesAndToolTips()
    {
        QCOMPARE(AudioMeterPairWidget::createTitleFromGroupAndPairNumbers(1, 1), QStringLiteral("1 · 2"));
        QCOMPARE(AudioMeterPairWidget::createTitleFromGroupAndPairNumbers(3, 2), QStringLiteral("11 · 12"));
        QCOMPARE(
            AudioMeterPairWidget::createToolTipFromSourceGroupAndPairNumbers(AudioInput::EmbeddedSdi, 3, 2),
            QStringLiteral("Embedded audio, group 3, pair 2: channels 11 and 12"));
        QCOMPARE(AudioMeterPairWidget::createToolTipFromSourceGroupAndPairNumbers(AudioInput::Aes, 2, 1),
                 QStringLiteral("AES input 3: channels 5 and 6"));
        MeteringFixture fixture;
        const QStringList names{QStringLiteral("Voice"), QStringLiteral("Music"), QString(),
                                QStringLiteral("Atmos")};
        fixture.metering->fromStatusCoreChannelNamesUpdated(names, {}, true);
        QCOMPARE(fixture.pair(0).title(), QStringLiteral("Voice · Music"));
        QCOMPARE(fixture.pair(2).title(), QStringLiteral("5 · 6"));
        QVERIFY(fixture.pair(1).toolTipText(kRight).contains(QStringLiteral("Channel 4: Atmos")));
    }

    void dataStandsInThePlaceOfBars()
    {
        MeteringFixture fixture;
        fixture.deliverLevels({-1.0F, -1.0F, -18.0F, -18.0F});
        const QStringList contents{QStringLiteral("data 28 20 0"), QStringLiteral("data 28 20 0"),
                                   QStringLiteral("pcm 24"), QStringLiteral("data 1 16 -1")};
        fixture.metering->fromStatusCoreAudioContentChannelsUpdated(contents, {}, true);
        fixture.metering->fromStatusCoreAudioContentDolbyELinesUpdated({QStringLiteral("19")}, {}, true);
        fixture.metering->fromStatusCoreAudioContentDolbyEIdealLineUpdated({QStringLiteral("21")}, {}, true);
        QVERIFY(fixture.pair(0).meter(kLeft).isDataMeter() && !fixture.pair(0).meter(kLeft).isVisible());
        QVERIFY(fixture.pair(1).meter(kLeft).isVisible() && !fixture.pair(1).meter(kRight).isVisible());
        QCOMPARE(fixture.pair(0).dolbyELineText(), QStringLiteral("Ideal \u22122"));
        fixture.metering->fromStatusCoreAudioContentChannelsUpdated({}, {}, true);
        QVERIFY(fixture.pair(0).meter(kLeft).isVisible());
    }

    void buttonsChooseWhatIsHeard()
    {
        MeteringFixture fixture;
        AudioMetering& metering = *fixture.metering;
        QSignalSpy pair(&metering, &AudioMetering::toConfigCoreAudioMonitorChannelPairChosen);
        QSignalSpy muted(&metering, &AudioMetering::toConfigCoreAudioMonitorMutedChosen);
        QSignalSpy solo(&metering, &AudioMetering::toConfigCoreAudioMonitorSoloChannelChosen);
        QSignalSpy mixRight(&metering, &AudioMetering::toConfigCoreAudioMonitorMixRightChosen);
        metering.fromConfigCoreAudioMonitorMixRightUpdated({QStringLiteral("5")}, {}, true);
        emit fixture.pair(2).monitorToggled(true);
        QCOMPARE(pair.takeFirst().value(0).toUInt(), 3U);
        QCOMPARE(muted.takeFirst().value(0).toBool(), false);
        emit fixture.pair(2).soloToggled(kRight, true);
        QCOMPARE(solo.takeFirst().value(0).toUInt(), 6U);
        emit fixture.pair(2).mixToggled(kLeft, 1, true);
        QCOMPARE(mixRight.takeFirst().value(0).toUInt(), 0b10101U);
        emit fixture.pair(1).mixToggled(kLeft, 1, false);
        QCOMPARE(mixRight.takeFirst().value(0).toUInt(), 0b1U);
    }
};

WZ_TEST_CLASS(tst_AudioMetering)
#include "tst_AudioMetering.moc"
