#include "island/Palette.h"

#include <array>

namespace vaxo::Palette {
namespace {

struct Accent {
    const char *name;
    const char *label;
    const char *hex;
};

constexpr std::array<Accent, 8> kAccents{{
    {"blue", "Blue", "#0a84ff"},
    {"purple", "Purple", "#bf5af2"},
    {"pink", "Pink", "#ff375f"},
    {"red", "Red", "#ff453a"},
    {"orange", "Orange", "#ff9f0a"},
    {"yellow", "Yellow", "#ffd60a"},
    {"green", "Green", "#30d158"},
    {"graphite", "Graphite", "#98989d"},
}};

QStringList column(const char *Accent::*field)
{
    QStringList out;
    for (const Accent &a : kAccents)
        out << QLatin1String(a.*field);
    return out;
}

} // namespace

const QStringList &accentNames()
{
    static const QStringList names = column(&Accent::name);
    return names;
}

const QStringList &accentLabels()
{
    static const QStringList labels = column(&Accent::label);
    return labels;
}

QString accent(const QString &name)
{
    for (const Accent &a : kAccents) {
        if (name == QLatin1String(a.name))
            return QLatin1String(a.hex);
    }
    return QLatin1String(kAccents.front().hex);
}

QString mood(Mood mood, const QString &accentName)
{
    switch (mood) {
    case Mood::Sleeping:
        return QStringLiteral("#5e5ce6");
    case Mood::Busy:
        return QStringLiteral("#ffb340");
    case Mood::Swamped:
        return QStringLiteral("#ff6961");
    case Mood::Waiting:
        return QLatin1String(kWaiting);
    case Mood::Pleased:
        return QLatin1String(kDone);
    case Mood::Resting:
    case Mood::Working:
        break;
    }
    return accent(accentName);
}

} // namespace vaxo::Palette
