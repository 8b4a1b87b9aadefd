#include "island/IslandState.h"
#include "base/IslandSettings.h"

#include "FakeClock.h"
#include "StateFixture.h"
#include "TempHome.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

namespace {

AgentSession session(const char *id, const char *status, std::optional<double> updated = std::nullopt)
{
    AgentSession s;
    s.id = QString::fromLatin1(id);
    s.label = QStringLiteral("label-") + s.id;
    s.status = QString::fromLatin1(status);
    s.updated = updated;
    return s;
}

} // namespace

class IslandStateTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void finishIsOnlyWorkingToDoneAndClearsOnItsOwnTimer();
    void newWaitPinsOpensAndAlertsOnce();
    void pinReleasesOnlyWhenNobodyWaits();
    void moodRule_data();
    void moodRule();
    void labelsModesAndWaitingTime();
    void signalsOnlyOnRealChanges();

private:
    std::unique_ptr<test::TempHome> m_home;
    std::unique_ptr<IslandSettings> m_settings;
    test::FakeClock m_clock;
    test::RecordingSounds m_sounds;
    test::ManualSource *m_source = nullptr;
    std::unique_ptr<IslandState> m_state;
};

void IslandStateTest::init()
{
    m_home = std::make_unique<test::TempHome>();
    m_settings = std::make_unique<IslandSettings>(m_home->paths().settingsFile());
    m_sounds.played.clear();
    auto source = std::make_unique<test::ManualSource>();
    m_source = source.get();
    m_state = std::make_unique<IslandState>(std::move(source), m_clock, *m_settings, m_sounds);
    m_state->startWatching();
}

void IslandStateTest::finishIsOnlyWorkingToDoneAndClearsOnItsOwnTimer()
{
    m_source->callback({session("a", "done"), session("b", "waiting"), session("c", "working")});
    m_state->apply({session("a", "done"), session("b", "done"), session("c", "working")});
    QVERIFY(!m_state->justFinishedAgent()); // first seen done, and waiting to done, are no finishes
    QCOMPARE(m_sounds.played, QStringList{"Submarine"});

    m_settings->setSoundName("Ping");
    m_state->apply({session("a", "working"), session("b", "done"), session("c", "done")});
    QCOMPARE(m_state->justFinishedAgent(), QStringLiteral("label-c"));
    m_clock.advance(3);
    m_state->apply({session("a", "done"), session("b", "done"), session("c", "done")});
    QCOMPARE(m_state->justFinishedAgent(), QStringLiteral("label-a"));
    QCOMPARE(m_state->modeKind(), IslandMode::Kind::Finished);
    QCOMPARE(m_state->mood(), Mood::Pleased);
    QCOMPARE(m_sounds.played, (QStringList{"Submarine", "Ping", "Ping"}));
    m_clock.advance(2); // the first finish's clearing clears the second one early
    QVERIFY(!m_state->justFinishedAgent());
    QCOMPARE(m_state->mood(), Mood::Resting);

    m_state->stopWatching();
    QVERIFY(m_source->stopped && !m_state->running());
}

void IslandStateTest::newWaitPinsOpensAndAlertsOnce()
{
    m_state->setShowSettings(true);
    m_state->apply({session("a", "waiting"), session("b", "waiting")});
    QVERIFY(m_state->pinnedByAlert() && m_state->expanded() && !m_state->showSettings());
    QCOMPARE(m_sounds.played, (QStringList{"Submarine", "Submarine"}));
    m_state->apply({session("a", "waiting", 5), session("b", "waiting")});
    QCOMPARE(m_sounds.played.size(), 2);

    m_settings->setSound(false); // muted: no sound, but the island still opens
    m_state->apply({session("c", "working")});
    m_state->apply({session("c", "done"), session("d", "waiting")});
    QVERIFY(m_state->pinnedByAlert() && m_state->justFinishedAgent());
    QCOMPARE(m_sounds.played.size(), 2);
}

