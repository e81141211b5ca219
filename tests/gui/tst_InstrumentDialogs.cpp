#include "gui/shell/EntryLine.h"
#include "gui/shell/HealthDialog.h"
#include "gui/shell/InstrumentClock.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/PowerOffDialog.h"
#include "gui/shell/SfpIpAddressDialog.h"
#include "gui/shell/SystemModeSwitchDialog.h"
#include "gui/shell/TimeDateDialog.h"
#include "gui/shell/ToolBarAudioMonitorButton.h"
#include "gui/shell/ToolBarHealthAlarmButton.h"
#include "gui/support/WindowFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

namespace {

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

template<typename Widget>
Widget* named(const QWidget& panel, const QString& name)
{
    const auto widgets = panel.findChildren<Widget*>();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [&name](const Widget* widget) {
        return widget->text() == name && !widget->isHidden();
    });
    return found == widgets.end() ? nullptr : *found;
}

} // namespace

class tst_InstrumentDialogs : public WzTest {
    Q_OBJECT
private slots:
    void powerOffAsksAndComesToRestFirst()
    {
        WindowFixture fixture;
        fixture.connectInstrument();
        auto* const dialog = new PowerOffDialog(fixture);
        QStringList order;
        connect(dialog, &PowerOffDialog::aboutToPowerOff, this, [&] { order << text("rest"); });
        connect(dialog, &PowerOffDialog::toCommandcore_powerOff, this, [&] { order << text("command"); });
        dialog->open();
        auto* const off = named<QPushButton>(*dialog, text("Power Off"));
        QVERIFY(!off->isEnabled());
        dialog->fromCommandcore_powerOffUpdated({}, {}, true);
        dialog->fromStatusCoreConnectedClientsUpdated({text("3")}, {}, true);
        QVERIFY(off->isEnabled());
        QVERIFY(named<QLabel>(*dialog, text("Measuring ends, for 2 other clients, too.")));
        // Enter gives the safe answer.
        QCOMPARE(QApplication::focusWidget(), named<QPushButton>(*dialog, text("Keep On")));
        fixture.connection.noteLost();
        QVERIFY(!off->isEnabled());
        fixture.connectInstrument();
        off->click();
        QCOMPARE(order, QStringList({text("rest"), text("command")}));
        QVERIFY(!dialog->isVisible());
    }

    void theModeIsMarkedWhenTheInstrumentSaysSo()
    {
        WindowFixture fixture;
        fixture.connectInstrument();
        SystemModeSwitchDialog dialog(fixture);
        QSignalSpy asked(&dialog, &SystemModeSwitchDialog::toConfigCoreSystemMode);
        dialog.fromStatusCoreCurrentSystemModeUpdated({text("SDI")}, {}, true);
        dialog.fromStatusCoreAvailableSystemModesUpdated({text("SDI")}, {}, true);
        QVERIFY(named<QLabel>(dialog, text("This instrument has one mode only.")));
        dialog.fromStatusCoreAvailableSystemModesUpdated({text("SDI"), text("IP")}, {}, true);
        named<ListRow>(dialog, text("SDI"))->click();
        QVERIFY(asked.isEmpty());
        named<ListRow>(dialog, text("IP"))->click();
        QCOMPARE(asked.size(), 1);
        QVERIFY(named<ListRow>(dialog, text("SDI"))->isChecked());
        QVERIFY(!named<ListRow>(dialog, text("IP"))->isChecked());
        dialog.fromStatusCoreCurrentSystemModeUpdated({text("IP")}, {}, true);
        QVERIFY(named<ListRow>(dialog, text("IP"))->isChecked());
        dialog.fromConfigCoreSystemModeUpdated({text("IP")}, {}, false);
        QVERIFY(!named<ListRow>(dialog, text("SDI"))->isEnabled());
    }

    void theInstrumentsClockGoesOnByItself()
    {
        InstrumentClock clock;
        QVERIFY(!clock.now());
        const QDateTime told = QDateTime::currentDateTimeUtc().addSecs(7200);
        const QStringList values{told.toString(Qt::ISODateWithMs)};
        clock.fromStatusCoreSystemTimeUtcUpdated(values, {}, true);
        QTest::qWait(30);
        // The same once more is an old value, not another time.
        clock.fromStatusCoreSystemTimeUtcUpdated(values, {}, true);
        QVERIFY(told.msecsTo(*clock.now()) >= 30);
        clock.fromStatusCoreSystemTimeUtcUpdated({text("yesterday")}, {}, true);
        QVERIFY(!clock.now());
        clock.fromStatusCoreSystemTimeUtcUpdated(values, {}, true);
        QVERIFY(clock.now());
        clock.reset();
        QVERIFY(!clock.now());
    }

