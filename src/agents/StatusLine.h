#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vaxo {

// The one sentence about the agents that the character says or shows.
namespace StatusLine {

// waiting and working are session labels; justFinished is the label of a session that has just
// finished; userIdle says whether the user has been away from the keyboard.
QString compose(const QStringList &waiting, const QStringList &working, const std::optional<QString> &justFinished,
                bool userIdle);

// A label as a name: "-" and "_" become blanks, the ends are trimmed; nothing left is "A session".
QString name(const QString &label);

} // namespace StatusLine
} // namespace vaxo
