#include "instruments/waveform/UserMarkerSettings.h"
#include "instruments/waveform/WaveformClientPreset.h"
#include "instruments/waveform/WaveformColours.h"
#include "instruments/waveform/WaveformFixture.h"
#include "server/support/SyntheticFrame.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include "gui/control/SettingList.h"

#include <QJsonArray>
#include <QSignalSpy>

using namespace Velmora;
using Axis = MeasurementCursors::Axis;
using Cursor = MeasurementCursors::Cursor;
using Curve = Sdi::PayloadId::TransferCurve;
using Depth = Sdi::PayloadId::BitDepth;
using Presentation = WaveformTypes::Presentation;
using Sampling = Sdi::PayloadId::SampleStructure;

Q_DECLARE_METATYPE(Velmora::Server::VideoFormat)
Q_DECLARE_METATYPE(Velmora::Sdi::PayloadId::TransferCurve)
Q_DECLARE_METATYPE(Velmora::Sdi::PayloadId::BitDepth)
Q_DECLARE_METATYPE(Velmora::WaveformTypes::Presentation)

namespace {

QStringList number(int value)
{
    return {QString::number(value)};
}

void setPresentation(WaveformFixture& f, Presentation presentation)
{
    f.waveform->fromConfigCoreWaveformPresentationModeUpdated(number(static_cast<int>(presentation)), {},
                                                              true);
}

} // namespace

class tst_Waveform : public WzTest {
    Q_OBJECT
private slots:
    /// In the order of the menu, with the texts that are laid down.
    void actionsAndTheirOptions()
    {
        WaveformFixture f;
        QStringList actions;
        f.waveform->settings().forEachSetting([&actions](const Setting& setting) {
            QStringList options;
            for (const auto& option : setting.options())
                options << option.text;
            actions << (options.isEmpty()
                            ? setting.title()
                            : setting.title() + QLatin1String(": ") + options.join(QLatin1String(", ")));
        });
        const QString components = QStringLiteral("Y, Cb, Cr, Red, Green, Blue, Alpha, None");
        const QStringList expected{
            QStringLiteral("Luma/RGB Markers"),
            QStringLiteral("Marker 1"),
            QStringLiteral("Marker 2"),
            QStringLiteral("CbCr Markers"),
            QStringLiteral("CbCr Marker 1"),
            QStringLiteral("CbCr Marker 2"),
            QStringLiteral("V Scale: Percent, Hex Value, Decimal Value, Millivolts"),
            QStringLiteral("H Scale: % Line, Pixels"),
            QStringLiteral("Display Mode: YCbCr, YCbCrA, RGB, GBR, YRGB, YGBR, RGBA, GBRA, Custom"),
            QStringLiteral("Channel 1: ") + components,
            QStringLiteral("Channel 2: ") + components,
            QStringLiteral("Channel 3: ") + components,
            QStringLiteral("Channel 4: ") + components,
            QStringLiteral("Waveform Mode: Parade, Stacked, Overlay"),
            QStringLiteral("Full Width Mode"),
            QStringLiteral("V Scale Nits: Right Side, Left Side"),
            QStringLiteral("Single Line Mode: Enabled, Disabled"),
            QStringLiteral("Line Number"),
            QStringLiteral("Pixel Number"),
            QStringLiteral("Picture Cursor"),
            QStringLiteral("Reference Level Marker: Enabled, Disabled"),
            QStringLiteral("Peak White Marker: Disabled, 1000 Nits, 2000 Nits, 4000 Nits, 10000 Nits"),
            QStringLiteral("S-Log3 Mode: SR Live, S-Log3"),
            QStringLiteral("Filter: Technical, Production, Low Pass, Raw"),
            QStringLiteral("Zoom/Pan: H & V Mag, H Mag Only, V Mag Only, H Pos Only, V Pos Only"),
            QStringLiteral("H Magnification"),
            QStringLiteral("H Position"),
            QStringLiteral("V Magnification"),
            QStringLiteral("V Position"),
            QStringLiteral("Brightness"),
            QStringLiteral("Persistence"),
            QStringLiteral("Gamma"),
            QStringLiteral("Persistence Attack"),
            QStringLiteral("Channel 1 Gain"),
            QStringLiteral("Channel 2 Gain"),
            QStringLiteral("Channel 3 Gain"),
            QStringLiteral("Channel 4 Gain"),
            QStringLiteral("Restore Default Levels"),
            QStringLiteral("Colour Mode: Colour, Highlight, Monochrome"),
            QStringLiteral("On Video Loss: Clear, Hold"),
            QStringLiteral("Full Range Mode: RP.2077, SDI Protected"),
            QStringLiteral("Measurement Cursors: Off, Single, Both"),
            QStringLiteral("Cursor X/Y Select: X, Y"),
            QStringLiteral("Cursor Values: Displayed, Hidden"),
            QStringLiteral("Cursor Adjustment: Independent, Linked"),
            QStringLiteral("Cursor Scale: Percent, Time, Pixels, Frequency"),
            QStringLiteral("Cursor Scale: Percent, Percent Ref, Millivolts, Hex Value, Decimal Value, Nits"),
            QStringLiteral("Ref Cursor Position"),
            QStringLiteral("Delta Cursor Position"),
            QStringLiteral("Cursor Differential"),
            QStringLiteral("Set % Reference"),
            QStringLiteral("Reset % Reference"),
        };
        QCOMPARE(actions.mid(0, expected.size()), expected);
    }

