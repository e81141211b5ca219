#include "datacore/ClientDatacoreMonitor.h"
#include "datacore/DatacoreGuiConnectionsManager.h"
#include "datacore/DatacoreModelConnectionsManager.h"

#include "network/NetworkConnection.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using ServerCommon::DatacoreTree;

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// Stands for a tool bar.
class Window : public QObject {
    Q_OBJECT
public:
    QStringList seen;

public slots:
    void fromStatusCoreModeUpdated(QStringList values, QStringList /*reasons*/, bool /*active*/)
    {
        seen << values.join(QLatin1Char(','));
    }

signals:
    void toConfigCoreEnabledToggled(bool enabled);
};

class WindowConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override
    {
        linkTo(m_mode, "systemStatus/mode", DatacoreTree::Status);
        linkTo(m_enabled, "/vnc/enabled", DatacoreTree::Configuration);
        linkTo(m_missing, "vnc/colour", DatacoreTree::Configuration);
        m_plain = getDatacoreFromOrphanedPathAndRegisterUsage(text("go"), DatacoreTree::Command);
    }

    int connectWindowToDatacores(Window* window) const
    {
        return m_mode.toWindow(window, &Window::fromStatusCoreModeUpdated)
            + m_enabled.fromWindow(window, &Window::toConfigCoreEnabledToggled, &ClientDatacore::setDataBool)
            + m_missing.toWindow(window, &Window::fromStatusCoreModeUpdated);
    }

    ClientDatacore* m_plain = nullptr;

private:
    DatacoreLink m_mode;
    DatacoreLink m_enabled;
    DatacoreLink m_missing;
};

const QStringList kPaths{QStringLiteral("statusCoreRouter/systemStatus/mode"),
                         QStringLiteral("configCoreRouter/vnc/enabled"),
                         QStringLiteral("commandCoreRouter/go")};

} // namespace

class tst_DatacoreConnections : public WzTest {
    Q_OBJECT

private slots:
    void looksUpByTree_data()
    {
        QTest::addColumn<int>("tree");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("found");
        QTest::addColumn<QString>("line");
        const auto row = [](int tree, const char* path, const char* found, const char* line) {
            QTest::addRow("%d %s", tree, path) << tree << text(path) << text(found) << text(line);
        };
        row(0, "a", "configCoreRouter/a", "");
        row(1, "a", "statusCoreRouter/a", "");
        row(2, "/a", "nonPersistentConfigCoreRouter/a", "");
        row(3, "a", "commandCoreRouter/a", "");
        row(4, "a", "persistentConfigCoreRouter/a", "");
        row(4, "b", "", "W Invalid path, constructed from persistentConfigCoreRouter and b");
        row(0, "", "", "W Invalid path, constructed from configCoreRouter and ");
        row(5, "a", "", "E Invalid server side datatree specified");
        row(-1, "a", "", "E Invalid server side datatree specified");
    }
    void looksUpByTree()
    {
        QFETCH(int, tree);
        QFETCH(QString, path);
        QFETCH(QString, found);
        QFETCH(QString, line);
        if (line.startsWith(QLatin1String("E ")))
            log().expectError(line.mid(2));
        NetworkConnection connection(nullptr, false);
        ClientDatacoreRegistry registry(connection);
        const ClientDatacoreMonitor monitor(connection);
        WindowConnectionBuilder builder(registry);
        registry.populateRegistry({text("configCoreRouter/a"), text("statusCoreRouter/a"),
                                   text("nonPersistentConfigCoreRouter/a"), text("commandCoreRouter/a"),
                                   text("persistentConfigCoreRouter/a")},
                                  monitor);
        log().clear();
        const auto* const node =
            builder.getDatacoreFromOrphanedPathAndRegisterUsage(path, DatacoreTree(tree));
        QCOMPARE(node ? node->getDatacorePathOnServer() : QString(), found);
        QCOMPARE(log().lines(), line.isEmpty() ? QStringList() : QStringList(line));
    }

