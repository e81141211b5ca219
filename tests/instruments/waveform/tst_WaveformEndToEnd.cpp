#include "datacore/DatacoreGuiConnectionsManager.h"
#include "datacore/ElementPaths.h"
#include "gui/control/SettingList.h"
#include "gui/support/WindowFixture.h"
#include "instruments/waveform/Waveform.h"
#include "instruments/waveform/WaveformConnectionBuilder.h"
#include "instruments/waveform/WaveformGraticuleWidget.h"
#include "server/core/Instrument.h"
#include "server/sources/VideoFormats.h"
#include "server/support/MirrorClient.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSignalSpy>

#include <optional>

using namespace Velmora;
using namespace Velmora::Server;
using Curve = Sdi::PayloadId::TransferCurve;

Q_DECLARE_METATYPE(Velmora::Sdi::PayloadId::TransferCurve)

namespace {

SignalChoice choiceOf(Curve curve, const char* pattern)
{
    VideoFormat format{.width = 1920, .height = 1080, .rateNumerator = 50};
    format.transfer = curve;
    if (curve != Curve::SdrTv)
        format.colourimetry = Sdi::PayloadId::Colourimetry::Rec2020;
    SignalChoice choice;
    choice.pattern = QString::fromLatin1(pattern);
    choice.standard = VideoFormats::standardOf(format);
    return choice;
}

/// An instrument, a client's mirror of it, and the window on the client's screen.
class Chain : public WindowFixture {
public:
    explicit Chain(const SignalChoice& choice, QSize size = {960, 540})
        : instrument(choice)
    {
        QString error;
        if (!instrument.listen(QHostAddress::LocalHost, error, 0, 0))
            qFatal("%s", qPrintable(error));
        client.emplace(instrument.server());
        manager.emplace(client->datacores.getClientDatacoreRegistry(), nullptr);
        builder = manager->add<WaveformConnectionBuilder>();
        SupportedSubWindow kind;
        kind.contentClassName = QString(Waveform::kClassName);
        kind.icon = QString(Waveform::kIconName);
        kind.makeContent = [](WzSubWindow& subWindow) {
            return new Waveform(&subWindow, Velmora::Wz::Device::full());
        };
        window = kind.create(area, 0);
        area.addWzSubWindow(window);
        window->show();
        window->setBounds({QPoint(0, 0), size});
        waveform = qobject_cast<Waveform*>(window->content());
        waveform->picture().setHost({QHostAddress(QHostAddress::LocalHost), instrument.server().port(), 0});
        QObject::connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, waveform,
                         [this] { builder->connectWaveformWidgetGroupToDatacores(waveform); });
        connectInstrument();
    }
    ~Chain() override { delete window; }

    bool isLive() const { return waveform->picture().state() == FeedPicture::State::Live; }
    ClientDatacore* node(QLatin1String path) { return client->node(config(path)); }

    /// The middle of the light in a column of the picture, as a level.
    double levelAt(double percentOfLine, int cell)
    {
        const auto& graticule = waveform->graticule();
        const QImage picture = waveform->picture().copy();
        const QRect place = graticule.display().geometry().cells()[static_cast<std::size_t>(cell)];
        const int x = place.left() + static_cast<int>(percentOfLine * place.width() / 100.0);
        double light = 0.0;
        double moment = 0.0;
        for (int row = 0; row < place.height(); ++row) {
            // The soft edge of the spot is as wide on either side.
            const int alpha = qAlpha(picture.pixel(x, place.top() + row));
            light += alpha;
            moment += alpha * static_cast<double>(row);
        }
        return graticule.display().geometry().percent(static_cast<int>(std::lround(moment / light)));
    }

    Instrument instrument;
    std::optional<MirrorClient> client;
    std::optional<DatacoreGuiConnectionsManager> manager;
    WaveformConnectionBuilder* builder = nullptr;
    WzSubWindow* window = nullptr;
    Waveform* waveform = nullptr;
};

} // namespace

class tst_WaveformEndToEnd : public WzTest {
    Q_OBJECT
private slots:
    /// Bars of 100 % and their Cb and Cr stand where ITU-R BT.709 has them.
    void barsStandAtTheirLevels()
    {
        Chain chain(choiceOf(Curve::SdrTv, "bars-100"));
        QTRY_VERIFY_WITH_TIMEOUT(chain.isLive(), 10000);
        constexpr std::array kCodes{
            std::array{940, 877, 754, 691, 313, 250, 127, 64},
            std::array{512, 64, 615, 167, 857, 409, 960, 512},
            std::array{512, 553, 64, 105, 919, 960, 471, 512},
        };
        for (int cell = 0; cell < 3; ++cell) {
            const auto codes = chain.waveform->graticule().display().codeScale(cell > 0);
            for (int bar = 0; bar < 8; ++bar) {
                const double expected =
                    codes.percent(kCodes[static_cast<std::size_t>(cell)][static_cast<std::size_t>(bar)]);
                const double level = chain.levelAt((bar + 0.5) * 12.5, cell);
                // As closely as rows can tell it.
                QVERIFY2(std::abs(level - expected) <= 0.26, qPrintable(QString::number(level)));
            }
        }
    }