void IslandStateTest::pinReleasesOnlyWhenNobodyWaits()
{
    m_state->apply({session("a", "waiting"), session("b", "waiting")});
    m_state->apply({session("a", "working"), session("b", "waiting")});
    QVERIFY(m_state->pinnedByAlert());
    m_state->setShowSettings(true);
    m_state->apply({session("a", "working"), session("b", "working")});
    QVERIFY(!m_state->pinnedByAlert() && !m_state->expanded() && !m_state->showSettings());

    m_state->toggleExpanded(); // opened by hand, not pinned: a list without waiting leaves it open
    m_state->apply({session("a", "done")});
    QVERIFY(m_state->expanded());
}

void IslandStateTest::moodRule_data()
{
    QTest::addColumn<int>("waiting");
    QTest::addColumn<int>("working");
    QTest::addColumn<bool>("finished");
    QTest::addColumn<bool>("idle");
    QTest::addColumn<QString>("mood");
    QTest::newRow("one waits among three working") << 1 << 3 << true << true << "waiting";
    QTest::newRow("finished beats two working") << 0 << 2 << true << false << "pleased";
    QTest::newRow("three working") << 0 << 3 << false << false << "swamped";
    QTest::newRow("two working") << 0 << 2 << false << true << "busy";
    QTest::newRow("one working") << 0 << 1 << false << true << "working";
    QTest::newRow("nothing, user idle") << 0 << 0 << false << true << "sleeping";
    QTest::newRow("nothing, user here") << 0 << 0 << false << false << "resting";
}

void IslandStateTest::moodRule()
{
    QFETCH(int, waiting);
    QFETCH(int, working);
    QFETCH(bool, finished);
    QFETCH(bool, idle);
    QFETCH(QString, mood);
    QCOMPARE(moodName(moodFor(waiting, working, finished, idle)), mood);
}

void IslandStateTest::labelsModesAndWaitingTime()
{
    QCOMPARE(IslandState::agentsLabelFor(0, 1), QStringLiteral("1 session needs you"));
    QCOMPARE(IslandState::agentsLabelFor(4, 2), QStringLiteral("2 sessions need you"));
    QCOMPARE(IslandState::agentsLabelFor(1, 0), QStringLiteral("1 session working"));
    QCOMPARE(IslandState::agentsLabelFor(0, 0), QStringLiteral("0 sessions working"));

    const double now = m_clock.now();
    QCOMPARE(m_state->modeKind(), IslandMode::Kind::Idle);
    QCOMPARE(m_state->waitingSeconds(), 0.0);
    m_state->apply({session("a", "working", now - 500), session("b", "waiting", now - 30),
                    session("c", "waiting", now - 90), session("d", "waiting"), session("e", "odd")});
    QCOMPARE(m_state->mode(), (IslandMode{IslandMode::Kind::Agents, {}, 1, 3}));
    QCOMPARE(m_state->waitingSeconds(), 90.0); // the longest wait; sessions without a time are left out
    m_state->apply({session("b", "waiting", now + 60), session("e", "odd")});
    QCOMPARE(m_state->waitingSeconds(), 0.0); // a clock in the future
    m_state->apply({session("e", "odd")});    // other statuses are no work
    QCOMPARE(m_state->modeKind(), IslandMode::Kind::Idle);
}

void IslandStateTest::signalsOnlyOnRealChanges()
{
    QSignalSpy sessions(m_state.get(), &IslandState::agentSessionsChanged);
    QSignalSpy mood(m_state.get(), &IslandState::moodChanged);
    QSignalSpy label(m_state.get(), &IslandState::agentsLabelChanged);
    m_state->apply({session("a", "working", 1)});
    m_state->apply({session("a", "working", 1)});
    m_state->apply({session("a", "working", 2)}); // a new list with the same counts
    QCOMPARE(sessions.size(), 2);
    QCOMPARE(mood.size(), 1);
    QCOMPARE(label.size(), 1);

    m_state->apply({});
    QSignalSpy idle(m_state.get(), &IslandState::userIdleChanged);
    m_state->setUserIdle(true);
    m_state->setUserIdle(true);
    QCOMPARE(idle.size(), 1);
    QCOMPARE(m_state->mood(), Mood::Sleeping);
}

QTEST_GUILESS_MAIN(IslandStateTest)
#include "IslandStateTest.moc"
