#pragma once

#include "datacore/ClientDatacoreRegistry.h"
#include "datacore/DatacoreGuiConnectionsManager.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/style/WzCustomStyle.h"
#include "network/NetworkConnection.h"

#include <QStringList>

/// A content that keeps a text and counts what happens to it.
class TestContent : public WzSubwindowContent {
    Q_OBJECT
public:
    TestContent(WzSubWindow& window, const QString& className);

    SerialisableDataPacket getWidgetStatesAsPreset() override;
    void loadWidgetStatesFromPreset(SerialisableDataPacket& preset) override;
    void setActive(bool isActive) override { active = isActive; }
    bool ownsPressAt(const QPoint& position) const override { return handle.contains(position); }

    using WzSubwindowContent::noteDataArrived;
    using WzSubwindowContent::setLostCount;
    using WzSubwindowContent::setUpdatesDue;

    QString text;
    bool active = false;
    int paints = 0;
    int presses = 0;
    QRect handle;
    QList<bool> exposures;
    QList<int> staleSeconds;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void onExposedChanged(bool isExposed) override { exposures.append(isExposed); }
    void onStaleChanged(int seconds) override { staleSeconds.append(seconds); }
};

/// A main window with an instrument area and a manager of windows, with a catalogue of its own, as the
/// display client has them, without its bars.
class WindowFixture : public MainWindowBase {
    Q_OBJECT
public:
    /// The area has that size and is shown.
    explicit WindowFixture(const QSize& size = {1920, 1080});
    ~WindowFixture() override;

    void showNotice(const QString& icon, const QString& text, const QString& detail) override;
    void askForText(const QString&, const QString&, QObject*,
                    std::function<void(const QString&)> accepted) override
    {
        answerText = std::move(accepted);
    }
    void editSetting(Setting& setting) override { edited = &setting; }

    /// Adds a kind of test window to the catalogue.
    const SupportedSubWindow& addKind(const QString& title, int maximumInstances = 16, bool scalable = false);
    /// Opens a window as the launcher would; null when none came.
    WzSubWindow* open(const QString& title);
    static TestContent& contentOf(const WzSubWindow* window);
    /// The connection stands and all nodes have a value.
    void connectInstrument();
    QStringList layoutNames() const;

    ApplicationState state{ApplicationState::kDisplayClient};
    ConnectionStatus connection;
    NetworkConnection network{nullptr, false};
    ClientDatacoreRegistry registry{network};
    DatacoreGuiConnectionsManager connections{registry};
    SupportedSubWindows catalogue{Velmora::Wz::Device::full()};
    WzMdiArea area;
    WzSubWindowManager manager;
    QStringList notices;
    Setting* edited = nullptr;
    std::function<void(const QString&)> answerText;
};
