#include "datacore/DatacorePacket.h"
#include "datacore/ElementPaths.h"
#include "network/events/SequencePackagedLogPacket.h"
#include "network/events/SfpEventPacket.h"
#include "server/core/Instrument.h"
#include "server/sources/ToneGenerator.h"
#include "server/sources/VideoFormats.h"

#include "server/support/MirrorClient.h"
#include "support/Frames.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QJsonObject>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTemporaryFile>

using namespace Velmora::Server;
using ServerCommon::DatacoreTree;

namespace {

const struct {
    DatacoreTree tree;
    QLatin1String path;
} kElements[] = {
    {DatacoreTree::Configuration, ElementPaths::SignalSource::kName},
    {DatacoreTree::Configuration, ElementPaths::ToneGenerator::kFrequency},
    {DatacoreTree::Configuration, ElementPaths::ToneGenerator::kLevel},
    {DatacoreTree::Configuration, ElementPaths::PatternGenerator::kPattern},
    {DatacoreTree::Configuration, ElementPaths::PatternGenerator::kVideoStandard},
    {DatacoreTree::Status, ElementPaths::PatternGeneratorStatus::kAvailablePatterns},
    {DatacoreTree::Configuration, ElementPaths::MediaFile::kPath},
    {DatacoreTree::Configuration, ElementPaths::MediaFile::kLoop},
    {DatacoreTree::Configuration, ElementPaths::MediaFile::kPaused},
    {DatacoreTree::Command, ElementPaths::MediaFileCommands::kSeek},
    {DatacoreTree::Status, ElementPaths::MediaFileStatus::kDuration},
    {DatacoreTree::Status, ElementPaths::SdiInputStatus::kActiveStandard},
    {DatacoreTree::Status, ElementPaths::SdiInputStatus::kPictureFormat},
    {DatacoreTree::Configuration, ElementPaths::AudioMetering::kBallistics},
    {DatacoreTree::Configuration, ElementPaths::AudioMetering::kHatHoldTime},
    {DatacoreTree::Configuration, ElementPaths::AudioMetering::kPpmScaleType},
    {DatacoreTree::Configuration, ElementPaths::ChannelNames::kFile},
    {DatacoreTree::Status, ElementPaths::ChannelNamesStatus::kNames},
    {DatacoreTree::Status, ElementPaths::AudioContentStatus::kChannels},
    {DatacoreTree::Status, ElementPaths::AudioContentStatus::kDolbyELines},
    {DatacoreTree::Status, ElementPaths::AudioContentStatus::kDolbyEIdealLine},
    {DatacoreTree::Status, ElementPaths::SystemStatus::kSoftwareVersion},
    {DatacoreTree::Status, ElementPaths::SystemStatus::kConnectedClients},
    {DatacoreTree::Status, ElementPaths::SystemStatus::kCurrentSystemMode},
    {DatacoreTree::Status, ElementPaths::SystemStatus::kScreenSwipingSupported},
    {DatacoreTree::Status, ElementPaths::SystemStatus::kAvailableSystemModes},
    {DatacoreTree::Configuration, ElementPaths::SystemMode::kMode},
    {DatacoreTree::Status, ElementPaths::HealthStatus::kReadings},
    {DatacoreTree::Status, ElementPaths::HealthStatus::kAlarms},
    {DatacoreTree::Status, ElementPaths::SystemTimeStatus::kUtc},
    {DatacoreTree::Status, ElementPaths::SystemTimeStatus::kTimeZone},
    {DatacoreTree::Status, ElementPaths::SystemTimeStatus::kSynchronised},
    {DatacoreTree::Command, ElementPaths::SystemTimeCommands::kSetUtc},
    {DatacoreTree::Command, ElementPaths::PowerCommands::kPowerOff},
    {DatacoreTree::Configuration, ElementPaths::AudioMonitor::kChannelPair},
    {DatacoreTree::Configuration, ElementPaths::AudioMonitor::kMuted},
    {DatacoreTree::Configuration, ElementPaths::AudioMonitor::kSoloChannel},
    {DatacoreTree::Configuration, ElementPaths::AudioMonitor::kMixLeft},
    {DatacoreTree::Configuration, ElementPaths::AudioMonitor::kMixRight},
    {DatacoreTree::Status, ElementPaths::AudioMonitorStatus::kOutput},
    {DatacoreTree::Command, ElementPaths::CommandExecutor::kExecute},
    {DatacoreTree::PersistentConfiguration, ElementPaths::VelmEth::kAddresses[1]},
    {DatacoreTree::Status, ElementPaths::VelmEthStatus::kAddresses[1]},
    {DatacoreTree::Configuration, ElementPaths::SdiOutput::kVideoStandard},
    {DatacoreTree::Configuration, ElementPaths::SdiOutput::kTestPattern},
    {DatacoreTree::Configuration, ElementPaths::SdiOutput::kGenerate},
    {DatacoreTree::Status, ElementPaths::SdiOutputStatus::kIdle},
    {DatacoreTree::Status, ElementPaths::SdiOutputStatus::kTestPatterns},
    {DatacoreTree::PersistentConfiguration, ElementPaths::SdiDriver::kGain[3]},
    {DatacoreTree::PersistentConfiguration, ElementPaths::SdiDriver::kCharacteristics[3]},
    {DatacoreTree::Status, ElementPaths::SdiDriverStatus::kAmplitude[3]},
    {DatacoreTree::Status, ElementPaths::SdiDriverStatus::kMeasurement},
    {DatacoreTree::Status, ElementPaths::SdiDriverStatus::kKind},
    {DatacoreTree::Command, ElementPaths::SdiDriverCommands::kMeasure},
    {DatacoreTree::Status, ElementPaths::SfpStatus::kWithoutAddress},
    {DatacoreTree::Status, ElementPaths::SfpStatus::kModules},
    {DatacoreTree::Configuration, ElementPaths::Sfp::kIpAddress},
    {DatacoreTree::Configuration, ElementPaths::Sfp::kSimulatedModule},
    {DatacoreTree::Status, ElementPaths::SystemStatus::kFittedFeatures},
    {DatacoreTree::Status, ElementPaths::SignalSourceStatus::kAvailableNames},
    {DatacoreTree::Status, ElementPaths::SignalSourceStatus::kAudioChannels},
    {DatacoreTree::Command, ElementPaths::AudioMeteringCommands::kResetPeakHold},
    {DatacoreTree::Status, ElementPaths::ClientPresetsStatus::kNames},
    {DatacoreTree::Status, ElementPaths::LoggingStatus::kKeptEvents},
    {DatacoreTree::Command, ElementPaths::LoggingCommands::kResetEventLog},
};

/// Pictures that end after the third.
struct ShortSource : VideoSource {
    const VideoFormat& format() const override { return picture.format; }
    const VideoFrame* next() override { return count++ < 3 ? &picture : nullptr; }

