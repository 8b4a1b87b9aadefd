#include "island/IslandGeometry.h"

#include <QTest>

using namespace vaxo;

class IslandGeometryTest : public QObject {
    Q_OBJECT
private slots:
    void metrics();
    void collapsed_data();
    void collapsed();
    void expandedCountsTwoRowsAndIsCapped();
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

QTEST_GUILESS_MAIN(IslandGeometryTest)
#include "IslandGeometryTest.moc"
