#pragma once

#include "platform/WindowVisibilitySource.h"

namespace vaxo::linux_platform {

// The program's own top-level windows as Qt knows them. X11 tells nothing about occlusion, so a
// window counts as uncovered while Qt reports it exposed (mapped and drawn to). Panels kept above
// other windows, tool windows and pop-ups are not at the normal level.
class QtWindowVisibility final : public WindowVisibilitySource {
    Q_OBJECT
public:
    // Needs a QGuiApplication; without one it lists no windows.
    explicit QtWindowVisibility(QObject *parent = nullptr);

    QList<Window> windows() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Folds the burst of events around one window change into one announcement, after they are handled.
    void announce();

    bool m_pending = false;
};

} // namespace vaxo::linux_platform