    /// The same levels in the trace and on the graticule, for each way in which codes are levels.
    void traceAndGraticuleAgree_data()
    {
        QTest::addColumn<Depth>("depth");
        QTest::addColumn<Presentation>("presentation");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("fullRangeMode");
        const std::array depths{Depth::Bits10, Depth::Bits12, Depth::Bits10FullRange};
        for (const QSize size : {QSize(480, 270), QSize(960, 540), QSize(1920, 1080)}) {
            for (const auto presentation :
                 {Presentation::Parade, Presentation::Stacked, Presentation::Overlay}) {
                for (const Depth depth : depths)
                    QTest::addRow("%d wide, %d, %d", size.width(), int(presentation), int(depth))
                        << depth << presentation << size << 0;
            }
        }
        QTest::newRow("SDI protected")
            << Depth::Bits10FullRange << Presentation::Parade << QSize(960, 540) << 1;
    }
    void traceAndGraticuleAgree()
    {
        QFETCH(Depth, depth);
        QFETCH(Presentation, presentation);
        QFETCH(QSize, size);
        QFETCH(int, fullRangeMode);
        WaveformFixture f(size);
        const auto format = formatOf(Curve::SdrTv, depth);
        f.input(format);
        f.waveform->fromConfigCoreWaveformDisplayModeUpdated(number(2), {}, true); // RGB
        f.waveform->fromConfigCoreWaveformFullRangeModeUpdated(number(fullRangeMode), {}, true);
        setPresentation(f, presentation);
        const auto& graticule = f.waveform->graticule();
        const WaveformTypes::CodeScale codes = graticule.display().codeScale(false);

        // The left half white, the right one black.
        SyntheticFrame frame(64, 8, Sampling::Rgb444, depth);
        frame.format().depth = depth;
        for (std::size_t plane = 0; plane < 3; ++plane)
            frame.fill(plane, [&](int x, int) { return static_cast<int>(codes.code(x < 32 ? 100.0 : 0.0)); });
        f.settings.displayMode = WaveformTypes::DisplayMode::Rgb;
        f.settings.presentation = presentation;
        f.settings.fullRangeMode = static_cast<WaveformTypes::FullRangeMode>(fullRangeMode);
        f.write(Server::renderWaveform(frame.frame(), f.settings, graticule.display().content));
        const QImage screen = f.screen();

        const QPoint corner = f.graticuleTopLeft();
        const int cells = presentation == Presentation::Overlay ? 1 : 3;
        for (int cell = 0; cell < cells; ++cell) {
            const int white = graticule.yPercentToScreenY(100.0, cell) + corner.y();
            const int black = graticule.yPercentToScreenY(0.0, cell) + corner.y();
            const int left = graticule.xAxisPosToScreenPos(30000, cell) + corner.x();
            const int right = graticule.xAxisPosToScreenPos(70000, cell) + corner.x();
            // The spot of the trace is as high above its row as below it, and so is the line beside it.
            const auto isLit = [&](int x, int y) {
                return qGreen(screen.pixel(x, y)) + qRed(screen.pixel(x, y)) + qBlue(screen.pixel(x, y))
                    > 200;
            };
            QVERIFY2(isLit(left, white), "no trace where the line of white is");
            QVERIFY2(isLit(right, black), "no trace where the line of black is");
            QCOMPARE(screen.pixel(left, white - 1), screen.pixel(left, white + 1));
            const QRgb line = WzPalette().colour(ColourRole::GraticuleMajor).rgb();
            QCOMPARE(screen.pixel(right, white), line);
            QCOMPARE(screen.pixel(left, black), line);
        }
    }

