#include "face/DrawnFace.h"
#include "island/Mood.h"
#include "island/Palette.h"
#include "island/QmlTypes.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace vaxo;

namespace {

// Seven faces in a row, one per mood, each `side` points wide, on the island's black.
std::unique_ptr<QQuickView> gallery(int side, bool animating)
{
    qml::registerTypes();
    auto view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    view->setColor(Qt::black);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    const QString qml = QStringLiteral(R"(
import QtQuick
import Vaxo.Island
Row {
    property int side: %1
    property bool animating: %2
    padding: side / 4
    spacing: side / 3
    Repeater {
        model: ["%3"]
        DrawnFace {
            required property int index
            required property string modelData
            objectName: "face" + index
            width: side
            height: side
            mood: index
            color: modelData
            animating: parent.animating
        }
    }
}
)");
    QStringList colors;
    for (int mood = 0; mood < 7; ++mood)
        colors << Palette::mood(Mood(mood), QStringLiteral("blue"));
    static QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("Gallery.qml"));
    QFile out(file);
    out.open(QIODevice::WriteOnly | QIODevice::Truncate);
    out.write(qml.arg(side).arg(animating ? "true" : "false").arg(colors.join(QStringLiteral("\",\""))).toUtf8());
    out.close();
    view->setSource(QUrl::fromLocalFile(file));
    const int width = side / 2 + 7 * side + 6 * side / 3;
    view->resize(width, side + side / 2);
    view->show();
    return view;
}

} // namespace

class DrawnFaceTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void eachMoodLooksItsOwn_data();
    void eachMoodLooksItsOwn();
};

void DrawnFaceTest::eachMoodLooksItsOwn_data()
{
    QTest::addColumn<int>("side");
    QTest::newRow("strip") << 18;
    QTest::newRow("small") << 32;
    QTest::newRow("card") << 92;
    QTest::newRow("summon") << 260;
}

void DrawnFaceTest::eachMoodLooksItsOwn()
{
    QFETCH(int, side);
    auto view = gallery(side, false);
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    QImage shot;
    QTRY_VERIFY((shot = view->grabWindow(), !shot.isNull()));
    if (const QString out = qEnvironmentVariable("VAXO_FACE_SHOTS"); !out.isEmpty()) {
        QDir().mkpath(out);
        const qreal ratio = view->effectiveDevicePixelRatio();
        shot.save(QStringLiteral("%1/face-moods-%2%3.png")
                      .arg(out)
                      .arg(side)
                      .arg(ratio > 1 ? QStringLiteral("@2x") : QString()));
    }
}

QTEST_MAIN(DrawnFaceTest)
#include "DrawnFaceTest.moc"
