#include "gui/shell/DisplayMainWindow.h"
#include "instruments/waveform/WaveformCursorPainter.h"
#include "instruments/waveform/WaveformFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSignalSpy>

using Curve = Velmora::Sdi::PayloadId::TransferCurve;

namespace {

void drag(QWidget& widget, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::mousePress(&widget, Qt::LeftButton, modifiers, from);
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, modifiers);
    QApplication::sendEvent(&widget, &move);
}

void wheel(QWidget& widget, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const QPoint centre = widget.rect().center();
    QWheelEvent event(centre, widget.mapToGlobal(centre), {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

class tst_WaveformCursors : public WzTest {
    Q_OBJECT
private slots:
    void cursorsAreDraggedAndSnap()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv));
        f.waveform->actions().cursors->choose(QStringLiteral("2"));
        auto& graticule = f.waveform->graticule();
        const auto reading = [&graticule] { return graticule.readOut().rows.front().values.front(); };
        const auto y = [&graticule](double percent) { return graticule.yPercentToScreenY(percent); };
        const QPoint line(30, y(0.0));
        drag(graticule, line, {30, y(50.5)});
        QCOMPARE(reading(), QStringLiteral("50.0%"));
        QTest::mouseRelease(&graticule, Qt::LeftButton);
        drag(graticule, {30, y(50.0)}, {30, y(51.0)}, Qt::ShiftModifier);
        QCOMPARE(reading(), QStringLiteral("51.0%"));
        QTest::mouseRelease(&graticule, Qt::LeftButton);
        // Where it was not taken hold of it stays.
        drag(graticule, {30, y(25.0)}, {30, y(80.0)});
        QTest::mouseRelease(&graticule, Qt::LeftButton);
        QCOMPARE(reading(), QStringLiteral("51.0%"));
        wheel(graticule, 2);
        QCOMPARE(reading(), QStringLiteral("51.2%"));
        wheel(graticule, -1, Qt::ShiftModifier);
        QCOMPARE(reading(), QStringLiteral("50.2%"));
        QTest::keyClick(&graticule, Qt::Key_Down);
        QCOMPARE(reading(), QStringLiteral("50.1%"));
        QTest::keyClick(&graticule, Qt::Key_Right); // to the delta cursor
        QTest::keyClick(&graticule, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(graticule.readOut().rows.at(1).values.front(), QStringLiteral("99.0%"));
        QCOMPARE(f.waveform->actions().differential->value(), QStringLiteral("48.90"));

        f.waveform->actions().setReference->press();
        f.waveform->actions().cursorScaleY->choose(QStringLiteral("1"));
        QCOMPARE(reading(), QStringLiteral("0.0%[REF]"));
        f.waveform->actions().resetReference->press();
        QCOMPARE(reading(), QStringLiteral("50.1%[REF]"));
    }

    /// From the front panel: an arrow leads to the cursors, OK takes them, the knob moves one.
    void theKnobMovesCursors()
    {
        SupportedSubWindow kind;
        kind.windowTitle = QStringLiteral("Waveform");
        kind.contentClassName = QString(Waveform::kClassName);
        kind.makeContent = [](WzSubWindow& subWindow) {
            return new Waveform(&subWindow, Velmora::Wz::Device::full());
        };
        ApplicationState state{ApplicationState::kDisplayClient};
        ConnectionStatus connection;
        NetworkConnection network{nullptr, false};
        ClientDatacoreRegistry registry{network};
        DatacoreGuiConnectionsManager connections{registry};
        SupportedSubWindows catalogue{Velmora::Wz::Device::full()};
        catalogue.add(kind);
        DisplayMainWindow screen(state, connection, *qobject_cast<WzCustomStyle*>(QApplication::style()),
                                 connections, catalogue);
        screen.resize(1920, 1080);
        screen.show();
        screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&screen));
        catalogue.request(kind);
        auto* const waveform = qobject_cast<Waveform*>(screen.area().activeWzSubWindow()->content());
        waveform->actions().cursors->choose(QStringLiteral("1"));
        const auto key = [&screen](Qt::Key pressed) {
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &screen, pressed);
        };
        key(Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), &waveform->graticule());
        key(Qt::Key_Return);
        key(Qt::Key_PageUp);
        key(Qt::Key_PageUp);
        QCOMPARE(waveform->graticule().readOut().rows.front().values.front(), QStringLiteral("0.2%"));
        key(Qt::Key_Up);
        QCOMPARE(waveform->graticule().readOut().rows.front().values.front(), QStringLiteral("0.3%"));
    }

    /// Wherever the finger is, the figures are to be seen and not below it.
    void figuresStandBesideTheFinger()
    {
        for (const QSize size : {QSize(480, 270), QSize(960, 540), QSize(1920, 1080)}) {
            WaveformFixture f(size);
            f.input(formatOf(Curve::Hlg));
            const WaveformDisplay& display = f.waveform->graticule().display();
            const auto geometry = display.geometry();
            MeasurementCursors cursors;
            cursors.setShown(MeasurementCursors::Shown::Both);
            const WaveformCursorPainter painter(geometry, geometry.cells(), cursors);
            f.waveform->actions().cursors->choose(QStringLiteral("2"));
            const CursorReadOut readOut = f.waveform->graticule().readOut();
            const QRect picture({0, 0}, geometry.imageRect().size());
            for (int x = 0; x < picture.width(); x += 40) {
                for (int y = 0; y < picture.height(); y += 40) {
                    const QRect place = painter.readOutRect(readOut, Qt::BottomLeftCorner, QPoint(x, y));
                    QVERIFY2(picture.contains(place), qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
                    QVERIFY(!place.contains(x, y));
                }
            }
        }
    }

    void aDragOutlivesWhatItMeasures()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::SdrTv));
        const auto& actions = f.waveform->actions();
        actions.cursors->choose(QStringLiteral("2"));
        auto& graticule = f.waveform->graticule();
        drag(graticule, {30, graticule.yPercentToScreenY(0.0)}, {30, graticule.yPercentToScreenY(40.0)});
        f.input(formatOf(Curve::Pq, Velmora::Sdi::PayloadId::BitDepth::Bits10, 2160));
        drag(graticule, {30, graticule.yPercentToScreenY(40.0)}, {30, graticule.yPercentToScreenY(60.0)});
        QCOMPARE(graticule.readOut().rows.front().values.front(), QStringLiteral("60.0%"));
        f.waveform->fromStatusCoreActiveSdiStandardUpdated({}, {}, true);
        actions.cursors->choose(QStringLiteral("0"));
        drag(graticule, {30, graticule.yPercentToScreenY(60.0)}, {30, graticule.yPercentToScreenY(20.0)});
        QTest::mouseRelease(&graticule, Qt::LeftButton);
        QVERIFY(graticule.readOut().rows.empty());
        f.window->setBounds({0, 0, 480, 270});
        f.screen();
    }

    void zoomsByTheWheelWithoutCursors()
    {
        WaveformFixture f;
        f.waveform->fromConfigCoreWaveformVerticalMagnificationUpdated({QStringLiteral("1")}, {}, true);
        f.waveform->fromConfigCoreWaveformHorizontalMagnificationUpdated({QStringLiteral("1")}, {}, true);
        QSignalSpy vertical(f.waveform, &Waveform::toConfigCoreWaveformVerticalMagnification);
        QSignalSpy horizontal(f.waveform, &Waveform::toConfigCoreWaveformHorizontalMagnification);
        wheel(f.waveform->graticule(), 1);
        QCOMPARE(vertical.takeLast().first().toDouble(), 1.5);
        QCOMPARE(horizontal.takeLast().first().toDouble(), 1.5);
        f.waveform->actions().zoomPan->choose(QStringLiteral("1"));
        wheel(f.waveform->graticule(), 1);
        QVERIFY(vertical.isEmpty());
        QCOMPARE(horizontal.size(), 1);
    }

    void levelsUnderThePointer()
    {
        WaveformFixture f;
        f.input(formatOf(Curve::Hlg));
        const auto& graticule = f.waveform->graticule();
        const QString luma =
            graticule.levelsAt({graticule.xAxisPosToScreenPos(50000), graticule.yPercentToScreenY(75.0)});
        QCOMPARE(luma,
                 QStringLiteral("Y\n75.0%  525mV\n721[DEC]  2D1[HEX]\n203Nits\n50.0%  960Pix  6.465us"));
        const QString chroma =
            graticule.levelsAt({graticule.xAxisPosToScreenPos(0, 1), graticule.yPercentToScreenY(0.0, 1)});
        QVERIFY2(chroma.startsWith(QLatin1String("Cb\n-50.0%  -350mV\n64[DEC]  40[HEX]\n0.0%")),
                 qPrintable(chroma));
        QVERIFY(graticule.levelsAt({-5, -5}).isEmpty());
    }
};

WZ_TEST_CLASS(tst_WaveformCursors)
#include "tst_WaveformCursors.moc"