    ShortSource() { picture.format = {.width = 640, .height = 360, .rateNumerator = 25}; }

    VideoFrame picture;
    int count = 0;
};

/// Knows one file.
struct FakePlayer {
    std::optional<MediaFile> open(const QString& path, const std::shared_ptr<PlaybackControl>& newControl,
                                  QString& error)
    {
        if (path != QLatin1String("/short")) {
            error = QStringLiteral("it is broken");
            return std::nullopt;
        }
        control = newControl;
        return MediaFile{{std::make_unique<ShortSource>(), nullptr}, std::chrono::milliseconds(1500)};
    }
    std::shared_ptr<PlaybackControl> control;
};

QString ballisticsPath()
{
    return fullPath(DatacoreTree::Configuration, ElementPaths::AudioMetering::kBallistics);
}

} // namespace

/// The instrument as a client's mirror sees it.
class tst_Instrument : public WzTest {
    Q_OBJECT

private slots:
    void init()
    {
        WzTest::init();
        SignalChoice choice;
        choice.openMedia = [this](auto&&... arguments) { return m_player.open(arguments...); };
        m_instrument.emplace(choice);
        QString error;
        QVERIFY2(m_instrument->listen(QHostAddress::LocalHost, error, 0, 0), qPrintable(error));
        m_client.emplace(m_instrument->server());
    }
    void cleanup()
    {
        m_client.reset();
        m_instrument.reset();
        WzTest::cleanup();
    }

