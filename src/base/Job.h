#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace vaxo {

// A periodic piece of work run by the scheduler: one interval in seconds per tier. A tier without
// an interval pauses the job while the scheduler is in it.
struct Job {
    QString name; // unique within the scheduler
    double active = 0;
    std::optional<double> idle;
    std::optional<double> away;
    // Holds its owner weakly (a QPointer or a context-bound connection), so it does nothing once
    // the owner is gone.
    std::function<void()> body;
};

} // namespace vaxo
