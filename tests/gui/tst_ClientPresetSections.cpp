#include "gui/shell/Favourites.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/shell/ToolBar.h"
#include "gui/support/ScreenFixture.h"
#include "presets/WzClientPreset.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString text(const char* characters)
{
    return QString::fromUtf8(characters);
}

/// The client as far as its screen is concerned, with its sections in a preset.
struct Client : ScreenFixture {
    ~Client()
    {
        window.wzStyle().setTheme(WzPalette::Theme::Dark);
        window.wzStyle().setColourBlind(false);
    }
    void load(WzClientPreset preset)
    {
        window.wzStyle().onLoadClientPreset(preset);
        window.onLoadClientPreset(preset);
    }
    /// A state in which every owner has something that is not as at the start.
    void furnish()
    {
        window.wzStyle().setTheme(WzPalette::Theme::Light);
        window.wzStyle().setColourBlind(true);
        window.toolBar().setKept(true);
        window.panels().favourites().pin({Favourite::Kind::Preset, text("Mine"), {}, {}});
        window.windows().renameLayout(0, text("First"));
        window.windows().addLayoutAtEnd(text("Second"));
        dynamic_cast<TestContent&>(active()).text = text("set");
        state.setLayoutLocked(true);
    }
};

QJsonObject jsonOf(const SerialisableDataPacket& packet)
{
    return QJsonDocument::fromJson(packet.serialise()).object();
}

WzClientPreset presetOf(const QJsonObject& object)
{
    bool ok = false;
    return SerialisableDataPacket::createChildTypePacketFromParentTypePacket<WzClientPreset>(
        SerialisableDataPacket::fromJson(object), ok);
}

WzClientPreset stateOf(const Client& client)
{
    WzClientPreset preset;
    client.window.wzStyle().onPopulateClientPreset(preset);
    client.window.windows().onPopulateClientPreset(preset);
    client.window.onPopulateClientPreset(preset);
    return preset;
}

WindowLayoutPreset layoutWith(int windows)
{
    std::vector<WzSubWindowPreset> presets;
    for (int i = 0; i < windows; ++i) {
        WzSubWindowPreset window(text("ScopeContent"));
        window.setWindowTitle(text("Scope"));
        window.setInstanceNumber(i);
        presets.push_back(window);
    }
    WindowLayoutPreset layout;
    layout.setLayoutName(text("Many"));
    layout.setSubWindowPresets(presets);
    return layout;
}

} // namespace

/// Each section of a preset reaches its owner whole, or leaves him as he is.
class tst_ClientPresetSections : public WzTest {
    Q_OBJECT
private slots:
    void everySectionComesBack()
    {
        QJsonObject saved;
        {
            Client client;
            client.furnish();
            saved = jsonOf(stateOf(client));
        }
        for (const char* const section : {"style", "toolBar", "favouriteShortcuts",
                                          "displayMainWindowSettings", "windowLayoutPresetArray"})
            QVERIFY2(saved.contains(text(section)), section);
        Client client;
        client.load(presetOf(saved));
        QCOMPARE(jsonOf(stateOf(client)), saved);
    }

    void whatIsNoSectionLeavesItsOwnerAlone_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QJsonValue>("value");
        const QJsonObject foreign{{text("Class"), text("Other")}};
        for (const char* const key :
             {"style", "toolBar", "favouriteShortcuts", "clientSettings", "displayMainWindowSettings",
              "windowLayoutPresetArray", "subWindowPresetArray"}) {
            const auto row = [key](const char* title, const QJsonValue& value) {
                QTest::addRow("%s %s", key, title) << text(key) << value;
            };
            row("absent", QJsonValue(QJsonValue::Undefined));
            row("null", QJsonValue());
            row("number", 7);
            row("text", text("x"));
            row("list of nonsense", QJsonArray{7, text("x"), foreign, QJsonArray()});
            row("another class", foreign);
        }
    }
    void whatIsNoSectionLeavesItsOwnerAlone()
    {
        QFETCH(QString, key);
        QFETCH(QJsonValue, value);
        Client client;
        client.furnish();
        const QJsonObject before = jsonOf(stateOf(client));
        QJsonObject preset{{text("Class"), text("ClientPreset")}, {text("presetName"), text("Odd")}};
        if (!value.isUndefined())
            preset.insert(key, value);
        client.load(presetOf(preset));
        QCOMPARE(jsonOf(stateOf(client)), before);
    }

    /// Of the other sections, all are taken.
    void oneBadSectionCostsNoOther()
    {
        QJsonObject saved;
        {
            Client client;
            client.furnish();
            saved = jsonOf(stateOf(client));
        }
        saved.insert(text("style"), 7);
        saved.insert(text("of a newer version"), QJsonArray{1, 2});
        Client client;
        client.load(presetOf(saved));
        QVERIFY(client.window.toolBar().isKept());
        QCOMPARE(client.window.windows().getNumberLayouts(), 2);
        QCOMPARE(client.window.wzStyle().theme(), WzPalette::Theme::Dark);
        QVERIFY(client.state.isLayoutLocked());
    }

    void hugePresetsAreSurvived_data()
    {
        QTest::addColumn<int>("layouts");
        QTest::addColumn<int>("windows");
        QTest::addColumn<int>("padding");
        QTest::newRow("a thousand windows") << 1 << 1000 << 0;
        QTest::newRow("a thousand layouts") << 1000 << 3 << 0;
        QTest::newRow("ten megabytes") << 2 << 2 << 10'000'000;
    }
    void hugePresetsAreSurvived()
    {
        QFETCH(int, layouts);
        QFETCH(int, windows);
        QFETCH(int, padding);
        WindowLayoutPreset layout = layoutWith(windows);
        QJsonObject object = jsonOf(layout);
        object.insert(text("padding"), QString(padding, QLatin1Char('x')));
        bool ok = false;
        layout = SerialisableDataPacket::createChildTypePacketFromParentTypePacket<WindowLayoutPreset>(
            SerialisableDataPacket::fromJson(object), ok);
        WzClientPreset preset;
        preset.setWindowLayoutPresets(
            std::deque<WindowLayoutPreset>(static_cast<std::size_t>(layouts), layout));
        Client client;
        client.load(preset);
        QVERIFY(client.window.windows().getNumberLayouts() <= 100);
        QCOMPARE(client.windowCount(), 2U); // as many as there may be of the kind
        // The user may go on at once.
        client.window.windows().onSwitchWindowLayout(false);
        client.window.windows().renameLayout(0, text("Still here"));
        QCOMPARE(client.window.windows().getLayoutOverview().front().name, text("Still here"));
    }
};

WZ_TEST_CLASS(tst_ClientPresetSections)
#include "tst_ClientPresetSections.moc"
