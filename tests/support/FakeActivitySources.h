#pragma once

#include "platform/DisplayStateSource.h"
#include "platform/IdleTimeSource.h"
#include "platform/LowPowerSource.h"
#include "platform/WindowVisibilitySource.h"

namespace vaxo::test {

// Stand-ins for the desktop the gate and the scheduler listen to (DisplayStateSource is used as it is).
class FakeIdleTime final : public IdleTimeSource {
public:
    double seconds = 0;
    double idleSeconds() override { return seconds; }
};

class FakeLowPower final : public LowPowerSource {
public:
    bool low = false;
    bool isLowPower() override { return low; }
    void set(bool value) { low = value, emit powerStateChanged(); }
};

class FakeWindows final : public WindowVisibilitySource {
public:
    QList<Window> list;
    QList<Window> windows() const override { return list; }
    void set(const QList<Window> &value) { list = value, emit windowsChanged(); }
};

} // namespace vaxo::test
