#pragma once

#include "base/IslandBusyInputs.h"

#include <QObject>
#include <QPointer>

#include <functional>

namespace vaxo {

class DisplayStateSource;
class LowPowerSource;
class WindowVisibilitySource;

// The animation gate: gathers whatever says motion is worth drawing into islandAnimating. Animated
// views run their frame clocks only while it is true; the scheduler's tier follows displayUsable and
// lowPower. Main thread only.
class AppActivity : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool windowVisible READ windowVisible NOTIFY windowVisibleChanged)
    Q_PROPERTY(bool displayUsable READ displayUsable NOTIFY displayUsableChanged)
    Q_PROPERTY(bool lowPower READ lowPower NOTIFY lowPowerChanged)
    Q_PROPERTY(bool islandBusy READ islandBusy NOTIFY islandBusyChanged)
    Q_PROPERTY(bool summonShowing READ summonShowing WRITE setSummonShowing NOTIFY summonShowingChanged)
    Q_PROPERTY(bool islandAnimating READ islandAnimating NOTIFY islandAnimatingChanged)
    Q_PROPERTY(bool frozen READ frozen CONSTANT)
public:
    // Process-wide switches, each on when its variable is present, whatever its value.
    struct Switches {
        bool forceOff = false; // VAXO_NO_ANIM: nothing ever animates
        bool debug = false;    // VAXO_ACTIVITY_DEBUG: log gate transitions and tier changes
        static Switches fromEnvironment();
    };
    // Any source may be null: that input then never changes. The gate takes ownership.
    struct Sources {
        DisplayStateSource *display = nullptr;
        LowPowerSource *lowPower = nullptr;
        WindowVisibilitySource *windows = nullptr;
    };

    AppActivity(Sources sources, Switches switches, QObject *parent = nullptr);

    bool windowVisible() const { return m_windowVisible; }
    bool displayUsable() const { return m_displayUsable; }
    bool lowPower() const { return m_lowPower; }
    bool islandBusy() const { return m_islandBusy; }
    bool summonShowing() const { return m_summonShowing; }
    bool islandAnimating() const;
    bool debug() const { return m_switches.debug; }
    // VAXO_NO_ANIM: nothing moves, not even the island's changes of size.
    bool frozen() const { return m_switches.forceOff; }

    void setSummonShowing(bool showing);

    // How to read the island state; recomputes islandBusy at once. Until one is given the island
    // counts as showing nothing.
    void followIsland(std::function<IslandBusyInputs()> read);

public slots:
    // Call on every change the island state announces.
    void recomputeIslandBusy();
    void recomputeWindows();

signals:
    void windowVisibleChanged();
    void displayUsableChanged();
    void lowPowerChanged();
    void islandBusyChanged();
    void summonShowingChanged();
    void islandAnimatingChanged();
    // The display came back (wake or unlock), whether or not it was unusable: the tier is due again.
    void displayReturned();

private:
    void onDisplayLost();
    void onDisplayBack();
    void readLowPower();
    // Runs an input change and announces the gate when it flips.
    void updateGate(const std::function<void()> &change);

    Switches m_switches;
    QPointer<LowPowerSource> m_lowPowerSource;
    QPointer<WindowVisibilitySource> m_windows;
    std::function<IslandBusyInputs()> m_readIsland;
    bool m_windowVisible = true;
    bool m_displayUsable = true;
    bool m_lowPower = false;
    bool m_islandBusy = true;
    bool m_summonShowing = false;
};

} // namespace vaxo
