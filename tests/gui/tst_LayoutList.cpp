#include "gui/framework/LayoutList.h"
#include "gui/framework/LayoutNames.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

namespace {

LayoutList listOf(const QStringList& names, int current)
{
    std::deque<WindowLayoutPreset> layouts;
    for (const QString& name : names) {
        layouts.emplace_back();
        layouts.back().setLayoutName(name);
    }
    LayoutList list;
    list.replace(layouts);
    list.setCurrentIndex(current);
    return list;
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(LayoutList&)>)

class tst_LayoutList : public WzTest {
    Q_OBJECT
private slots:
    void copiesGetNewNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<QString>("copy");
        const auto row = [](const char* name, const char* others, const char* copy) {
            QTest::newRow(
                qPrintable(QStringLiteral("%1 beside %2").arg(QLatin1String(name), QLatin1String(others))))
                << QString::fromLatin1(name) << words(others) << QString::fromLatin1(copy);
        };
        row("Layout 2", "Layout 2", "Layout 2 - 2");
        row("Layout 2 - 2", "Layout 2|Layout 2 - 2", "Layout 2 - 3");
        row("Layout 1", "Layout 1|Layout 1 - 2", "Layout 1 - 3");
        row("", "", "Layout 1");
        row("", "Layout 1|Layout 2", "Layout 3");
        row("A - B - 3", "", "A B - 4");
        row("A - B", "", "A - B - 2");
        row("A - 2x", "", "A - 2x - 2");
        row("%1 - %2", "", "%1 - %2 - 2");
        row("A - 2147483647", "", "A - 2147483648");
    }
    void copiesGetNewNames()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, existing);
        QTEST(LayoutNames::duplicateName(name, existing), "copy");
    }

    void newNamesAreFree()
    {
        const QStringList two{QStringLiteral("Layout 1"), QStringLiteral("Layout 2")};
        QCOMPARE(LayoutNames::newName(two, false), QStringLiteral("Layout 3"));
        QCOMPARE(LayoutNames::newName({QStringLiteral("Layout 3"), QStringLiteral("B")}, false),
                 QStringLiteral("Layout 4"));
        QCOMPARE(LayoutNames::newName({QStringLiteral("Layout 3"), QStringLiteral("B")}, true),
                 QStringLiteral("Layout 1"));
    }

    void oldNamesAreMigrated()
    {
        const auto title = [](const char* text) {
            QString name = QString::fromLatin1(text);
            LayoutNames::migrateOldWindowTitleToNewWindowTitle(name);
            return name;
        };
        QCOMPARE(title("IP Transmit"), QStringLiteral("2110 Transmit"));
        QCOMPARE(title("IP Transmit (SFP F)"), QStringLiteral("2022-6 Transmit (SFP F)"));
        QCOMPARE(title("Stats - 2022-6 Receive (SFP E)"), QStringLiteral("Stats - 2022-6 Receive"));
        QCOMPARE(title("Stats - IP Receive (SFP E)"), QStringLiteral("Stats - 2022-6 Receive"));
        QCOMPARE(title("IP Receive - Flow Select"), QStringLiteral("IP Receive - Flows"));
        QCOMPARE(title("Generator - Status"), QStringLiteral("Generator"));
        QCOMPARE(title("Generator - Configuration"), QStringLiteral("Generator"));
        QCOMPARE(title("ip transmit"), QStringLiteral("ip transmit"));
        QString contentClass = QStringLiteral("GeneratorConfig");
        LayoutNames::migrateOldWindowContentClassToNewWindowContentClass(contentClass);
        QCOMPARE(contentClass, QStringLiteral("OutputGroupStatus"));
    }

    /// The current layout, marked by its name, stays the same one whatever happens beside it.
    void changesKeepTheCurrentLayout_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<std::function<void(LayoutList&)>>("change");
        QTest::addColumn<QString>("names");
        QTest::addColumn<QString>("currentName");
        using Change = std::function<void(LayoutList&)>;
        const auto row = [](const char* name, int current, Change change, const char* names,
                            const char* now) {
            QTest::newRow(name) << current << change << QString::fromLatin1(names)
                                << QString::fromLatin1(now);
        };
        row(
            "copy before it", 2, [](LayoutList& list) { QVERIFY(list.duplicate(0)); }, "A|A - 2|B|C", "C");
        row(
            "copy of it", 1, [](LayoutList& list) { list.duplicate(1); }, "A|B|B - 2|C", "B");
        row(
            "copy of none", 1, [](LayoutList& list) { QVERIFY(!list.duplicate(3)); }, "A|B|C", "B");
        row(
            "move it later", 0, [](LayoutList& list) { QVERIFY(list.move(0, false)); }, "B|A|C", "A");
        row(
            "move another over it", 1, [](LayoutList& list) { list.move(2, true); }, "A|C|B", "B");
        row(
            "no place before the first", 1, [](LayoutList& list) { QVERIFY(!list.move(0, true)); }, "A|B|C",
            "B");
        row(
            "no place behind the last", 1, [](LayoutList& list) { QVERIFY(!list.move(2, false)); }, "A|B|C",
            "B");
        row(
            "remove one before it", 2, [](LayoutList& list) { list.remove(0); }, "B|C", "C");
        row(
            "remove it", 1, [](LayoutList& list) { list.remove(1); }, "A|C", "C");
        row(
            "remove it at the end", 2, [](LayoutList& list) { list.remove(2); }, "A|B", "B");
        row(
            "remove none", 2, [](LayoutList& list) { list.remove(-1); }, "A|B|C", "C");
        row(
            "a new one at the start", 1,
            [](LayoutList& list) { list.addEmpty(LayoutEnd::Start, QStringLiteral("N")); }, "N|A|B|C", "B");
        row(
            "tidy both ends", 1,
            [](LayoutList& list) { list.tidyEnds(LayoutEnd::Both, [](int) { return true; }); }, "B", "B");
        row(
            "tidy one end", 1,
            [](LayoutList& list) { list.tidyEnds(LayoutEnd::End, [](int) { return true; }); }, "A|B", "B");
        row(
            "tidy but spare", 2,
            [](LayoutList& list) {
                list.tidyEnds(
                    LayoutEnd::Both, [](int) { return true; }, 2);
            },
            "B|C", "C");
        row(
            "never tidy the last one away", 0,
            [](LayoutList& list) {
                for (int i = 0; i < 5; ++i)
                    list.tidyEnds(LayoutEnd::Both, [](int) { return true; });
            },
            "B", "B");
    }
    void changesKeepTheCurrentLayout()
    {
        QFETCH(int, current);
        QFETCH(std::function<void(LayoutList&)>, change);
        QFETCH(QString, names);
        LayoutList list = listOf(words("A|B|C"), current);
        change(list);
        QCOMPARE(list.names().join(QLatin1Char('|')), names);
        QTEST(list.current()->getLayoutName(), "currentName");
    }

    void aShorterListKeepsTheIndexValid()
    {
        LayoutList list = listOf(words("A|B|C"), 2);
        list.replace(listOf(words("D|E"), 0).layouts());
        QCOMPARE(list.currentIndex(), 0);
        list.replace({});
        QVERIFY(!list.current());
    }
};

WZ_TEST_CLASS(tst_LayoutList)
#include "tst_LayoutList.moc"
