#include "island/IslandGeometry.h"
#include "island/PanelLayout.h"

#include <QTest>

using namespace vaxo;

class IslandGeometryTest : public QObject {
    Q_OBJECT
private slots:
    void metrics();
    void collapsed_data();
    void collapsed();
    void expandedCountsTwoRowsAndIsCapped();
    void panelAndPointerAreas();
    void measuredSizeIsClamped_data();
    void measuredSizeIsClamped();
    void fullScreenWindows_data();
    void fullScreenWindows();
};

void IslandGeometryTest::metrics()
{
    QCOMPARE(IslandMetrics::measure(1920, 0, 800, 800), (IslandMetrics{false, 190, 32}));
    QCOMPARE(IslandMetrics::measure(1512, 38, 650, 660), (IslandMetrics{true, 202, 38}));
    QCOMPARE(IslandMetrics::measure(1512, 38, -1, 660), (IslandMetrics{true, 200, 38}));
}

void IslandGeometryTest::collapsed_data()
{
    QTest::addColumn<IslandMetrics>("metrics");
    QTest::addColumn<IslandMode::Kind>("mode");
    QTest::addColumn<QSizeF>("size");
    using K = IslandMode::Kind;
    const IslandMetrics flat;
    const IslandMetrics notch{true, 200, 37};
    QTest::newRow("agents") << flat << K::Agents << QSizeF(350, 38);
    QTest::newRow("music") << flat << K::Music << QSizeF(300, 38);
    QTest::newRow("finished") << flat << K::Finished << QSizeF(190, 32);
    QTest::newRow("idle") << flat << K::Idle << QSizeF(190, 32);
    QTest::newRow("notch agents") << notch << K::Agents << QSizeF(296, 37);
    QTest::newRow("notch music") << notch << K::Music << QSizeF(304, 37);
    QTest::newRow("notch finished") << notch << K::Finished << QSizeF(274, 37);
    QTest::newRow("notch idle") << notch << K::Idle << QSizeF(274, 37);
}

void IslandGeometryTest::collapsed()
{
    QFETCH(IslandMetrics, metrics);
    QFETCH(IslandMode::Kind, mode);
    QFETCH(QSizeF, size);
    IslandGeometry::Input in;
    in.metrics = metrics;
    in.mode = mode;
    QCOMPARE(IslandGeometry::islandSize(in), size);
}

void IslandGeometryTest::expandedCountsTwoRowsAndIsCapped()
{
    AgentSession plain;
    plain.status = QStringLiteral("waiting");
    AgentSession busy;
    busy.status = QStringLiteral("working");
    busy.lastPrompt = QStringLiteral("do it");
    busy.lastAction = QStringLiteral("Bash ls");
    busy.tasks = AgentTasks{1, 1, 0, {{"a", "done"}, {"b", "in_progress"}}};
    QCOMPARE(IslandGeometry::rowHeight(plain), 40.0);
    QCOMPARE(IslandGeometry::rowHeight(busy), 57 + 17 + 15 + 34 + 18.0);

    IslandGeometry::Input in;
    in.expanded = true;
    QCOMPARE(IslandGeometry::islandSize(in), QSizeF(500, 32 + 216 + 360 + 22 + 26));
    in.sessions = {plain, plain};
    const QSizeF two = IslandGeometry::islandSize(in);
    QCOMPARE(two.height(), 32 + 216 + 360 + 2 * 48 + 44 + 26.0);
    in.sessions << busy;
    QCOMPARE(IslandGeometry::islandSize(in), two);

    in.sessions = {busy, busy};
    in.mediaAllowance = 74;
    QCOMPARE(IslandGeometry::islandSize(in).height(), 32 + 860 - 24.0);
    in.settingsOpen = true;
    in.backdropChosen = true;
    QCOMPARE(IslandGeometry::islandSize(in), QSizeF(500, 32 + 346 + 26 + 60));
}

