#include "instruments/datacorebrowser/DatacoreTreeModel.h"
#include "instruments/datacorebrowser/DatacoreTreeView.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreMonitor.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "network/NetworkConnection.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <ctime>

// 10,000 nodes of which 5,000 a second change, in a browser that shows them twenty times a second: the share
// of one core, of which the nodes' own part is measured beside it.

namespace {

constexpr int kNodes = 10'000;
constexpr int kGroup = 100;
constexpr int kChangesPerShow = 250;
constexpr double kShowSeconds = 0.05;

class Browser {
public:
    explicit Browser(bool looks)
        : connection(nullptr, false)
        , monitor(connection)
        , registry(connection)
        , model(registry)
        , view(style, model, nullptr)
    {
        QStringList paths{QStringLiteral("statusCoreRouter")};
        for (int i = 0; i < kNodes; ++i) {
            const QString group = QStringLiteral("statusCoreRouter/group%1").arg(i / kGroup, 3);
            if (i % kGroup == 0)
                paths << group;
            paths << group + QStringLiteral("/node%1").arg(i);
        }
        registry.populateRegistry(paths, monitor);
        for (const QString& path : paths)
            nodes.push_back(registry.lookupDatacoreFromPath(path));
        model.setWatching(looks);
        view.resize(1920, 1000);
        view.setLayoutFor(1920);
        view.show();
        view.expandAll();
        QApplication::processEvents();
    }

    void change()
    {
        for (int i = 0; i < kChangesPerShow; ++i) {
            next = (next + 37) % nodes.size();
            nodes[next]->populateConnectedGuiElements();
        }
    }

    WzDisplayCustomStyle style;
    NetworkConnection connection;
    ClientDatacoreMonitor monitor;
    ClientDatacoreRegistry registry;
    DatacoreTreeModel model;
    DatacoreTreeView view;
    std::vector<ClientDatacore*> nodes;
    std::size_t next = 0;
};

void reportShare(benchmark::State& state, std::clock_t begin)
{
    const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
    state.counters["percent_of_one_core"] =
        100 * seconds / (static_cast<double>(state.iterations()) * kShowSeconds);
}

void nodesAlone(benchmark::State& state)
{
    Browser browser(false);
    const std::clock_t begin = std::clock();
    for (auto _ : state)
        browser.change();
    reportShare(state, begin);
}
BENCHMARK(nodesAlone);

void shownBrowser(benchmark::State& state)
{
    Browser browser(true);
    const std::clock_t begin = std::clock();
    for (auto _ : state) {
        browser.change();
        browser.view.showChanges();
        QApplication::processEvents();
    }
    reportShare(state, begin);
}
BENCHMARK(shownBrowser);

/// All rows in sight change each time, as in a small tree of meters.
void allRowsInSightChange(benchmark::State& state)
{
    Browser browser(true);
    const std::clock_t begin = std::clock();
    for (auto _ : state) {
        for (std::size_t i = 0; i < kChangesPerShow; ++i)
            browser.nodes[i]->populateConnectedGuiElements();
        browser.view.showChanges();
        QApplication::processEvents();
    }
    reportShare(state, begin);
}
BENCHMARK(allRowsInSightChange);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
