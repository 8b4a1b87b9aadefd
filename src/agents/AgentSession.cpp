#include "agents/AgentSession.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace vaxo {
namespace {

// Text keys besides the four required ones, with the field each fills.
using OptionalText = std::optional<QString> AgentSession::*;
struct TextKey {
    const char *key;
    OptionalText field;
};
const TextKey kOptionalText[] = {
    {"last_prompt", &AgentSession::lastPrompt},
    {"last_action", &AgentSession::lastAction},
    {"waiting_for", &AgentSession::waitingFor},
    {"cwd", &AgentSession::cwd},
    {"host_bundle", &AgentSession::hostBundle},
    {"term_app", &AgentSession::termApp},
    {"term_session", &AgentSession::termSession},
    {"tty", &AgentSession::tty},
    {"ask_tool", &AgentSession::askTool},
    {"ask_target", &AgentSession::askTarget},
    {"ask_id", &AgentSession::askId},
};

bool requiredText(const QJsonObject &o, const char *key, QString &out)
{
    const QJsonValue v = o.value(QLatin1String(key));
    if (!v.isString())
        return false;
    out = v.toString();
    return true;
}

// Absent and null both leave the field empty; any other non-matching type fails.
template <typename T, typename Check, typename Take>
bool optionalValue(const QJsonObject &o, const char *key, std::optional<T> &out, Check check, Take take)
{
    const QJsonValue v = o.value(QLatin1String(key));
    if (v.isUndefined() || v.isNull())
        return true;
    if (!check(v))
        return false;
    out = take(v);
    return true;
}

bool wholeNumber(const QJsonValue &v, qint64 &out)
{
    if (!v.isDouble())
        return false;
    const double d = v.toDouble();
    // Counts written as 3.0 are accepted; fractions are not counts.
    if (!std::isfinite(d) || std::trunc(d) != d || std::fabs(d) > 9.0e15)
        return false;
    out = qint64(d);
    return true;
}

std::optional<AgentTasks> decodeTasks(const QJsonValue &value)
{
    if (!value.isObject())
        return std::nullopt;
    const QJsonObject o = value.toObject();
    AgentTasks tasks;
    if (!wholeNumber(o.value(QLatin1String("done")), tasks.done) ||
        !wholeNumber(o.value(QLatin1String("in_progress")), tasks.inProgress) ||
        !wholeNumber(o.value(QLatin1String("open")), tasks.open) || !o.value(QLatin1String("items")).isArray())
        return std::nullopt;
    for (const QJsonValue &item : o.value(QLatin1String("items")).toArray()) {
        AgentTaskItem entry;
        if (!item.isObject() || !requiredText(item.toObject(), "subject", entry.subject) ||
            !requiredText(item.toObject(), "status", entry.status))
            return std::nullopt;
        tasks.items.append(entry);
    }
    return tasks;
}

QJsonValue orNull(const std::optional<QString> &v)
{
    return v ? QJsonValue(*v) : QJsonValue(QJsonValue::Null);
}
QJsonValue orNull(const std::optional<double> &v)
{
    return v ? QJsonValue(*v) : QJsonValue(QJsonValue::Null);
}

QJsonValue encodeTasks(const std::optional<AgentTasks> &tasks)
{
    if (!tasks)
        return QJsonValue::Null;
    QJsonArray items;
    for (const AgentTaskItem &item : tasks->items)
        items.append(QJsonObject{{"subject", item.subject}, {"status", item.status}});
    return QJsonObject{
        {"done", tasks->done}, {"in_progress", tasks->inProgress}, {"open", tasks->open}, {"items", items}};
}

std::optional<AgentProcess> decodeProcess(const QJsonValue &value)
{
    const QJsonObject o = value.toObject();
    AgentProcess process;
    if (!wholeNumber(o.value(QLatin1String("pid")), process.pid) || process.pid <= 0 ||
        !o.value(QLatin1String("start")).isString())
        return std::nullopt;
    process.start = o.value(QLatin1String("start")).toString();
    return process;
}

} // namespace

std::optional<AgentSession> AgentSession::decode(const QByteArray &bytes)
{
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        return std::nullopt;
    const QJsonObject o = doc.object();

    AgentSession s;
    if (!requiredText(o, "id", s.id) || !requiredText(o, "agent", s.agent) || !requiredText(o, "label", s.label) ||
        !requiredText(o, "status", s.status))
        return std::nullopt;

    const auto isNumber = [](const QJsonValue &v) { return v.isDouble(); };
    const auto number = [](const QJsonValue &v) { return v.toDouble(); };
    if (!optionalValue(o, "started", s.started, isNumber, number) ||
        !optionalValue(o, "updated", s.updated, isNumber, number))
        return std::nullopt;

    const auto isText = [](const QJsonValue &v) { return v.isString(); };
    const auto text = [](const QJsonValue &v) { return v.toString(); };
    for (const TextKey &k : kOptionalText)
        if (!optionalValue(o, k.key, s.*k.field, isText, text))
            return std::nullopt;

    const QJsonValue tasks = o.value(QLatin1String("tasks"));
    if (!tasks.isUndefined() && !tasks.isNull()) {
        s.tasks = decodeTasks(tasks);
        if (!s.tasks)
            return std::nullopt;
    }
    s.process = decodeProcess(o.value(QLatin1String("process")));
    const QJsonValue suggestions = o.value(QLatin1String("ask_suggestions"));
    if (suggestions.isArray())
        s.askSuggestions = suggestions.toArray();
    return s;
}

QByteArray AgentSession::encode() const
{
    QJsonObject o{{"id", id},
                  {"agent", agent},
                  {"label", label},
                  {"status", status},
                  {"started", orNull(started)},
                  {"updated", orNull(updated)},
                  {"tasks", encodeTasks(tasks)}};
    for (const TextKey &k : kOptionalText)
        o.insert(QLatin1String(k.key), orNull(this->*k.field));
    o.insert(QLatin1String("process"), process
                                           ? QJsonValue(QJsonObject{{"pid", process->pid}, {"start", process->start}})
                                           : QJsonValue(QJsonValue::Null));
    o.insert(QLatin1String("ask_suggestions"),
             askSuggestions ? QJsonValue(*askSuggestions) : QJsonValue(QJsonValue::Null));
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

} // namespace vaxo