void IslandGeometryTest::panelAndPointerAreas()
{
    using namespace PanelLayout;
    const QRectF display(1920, 0, 1920, 1080); // a second display, right of the first
    const IslandMetrics flat;
    QCOMPARE(panelFrame(display, flat), QRectF(1920 + 960 - 330, 0, 660, 892));
    QCOMPARE(panelFrame(display, {true, 400, 40}), QRectF(1920 + 960 - 370, 0, 740, 900));

    // The part of the panel that takes the pointer: the margin left, right and below only.
    QCOMPARE(interactiveRect({660, 892}, {190, 32}, false), QRectF(229, 0, 202, 38));
    QCOMPARE(interactiveRect({660, 892}, {500, 700}, true), QRectF(62, 0, 536, 718));

    const QRectF island = islandFrame(display, {500, 700});
    QCOMPARE(island, QRectF(1920 + 710, 0, 500, 700));
    QCOMPARE(hotRect(island, true), island.adjusted(-18, -18, 18, 18));
    QCOMPARE(hotRect(islandFrame(display, {190, 32}), false), QRectF(1920 + 865 - 6, -6, 202, 44));
    QCOMPARE(revealZone(display, flat), QRectF(1920 + 960 - 135, 0, 270, 36));
    QCOMPARE(revealZone(display, {true, 250, 44}), QRectF(1920 + 960 - 165, 0, 330, 48));

    // A click 4 points from the card leaves it open, one 10 points away closes it.
    const QPointF below(island.center().x(), island.bottom());
    QVERIFY(!pressCollapses(below + QPointF(0, 4), island));
    QVERIFY(pressCollapses(below + QPointF(0, 10), island));
    QVERIFY(!pressCollapses(island.center(), island));
    // Over a full-screen window, near the island keeps it, farther than 70 points hides it.
    QVERIFY(!beyondReveal(below + QPointF(0, 69), island));
    QVERIFY(beyondReveal(below + QPointF(0, 71), island));
}

void IslandGeometryTest::measuredSizeIsClamped_data()
{
    QTest::addColumn<QSizeF>("measured");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("smaller is ignored") << QSizeF(100, 20) << QSizeF(350, 38);
    QTest::newRow("a little larger is kept") << QSizeF(380, 70) << QSizeF(380, 70);
    QTest::newRow("much larger is clamped") << QSizeF(900, 900) << QSizeF(410, 118);
    QTest::newRow("each axis by itself") << QSizeF(300, 100) << QSizeF(350, 100);
}

void IslandGeometryTest::measuredSizeIsClamped()
{
    QFETCH(QSizeF, measured);
    QFETCH(QSizeF, size);
    QCOMPARE(PanelLayout::clampMeasured(measured, {350, 38}), size);
    QCOMPARE(PanelLayout::clampMeasured(std::nullopt, {350, 38}), QSizeF(350, 38));
}

void IslandGeometryTest::fullScreenWindows_data()
{
    QTest::addColumn<QList<DesktopWindow>>("windows");
    QTest::addColumn<bool>("covered");
    const QRect display(0, 0, 1920, 1080);
    QTest::newRow("none") << QList<DesktopWindow>{} << false;
    QTest::newRow("ordinary windows") << QList<DesktopWindow>{{{0, 30, 1920, 1050}, false},
                                                              {{100, 100, 800, 600}, false}}
                                      << false;
    QTest::newRow("flagged full screen") << QList<DesktopWindow>{{{0, 0, 1280, 720}, true}} << true;
    QTest::newRow("bounds within two pixels") << QList<DesktopWindow>{{{1, -2, 1918, 1081}, false}} << true;
    QTest::newRow("three pixels off") << QList<DesktopWindow>{{{0, 3, 1920, 1077}, false}} << false;
    QTest::newRow("full screen on another display") << QList<DesktopWindow>{{{1920, 0, 1920, 1080}, true}} << false;
}

void IslandGeometryTest::fullScreenWindows()
{
    QFETCH(QList<DesktopWindow>, windows);
    QFETCH(bool, covered);
    QCOMPARE(PanelLayout::coveredByFullscreen(windows, QRect(0, 0, 1920, 1080)), covered);
}

QTEST_GUILESS_MAIN(IslandGeometryTest)
#include "IslandGeometryTest.moc"
