#include "island/PanelPointer.h"
#include "island/PanelLayout.h"

#include "FakeClock.h"
#include "StateFixture.h"

#include <QTest>

using namespace vaxo;

namespace {

const QRectF kDisplay(0, 0, 1920, 1080);
const QRectF kIsland = PanelLayout::islandFrame(kDisplay, {190, 32});
const QPointF kOnIsland = kIsland.center();
const QPointF kAway(300, 700);

} // namespace

// Hover, presses elsewhere and full-screen concealment, on a clock the test moves.
class PanelPointerTest : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_fixture = std::make_unique<test::StateFixture>(m_clock);
        m_state = &m_fixture->state;
        m_pointer = std::make_unique<PanelPointer>(*m_state, m_clock);
        m_pointer->setFrames({kIsland, PanelLayout::hotRect(kIsland, false), PanelLayout::revealZone(kDisplay, {})});
    }

    void hoverOpensAfterItsDelayAndLeavingCloses()
    {
        m_pointer->sync(kOnIsland);
        QVERIFY(m_state->pointerInside() && !m_pointer->clickThrough());
        m_clock.advance(PanelPointer::kEnterDelay - 0.01);
        QVERIFY(!m_state->expanded());
        m_clock.advance(0.02);
        QVERIFY(m_state->expanded());

        m_pointer->sync(kAway);
        QVERIFY(m_pointer->clickThrough());
        m_clock.advance(PanelPointer::kLeaveDelay - 0.01);
        QVERIFY(m_state->expanded());
        m_clock.advance(0.02);
        QVERIFY(!m_state->expanded());
    }

    void aSlipOffAndBackChangesNothing()
    {
        m_state->setExpanded(true);
        m_pointer->sync(kOnIsland);
        m_pointer->sync(kAway);
        m_clock.advance(0.1);
        m_pointer->sync(kOnIsland);
        m_clock.advance(1);
        QVERIFY(m_state->expanded());
    }

    void anAlertKeepsTheCardOpen()
    {
        m_state->apply({[] {
            AgentSession s;
            s.id = s.label = QStringLiteral("w");
            s.status = QStringLiteral("waiting");
            return s;
        }()});
        QVERIFY(m_state->pinnedByAlert() && m_state->expanded());
        m_pointer->sync(kOnIsland);
        m_pointer->sync(kAway);
        m_clock.advance(1);
        QVERIFY(m_state->expanded());
        // A press elsewhere closes it all the same.
        m_pointer->pressed(kAway);
        QVERIFY(!m_state->expanded());
    }

    void pressesCloseOnlyFarEnoughAway()
    {
        m_state->setExpanded(true);
        m_pointer->pressed(kIsland.bottomLeft() + QPointF(0, 4));
        QVERIFY(m_state->expanded());
        m_pointer->pressed(kIsland.bottomLeft() + QPointF(0, 10));
        QVERIFY(!m_state->expanded());
    }

    void fullScreenConcealsUntilThePointerComesToTheTop()
    {
        m_state->setExpanded(true);
        m_pointer->setFullscreen(true);
        QVERIFY(m_pointer->concealed());
        QVERIFY(!m_state->expanded());
        m_pointer->sync(QPointF(kDisplay.center().x(), 500)); // anywhere else: still hidden
        QVERIFY(m_pointer->concealed() && m_pointer->clickThrough());
        m_pointer->sync(QPointF(kDisplay.center().x() + 120, 10)); // in the reveal zone
        QVERIFY(!m_pointer->concealed());
        m_pointer->sync(kIsland.bottomLeft() + QPointF(0, 60)); // near it
        QVERIFY(!m_pointer->concealed());
        m_pointer->sync(kIsland.bottomLeft() + QPointF(0, 80)); // beyond 70 points
        QVERIFY(m_pointer->concealed());
        m_pointer->setFullscreen(false);
        QVERIFY(!m_pointer->concealed());
    }

    void debugSwitchLogsClickThrough()
    {
        qputenv("VAXO_ISLAND_DEBUG", "");
        PanelPointer pointer(*m_state, m_clock);
        qunsetenv("VAXO_ISLAND_DEBUG");
        pointer.setFrames(m_pointer->frames());
        QTest::ignoreMessage(QtInfoMsg, "[island] clickThrough=NO hot=QRectF(859,-6 202x44) mouse=QPointF(960,16)");
        pointer.sync(kOnIsland);
    }

private:
    test::FakeClock m_clock;
    std::unique_ptr<test::StateFixture> m_fixture;
    IslandState *m_state = nullptr;
    std::unique_ptr<PanelPointer> m_pointer;
};

QTEST_GUILESS_MAIN(PanelPointerTest)
#include "PanelPointerTest.moc"