    void positionsGoThereAndBack()
    {
        for (const auto presentation : {Presentation::Parade, Presentation::Stacked}) {
            WaveformFixture f;
            f.input(formatOf(Curve::SdrTv));
            setPresentation(f, presentation);
            f.waveform->fromConfigCoreWaveformVerticalMagnificationUpdated({QStringLiteral("2")}, {}, true);
            f.waveform->fromConfigCoreWaveformHorizontalMagnificationUpdated({QStringLiteral("2")}, {}, true);
            const auto& graticule = f.waveform->graticule();
            for (int cell = 0; cell < 3; ++cell) {
                const int y = graticule.yAxisPosToScreenPos(60000, cell);
                QVERIFY(std::abs(graticule.screenYToPercent(y) - 60.0) < 0.5);
                QCOMPARE(graticule.yPercentToScreenY(graticule.screenYToPercent(y), cell), y);
                const int x = graticule.xAxisPosToScreenPos(25000, cell);
                QVERIFY(std::abs(graticule.screenXToPercent(x) - 25.0) < 0.2);
            }
        }
    }

    void theReferenceMarkerFollowsTheCurve_data()
    {
        QTest::addColumn<Curve>("curve");
        QTest::addColumn<int>("sLog3Mode");
        QTest::addColumn<double>("percent");
        QTest::addColumn<QString>("name");
        QTest::newRow("SDR") << Curve::SdrTv << 0 << 0.0 << QStringLiteral("SDR-TV");
        QTest::newRow("HLG") << Curve::Hlg << 0 << 75.0 << QStringLiteral("HLG");
        QTest::newRow("PQ") << Curve::Pq << 1 << 58.1 << QStringLiteral("PQ");
        QTest::newRow("S-Log3") << Curve::SLog3 << 0 << 70.0 << QStringLiteral("S-Log3");
        QTest::newRow("SR Live") << Curve::SLog3 << 1 << 68.5 << QStringLiteral("SR Live");
    }
    void theReferenceMarkerFollowsTheCurve()
    {
        QFETCH(Curve, curve);
        QFETCH(int, sLog3Mode);
        QFETCH(double, percent);
        QFETCH(QString, name);
        WaveformFixture f;
        // It comes from another place.
        f.input(formatOf(curve == Curve::Pq ? Curve::Hlg : Curve::Pq));
        f.waveform->actions().referenceMarker->choose(QStringLiteral("true"));
        f.input(formatOf(curve));
        f.waveform->fromConfigCoreWaveformSLog3ModeUpdated(number(sLog3Mode), {}, true);
        const auto& graticule = f.waveform->graticule();
        const QPoint place = f.graticuleTopLeft()
            + QPoint(graticule.xAxisPosToScreenPos(0) + 2, graticule.yPercentToScreenY(percent));
        const QImage screen = f.screen();
        QCOMPARE(screen.pixel(place), QColor(Qt::white).rgb());
        QVERIFY(screen.pixel(place + QPoint(0, 2)) != QColor(Qt::white).rgb());
        QCOMPARE(getHdrStandardString(curve, graticule.display().sLog3Mode), name);
        QCOMPARE(graticule.display().hasNitsScale(), curve != Curve::SdrTv);
    }