    void everyElementIsThereWithItsValue()
    {
        for (const auto& element : kElements)
            QTRY_VERIFY2(m_client->hasValue(fullPath(element.tree, element.path)), element.path.data());
        QCOMPARE(value(fullPath(DatacoreTree::Configuration, ElementPaths::SignalSource::kName)),
                 QStringLiteral("levels"));
        QCOMPARE(m_client->datacores.getClientDatacoreRegistry().getPaths().size(),
                 int(m_instrument->trees().nodes().size()));
        QVERIFY(!log().contains(QStringLiteral("no way to populate")));
    }

    void aModuleWithoutAnAddressIsReportedUntilItHasOne()
    {
        const QString address = fullPath(DatacoreTree::Configuration, ElementPaths::Sfp::kIpAddress);
        const QString module = fullPath(DatacoreTree::Configuration, ElementPaths::Sfp::kSimulatedModule);
        const QString modules = fullPath(DatacoreTree::Status, ElementPaths::SfpStatus::kModules);
        const QString lacking = fullPath(DatacoreTree::Status, ElementPaths::SfpStatus::kWithoutAddress);
        QTRY_VERIFY(m_client->hasValue(lacking));
        QCOMPARE(value(lacking), QString());
        m_client->node(module)->setDataString(QStringLiteral("SDI"));
        QTRY_COMPARE(value(modules), QStringLiteral("SFP E: SDI (simulated)"));
        QCOMPARE(value(lacking), QString());
        m_client->node(module)->setDataString(QStringLiteral("IP"));
        QTRY_COMPARE(value(lacking), QStringLiteral("SFP E"));
        // The mirror checks nothing here: the instrument does.
        for (const char* const wrong :
             {"10.0.0", "10.0.0.256", "0.0.0.0", "224.0.0.1", "255.255.255.255", "x"}) {
            m_client->node(address)->setDataString(QString::fromLatin1(wrong));
            QTRY_VERIFY2(m_client->node(address)->isInSyncWithServer() && !m_client->node(address)->isValid(),
                         wrong);
            QCOMPARE(value(lacking), QStringLiteral("SFP E"));
        }
        m_client->node(address)->setDataString(QStringLiteral("10.0.0.7"));
        QTRY_COMPARE(value(lacking), QString());
        QVERIFY(m_client->node(address)->isValid());
        m_client->node(address)->setDataString(QString());
        QTRY_COMPARE(value(lacking), QStringLiteral("SFP E"));
        m_client->node(module)->setDataString(QStringLiteral("None"));
        QTRY_COMPARE(value(lacking), QString());
        QCOMPARE(value(modules), QString());
    }

    void theToneIsSetWhereItIsTheSource()
    {
        const QString level = fullPath(DatacoreTree::Configuration, ElementPaths::ToneGenerator::kLevel);
        const QString source = fullPath(DatacoreTree::Configuration, ElementPaths::SignalSource::kName);
        const auto levelOfChannel = [this](std::size_t channel) {
            return dynamic_cast<const ToneGenerator&>(m_instrument->source()).channel(channel).levelDbfs;
        };
        QTRY_VERIFY(m_client->hasValue(level) && m_client->hasValue(source));
        QVERIFY(!m_client->node(level)->isActive());
        m_client->node(level)->setDataDouble(-6.0);
        QTRY_VERIFY(m_client->node(level)->isInSyncWithServer());
        QCOMPARE(levelOfChannel(1), -3.0); // "levels" has its own
        m_client->node(source)->setDataString(QStringLiteral("tone"));
        QTRY_VERIFY(m_client->node(level)->isActive());
        QCOMPARE(levelOfChannel(1), -6.0);
        m_client->node(level)->setDataDouble(-12.0);
        QTRY_COMPARE(levelOfChannel(15), -12.0);
    }

