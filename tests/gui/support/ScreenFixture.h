#pragma once

#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionButton.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/support/WindowFixture.h"

#include <QApplication>
#include <QTest>

/// The screen of the display client with two windows of a kind named "Scope".
struct ScreenFixture {
    ScreenFixture()
    {
        SupportedSubWindow kind;
        kind.windowTitle = QStringLiteral("Scope");
        kind.contentClassName = QStringLiteral("ScopeContent");
        kind.maximumInstances = 2;
        kind.makeContent = [](WzSubWindow& subWindow) {
            return new TestContent(subWindow, QStringLiteral("ScopeContent"));
        };
        catalogue.add(kind);
        window.resize(1920, 1080);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        for (int i = 0; i < 2; ++i)
            catalogue.request(kind);
    }

    WzSubwindowContent& active() const { return *window.area().activeWzSubWindow()->content(); }
    std::size_t windowCount() const { return window.windows().getVisibleOpenWindows().size(); }

    QStringList labels() const
    {
        QStringList labels;
        for (quint32 i = 0; i < FunctionBar::kButtons; ++i)
            labels << window.functionBar().button(i)->label();
        labels.removeAll(QString());
        return labels;
    }

    /// Presses the key of the button with that label.
    void press(const char* label) const
    {
        for (quint32 i = 0; i < FunctionBar::kButtons; ++i) {
            if (window.functionBar().button(i)->label() == QLatin1String(label)) {
                key(static_cast<Qt::Key>(Qt::Key_F1 + static_cast<int>(i)));
                return;
            }
        }
        QFAIL(qPrintable(labels().join(QLatin1Char('|'))));
    }
    /// Presses keys one after the other, each where the focus is then.
    template<typename... Keys>
    void key(Keys... keys) const
    {
        (QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, keys), ...);
    }

    ApplicationState state{ApplicationState::kDisplayClient};
    ConnectionStatus connection;
    NetworkConnection network{nullptr, false};
    ClientDatacoreRegistry registry{network};
    DatacoreGuiConnectionsManager connections{registry};
    SupportedSubWindows catalogue{Velmora::Wz::Device::full()};
    mutable DisplayMainWindow window{state, connection, *qobject_cast<WzCustomStyle*>(QApplication::style()),
                                     connections, catalogue};
};
