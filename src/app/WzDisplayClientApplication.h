#pragma once

#include "app/WzClientApplicationBase.h"
#include "app/WzDisplayClientGuiManager.h"

#include <memory>

class MainWindowBase;
class WzCustomStyle;

/// The display client.
class WzDisplayClientApplication : public WzClientApplicationBase {
    Q_OBJECT
public:
    WzDisplayClientApplication(int& argc, char** argv);
    ~WzDisplayClientApplication() override;

    int clientType() const override { return ApplicationState::kDisplayClient; }
    WzDisplayClientGuiManager& getGuiManager() { return *m_guiManager; }
    /// Null before initialise().
    MainWindowBase* getMainWindowBase() const;
    /// Null when another style was installed.
    WzCustomStyle* getWzStyle() const;

    /// Measures what events cost, while somebody wants to know.
    bool notify(QObject* receiver, QEvent* event) override;

public slots:
    /// Builds the user interface and points the network manager at the server. To be called once, from the
    /// event loop. @p fullScreen: the main window takes the whole screen, unless "-Dwindowed=true".
    void initialise(bool fullScreen);

private:
    void connectPresets();
    void connectToServer();
    void openConsole();

    std::unique_ptr<WzDisplayClientGuiManager> m_guiManager;
};