    /// What is heard of the levels -3, -6, -9 ... of the channels, on both sides.
    void whatIsMonitoredIsHeard()
    {
        struct Output : MonitorOutput {
            explicit Output(std::array<float, 2>& newHeard)
                : heard(newHeard)
            {
            }
            void play(const float* stereo, std::size_t frames) override
            {
                heard = {};
                for (std::size_t i = 0; i < 2 * frames; ++i)
                    heard[i % 2] = std::max(heard[i % 2], stereo[i]);
            }
            QString name() const override { return QStringLiteral("headphones"); }
            std::array<float, 2>& heard;
        };
        std::array<float, 2> heard{};
        m_instrument->audioMonitor().setOpener(
            [&heard](QString&) { return std::make_unique<Output>(heard); });
        const auto hears = [&heard](double left, double right) {
            const auto isLevel = [](float peak, double db) {
                return std::abs(20 * std::log10(static_cast<double>(peak)) - db) < 0.1;
            };
            return isLevel(heard[0], left) && isLevel(heard[1], right);
        };
        const auto write = [this](QLatin1String path, const char* value) {
            m_client->node(config(path))->setDataString(QString::fromLatin1(value));
        };
        QTRY_VERIFY(m_client->hasValue(config(ElementPaths::AudioMonitor::kMuted)));
        write(ElementPaths::AudioMonitor::kMuted, "false");
        QTRY_COMPARE(value(status(ElementPaths::AudioMonitorStatus::kOutput)), QStringLiteral("headphones"));
        QTRY_VERIFY(hears(0, -3));
        write(ElementPaths::AudioMonitor::kChannelPair, "99"); // invalid, which changes nothing
        write(ElementPaths::AudioMonitor::kSoloChannel, "3");
        QTRY_VERIFY(hears(-6, -6));
        write(ElementPaths::AudioMonitor::kSoloChannel, "0");
        write(ElementPaths::AudioMonitor::kMixRight, "4");
        QTRY_VERIFY(hears(0, -6));
        // What is measured on the way is told as well.
        const QString contents = status(ElementPaths::AudioContentStatus::kChannels);
        QTRY_COMPARE(value(contents), QStringLiteral("pcm 24"));
        write(ElementPaths::AudioMonitor::kMuted, "true");
        QTRY_VERIFY(!m_client->node(contents)->isActive());
    }

