#include "gui/support/WindowFixture.h"

#include "gui/framework/WzSubWindow.h"
#include "presets/ClientSectionPresets.h"

#include <QApplication>
#include <QPainter>
#include <QTest>

namespace {

class TestContentPreset : public SectionPreset {
public:
    TestContentPreset()
        : SectionPreset(QStringLiteral("TestContentPreset"))
    {
    }
};

constexpr QLatin1String kTextKey("text", 4);

WzCustomStyle& applicationStyle()
{
    return *qobject_cast<WzCustomStyle*>(QApplication::style());
}

} // namespace

TestContent::TestContent(WzSubWindow& window, const QString& className)
    : WzSubwindowContent(className, QStringLiteral(":/icons/signal.svg"), &window,
                         Velmora::Wz::Device::full())
{
}

SerialisableDataPacket TestContent::getWidgetStatesAsPreset()
{
    TestContentPreset preset;
    preset.set(kTextKey, text);
    return preset;
}

void TestContent::loadWidgetStatesFromPreset(SerialisableDataPacket& preset)
{
    bool ok = false;
    const auto mine =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<TestContentPreset>(preset, ok);
    if (ok)
        text = mine.get(kTextKey).toString();
}

void TestContent::paintEvent(QPaintEvent*)
{
    ++paints;
    QPainter(this).fillRect(rect(), Qt::darkGray);
}

WindowFixture::WindowFixture(const QSize& size)
    : MainWindowBase(state, connection, applicationStyle())
    , area(*this, nullptr, applicationStyle())
    , manager(applicationStyle(), connections, area, catalogue)
{
    resize(size);
    area.setGeometry(rect());
    show();
    (void)QTest::qWaitForWindowExposed(this);
    connection.setAddress(QStringLiteral("127.0.0.1"));
}

WindowFixture::~WindowFixture() = default;

void WindowFixture::showNotice(const QString&, const QString& text, const QString& detail)
{
    notices << text + QLatin1Char(' ') + detail;
}

const SupportedSubWindow& WindowFixture::addKind(const QString& title, int maximumInstances, bool scalable)
{
    SupportedSubWindow kind;
    kind.windowTitle = title;
    kind.contentClassName = title + QLatin1String("Content");
    kind.group = QStringLiteral("Test");
    kind.icon = QStringLiteral("signal");
    kind.maximumInstances = maximumInstances;
    kind.makeContent = [className = kind.contentClassName, scalable](WzSubWindow& window) {
        auto* const content = new TestContent(window, className);
        if (scalable)
            content->setAllowedWindowSizes({});
        return content;
    };
    catalogue.add(kind);
    return catalogue.getAvailableSubWindows().back();
}

WzSubWindow* WindowFixture::open(const QString& title)
{
    const auto before = area.wzSubWindows();
    manager.onDefaultWindowRequested(title, title + QLatin1String("Content"), WindowRole::Instrument);
    const auto after = area.wzSubWindows();
    return after.size() > before.size() ? after.back() : nullptr;
}

TestContent& WindowFixture::contentOf(const WzSubWindow* window)
{
    return *qobject_cast<TestContent*>(window->content());
}

void WindowFixture::connectInstrument()
{
    connection.noteConnected();
    connection.setProgress(1, 1);
}

QStringList WindowFixture::layoutNames() const
{
    QStringList names;
    for (const auto& overview : manager.getLayoutOverview())
        names << overview.name;
    return names;
}
