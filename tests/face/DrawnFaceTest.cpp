#include "face/DrawnFace.h"
#include "app/IslandAppDelegate.h"
#include "island/IslandController.h"
#include "island/IslandState.h"
#include "island/Palette.h"
#include "island/QmlTypes.h"

#include "FaceFiles.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <QTimer>

using namespace vaxo;

namespace {

// Seven faces in a row, one per mood, each `side` points wide, on the island's black.
std::unique_ptr<QQuickView> gallery(int side)
{
    qml::registerTypes();
    auto view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    view->setColor(Qt::black);
    QStringList colors;
    for (int mood = 0; mood < 7; ++mood)
        colors << Palette::mood(Mood(mood), QStringLiteral("blue"));
    QQmlComponent row(view->engine());
    row.setData(QStringLiteral("import QtQuick; import Vaxo.Island; Row { padding: %1 / 4; spacing: %1 / 3; "
                               "Repeater { model: [\"%2\"]; DrawnFace { required property int index; "
                               "required property string modelData; width: %1; height: %1; mood: index; "
                               "color: modelData } } }")
                    .arg(side)
                    .arg(colors.join(QStringLiteral("\",\"")))
                    .toUtf8(),
                QUrl());
    view->setContent(QUrl(), &row, row.create());
    view->resize(side / 2 + 7 * side + 6 * (side / 3), side + side / 2);
    view->show();
    return view;
}

bool clockRuns(const DrawnFace &face)
{
    const auto timers = face.findChildren<QTimer *>();
    return std::any_of(timers.begin(), timers.end(), [](const QTimer *t) { return t->isActive(); });
}

} // namespace

class DrawnFaceTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void eachMoodLooksItsOwnAndMovesOnlyWhileAnimating_data()
    {
        QTest::addColumn<int>("side");
        QTest::newRow("strip") << 18;
        QTest::newRow("small") << 32;
        QTest::newRow("card") << 92;
        QTest::newRow("summon") << 260;
    }

    void eachMoodLooksItsOwnAndMovesOnlyWhileAnimating()
    {
        QFETCH(int, side);
        auto view = gallery(side);
        QVERIFY(QTest::qWaitForWindowExposed(view.get(), 20'000));
        QImage still;
        QTRY_VERIFY((still = view->grabWindow(), !still.isNull()));
        const int ratio = still.width() / view->width(); // 2 with QT_SCALE_FACTOR=2
        if (const QString out = qEnvironmentVariable("VAXO_FACE_SHOTS"); !out.isEmpty()) {
            QDir().mkpath(out);
            still.save(QStringLiteral("%1/face-moods-%2%3.png").arg(out).arg(side).arg(ratio > 1 ? "@2x" : ""));
        }
        QList<QImage> faces;
        for (int mood = 0; mood < 7; ++mood) {
            const QRect cell(QPoint(side / 4 + mood * (side + side / 3), side / 4) * ratio, QSize(side, side) * ratio);
            const QImage face = still.copy(cell);
            QVERIFY(face.pixelColor(face.rect().center()) != QColor(Qt::black)); // her body fills the middle
            QVERIFY2(!faces.contains(face), qPrintable(moodName(Mood(mood))));
            faces << face;
        }

        QList<DrawnFace *> drawn; // the row's items, after its Repeater
        for (QQuickItem *item : view->rootObject()->childItems()) {
            if (auto *face = qobject_cast<DrawnFace *>(item))
                drawn << face;
        }
        QCOMPARE(drawn.size(), 7);
        for (DrawnFace *face : drawn)
            QVERIFY(!clockRuns(*face));
        // Blinks and glances are never more than a blink period away.
        DrawnFace &resting = *drawn[int(Mood::Resting)];
        resting.setAnimating(true);
        QVERIFY(clockRuns(resting));
        QTRY_VERIFY_WITH_TIMEOUT(view->grabWindow() != still, 15'000);
        resting.setAnimating(false);
        QVERIFY(!clockRuns(resting));
        QTRY_COMPARE(view->grabWindow(), still); // at rest, eyes open, as before
    }

    void theIslandsFaceFollowsTheGateAndTheFolder()
    {
        test::FaceFiles files;
        IslandAppDelegate delegate(files.home.paths());
        delegate.controller().start();
        QQuickView &panel = *delegate.controller().panel();
        QVERIFY(QTest::qWaitForWindowExposed(&panel, 20'000));
        const auto animating = [&] {
            const auto faces = panel.rootObject()->findChildren<DrawnFace *>();
            return std::count_if(faces.begin(), faces.end(),
                                 [](DrawnFace *f) { return f->animating() && clockRuns(*f); });
        };
        QTRY_VERIFY(!panel.rootObject()->findChildren<DrawnFace *>().isEmpty());
        QCOMPARE(animating(), 0);

        AgentSession working;
        working.id = QStringLiteral("a");
        working.status = QStringLiteral("working");
        delegate.state().apply({working});
        QTRY_VERIFY(animating() > 0);

        // Her own art for the mood, dropped into the folder, takes her place.
        const auto still = [&]() -> QQuickItem * {
            for (QQuickItem *item : panel.rootObject()->findChildren<QQuickItem *>()) {
                if (item->objectName() == QLatin1String("faceStill") && item->isVisible())
                    return item;
            }
            return nullptr;
        };
        test::FaceFiles::still(files.user("working.png"), Qt::red);
        QTRY_VERIFY(still());
        QCOMPARE(still()->property("source").toUrl(), QUrl::fromLocalFile(files.user("working.png")));
        QCOMPARE(animating(), 0);

        delegate.state().apply({});
        QTRY_VERIFY(!still());
        QTRY_COMPARE(animating(), 0);
    }
};

QTEST_MAIN(DrawnFaceTest)
#include "DrawnFaceTest.moc"
