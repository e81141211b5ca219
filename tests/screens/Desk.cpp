#include "screens/Desk.h"

#include "app/WzDisplayClientApplication.h"
#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/Notice.h"
#include "gui/style/WzCustomStyle.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QTest>

namespace {

constexpr int kWaitMs = 20000;

WzDisplayClientApplication& application()
{
    return *qobject_cast<WzDisplayClientApplication*>(QCoreApplication::instance());
}

/// How much of its text a label shows less than it has; a text that is broken into lines finds room.
bool isCut(const QLabel& label)
{
    return !label.text().isEmpty() && !label.wordWrap() && label.sizeHint().width() > label.width();
}

bool isCut(const QAbstractButton& button)
{
    return !button.text().isEmpty() && button.sizeHint().width() > button.width()
        && button.fontMetrics().horizontalAdvance(button.text()) > button.width();
}

template<typename Widget>
void addCut(QStringList& texts, const QWidget& window)
{
    for (const Widget* const each : window.findChildren<Widget*>()) {
        if (each->isVisible() && !each->visibleRegion().isEmpty() && isCut(*each))
            texts << each->text();
    }
}

} // namespace

Desk::Desk()
    : m_application(application())
{
    if (!m_application.getMainWindowBase())
        m_application.initialise(true);
    m_window = qobject_cast<DisplayMainWindow*>(m_application.getMainWindowBase());
    m_window->resize(WzDisplayClientGuiManager::kDesignSize);
    m_window->activateWindow();
    (void)QTest::qWaitForWindowActive(m_window);
}

void Desk::setTheme(WzPalette::Theme theme)
{
    m_theme = theme == WzPalette::Theme::Dark ? QStringLiteral("dark") : QStringLiteral("light");
    m_window->wzStyle().setTheme(theme);
}

void Desk::clear() const
{
    while (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    panels().closePanel();
    m_window->findChild<Notice*>()->hide();
    windows().closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_window->showBars();
}

WzSubWindow* Desk::open(const QString& title, const QSize& size) const
{
    clear();
    for (const SupportedSubWindow& kind : windows().getAvailableSubWindows()) {
        if (kind.windowTitle == title)
            panels().catalogue().request(kind);
    }
    WzSubWindow* const window = m_window->area().activeWzSubWindow();
    if (window)
        window->setBounds({{0, 0}, size});
    return window;
}

WzSubwindowContent& Desk::content() const
{
    return *m_window->area().activeWzSubWindow()->content();
}

void Desk::openMain() const
{
    clear();
    const auto& kinds = windows().getAvailableSubWindows();
    for (std::size_t i = 0; i < 4 && i < kinds.size(); ++i)
        panels().catalogue().request(kinds[i]);
}

bool Desk::isConnected() const
{
    return m_window->connectionStatus().state() == ConnectionStatus::State::Connected;
}

bool Desk::write(const QString& path, const QString& value) const
{
    const auto node = [&] {
        return m_application.getDatacoreManager().getClientDatacoreRegistry().lookupDatacoreFromPath(path);
    };
    if (!node())
        return false;
    node()->setDataString(value);
    return QTest::qWaitFor([&] { return node() && node()->isInSyncWithServer(); }, kWaitMs);
}

/// Empty while a write waits for the instrument's word.
QString Desk::read(const QString& path) const
{
    const auto* const node =
        m_application.getDatacoreManager().getClientDatacoreRegistry().lookupDatacoreFromPath(path);
    return node && node->isInSyncWithServer() ? node->getData() : QString();
}

bool Desk::isLive() const
{
    return QTest::qWaitFor(
        [this] {
            return isConnected() && !m_window->findChild<QWidget*>(QStringLiteral("ContentStateOverlay"));
        },
        kWaitMs);
}

QImage Desk::look() const
{
    QPixmap screen = m_window->grab();
    QPainter painter(&screen);
    for (const QWidget* const each : QApplication::topLevelWidgets()) {
        if (each->isVisible() && qobject_cast<const QMenu*>(each))
            painter.drawPixmap(m_window->mapFromGlobal(each->pos()), const_cast<QWidget*>(each)->grab());
    }
    return screen.toImage();
}

bool Desk::shoot(const QString& name, const QWidget* part) const
{
    // What is drawn anew by a timer or a packet.
    QTest::qWait(150);
    QImage image = look();
    if (part) {
        const qreal ratio = image.devicePixelRatio();
        const QRect place(part->mapTo(m_window, QPoint()), part->size());
        image = image.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toRect());
    }
    QDir folder(qEnvironmentVariable("WZ_SCREENSHOTS", QDir::tempPath() + QLatin1String("/screenshots")));
    return folder.mkpath(m_theme)
        && image.save(folder.filePath(m_theme + QLatin1Char('/') + name + QLatin1String(".png")));
}

QStringList Desk::cutTexts() const
{
    QStringList texts;
    addCut<QLabel>(texts, *m_window);
    addCut<QAbstractButton>(texts, *m_window);
    return texts;
}
