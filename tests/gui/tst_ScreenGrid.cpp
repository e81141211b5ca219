#include "gui/framework/ScreenGrid.h"
#include "gui/framework/WindowDrag.h"
#include "gui/framework/SwipeFollower.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <algorithm>

using namespace ScreenGrid;

class tst_ScreenGrid : public WzTest {
    Q_OBJECT
private slots:
    void cellsAreNumberedByQuadrant()
    {
        const CellRects cells = screenSedecimantsOf({1003, 601});
        // What four columns and rows leave over belongs to no cell.
        const QList<QPoint> columnsAndRows{{0, 0}, {1, 0}, {0, 1}, {1, 1}, {2, 0}, {3, 0}, {2, 1}, {3, 1},
                                           {0, 2}, {1, 2}, {0, 3}, {1, 3}, {2, 2}, {3, 2}, {2, 3}, {3, 3}};
        QCOMPARE(int(cells.size()), 16);
        for (int i = 0; i < 16; ++i) {
            const QPoint& place = columnsAndRows.at(i);
            QCOMPARE(cells.at(i), QRect(place.x() * 250, place.y() * 150, 250, 150));
        }
    }

    void freeAreasAreQuadrantsOrSingleCells()
    {
        const CellRects cells = screenSedecimantsOf({1000, 600});
        QCOMPARE(findFreeAreas(cells, {}).size(), std::size_t{4});
        QCOMPARE(findFreeAreas(cells, {}).at(4), QRect(500, 0, 500, 300));
        // One pixel of cell 3 is touched.
        const CellRects areas = findFreeAreas(cells, {QRect(490, 290, 10, 10)});
        std::vector<int> keys;
        for (const auto& [key, rect] : areas)
            keys.push_back(key);
        QCOMPARE(keys, (std::vector<int>{0, 1, 2, 4, 8, 12}));
        QCOMPARE(areas.at(2), QRect(0, 150, 250, 150));
        QVERIFY(findFreeAreas(cells, {QRect(0, 0, 1000, 600)}).empty());
    }

    void newWindowsFindAPlace_data()
    {
        QTest::addColumn<QRect>("requested");
        QTest::addColumn<QList<QRect>>("used");
        QTest::addColumn<QPoint>("last");
        QTest::addColumn<QRect>("place");
        const QPoint none(-1, -1);
        const QRect astride(400, 200, 500, 300);
        QTest::newRow("where it asked to be")
            << QRect(510, 10, 250, 150) << QList<QRect>{} << none << QRect(510, 10, 250, 150);
        QTest::newRow("first quadrant") << astride << QList<QRect>{} << none << QRect(0, 0, 500, 300);
        QTest::newRow("not where the last one went")
            << astride << QList<QRect>{} << QPoint(0, 0) << QRect(500, 0, 500, 300);
        QTest::newRow("a quadrant is used")
            << astride << QList<QRect>{QRect(0, 0, 250, 150)} << none << QRect(500, 0, 500, 300);
        // No area of its size: the corner of the first free cell from which it does not leave the area.
        QTest::newRow("from a corner")
            << QRect(700, 400, 500, 300)
            << QList<QRect>{QRect(0, 0, 250, 150), QRect(500, 0, 500, 600), QRect(0, 300, 500, 300)} << none
            << QRect(250, 0, 500, 300);
        QTest::newRow("no room") << QRect(0, 0, 500, 300) << QList<QRect>{QRect(0, 0, 1000, 600)} << none
                                 << QRect();
        QTest::newRow("larger than the area") << QRect(0, 0, 1001, 300) << QList<QRect>{} << none << QRect();
    }
    void newWindowsFindAPlace()
    {
        QFETCH(QRect, requested);
        QFETCH(QList<QRect>, used);
        QFETCH(QPoint, last);
        const CellRects cells = screenSedecimantsOf({1000, 600});
        const CellRects areas = findFreeAreas(cells, std::vector<QRect>(used.begin(), used.end()));
        QTEST(getPositionForNewWindow(cells, requested, areas, last, QRect(0, 0, 1000, 600)), "place");
    }

    void valuesSnapToTheNearestStep_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("snapped");
        QTest::newRow("half-way goes down") << 15 << 10 << 10;
        QTest::newRow("above half goes up") << 16 << 10 << 20;
        QTest::newRow("odd step, half by integers") << 4 << 7 << 7;
        QTest::newRow("odd step, below") << 3 << 7 << 0;
        QTest::newRow("off") << 16 << -1 << 16;
        QTest::newRow("no step") << 16 << 0 << 16;
        QTest::newRow("left of the area") << -14 << 10 << -10;
        QTest::newRow("further left") << -16 << 10 << -20;
    }
    void valuesSnapToTheNearestStep()
    {
        QFETCH(int, value);
        QFETCH(int, step);
        QTEST(snap(value, step), "snapped");
    }

    void rectanglesComeBackIntoTheArea_data()
    {
        QTest::addColumn<QRect>("rect");
        QTest::addColumn<QRect>("constrained");
        QTest::newRow("inside") << QRect(103, 96, 200, 100) << QRect(100, 100, 200, 100);
        QTest::newRow("beyond the corner") << QRect(950, 580, 200, 100) << QRect(800, 500, 200, 100);
        QTest::newRow("before the corner") << QRect(-50, -60, 200, 100) << QRect(0, 0, 200, 100);
        QTest::newRow("too large") << QRect(5, 5, 5000, 4000) << QRect(0, 0, 1000, 600);
    }
    void rectanglesComeBackIntoTheArea()
    {
        QFETCH(QRect, rect);
        QTEST(getSnappedRectConstrainedToMdiArea(rect, QRect(0, 0, 1000, 600), {10, 10}), "constrained");
    }

    void edgesAreGrabbedNearThem_data()
    {
        QTest::addColumn<QPoint>("position");
        QTest::addColumn<Qt::Edges>("edges");
        QTest::newRow("middle") << QPoint(240, 135) << Qt::Edges();
        QTest::newRow("left") << QPoint(23, 135) << Qt::Edges(Qt::LeftEdge);
        QTest::newRow("not left any more") << QPoint(24, 135) << Qt::Edges();
        QTest::newRow("right") << QPoint(456, 135) << Qt::Edges(Qt::RightEdge);
        QTest::newRow("bottom") << QPoint(240, 260) << Qt::Edges(Qt::BottomEdge);
        QTest::newRow("corner reaches further") << QPoint(440, 230) << (Qt::RightEdge | Qt::BottomEdge);
        QTest::newRow("beside the corner") << QPoint(440, 225) << Qt::Edges();
    }
    void edgesAreGrabbedNearThem()
    {
        QFETCH(QPoint, position);
        QTEST(WindowDrag::edgesAt(position, {480, 270}), "edges");
    }

    void swipesTurnThePageWhenFarOrFast_data()
    {
        QTest::addColumn<qreal>("way");
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<bool>("turns");
        QTest::newRow("far, slow") << -500.0 << qint64(2000) << true;
        QTest::newRow("short, slow") << 400.0 << qint64(2000) << false;
        QTest::newRow("short, fast") << 200.0 << qint64(150) << true;
        QTest::newRow("no time known") << 200.0 << qint64(0) << false;
    }
    void swipesTurnThePageWhenFarOrFast()
    {
        QFETCH(qreal, way);
        QFETCH(qint64, milliseconds);
        QTEST(SwipeFollower::isFarEnough(way, milliseconds, 1920), "turns");
    }
};

WZ_TEST_CLASS(tst_ScreenGrid)
#include "tst_ScreenGrid.moc"
