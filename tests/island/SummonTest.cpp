#include "island/IslandState.h"
#include "island/summon/SummonHotKey.h"
#include "island/summon/SummonPlacement.h"
#include "island/summon/SummonView.h"

#include "FakeClock.h"
#include "FakeGlobalHotKey.h"
#include "StateFixture.h"
#include "TestTable.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

namespace {

// "w:api-server h:docs" is a working session labelled api-server and a waiting one labelled docs.
QList<AgentSession> sessionsFrom(const QByteArray &words)
{
    QList<AgentSession> sessions;
    for (const QByteArray &word : words.split(' ')) {
        if (word.isEmpty())
            continue;
        AgentSession s;
        s.label = QString::fromUtf8(word.mid(2));
        s.id = s.label + QString::number(sessions.size());
        s.status = word.startsWith("w:")   ? QStringLiteral("working")
                   : word.startsWith("h:") ? QStringLiteral("waiting")
                                           : QStringLiteral("done");
        sessions << s;
    }
    return sessions;
}

} // namespace

// What the summon panel shows and where it goes, and the hot key's rules, without a display.
class SummonTest : public QObject {
    Q_OBJECT
private slots:
    void moodAndLine_data()
    {
        QTest::addColumn<QByteArray>("sessions");
        QTest::addColumn<QByteArray>("finished"); // "-" for none
        QTest::addColumn<QByteArray>("idle");
        QTest::addColumn<QByteArray>("mood");
        QTest::addColumn<QByteArray>("line");
        test::rows(R"(
            nothing, user here   |                            | -        | no  | Resting  | Nothing running.
            nothing, user away   | d:old                      | -        | yes | Sleeping | All quiet.
            one working          | w:api-server d:old         | -        | no  | Working  | api server is working.
            two working          | w:a w:b                    | -        | no  | Busy     | Two agents running.
            three working        | w:a w:b w:c                | -        | yes | Swamped  | Three agents running.
            one waiting wins     | w:a h:my-app_build         | -        | no  | Waiting  | my app build needs your permission.
            two waiting          | h:a h:b w:c                | docs     | no  | Waiting  | Two agents need your permission.
            just finished        | w:a                        | docs-site| no  | Pleased  | docs site just finished.
        )");
    }

    // Through the island state, as the panel sees it: her mood is the island's, the line the view's.
    void moodAndLine()
    {
        QFETCH(QByteArray, sessions);
        QFETCH(QByteArray, finished);
        QFETCH(QByteArray, idle);
        QFETCH(QByteArray, mood);
        QFETCH(QByteArray, line);
        test::FakeClock clock;
        test::StateFixture fixture(clock);
        SummonView view(fixture.state);
        fixture.state.setUserIdle(idle == "yes");
        if (finished != "-") {
            // A session that goes from working to done has just finished.
            fixture.state.apply(sessionsFrom(sessions + " w:" + finished));
            fixture.state.apply(sessionsFrom(sessions + " d:" + finished));
            QCOMPARE(fixture.state.justFinishedAgent(), QString::fromUtf8(finished));
        } else {
            fixture.state.apply(sessionsFrom(sessions));
        }
        QCOMPARE(moodName(fixture.state.mood()), QString::fromUtf8(mood).toLower());
        QCOMPARE(view.line(), QString::fromUtf8(line));
    }

    void viewPublishesOnlyChanges()
    {
        test::FakeClock clock;
        test::StateFixture fixture(clock);
        SummonView view(fixture.state);
        QSignalSpy lines(&view, &SummonView::lineChanged);
        QCOMPARE(view.line(), QStringLiteral("Nothing running."));
        fixture.state.apply(sessionsFrom("w:api-server"));
        QCOMPARE(view.line(), QStringLiteral("api server is working."));
        fixture.state.setUserIdle(true); // matters only with nothing running
        fixture.state.apply(sessionsFrom("w:api-server"));
        QCOMPARE(lines.count(), 1);
    }

    void placement_data()
    {
        QTest::addColumn<QList<SummonPlacement::Screen>>("screens");
        QTest::addColumn<int>("main");
        QTest::addColumn<int>("chosen");
        QTest::addColumn<QPointF>("origin");
        const SummonPlacement::Screen plain{QRectF(0, 0, 1920, 1080), 0};
        const SummonPlacement::Screen right{QRectF(1920, 0, 2560, 1440), 0};
        const SummonPlacement::Screen notched{QRectF(-1512, 200, 1512, 982), 38};
        const SummonPlacement::Screen shallow{QRectF(0, 0, 1512, 982), 20};
        QTest::newRow("no notch: 32 below the top") << QList{plain} << 0 << 0 << QPointF(830, 32);
        QTest::newRow("the main display") << QList{plain, right} << 1 << 1 << QPointF(3070, 32);
        QTest::newRow("a notch beats the main") << QList{plain, notched} << 0 << 1 << QPointF(-886, 238);
        QTest::newRow("a shallow inset drops 32") << QList{shallow} << 0 << 0 << QPointF(626, 32);
        QTest::newRow("no main display: the first") << QList{right, plain} << -1 << 0 << QPointF(3070, 32);
        QTest::newRow("no display") << QList<SummonPlacement::Screen>{} << -1 << -1 << QPointF();
    }

    void placement()
    {
        QFETCH(QList<SummonPlacement::Screen>, screens);
        QFETCH(int, main);
        QFETCH(int, chosen);
        QFETCH(QPointF, origin);
        QCOMPARE(SummonPlacement::screenFor(screens, main), chosen);
        if (chosen >= 0)
            QCOMPARE(SummonPlacement::origin(screens[chosen]), origin);
    }

    void hotKey()
    {
        test::FakeGlobalHotKey keys;
        SummonHotKey hotKey(keys);
        int presses = 0;
        hotKey.setOnPress([&presses] { ++presses; });
        keys.answer = {10, QString()};
        QTest::ignoreMessage(QtWarningMsg, "[summon] could not register hotkey (status 10); another app may own it");
        QVERIFY(!hotKey.registerKey(SummonHotKey::kKey, SummonHotKey::kModifiers));

        // A new keyboard takes the key again.
        keys.answer = {0, QStringLiteral("Super is not mapped to a modifier")};
        QTest::ignoreMessage(QtWarningMsg, "[summon] could not register hotkey (Super is not mapped to a modifier)");
        emit keys.keyboardChanged();
        keys.answer = {};
        QVERIFY(SummonHotKey::failureLine(keys.answer).isEmpty());
        emit keys.keyboardChanged();
        QVERIFY(hotKey.registerKey(SummonHotKey::kKey, SummonHotKey::kModifiers));
        const QPair<Qt::Key, Qt::KeyboardModifiers> altSuperI{Qt::Key_I, Qt::AltModifier | Qt::MetaModifier};
        QCOMPARE(keys.grabs, decltype(keys.grabs)(4, altSuperI));

        emit keys.pressed();
        QCOMPARE(presses, 0); // not inside the key's event
        QTRY_COMPARE(presses, 1);
    }
};

QTEST_GUILESS_MAIN(SummonTest)
#include "SummonTest.moc"
