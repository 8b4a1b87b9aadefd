#pragma once

#include <QString>

namespace vaxo {

class Clock;

// The island's side of a permission answer: a click writes a decision file that the waiting
// reporter picks up. Every failure leaves no decision, so Claude Code asks in the terminal.
class AskDecision {
public:
    // decisions: the folder the reporter polls (AppPaths::decisions()).
    AskDecision(const QString &decisions, const Clock &clock);

    // Always: allow, and let the agent remember what it offered with the request, so that it stops
    // asking for that kind of call. The reporter takes the offer from the request itself.
    enum class Answer { Allow, Deny, Always };

    // Writes {"id", "behavior", "at"} as sanitised(id) + ".json" (0600, folder 0700), replacing an
    // earlier answer to the same id; "behavior" is "allow", "deny" or "always". Does nothing for an
    // empty id; failures are ignored.
    void answer(const QString &id, Answer answer) const;
    // Removes entries older than ten minutes: answers no reporter waited for. Errors are ignored.
    void sweep() const;

    // The file-name form of an id: each scalar that is not a letter, mark, digit, "-" or "_"
    // becomes "_", and the first 120 are kept.
    static QString sanitised(const QString &id);

    static constexpr double kMaxAge = 600.0;

private:
    QString m_folder;
    const Clock &m_clock;
};

} // namespace vaxo