    void channelNamesComeFromAFile()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("Voice\r\n  Music   left \n\n\xC3\x84ther\n\n\n");
        file.close();
        const QString path = config(ElementPaths::ChannelNames::kFile);
        const QString names = status(ElementPaths::ChannelNamesStatus::kNames);
        QTRY_VERIFY(m_client->hasValue(path));
        m_client->node(path)->setDataString(file.fileName());
        const QStringList expected{QStringLiteral("Voice"), QStringLiteral("Music left"), QString(),
                                   QStringLiteral("\u00C4ther")};
        QTRY_COMPARE(m_client->node(names)->getDataList(), expected);
        log().expectError(QStringLiteral("Cannot read the channel names"));
        m_client->node(path)->setDataString(QStringLiteral("/nowhere"));
        QTRY_COMPARE(m_client->node(names)->getDataList(), QStringList());
    }

    void writesActAndComeBack_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("kept");
        QTest::addColumn<QString>("reason");
        const QString source = fullPath(DatacoreTree::Configuration, ElementPaths::SignalSource::kName);
        const QString hold = fullPath(DatacoreTree::Configuration, ElementPaths::AudioMetering::kHatHoldTime);
        const QString version = fullPath(DatacoreTree::Status, ElementPaths::SystemStatus::kSoftwareVersion);
        const QString mode = fullPath(DatacoreTree::Configuration, ElementPaths::SystemMode::kMode);
        const auto row = [](const char* name, const QString& path, const char* written, const char* kept,
                            const char* reason) {
            QTest::newRow(name) << path << QString::fromLatin1(written) << QString::fromLatin1(kept)
                                << QString::fromLatin1(reason);
        };
        row("source", source, "silence", "silence", "");
        row("no such source", source, "Silence", "Silence", "Error: The stored value is not supported");
        row("ballistics", ballisticsPath(), "4", "4", "");
        row("ballistics too large", ballisticsPath(), "5", "5", "Error: Stored number is Oversized");
        row("no number", ballisticsPath(), "x", "x",
            "Error: Stored value could not be deserialised into the specified integral type");
        row("hold for ever", hold, "-0.1", "-0.1", "");
        row("no such scale", config(ElementPaths::AudioMetering::kPpmScaleType), "6", "6",
            "Error: Stored number is Oversized");
        row("hold too short", hold, "-1", "-1", "Error: Stored number is Undersized");
        row("system mode", mode, "Software", "Software", "");
        row("no such mode", mode, "Generator", "Generator", "Error: The stored value is not supported");
        row("status stays", version, "9", WZ_VERSION, "");
    }
    void writesActAndComeBack()
    {
        QFETCH(QString, path);
        QFETCH(QString, written);
        QFETCH(QString, kept);
        QFETCH(QString, reason);
        QTRY_VERIFY(m_client->hasValue(path));
        ClientDatacore* const node = m_client->node(path);
        QSignalSpy inSync(node, &ClientDatacore::datacoreInSyncWithServer);
        QSignalSpy updated(node, &ClientDatacore::datacoreUpdated);
        node->setDataString(written);
        QTRY_COMPARE(inSync.size(), 1);
        QCOMPARE(value(path), kept);
        const QStringList reasons = updated.last().at(1).toStringList();
        QCOMPARE(reasons.join(QLatin1Char(';')), reason);
    }

    void othersHearOfChangesButNotOfRefusals()
    {
        QTcpSocket other;
        other.connectToHost(QHostAddress::LocalHost, m_instrument->server().port());
        const QString clients = fullPath(DatacoreTree::Status, ElementPaths::SystemStatus::kConnectedClients);
        QTRY_COMPARE(value(clients), QStringLiteral("2"));
        const QByteArray lastPath = m_instrument->trees().nodes().back()->getPath().toLatin1();
        QByteArray heard;
        QVERIFY(QTest::qWaitFor([&] { return (heard += other.readAll()).contains(lastPath + '"'); }));
        heard.clear();

        const QString version = fullPath(DatacoreTree::Status, ElementPaths::SystemStatus::kSoftwareVersion);
        m_client->node(version)->setDataString(QStringLiteral("mine"));
        // Its effect changes more, which is told without telling of the write itself twice.
        m_client->node(fullPath(DatacoreTree::Configuration, ElementPaths::SignalSource::kName))
            ->setDataString(QStringLiteral("tone"));
        m_client->node(ballisticsPath())->setDataString(QStringLiteral("3"));
        QVERIFY(QTest::qWaitFor([&] { return (heard += other.readAll()).contains("ballistics"); }));
        QVERIFY(heard.contains("\"ClientID\":\"" + m_client->connection.getLocalId().toLatin1() + "\""));
        QVERIFY(!heard.contains("softwareVersion"));
        QCOMPARE(heard.count("signalSource/name"), 1);
        QCOMPARE(heard.count("logging/keptEvents"), 1);
    }

    void lastOfManyWritesWins()
    {
        QTRY_VERIFY(m_client->hasValue(ballisticsPath()));
        ClientDatacore* const node = m_client->node(ballisticsPath());
        QSignalSpy lost(node, &ClientDatacore::lostPackets);
        for (unsigned i = 0; i <= 3000; ++i)
            node->setDataUint(i % 5);
        QTRY_VERIFY(node->isInSyncWithServer());
        QCOMPARE(node->getData(), QString::number(3000 % 5));
        QVERIFY(lost.isEmpty());
    }

    void changesOfTheSourceAreEvents()
    {
        const QString source = fullPath(DatacoreTree::Configuration, ElementPaths::SignalSource::kName);
        const QString reset = fullPath(DatacoreTree::Command, ElementPaths::LoggingCommands::kResetEventLog);
        const QString kept = fullPath(DatacoreTree::Status, ElementPaths::LoggingStatus::kKeptEvents);
        const QStringList afterReset{QStringLiteral("Event Logging Reset")};
        QTRY_VERIFY(m_client->hasValue(reset));
        for (const char* name : {"levels", "tone", "tone", "no such", "silence"})
            m_client->node(source)->setDataString(QString::fromLatin1(name));
        const QString text = QStringLiteral("Audio input %1: 16 of 16 channels present");
        const QStringList expected{text.arg(QStringLiteral("tone")), text.arg(QStringLiteral("silence"))};
        QTRY_COMPARE(value(kept), QStringLiteral("2"));
        QCOMPARE(m_client->events, expected);

        // Twice, for a command that is written again acts again.
        for (const char* another : {"sweep", "ident"}) {
            m_client->node(reset)->setDataString(QStringLiteral("1"));
            QTRY_COMPARE(m_client->events, afterReset);
            QTRY_COMPARE(value(kept), QStringLiteral("1"));
            QTRY_VERIFY(m_client->node(reset)->isInSyncWithServer());
            m_client->node(source)->setDataString(QString::fromLatin1(another));
            QTRY_COMPARE(value(kept), QStringLiteral("2"));
            QCOMPARE(m_client->events.size(), 2);
        }
    }

    void patternsAndStandardsAreChosen_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<bool>("acts");
        QTest::addColumn<QString>("format");
        const auto row = [](const char* name, const char* words, const char* format) {
            QTest::newRow(name) << QString::fromLatin1(words).split(QLatin1Char(' ')) << (*format != '\0')
                                << QString::fromLatin1(format);
        };
        row("525i", "false 81060001", "720x486i59.94 YCbCr:422:10 SDR-TV Rec.601");
        row("625i, 8 bits", "false 81050000", "720x576i50 YCbCr:422:8 SDR-TV Rec.601");
        row("1080p59.94, HLG", "false 89DAA001", "1920x1080p59.94 YCbCr:422:10 HLG Rec.2020");
        row("2160p60, PQ", "false CEEBA001", "3840x2160p60 YCbCr:422:10 PQ Rec.2020");
        row("2160p25, RGB, 12 bits", "false CEC50202", "3840x2160p25 RGB:444:12 SDR-TV Rec.709");
        row("quadrants", "true 89C98001 89C98001 89C98001 89C98001",
            "3840x2160p50 YCbCr:422:10 SDR-TV Rec.709");
        row("one link of four", "false 97C90001", "");
        row("links that differ", "true 89C98001 89C98001 89C98001 89CA8001", "");
        row("4:2:0", "false CEC90301", "");
        row("4320 lines", "false D2CBA001 D2CBA021 D2CBA041 D2CBA061", "");
        row("reserved rate", "false 89C18001", "");
        row("no identifier", "false", "");
        row("no words", "false x", "");
    }
    void patternsAndStandardsAreChosen()
    {
        QFETCH(QStringList, words);
        QFETCH(bool, acts);
        QFETCH(QString, format);
        const QString standard = config(ElementPaths::PatternGenerator::kVideoStandard);
        const QString active = status(ElementPaths::SdiInputStatus::kActiveStandard);
        QTRY_VERIFY(m_client->hasValue(standard) && m_client->hasValue(active));
        QSignalSpy inSync(m_client->node(standard), &ClientDatacore::datacoreInSyncWithServer);
        const QStringList before = m_client->node(active)->getDataList();
        QCOMPARE(before, m_client->node(standard)->getDataList());
        m_client->node(config(ElementPaths::PatternGenerator::kPattern))
            ->setDataString(QStringLiteral("black"));
        m_client->node(standard)->setDataStringList(words);
        QTRY_COMPARE(inSync.size(), 1);
        QCOMPARE(m_client->node(standard)->isValid(), acts);
        QTRY_COMPARE(m_client->node(active)->getDataList(), acts ? words : before);
        if (!acts)
            return;
        QCOMPARE(value(status(ElementPaths::SdiInputStatus::kPictureFormat)), format);
        const VideoFrame* const frame = m_instrument->input().pictures()->next();
        QCOMPARE(VideoFormats::toText(frame->format), format);
        QCOMPARE(frame->number, std::uint64_t(0)); // nobody has asked for one before
        const int black = 16 << (VideoFormats::bitsOf(frame->format.depth) - 8);
        QCOMPARE(int(*frame->planes[0].samples), black);
    }

    void changesOfThePictureAreEvents()
    {
        const QString source = config(ElementPaths::SignalSource::kName);
        const QString active = status(ElementPaths::SdiInputStatus::kActiveStandard);
        QTRY_VERIFY(m_client->hasValue(active));
        m_client->node(source)->setDataString(QStringLiteral("no-signal"));
        QTRY_VERIFY(!m_client->node(active)->isActive());
        QVERIFY(m_client->node(active)->getDataList().isEmpty());
        QVERIFY(!m_client->node(config(ElementPaths::PatternGenerator::kVideoStandard))->isActive());
        QVERIFY(!m_instrument->input().pictures());
        // What is chosen meanwhile shows when there is a signal again.
        m_client->node(config(ElementPaths::PatternGenerator::kVideoStandard))
            ->setDataStringList({QStringLiteral("false"), QStringLiteral("84490001")});
        m_client->node(source)->setDataString(QStringLiteral("lip-sync"));
        QTRY_VERIFY(m_client->node(active)->isActive());
        const QStringList expected{
            QStringLiteral("New rate on SDI In A - No Signal"),
            QStringLiteral("Audio input no-signal: 0 of 16 channels present"),
            QStringLiteral("New rate on SDI In A - 1.5G"),
            QStringLiteral("New SDI video standard 1280x720p50 YCbCr:422:10 1.5G Rec.709"),
            QStringLiteral("Audio input lip-sync: 16 of 16 channels present"),
        };
        QTRY_COMPARE(m_client->events.size(), expected.size());
        QCOMPARE(m_client->events, expected);
    }

    void filesPlayUntilTheyEnd()
    {
        const QString path = config(ElementPaths::MediaFile::kPath);
        const QString picture = status(ElementPaths::SdiInputStatus::kPictureFormat);
        QTRY_VERIFY(m_client->hasValue(path) && m_client->hasValue(picture));
        m_client->node(config(ElementPaths::SignalSource::kName))->setDataString(QStringLiteral("file"));
        QTRY_COMPARE(value(picture), QStringLiteral("No Signal"));
        log().expectError(QStringLiteral("Cannot play '/long': it is broken"));
        m_client->node(path)->setDataString(QStringLiteral("/long"));
        QTRY_VERIFY(!m_client->node(path)->isValid());

        m_client->node(path)->setDataString(QStringLiteral("/short"));
        QTRY_COMPARE(value(picture), QStringLiteral("640x360p25 YCbCr:422:10 SDR-TV Rec.709"));
        QVERIFY(m_client->node(path)->isValid());
        QVERIFY(!m_client->node(status(ElementPaths::SdiInputStatus::kActiveStandard))->isActive());
        QTRY_COMPARE(value(status(ElementPaths::MediaFileStatus::kDuration)), QStringLiteral("1.5"));

        m_client->node(config(ElementPaths::MediaFile::kLoop))->setDataBool(true);
        m_client->node(config(ElementPaths::MediaFile::kPaused))->setDataBool(true);
        m_client->node(fullPath(DatacoreTree::Command, ElementPaths::MediaFileCommands::kSeek))
            ->setDataDouble(0.5);
        QTRY_COMPARE(m_player.control->seekCount(), 1U);
        QVERIFY(m_player.control->isLooping() && m_player.control->isPaused());
        QCOMPARE(m_player.control->seekPosition(), std::chrono::nanoseconds(500'000'000));

        // They are read when somebody looks at them.
        m_client->node(fullPath(DatacoreTree::Command, ElementPaths::WaveformCommands::kWantPicture))
            ->setDataStringList({QStringLiteral("480"), QStringLiteral("240")});
        QTRY_COMPARE(value(picture), QStringLiteral("No Signal"));
    }

    /// A new client has the trees before it hears of events, and then the latest in their order.
    void lateClientsGetTheLatestEvents()
    {
        constexpr int kMost = int(EventService::kMostKept);
        for (int i = 0; i < kMost + 5; ++i)
            m_instrument->events().raise(SfpEventPacket(QString::number(i)));
        m_instrument->events().raise(SfpEventPacket(QString(EventService::kLargestEvent, QLatin1Char('x'))));
        QVERIFY(log().contains(QStringLiteral("W An event of type SfpEventPacket with")));

        m_client.emplace(m_instrument->server());
        bool hadAllValues = false;
        connect(&m_client->logHandler, &WzClientSequencePackagedLogPacketHandler::newLogEntry, this, [&] {
            hadAllValues = std::all_of(std::begin(kElements), std::end(kElements), [&](const auto& element) {
                return m_client->hasValue(fullPath(element.tree, element.path));
            });
            disconnect(&m_client->logHandler, nullptr, this, nullptr);
        });
        QTRY_COMPARE(m_client->events.size(), kMost);
        QVERIFY(hadAllValues);
        for (int i = 0; i < kMost; ++i)
            QCOMPARE(m_client->events.at(i), QString::number(i + 5));
        QCOMPARE(value(fullPath(DatacoreTree::Status, ElementPaths::LoggingStatus::kKeptEvents)),
                 QString::number(kMost));
    }

    void badWritesChangeNothing_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("unknown path")
            << QByteArray("{\"Class\":\"DatacorePacket\",\"Path\":\"configCoreRouter/"
                          "x\",\"Datacore\":{\"x\":{\"data\":\"1\"}}}");
        QTest::newRow("no path") << QByteArray("{\"Class\":\"DatacorePacket\",\"Datacore\":{}}");
        QTest::newRow("no data") << QByteArray("{\"Class\":\"DatacorePacket\","
                                               "\"Path\":\"configCoreRouter/audioMetering/ballistics\"}");
        QTest::newRow("foreign class")
            << QByteArray("{\"Class\":\"DatacorePacket\",\"Path\":\"configCoreRouter/audioMetering/"
                          "ballistics\",\"Datacore\":"
                          "{\"ballistics\":{\"class\":\"DatacoreBool\",\"data\":\"3\"}}}");
        QTest::newRow("data of a wrong type")
            << QByteArray("{\"Class\":\"DatacorePacket\",\"Path\":\"configCoreRouter/audioMetering/"
                          "ballistics\",\"Datacore\":"
                          "{\"ballistics\":{\"class\":\"\",\"data\":{\"a\":1}}}}");
        QTest::newRow("another packet") << QByteArray("{\"Class\":\"Nonsense\"}");
    }
    void badWritesChangeNothing()
    {
        QFETCH(QByteArray, text);
        QTcpSocket other;
        other.connectToHost(QHostAddress::LocalHost, m_instrument->server().port());
        QVERIFY(other.waitForConnected(5000));
        other.write(Frames::json(text));
        other.flush();
        QTRY_VERIFY(log().contains(QStringLiteral("W ")));
        QTRY_VERIFY(m_client->hasValue(ballisticsPath()));
        m_client->node(ballisticsPath())->setDataUint(2);
        QTRY_VERIFY(m_client->node(ballisticsPath())->isInSyncWithServer());
        QCOMPARE(value(ballisticsPath()), QStringLiteral("2"));
    }

private:
    QString value(const QString& path)
    {
        const ClientDatacore* const node = m_client->node(path);
        return node ? node->getData() : QString();
    }

    FakePlayer m_player;
    std::optional<Instrument> m_instrument;
    std::optional<MirrorClient> m_client;
};

WZ_TEST_CLASS(tst_Instrument)
#include "tst_Instrument.moc"
