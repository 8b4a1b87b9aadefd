#include "island/IslandLook.h"

#include "base/IslandSettings.h"
#include "island/IslandState.h"
#include "island/Palette.h"

#include <QUrl>

namespace vaxo {

namespace {

const QStringList kTabs{QStringLiteral("agents"), QStringLiteral("music"), QStringLiteral("clipboard")};
const QStringList kIcons{QStringLiteral("face"), QStringLiteral("dot"), QStringLiteral("none")};

} // namespace

IslandLook::IslandLook(IslandSettings &settings, const IslandState &state, QObject *parent)
    : QObject(parent), m_settings(settings), m_state(state)
{
    connect(&settings, &IslandSettings::tabChanged, this, &IslandLook::tabChanged);
    connect(&settings, &IslandSettings::iconChanged, this, &IslandLook::restIconChanged);
    connect(&settings, &IslandSettings::accentChanged, this, &IslandLook::update);
    connect(&state, &IslandState::moodChanged, this, &IslandLook::update);
    for (auto signal : {&IslandSettings::backdropChanged, &IslandSettings::backdropStrengthChanged,
                        &IslandSettings::backdropFocusChanged})
        connect(&settings, signal, this, &IslandLook::update);
    update();
}

IslandLook::Tab IslandLook::tab() const
{
    return Tab(std::max<qsizetype>(0, kTabs.indexOf(m_settings.tab())));
}

void IslandLook::setTab(Tab tab)
{
    m_settings.setTab(kTabs.at(int(tab)));
}

IslandLook::RestIcon IslandLook::restIcon() const
{
    return RestIcon(std::max<qsizetype>(0, kIcons.indexOf(m_settings.icon())));
}

QString IslandLook::waiting() const
{
    return QLatin1String(Palette::kWaiting);
}

QString IslandLook::done() const
{
    return QLatin1String(Palette::kDone);
}

void IslandLook::update()
{
    const QString accent = Palette::accent(m_settings.accent());
    const QString mood = Palette::mood(m_state.mood(), m_settings.accent());
    if (accent != m_accent) {
        m_accent = accent;
        emit accentChanged();
    }
    if (mood != m_moodColor) {
        m_moodColor = mood;
        emit moodColorChanged();
    }
    const QString name = m_settings.backdrop();
    const QString backdrop = name.isEmpty() ? QString()
                                            : QStringLiteral("image://backdrop/%1/%2")
                                                  .arg(blurFactor(m_settings.backdropFocus()))
                                                  .arg(QString::fromLatin1(QUrl::toPercentEncoding(name)));
    const double opacity = name.isEmpty() ? 0.0 : opacityFor(m_settings.backdropStrength());
    if (backdrop != m_backdrop || opacity != m_backdropOpacity) {
        m_backdrop = backdrop;
        m_backdropOpacity = opacity;
        emit backdropChanged();
    }
}

int IslandLook::blurFactor(const QString &focus)
{
    if (focus == QLatin1String("sharp"))
        return 1;
    if (focus == QLatin1String("soft"))
        return 16;
    return 6; // "auto": soft enough that the card's words stay easy to read
}

double IslandLook::opacityFor(const QString &strength)
{
    if (strength == QLatin1String("strong"))
        return 0.65;
    if (strength == QLatin1String("medium"))
        return 0.42;
    return 0.24; // "subtle"
}

} // namespace vaxo