    void theClockIsSetWhereItCanBe()
    {
        WindowFixture fixture;
        fixture.connectInstrument();
        const InstrumentClock clock;
        TimeDateDialog dialog(fixture, clock);
        QSignalSpy set(&dialog, &TimeDateDialog::toCommandcore_setUtc);
        auto* const button = named<QPushButton>(dialog, text("Set to the time of this screen"));
        QVERIFY(!button->isEnabled());
        dialog.fromCommandcore_setUtcUpdated({}, {}, true);
        button->click();
        const QDateTime sent = QDateTime::fromString(set.value(0).value(0).toString(), Qt::ISODateWithMs);
        QCOMPARE(sent.timeSpec(), Qt::UTC);
        QVERIFY(qAbs(sent.msecsTo(QDateTime::currentDateTimeUtc())) < 1000);
        fixture.connection.noteLost();
        QVERIFY(!button->isEnabled());
    }

    void theMonitorSaysWhatIsHeard_data()
    {
        QTest::addColumn<bool>("connected");
        QTest::addColumn<QString>("pair");
        QTest::addColumn<bool>("active");
        QTest::addColumn<QString>("label");
        QTest::newRow("first pair") << true << text("1") << true << text("1-2");
        QTest::newRow("last pair") << true << text("8") << true << text("15-16");
        QTest::newRow("no monitor") << true << text("1") << false << text("--");
        QTest::newRow("nonsense") << true << text("left") << true << text("--");
        QTest::newRow("none") << true << text("0") << true << text("--");
        QTest::newRow("not connected") << false << text("1") << true << text("--");
    }
    void theMonitorSaysWhatIsHeard()
    {
        QFETCH(QString, pair);
        QFETCH(bool, active);
        QFETCH(QString, label);
        QFETCH(bool, connected);
        WindowFixture fixture;
        ToolBarAudioMonitorButton button(fixture.wzStyle(), &fixture);
        QSignalSpy muted(&button, &ToolBarAudioMonitorButton::toConfigCoreAudioMonitorMutedToggled);
        button.setConnected(true);
        button.fromConfigCoreAudioMonitorChannelPairUpdated({pair}, {}, active);
        button.fromConfigCoreAudioMonitorMutedUpdated({text("true")}, {}, active);
        button.setConnected(connected);
        QCOMPARE(button.label(), label);
        button.click();
        QCOMPARE(muted.value(0), label == text("--") ? QVariantList() : QVariantList{false});
    }

    void anAddressIsAskedForUntilTheInstrumentHasIt()
    {
        WindowFixture fixture;
        fixture.connectInstrument();
        SfpIpAddressDialog dialog(fixture, text("SFP E"));
        QSignalSpy chosen(&dialog, &SfpIpAddressDialog::chosen);
        auto* const set = named<QPushButton>(dialog, text("Set"));
        for (const char* const wrong : {"", "10.0.0", "10.0.0.256", "224.0.0.1", "0.0.0.0", "host"}) {
            dialog.address().setText(text(wrong));
            QVERIFY2(!set->isEnabled(), wrong);
            emit dialog.address().returnPressed();
        }
        QVERIFY(chosen.isEmpty());
        dialog.address().setText(text("240.0.0.1"));
        set->click();
        QCOMPARE(chosen.takeLast().first().toString(), text("240.0.0.1"));
        QVERIFY(!set->isEnabled());
        // What only the instrument finds wrong.
        dialog.setProblem(text("The stored value is not supported"));
        QVERIFY(named<QLabel>(dialog, text("The stored value is not supported")));
        dialog.address().setText(text("10.0.0.7"));
        QVERIFY(set->isEnabled());
        fixture.connection.noteLost();
        QVERIFY(!set->isEnabled());
    }

    void alarmsAreCounted()
    {
        WindowFixture fixture;
        ToolBarHealthAlarmButton button(fixture.wzStyle(), &fixture);
        button.setConnected(true);
        QCOMPARE(button.label(), text("--"));
        button.fromStatusCoreHealthAlarmsUpdated({}, {}, true);
        QCOMPARE(button.label(), text("OK"));
        button.fromStatusCoreHealthAlarmsUpdated({QString()}, {}, true); // a list without items, on the wire
        QCOMPARE(button.label(), text("OK"));
        button.fromStatusCoreHealthAlarmsUpdated({text("A: 90"), text("B: 91")}, {}, true);
        QCOMPARE(button.label(), text("2 alarms"));
        QVERIFY(button.toolTip().contains(text("B: 91")));
        button.fromStatusCoreHealthAlarmsUpdated({}, {}, false);
        QCOMPARE(button.label(), text("--"));
        button.fromStatusCoreHealthAlarmsUpdated({}, {}, true);
        button.setConnected(false);
        QCOMPARE(button.label(), text("--"));
    }
};

WZ_TEST_CLASS(tst_InstrumentDialogs)
#include "tst_InstrumentDialogs.moc"