    void theScalesFollowTheSignal_data()
    {
        QTest::addColumn<Curve>("curve");
        QTest::addColumn<double>("reference");
        QTest::addColumn<QString>("nits"); // of a cursor at 75 %
        QTest::newRow("SDR") << Curve::SdrTv << 0.0 << QStringLiteral("50.1Nits");
        QTest::newRow("HLG") << Curve::Hlg << 75.0 << QStringLiteral("203Nits");
        QTest::newRow("PQ") << Curve::Pq << 58.1 << QStringLiteral("983Nits");
        QTest::newRow("S-Log3") << Curve::SLog3 << 70.0 << QStringLiteral("298Nits");
    }
    void theScalesFollowTheSignal()
    {
        QFETCH(Curve, curve);
        QFETCH(double, reference);
        QFETCH(QString, nits);
        Chain chain(choiceOf(curve, "ramp"));
        QTRY_VERIFY_WITH_TIMEOUT(chain.isLive(), 10000);
        const auto& actions = chain.waveform->actions();
        actions.referenceMarker->choose(QStringLiteral("true"));
        actions.cursors->choose(QStringLiteral("1"));
        actions.cursorScaleY->choose(QStringLiteral("5"));
        actions.refPosition->choose(QStringLiteral("75"));
        const auto& graticule = chain.waveform->graticule();
        QCOMPARE(graticule.readOut().rows.front().values.front(), nits);
        actions.cursors->choose(QStringLiteral("0"));
        const QPoint dash(graticule.xAxisPosToScreenPos(0) + 1, graticule.yPercentToScreenY(reference));
        QCOMPARE(chain.waveform->graticule().grab().toImage().pixel(dash), QColor(Qt::white).rgb());
    }

    /// Each setting of the instrument is written to its element once, and an element that changes is shown
    /// and not written again.
    void settingsGoBothWays()
    {
        Chain chain(choiceOf(Curve::SdrTv, "bars-100"));
        QTRY_VERIFY_WITH_TIMEOUT(chain.isLive(), 10000);
        int tried = 0;
        chain.waveform->settings().forEachSetting([&](Setting& setting) {
            if (!setting.isBound() || !setting.isUsable() || setting.kind() == Setting::Kind::Button)
                return;
            const QString before = setting.value();
            if (setting.kind() == Setting::Kind::Toggle)
                setting.toggle();
            else
                setting.step(before == QLatin1String("0") || !setting.isNumeric() ? 1 : -1);
            if (setting.value() == before)
                setting.step(setting.isNumeric() ? 1 : -1);
            const QString title = setting.title();
            QVERIFY2(setting.value() != before, qPrintable(title));
            QTRY_VERIFY2(!setting.isUnconfirmed(), qPrintable(title));
            QVERIFY2(setting.value() != before, qPrintable(title));
            QCOMPARE(setting.state().verdict(), ElementState::Verdict::Valid);
            ++tried;
        });
        QVERIFY2(tried >= 35, qPrintable(QString::number(tried)));

        ClientDatacore* const mode = chain.node(ElementPaths::Waveform::kDisplayMode);
        QSignalSpy writes(mode, &ClientDatacore::clientDatacoreHasUpdateForServer);
        mode->setDataUint(4);
        QTRY_COMPARE(int(chain.waveform->graticule().display().channels.size()), 4);
        QTRY_VERIFY(mode->isInSyncWithServer());
        QCOMPARE(writes.size(), 1);
    }

    void theInstrumentMayGoAndComeBack()
    {
        Chain chain(choiceOf(Curve::SdrTv, "bars-100"));
        QTRY_VERIFY_WITH_TIMEOUT(chain.isLive(), 10000);
        chain.connection.noteLost();
        QCOMPARE(chain.waveform->picture().state(), FeedPicture::State::None);
        QVERIFY(!chain.waveform->actions().displayMode->isUsable());
        chain.connectInstrument();
        chain.builder->connectWaveformWidgetGroupToDatacores(chain.waveform);
        QTRY_VERIFY_WITH_TIMEOUT(chain.isLive(), 10000);
        QVERIFY(chain.waveform->actions().displayMode->isUsable());
    }

    void everySizeAndModeFits()
    {
        Chain chain(choiceOf(Curve::Hlg, "hdr-bars"), {480, 270});
        for (const QSize size : {QSize(480, 270), QSize(1920, 1080)}) {
            chain.window->setBounds({QPoint(0, 0), size});
            for (const char* const presentation : {"0", "1", "2"}) {
                for (const char* const mode : {"0", "4"}) {
                    QTRY_VERIFY(chain.waveform->actions().presentation->isUsable());
                    chain.waveform->actions().presentation->choose(QString::fromLatin1(presentation));
                    chain.waveform->actions().displayMode->choose(QString::fromLatin1(mode));
                    chain.waveform->actions().fullWidth->toggle(); // where it is offered
                    QTRY_VERIFY(!chain.waveform->actions().displayMode->isUnconfirmed());
                    QTRY_VERIFY_WITH_TIMEOUT(chain.isLive(), 10000);
                }
            }
        }
    }
};

WZ_TEST_CLASS(tst_WaveformEndToEnd)
#include "tst_WaveformEndToEnd.moc"
