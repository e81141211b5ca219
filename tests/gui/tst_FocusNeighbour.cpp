#include "gui/control/FocusNeighbour.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QPushButton>

namespace {

/// Two rows of three, of which the lower one is shifted, and a wide control below:
///
///     a b c
///      d e f
///     wwwwwww
struct Area : QWidget {
    Area()
    {
        add("a", {0, 0, 90, 50});
        add("b", {100, 0, 90, 50});
        add("c", {200, 0, 90, 50});
        add("d", {40, 60, 90, 50});
        add("e", {140, 60, 90, 50});
        add("f", {240, 60, 90, 50});
        add("w", {0, 120, 400, 50});
        show();
    }
    void add(const char* name, const QRect& place)
    {
        auto* const button = new QPushButton(this);
        button->setObjectName(QString::fromLatin1(name));
        button->setGeometry(place);
    }
    QWidget* at(const QString& name) const { return findChild<QWidget*>(name); }
};

} // namespace

class tst_FocusNeighbour : public WzTest {
    Q_OBJECT
private slots:
    void arrows_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("arrow");
        QTest::addColumn<QString>("disabled");
        QTest::addColumn<QString>("to");
        const auto row = [](const char* name, const char* from, int arrow, const char* disabled,
                            const char* to) {
            QTest::newRow(name) << QString::fromLatin1(from) << arrow << QString::fromLatin1(disabled)
                                << QString::fromLatin1(to);
        };
        row("along the row", "a", Qt::Key_Right, "", "b");
        row("not to what lies below", "c", Qt::Key_Right, "", "");
        row("begin of the row", "a", Qt::Key_Left, "", "");
        row("over what is disabled", "a", Qt::Key_Right, "b", "c");
        row("down to the nearest", "b", Qt::Key_Down, "", "e");
        row("down to the next nearest", "b", Qt::Key_Down, "e", "d");
        row("not to a neighbour in the row", "a", Qt::Key_Down, "d", "w");
        row("down to what is wide", "e", Qt::Key_Down, "", "w");
        row("up from what is wide", "w", Qt::Key_Up, "", "e");
        row("top", "b", Qt::Key_Up, "", "");
        row("up to the nearer of those aside", "f", Qt::Key_Up, "c", "b");
    }
    void arrows()
    {
        QFETCH(QString, from);
        QFETCH(int, arrow);
        QFETCH(QString, disabled);
        Area area;
        if (!disabled.isEmpty())
            area.at(disabled)->setEnabled(false);
        const QWidget* const found =
            FocusNeighbour::of(*area.at(from), FocusNeighbour::controlsOf(area), static_cast<Qt::Key>(arrow));
        QTEST(found ? found->objectName() : QString(), "to");
    }

    void theFirstThatTakesTheFocus()
    {
        Area area;
        area.at(QStringLiteral("a"))->setFocusPolicy(Qt::ClickFocus);
        area.at(QStringLiteral("b"))->hide();
        QCOMPARE(FocusNeighbour::first(FocusNeighbour::controlsOf(area)), area.at(QStringLiteral("c")));
        const QWidget empty;
        QVERIFY(!FocusNeighbour::first(FocusNeighbour::controlsOf(empty)));
    }
};

WZ_TEST_CLASS(tst_FocusNeighbour)
#include "tst_FocusNeighbour.moc"
