#include "instruments/Catalogue.h"

#include "datacore/DatacoreModelConnectionsManager.h"
#include "gui/style/Icons.h"
#include "gui/support/WindowFixture.h"
#include "instruments/InstrumentServices.h"
#include "instruments/diagnostics/ClientFigures.h"
#include "instruments/eventlog/EventLogModel.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"
#include "presets/WzSubWindowContentPreset.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFile>
#include <QSet>

#include <algorithm>
#include <memory>

namespace {

/// A screen with the catalogue of the application, without an instrument.
class Screen : public WindowFixture {
public:
    Screen()
        : m_models(registry)
        , m_services{registry, connections, m_models, m_handler, catalogue.device(), m_events, m_figures}
    {
        addInstruments(catalogue, m_services);
    }
    /// Windows go before what is lent to them.
    ~Screen() override { qDeleteAll(area.wzSubWindows()); }

    /// A window of the kind; null when none came.
    WzSubWindow* openOne(const SupportedSubWindow& kind)
    {
        manager.onDefaultWindowRequested(kind.windowTitle, kind.contentClassName, kind.role);
        const auto windows = area.wzSubWindows();
        return !windows.empty() && kind.isKindOf(*windows.back()) ? windows.back() : nullptr;
    }

private:
    DatacoreModelConnectionsManager m_models;
    WzClientSequencePackagedLogPacketHandler m_handler;
    EventLogModel m_events;
    ClientFigures m_figures;
    InstrumentServices m_services;
};

} // namespace

/// What holds for every kind of window, so that a new one needs no test of it.
class tst_Catalogue : public WzTest {
    Q_OBJECT
private slots:
    void init()
    {
        WzTest::init();
        m_screen = std::make_unique<Screen>();
    }
    void cleanup()
    {
        m_screen.reset();
        WzTest::cleanup();
    }

    void linesAreWhatTheirWindowsAre()
    {
        QSet<QString> titles;
        QSet<QString> presetClasses;
        for (const SupportedSubWindow& kind : m_screen->catalogue.getAvailableSubWindows()) {
            WzSubWindow* const window = m_screen->openOne(kind);
            QVERIFY2(window, qPrintable(kind.windowTitle));
            WzSubwindowContent* const content = window->content();
            QCOMPARE(content->getClass(), kind.contentClassName);
            QVERIFY2(QFile::exists(Icons::path(kind.icon)), qPrintable(kind.icon));
            QVERIFY2(content->helpText().contains(QLatin1String("<h3>") + kind.windowTitle),
                     qPrintable(kind.windowTitle));
            QVERIFY2(!titles.contains(kind.windowTitle), qPrintable(kind.windowTitle));
            titles.insert(kind.windowTitle);
            const QString presetClass = content->getWidgetStatesAsPreset().getPacketClassName();
            if (presetClass == WzSubWindowContentPreset::kClassName)
                continue; // keeps nothing
            QVERIFY2(!presetClasses.contains(presetClass), qPrintable(presetClass));
            presetClasses.insert(presetClass);
        }
        QVERIFY(!titles.isEmpty());
    }

    /// Their state goes round, other states are left alone, and none needs an instrument.
    void statesComeBack()
    {
        SerialisableDataPacket foreign(QStringLiteral("OfAnotherClass"));
        for (const SupportedSubWindow& kind : m_screen->catalogue.getAvailableSubWindows()) {
            WzSubWindow* const window = m_screen->openOne(kind);
            QVERIFY2(window, qPrintable(kind.windowTitle));
            WzSubwindowContent* const content = window->content();
            SerialisableDataPacket state = content->getWidgetStatesAsPreset();
            content->loadWidgetStatesFromPreset(foreign);
            content->loadWidgetStatesFromPreset(state);
            QCOMPARE(content->getWidgetStatesAsPreset().serialise(), state.serialise());
            content->setFrozen(true);
            content->setExposed(false);
            content->setExposed(true);
            content->setFrozen(false);
            QVERIFY(!content->grab().isNull());
        }
    }

    /// Scripts open windows by number.
    void eachNumberOpensOneKind()
    {
        for (int number = numberOf(NumberedCommand::OpenWaveform);
             number <= numberOf(NumberedCommand::OpenDiagnostics); ++number) {
            const auto& kinds = m_screen->catalogue.getAvailableSubWindows();
            const auto count = std::count_if(kinds.begin(), kinds.end(), [number](const auto& kind) {
                return kind.command && numberOf(*kind.command) == number;
            });
            QVERIFY2(count == 1, qPrintable(QString::number(number)));
        }
    }

private:
    std::unique_ptr<Screen> m_screen;
};

WZ_TEST_CLASS(tst_Catalogue)

#include "tst_Catalogue.moc"
