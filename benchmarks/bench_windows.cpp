#include "gui/support/WindowFixture.h"

#include "datacore/DatacoreModelConnectionsManager.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "instruments/Catalogue.h"
#include "instruments/InstrumentServices.h"
#include "instruments/diagnostics/ClientFigures.h"
#include "instruments/eventlog/EventLogModel.h"
#include "logging/Logging.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QRubberBand>

// Sixteen windows of real instruments on a screen of the design size, drawn offscreen.
// Limits: a frame of a drag in 20 ms (50 a second), a layout of sixteen windows rebuilt in 100 ms.

namespace {

class Screen : public WindowFixture {
public:
    Screen()
        : m_models(registry)
        , m_services{registry, connections, m_models, m_handler, catalogue.device(), m_events, m_figures}
    {
        addInstruments(catalogue, m_services);
        for (const SupportedSubWindow& kind : catalogue.getAvailableSubWindows()) {
            for (int i = 0; i < kind.maximumInstances && area.wzSubWindows().size() < 16; ++i)
                manager.onDefaultWindowRequested(kind.windowTitle, kind.contentClassName, kind.role);
        }
        int cell = 0;
        for (WzSubWindow* const window : area.wzSubWindows())
            window->setBounds(WzSubWindow::screenSedecimants().at(cell++));
        QApplication::processEvents();
    }

private:
    DatacoreModelConnectionsManager m_models;
    WzClientSequencePackagedLogPacketHandler m_handler;
    EventLogModel m_events;
    ClientFigures m_figures;
    InstrumentServices m_services;
};

void sendMouse(QWidget* target, QEvent::Type type, const QPoint& global)
{
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, target->mapFromGlobal(global), global, isMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

/// One step of a window's title over the whole screen, until the frame is drawn.
void dragOverFifteenOthers(benchmark::State& state)
{
    Screen screen;
    WzSubWindow* const window = screen.area.wzSubWindows().front();
    QWidget* const title = window->childAt(40, 10);
    QPoint position = title->mapToGlobal(QPoint(40, 10));
    sendMouse(title, QEvent::MouseButtonPress, position);
    QPoint step(9, 5);
    for (auto _ : state) {
        position += step;
        if (!screen.rect().adjusted(40, 40, -40, -40).contains(screen.mapFromGlobal(position)))
            step = position.x() > 1000 ? QPoint(-9, -5) : QPoint(9, 5);
        sendMouse(title, QEvent::MouseMove, position);
        QApplication::processEvents();
    }
    if (!screen.area.viewport()->findChild<QRubberBand*>())
        state.SkipWithError("the drag has not begun");
    sendMouse(title, QEvent::MouseButtonRelease, position);
}
BENCHMARK(dragOverFifteenOthers)->Unit(benchmark::kMillisecond);

/// From one layout of sixteen windows to another one, nothing of which is open yet, until it is drawn.
void rebuildSixteenWindows(benchmark::State& state)
{
    Screen screen;
    screen.manager.duplicateLayout(0);
    screen.manager.addLayoutAtEnd(QStringLiteral("Empty"));
    for (auto _ : state) {
        state.PauseTiming();
        screen.manager.setCurrentWindowLayout(2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        state.ResumeTiming();
        screen.manager.setCurrentWindowLayout(1);
        QApplication::processEvents();
    }
}
BENCHMARK(rebuildSixteenWindows)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Velmora::initLogging(false, "");
    QApplication::setStyle(new WzDisplayCustomStyle);
    QApplication application(argc, argv);
    initiateFonts();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
