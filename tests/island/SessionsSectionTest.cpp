#include "island/SessionsSection.h"
#include "agents/AskDecision.h"
#include "clipboard/ClipListModel.h"

#include "FakeClock.h"
#include "StateFixture.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

namespace {

AgentSession session(const QString &id, const QString &status, double updated, double started = 0)
{
    AgentSession s;
    s.id = id;
    s.label = id + QStringLiteral("-label");
    s.status = status;
    s.updated = updated;
    if (started > 0)
        s.started = started;
    return s;
}

ClipItem clip(const QString &id, bool pinned = false)
{
    return ClipItem{id, ClipKind::Text, id, id, pinned, 0, {}, false};
}

} // namespace

// The card's sessions: rows that move rather than reset, the waiting caption, the answer, the time.
class SessionsSectionTest : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_fixture = std::make_unique<test::StateFixture>(m_clock);
        m_state = &m_fixture->state;
        m_decisions = std::make_unique<AskDecision>(m_fixture->home.paths().decisions(), m_clock);
        m_section = std::make_unique<SessionsSection>(*m_state, *m_decisions, m_clock);
    }

    void rowsMoveInsertAndRemoveInPlace()
    {
        SessionListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QSignalSpy moves(&model, &QAbstractItemModel::rowsMoved);
        QSignalSpy inserts(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
        QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
        const double now = m_clock.now();

        model.sync({session("a", "working", 3), session("b", "working", 2), session("c", "done", 1)}, now);
        QCOMPARE(inserts.size(), 3);
        // "c" starts to wait: the list puts it first, and its row moves there with its new status.
        model.sync({session("c", "waiting", 4), session("a", "working", 3), session("b", "working", 2)}, now);
        QCOMPARE(moves.size(), 1);
        QCOMPARE(model.rows().first().icon, StatusIcon::Waiting);
        QCOMPARE(changes.size(), 1);
        // One session more is one row inserted; one gone is one row removed.
        inserts.clear();
        model.sync({session("c", "waiting", 4), session("d", "working", 5), session("a", "working", 3),
                    session("b", "working", 2)},
                   now);
        QCOMPARE(inserts.size(), 1);
        model.sync({session("c", "waiting", 4), session("d", "working", 5), session("b", "working", 2)}, now);
        QCOMPARE(removals.size(), 1);
        // The card lists two: what falls below the second row leaves the model.
        model.sync({session("c", "waiting", 4), session("d", "working", 5), session("b", "working", 2)}, now, 2);
        QCOMPARE(model.count(), 2);
        // The same id twice (two files) keeps both rows.
        model.sync({session("x", "working", 1), session("x", "done", 1)}, now);
        QCOMPARE(model.count(), 2);
        QCOMPARE(resets.size(), 0);

        const QModelIndex first = model.index(0);
        QCOMPARE(model.data(first, SessionListModel::LabelRole).toString(), QStringLiteral("x-label"));
        QCOMPARE(model.data(first, SessionListModel::HeightRole).toDouble(), 40.0);
    }

    void clipRowsFollowTheHistory()
    {
        ClipListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy moves(&model, &QAbstractItemModel::rowsMoved);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        model.sync({clip("1"), clip("2"), clip("3")});
        model.sync({clip("3", true), clip("1"), clip("2")}); // pinned to the top
        QCOMPARE(moves.size(), 1);
        QVERIFY(model.data(model.index(0), ClipListModel::PinnedRole).toBool());
        model.sync({clip("3", true)}); // "Clear"
        QCOMPARE(model.count(), 1);
        QCOMPARE(resets.size(), 0);
        ClipItem image = clip("I");
        image.kind = ClipKind::Image;
        QCOMPARE(ClipListModel::imageSource(image), QStringLiteral("image://clips/I"));
        QCOMPARE(ClipListModel::imageSource(clip("T")), QString());
    }

    void captionFollowsTheFirstWaitingSession()
    {
        const double now = m_clock.now();
        AgentSession asks = session("w1", "waiting", now - 150);
        asks.askId = QStringLiteral("toolu_9");
        asks.askTool = QStringLiteral("Bash");
        asks.askTarget = QStringLiteral("rm -rf build");
        m_state->apply({asks, session("w2", "waiting", now - 30), session("a", "working", now), session("b", "done", 1),
                        session("c", "working", 1)});
        QVERIFY(m_section->waiting());
        QCOMPARE(m_section->waitingLabel(), QStringLiteral("w1-label"));
        QVERIFY(m_section->answerable());
        QCOMPARE(m_section->askTool(), QStringLiteral("Bash"));
        QCOMPARE(m_section->moreWaiting(), QStringLiteral("+1 more waiting on you"));
        QCOMPARE(m_section->moreRunning(), QStringLiteral("+3 more running"));
        QCOMPARE(m_section->waited(), QStringLiteral("waiting 2m"));
        QCOMPARE(m_section->headline(), QStringLiteral("Two agents need your permission."));
        m_state->apply({session("w2", "waiting", now)}); // waiting, but nothing the island can answer
        QVERIFY(!m_section->answerable());
        QCOMPARE(m_section->moreWaiting(), QString());
        m_state->apply({});
        QVERIFY(m_section->empty() && !m_section->waiting());
    }

    void answersOnlyAQuestionThatIsStillAsked()
    {
        AgentSession asks = session("w", "waiting", m_clock.now());
        asks.askId = QStringLiteral("toolu_1");
        m_state->apply({asks});
        const QString decisions = m_fixture->home.paths().decisions();
        m_section->answer(QStringLiteral("toolu_old"), true); // the question is gone
        QVERIFY(QDir(decisions).entryList(QDir::Files).isEmpty());
        m_section->answerAlways(QStringLiteral("toolu_1")); // the agent offered nothing to remember
        QVERIFY(QDir(decisions).entryList(QDir::Files).isEmpty());
        QCOMPARE(m_section->alwaysLabel(), QString());
        m_section->answer(QStringLiteral("toolu_1"), false);
        QCOMPARE(QDir(decisions).entryList(QDir::Files), QStringList{"toolu_1.json"});
        QVERIFY(test::TempHome::read(decisions + "/toolu_1.json").contains("\"deny\""));

        asks.askSuggestions = QJsonArray{QJsonObject{{"type", "setMode"}, {"mode", "acceptEdits"}}};
        m_state->apply({asks});
        QCOMPARE(m_section->alwaysLabel(), QStringLiteral("Allow all edits this session"));
        m_section->answerAlways(QStringLiteral("toolu_1"));
        QVERIFY(test::TempHome::read(decisions + "/toolu_1.json").contains("\"always\""));
    }

    void failedTurnSaysWhy()
    {
        AgentSession failed = session("f", "done", m_clock.now());
        failed.waitingFor = QStringLiteral("rate_limit");
        failed.lastAction = QStringLiteral("Bash make");
        m_state->apply({failed});
        const SessionRow row = m_section->rows()->rows().first();
        QCOMPARE(row.icon, StatusIcon::Done);
        QCOMPARE(row.actionTool + " " + row.actionRest, QStringLiteral("Stopped rate limit reached"));
        QVERIFY(!m_section->waiting());
    }

    void elapsedTimesMoveOnlyWhileShown()
    {
        const double now = m_clock.now();
        m_state->apply({session("a", "working", now, now - 59)});
        QCOMPARE(m_section->rows()->rows().first().elapsed, QStringLiteral("now"));
        QCOMPARE(m_clock.activeTimers(), 0);
        m_clock.advance(120);
        QCOMPARE(m_section->rows()->rows().first().elapsed, QStringLiteral("now")); // nobody looks
        m_section->setShown(true);
        QCOMPARE(m_section->rows()->rows().first().elapsed, QStringLiteral("2m"));
        m_clock.advance(SessionsSection::kRefreshInterval);
        QCOMPARE(m_section->rows()->rows().first().elapsed, QStringLiteral("3m"));
        m_section->setShown(false);
        QCOMPARE(m_clock.activeTimers(), 0);
    }

private:
    test::FakeClock m_clock;
    std::unique_ptr<test::StateFixture> m_fixture;
    IslandState *m_state = nullptr;
    std::unique_ptr<AskDecision> m_decisions;
    std::unique_ptr<SessionsSection> m_section;
};

QTEST_GUILESS_MAIN(SessionsSectionTest)
#include "SessionsSectionTest.moc"