    void overridesComeBeforeWhatTheSignalSays()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::Pq));
        f.waveform->fromConfigCorePayloadIdTransferCurveOverrideUpdated(number(1), {}, true);
        QCOMPARE(f.waveform->graticule().display().signal.transferCurve, Curve::Pq);
        f.waveform->fromConfigCorePayloadIdTransferCurveOverrideEnableUpdated({QStringLiteral("true")}, {},
                                                                              true);
        QCOMPARE(f.waveform->graticule().display().signal.transferCurve, Curve::Hlg);
        f.waveform->fromConfigCorePayloadIdTransferCurveOverrideEnableUpdated({QStringLiteral("true")}, {},
                                                                              false);
        QCOMPARE(f.waveform->graticule().display().signal.transferCurve, Curve::Pq);
    }

    void userMarkersKeepTheirLevel()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv));
        UserMarkerSettings& markers = *f.waveform->actions().userMarkers;
        QSignalSpy written(f.waveform, &Waveform::toConfigCoreWaveformUserMarkerCbCr1);
        f.waveform->fromConfigCoreWaveformUserMarkerLumaRgbEnableUpdated({QStringLiteral("true")}, {}, true);
        f.waveform->fromConfigCoreWaveformUserMarkerLumaRgb1Updated({QStringLiteral("75")}, {}, true);
        f.waveform->fromConfigCoreWaveformUserMarkerCbCr1Updated({QStringLiteral("50")}, {}, true);
        Setting& first = *markers.setting(UserMarkerSettings::LumaRgb1);
        Setting& chroma = *markers.setting(UserMarkerSettings::CbCr1);
        QCOMPARE(first.valueText(), QStringLiteral("75.0 %"));
        QCOMPARE(chroma.valueText(), QStringLiteral("0.0 %"));
        f.waveform->fromConfigCoreWaveformVerticalScaleModeUpdated(number(2), {}, true); // decimal
        QCOMPARE(first.valueText(), QStringLiteral("721 dec"));
        f.input(formatOf(Curve::SdrTv, Depth::Bits12));
        QCOMPARE(first.valueText(), QStringLiteral("2884 dec"));
        QCOMPARE(chroma.valueText(), QStringLiteral("2048 dec"));
        chroma.choose(QStringLiteral("3840"));
        QCOMPARE(written.takeLast().first().toDouble(), 100.0);

        const auto& graticule = f.waveform->graticule();
        const QPoint place = f.graticuleTopLeft()
            + QPoint(graticule.xAxisPosToScreenPos(5000), graticule.yPercentToScreenY(75.0));
        QCOMPARE(f.screen().pixel(place), QRgb(WaveformColours::kUserMarker1));
    }

    void fullWidthIsOfferedWhereItGainsRoom()
    {
        WaveformFixture f;
        Setting& fullWidth = *f.waveform->actions().fullWidth;
        QVERIFY(!fullWidth.isUsable());
        setPresentation(f, Presentation::Overlay);
        QVERIFY(fullWidth.isUsable());
        const int narrow = f.waveform->graticule().width();
        f.waveform->fromConfigCoreWaveformFullWidthModeUpdated({QStringLiteral("true")}, {}, true);
        QVERIFY(f.waveform->graticule().width() > narrow + 100);
        // What is on can be switched off.
        setPresentation(f, Presentation::Parade);
        QVERIFY(fullWidth.isUsable());
        f.waveform->fromConfigCoreWaveformFullWidthModeUpdated({QStringLiteral("false")}, {}, true);
        QVERIFY(!fullWidth.isUsable());
    }

    void holdsThePictureWhileFrozen()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv), "bars-100");
        f.draw();
        const QPoint inside = f.graticuleTopLeft();
        const QRect cell(inside + QPoint(0, 60), QSize(200, 300));
        f.waveform->setFrozen(true);
        const QImage before = f.screen().copy(cell);
        f.input(formatOf(Curve::Hlg), "black");
        setPresentation(f, Presentation::Overlay);
        f.write(f.emptyPicture());
        QCOMPARE(f.screen().copy(cell), before);
        f.waveform->setFrozen(false);
        QVERIFY(f.screen().copy(cell) != before);
    }

    /// A held trace keeps its levels where the graticule changes around it.
    void theReferenceMovesWithTheScale()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv), "bars-75");
        f.draw();
        f.waveform->actions().holdTrace->press();
        f.write(f.emptyPicture());
        const auto& graticule = f.waveform->graticule();
        const auto isBrownAt = [&](double level) {
            const QPoint place = f.graticuleTopLeft()
                + QPoint(graticule.xAxisPosToScreenPos(5000), graticule.yPercentToScreenY(level));
            const QColor colour(f.screen().pixel(place));
            return colour.red() > 150 && colour.blue() < 60 && colour.green() > 80;
        };
        QTRY_VERIFY(isBrownAt(75.0));
        QVERIFY(!isBrownAt(72.0));
        f.waveform->fromConfigCoreWaveformVerticalMagnificationUpdated({QStringLiteral("1.5")}, {}, true);
        QVERIFY(isBrownAt(75.0));
        setPresentation(f, Presentation::Stacked);
        f.window->setBounds({0, 0, 1920, 1080});
        QVERIFY(isBrownAt(75.0));
        // A component that was not held is not there.
        f.waveform->fromConfigCoreWaveformDisplayModeUpdated(number(2), {}, true);
        QVERIFY(!isBrownAt(75.0));
    }

    void showsWhatDoesNotFitAsNothing()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv));
        QImage red(100, 100, QImage::Format_ARGB32_Premultiplied);
        red.fill(Qt::red);
        const QImage before = f.screen();
        f.write(red);
        QTest::qWait(50);
        QCOMPARE(f.screen(), before);
        QTRY_VERIFY(f.screen() != before); // it says so
        f.draw();
        QTRY_COMPARE(f.waveform->picture().state(), FeedPicture::State::Live);
        f.stopWriter();
        QTRY_COMPARE(f.waveform->picture().state(), FeedPicture::State::Stale);
        f.screen();
    }

    void keepsWhatIsItsOwn()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv), "bars-100");
        f.draw();
        const auto& actions = f.waveform->actions();
        actions.cursors->choose(QStringLiteral("2"));
        actions.cursorAdjustment->choose(QStringLiteral("1"));
        actions.refPosition->choose(QStringLiteral("12.34"));
        actions.setReference->press();
        actions.peakWhite->choose(QStringLiteral("4000"));
        actions.holdTrace->press();
        SerialisableDataPacket saved = f.waveform->getWidgetStatesAsPreset();
        const QImage before = f.screen();

        actions.refPosition->choose(QStringLiteral("1"));
        actions.peakWhite->choose(QStringLiteral("0"));
        actions.clearTrace->press();
        QVERIFY(f.screen() != before);
        QSignalSpy written(f.waveform, &Waveform::toConfigCoreWaveformDisplayMode);
        f.waveform->loadWidgetStatesFromPreset(saved);
        QCOMPARE(f.screen(), before);
        QCOMPARE(f.waveform->getWidgetStatesAsPreset().serialise(), saved.serialise());
        QVERIFY(written.isEmpty());
    }

    void damagedPresetsAreTakenAsFarAsTheyGo()
    {
        WaveformFixture f;
        WaveformClientPreset preset;
        preset.setSetting(QLatin1String("refCursorY"), 1e9);
        preset.setSetting(QLatin1String("deltaCursorY"), QStringLiteral("x"));
        preset.setSetting(QLatin1String("percentReference"), -1e9);
        preset.setSetting(QLatin1String("readOutCorner"), 7);
        preset.setSetting(QLatin1String("measurementCursors"), QStringLiteral("9"));
        preset.setReferenceTrace({{QStringLiteral("picture"), QStringLiteral("iVBORw0KGgo=")},
                                  {QStringLiteral("width"), 960},
                                  {QStringLiteral("height"), 510},
                                  {QStringLiteral("presentation"), 0},
                                  {QStringLiteral("components"), QJsonArray{0, 1, 2}},
                                  {QStringLiteral("view"), QJsonArray{1, 0, 1, 0}}});
        preset.setSetting(QLatin1String("ofALaterVersion"), true);
        f.waveform->loadWidgetStatesFromPreset(preset);
        const WaveformClientPreset now(f.waveform->getWidgetStatesAsPreset());
        QCOMPARE(now.getCursorPosition(Axis::Y, Cursor::Reference), MeasurementCursors::most(Axis::Y));
        QCOMPARE(now.getCursorPosition(Axis::Y, Cursor::Delta), 100000);
        QVERIFY(!now.containsReferenceTrace());
        QVERIFY(f.waveform->graticule().readOut().rows.empty());
    }

    void elementsOfWrongTypeOrRange()
    {
        for (const char* const text : {"", "x", "-1", "9999", "nan", "1e999", "true"}) {
            WaveformFixture f;
            f.input(formatOf(Curve::SdrTv));
            const QStringList value{QString::fromLatin1(text)};
            Waveform& w = *f.waveform;
            const QSize size = w.graticule().display().geometry().imageRect().size();
            for (const auto slot : {&Waveform::fromConfigCoreWaveformDisplayModeUpdated,
                                    &Waveform::fromConfigCoreWaveformPresentationModeUpdated,
                                    &Waveform::fromConfigCoreWaveformVerticalScaleModeUpdated,
                                    &Waveform::fromConfigCoreWaveformVerticalMagnificationUpdated,
                                    &Waveform::fromConfigCoreWaveformHorizontalMagnificationUpdated,
                                    &Waveform::fromConfigCoreWaveformHorizontalPositionUpdated,
                                    &Waveform::fromConfigCoreWaveformUserMarkerLumaRgb1Updated,
                                    &Waveform::fromConfigCoreWaveformCustomDisplayModeUpdated,
                                    &Waveform::fromConfigCoreWaveformBlenderGainsUpdated,
                                    &Waveform::fromConfigCorePictureCursorPositionUpdated,
                                    &Waveform::fromConfigCorePayloadIdTransferCurveOverrideUpdated,
                                    &Waveform::fromStatusCoreActive2110StandardUpdated})
                (w.*slot)(value, {}, true);
            QCOMPARE(w.graticule().display().geometry().imageRect().size(), size);
            w.fromStatusCoreActiveSdiStandardUpdated({value.first(), value.first(), value.first()}, {}, true);
            f.screen();
        }
    }

    void worksWithoutWhatAnInstrumentLacks()
    {
        WaveformFixture f;
        f.waveform->fromConfigCoreWaveformDisplayModeUpdated({}, {}, false);
        f.waveform->fromConfigCoreWaveformPresentationModeUpdated({}, {}, false);
        f.waveform->fromConfigCoreAnalyserModeUpdated({}, {}, false);
        f.input(formatOf(Curve::Hlg));
        QCOMPARE(int(f.waveform->graticule().display().channels.size()), 3);
        f.draw();
        f.connection.noteLost();
        f.screen();
        f.connectInstrument();
        f.screen();
    }

    void networkPicturesAreFollowed()
    {
        WaveformFixture f;
        const QStringList items{
            QStringLiteral("3840"),  QStringLiteral("2160"),   QStringLiteral("YCbCr-4:2:2"),
            QStringLiteral("10"),    QStringLiteral("NARROW"), QStringLiteral("BT2100"),
            QStringLiteral("false"), QStringLiteral("false"),  QStringLiteral("PQ"),
            QStringLiteral("50"),    QStringLiteral("1"),      QStringLiteral("true"),
            QStringLiteral("true")};
        f.waveform->fromConfigCoreAnalyserModeUpdated({QStringLiteral("IP 2110")}, {}, true);
        f.waveform->fromStatusCoreActive2110StandardUpdated(items, {}, true);
        const WaveformSignal& signal = f.waveform->graticule().display().signal;
        QCOMPARE(signal.transferCurve, Curve::Pq);
        QCOMPARE(signal.width, 3840);
        QCOMPARE(signal.sampleRate, 594e6);
        f.waveform->fromStatusCore2110VideoLossUpdated({QStringLiteral("true")}, {}, true);
        QVERIFY(!f.waveform->graticule().display().signal.isPresent);
    }
};

WZ_TEST_CLASS(tst_Waveform)
#include "tst_Waveform.moc"
