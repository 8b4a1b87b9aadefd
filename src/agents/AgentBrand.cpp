#include "agents/AgentBrand.h"

#include "platform/InstalledApps.h"

#include <algorithm>
#include <cmath>

namespace vaxo::AgentBrand {
namespace {

struct Row {
    const char *agent;
    const char *display;
    const char *symbol;
    Tint tint;
    QStringList applications;
};

// The agents known by their makers. The reporter names Claude Code "claude", which is not the
// "claude-code" below: such sessions are shown as any other agent, by their own word.
const QList<Row> &rows()
{
    static const QList<Row> table{
        {"claude-code", "Claude", "sparkle", {0.85, 0.47, 0.28}, {}},
        {"codex",
         "Codex",
         "chevron.left.forwardslash.chevron.right",
         {0.35, 0.85, 0.65},
         {QStringLiteral("com.openai.codex"), QStringLiteral("com.openai.chat")}},
        {"antigravity",
         "Antigravity",
         "arrow.up.circle.fill",
         {0.45, 0.65, 1.0},
         {QStringLiteral("com.google.antigravity"), QStringLiteral("com.google.Antigravity")}},
        {"cursor", "Cursor", "cursorarrow.rays", {0.75, 0.75, 0.8}, {QStringLiteral("com.todesktop.230313mzl4w4u92")}},
    };
    return table;
}

const Row *find(const QString &agent)
{
    for (const Row &row : rows())
        if (agent == QLatin1String(row.agent))
            return &row;
    return nullptr;
}

// "open-code AGENT" becomes "Open-code Agent": each word, as blanks part them, starts with a capital
// and goes on in small letters.
QString capitalised(const QString &text)
{
    QString out = text.toLower();
    bool start = true;
    for (QChar &c : out) {
        if (start)
            c = c.toUpper();
        start = c.isSpace();
    }
    return out;
}

int channel(double value)
{
    return int(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

} // namespace

QString Tint::hex() const
{
    QString out = QStringLiteral("#");
    for (double value : {opacity, red, green, blue})
        out += QStringLiteral("%1").arg(channel(value), 2, 16, QLatin1Char('0'));
    return out;
}

QString display(const QString &agent)
{
    const Row *row = find(agent);
    return row ? QString::fromLatin1(row->display) : capitalised(agent);
}

QString symbol(const QString &agent)
{
    const Row *row = find(agent);
    return QString::fromLatin1(row ? row->symbol : "terminal.fill");
}

Tint tint(const QString &agent)
{
    const Row *row = find(agent);
    return row ? row->tint : Tint{1, 1, 1, 0.7};
}

QStringList applicationIds(const QString &agent)
{
    const Row *row = find(agent);
    return row ? row->applications : QStringList();
}

std::optional<QString> appIcon(const QString &agent, const InstalledApps &apps)
{
    for (const QString &id : applicationIds(agent))
        if (auto icon = apps.icon(id))
            return icon;
    return std::nullopt;
}

} // namespace vaxo::AgentBrand