    void connectsBothWaysAndAnew()
    {
        NetworkConnection connection(nullptr, false);
        ClientDatacoreRegistry registry(connection);
        const ClientDatacoreMonitor monitor(connection);
        DatacoreGuiConnectionsManager manager(registry);
        auto* const builder = manager.add<WindowConnectionBuilder>();
        QCOMPARE(manager.builder<WindowConnectionBuilder>(), builder);
        Window window;
        QCOMPARE(builder->connectWindowToDatacores(&window), 0);

        for (int population = 0; population < 2; ++population) {
            registry.populateRegistry(kPaths, monitor);
            QVERIFY(log().contains(text("Invalid path, constructed from configCoreRouter and vnc/colour")));
            QCOMPARE(builder->connectWindowToDatacores(nullptr), 0);
            QCOMPARE(builder->connectWindowToDatacores(&window), 2);
            builder->m_plain->setDataString(text("x"));
            registry.lookupDatacoreFromPath(kPaths[0])->setDataString(text("mode"));
            QCOMPARE(window.seen, QStringList{text("mode")});
            emit window.toConfigCoreEnabledToggled(true);
            QCOMPARE(registry.lookupDatacoreFromPath(kPaths[1])->getData(), text("true"));

            window.seen.clear();
            builder->requestUtilisedDatacoresPopulateConnectedGuiItems();
            QCOMPARE(window.seen, QStringList{text("mode")});
            window.seen.clear();

            registry.clearRegistry();
            builder->requestUtilisedDatacoresPopulateConnectedGuiItems();
            QVERIFY(window.seen.isEmpty());
            QCOMPARE(builder->connectWindowToDatacores(&window), 0);
            emit window.toConfigCoreEnabledToggled(false);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            emit window.toConfigCoreEnabledToggled(false);
        }
    }

    /// Whoever hears of the population through a manager finds every builder ready, also the last one added.
    void managersSpeakAfterTheirBuilders()
    {
        NetworkConnection connection(nullptr, false);
        ClientDatacoreRegistry registry(connection);
        const ClientDatacoreMonitor monitor(connection);
        DatacoreModelConnectionsManager manager(registry);
        QStringList events;
        connect(&manager, &DatacoreModelConnectionsManager::registryHasBeenPopulated, this,
                [&] { events << text("populated"); });
        connect(&manager, &DatacoreModelConnectionsManager::registryHasBeenCleared, this,
                [&] { events << text("cleared"); });
        for (int i = 0; i < 2; ++i) {
            auto* const builder = manager.add<WindowConnectionBuilder>();
            connect(builder, &WindowConnectionBuilder::connectionToDatacoresGained, this,
                    [&] { events << text("gained"); });
            connect(builder, &WindowConnectionBuilder::connectionToDatacoresLost, this,
                    [&] { events << text("lost"); });
        }
        registry.populateRegistry(kPaths, monitor);
        registry.clearRegistry();
        QCOMPARE(events.join(QLatin1Char(' ')), text("gained gained populated lost lost cleared"));

        registry.populateRegistry(kPaths, monitor);
        QVERIFY(manager.add<WindowConnectionBuilder>()->m_plain);
    }

    void connectsOnlyWhatIsThere()
    {
        Window window;
        ClientDatacore* const none = nullptr;
        const auto connectBoth = [](auto* sender, auto* receiver) {
            return DatacoreConnectionBuilderBase::connectIfNotNull(
                sender, &ClientDatacore::datacoreUpdated, receiver, &Window::fromStatusCoreModeUpdated);
        };
        QVERIFY(!connectBoth(none, &window));
        const std::unique_ptr<ClientDatacore> node(ClientDatacore::makeClientDatacoreRoot(text("a")));
        QVERIFY(!connectBoth(node.get(), static_cast<Window*>(nullptr)));
        QVERIFY(connectBoth(node.get(), &window));
        node->setDataString(text("1"));
        QCOMPARE(window.seen, QStringList{text("1")});
    }
};

WZ_TEST_CLASS(tst_DatacoreConnections)
#include "tst_DatacoreConnections.moc"
