#include "agents/StatusLine.h"

#include <array>

namespace vaxo::StatusLine {
namespace {

// "Two" for two, "12" for twelve: counts up to nine are spelled out.
QString count(qsizetype n)
{
    static const std::array<const char *, 10> words{"Zero", "One", "Two",   "Three", "Four",
                                                    "Five", "Six", "Seven", "Eight", "Nine"};
    return n >= 0 && n <= 9 ? QLatin1String(words[size_t(n)]) : QString::number(n);
}

} // namespace

QString name(const QString &label)
{
    QString text = label;
    text.replace(QLatin1Char('-'), QLatin1Char(' ')).replace(QLatin1Char('_'), QLatin1Char(' '));
    text = text.trimmed();
    return text.isEmpty() ? QStringLiteral("A session") : text;
}

QString compose(const QStringList &waiting, const QStringList &working, const std::optional<QString> &justFinished,
                bool userIdle)
{
    if (waiting.size() >= 2)
        return count(waiting.size()) + QStringLiteral(" agents need your permission.");
    if (waiting.size() == 1)
        return name(waiting.first()) + QStringLiteral(" needs your permission.");
    if (justFinished && !justFinished->isEmpty())
        return name(*justFinished) + QStringLiteral(" just finished.");
    if (working.isEmpty())
        return userIdle ? QStringLiteral("All quiet.") : QStringLiteral("Nothing running.");
    if (working.size() == 1)
        return name(working.first()) + QStringLiteral(" is working.");
    return count(working.size()) + QStringLiteral(" agents running.");
}

} // namespace vaxo::StatusLine
