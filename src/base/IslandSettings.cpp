#include "base/IslandSettings.h"

#include <array>

namespace vaxo {
namespace {

struct Entry {
    const char *name;
    QVariant fallback;
    void (IslandSettings::*changed)();
};

using K = IslandSettings::Key;

const std::array<Entry, 15> &entries()
{
    static const std::array<Entry, 15> table{{
        {"vaxoIslandEnabled", true, nullptr},
        {"vaxoIslandIcon", QStringLiteral("face"), &IslandSettings::iconChanged},
        {"vaxoIslandAccent", QStringLiteral("blue"), &IslandSettings::accentChanged},
        {"vaxoIslandAnim", QStringLiteral("pulse"), &IslandSettings::animChanged},
        {"vaxoIslandSound", true, &IslandSettings::soundChanged},
        {"vaxoIslandSoundName", QStringLiteral("Glass"), &IslandSettings::soundNameChanged},
        {"vaxoIslandBackdrop", QString(), &IslandSettings::backdropChanged},
        {"vaxoIslandBackdropStrength", QStringLiteral("subtle"), &IslandSettings::backdropStrengthChanged},
        {"vaxoIslandBackdropFocus", QStringLiteral("auto"), &IslandSettings::backdropFocusChanged},
        {"vaxoIslandMusic", true, &IslandSettings::musicChanged},
        {"vaxoIslandClipboard", true, &IslandSettings::clipboardChanged},
        {"vaxoIslandClipRows", 2, &IslandSettings::clipRowsChanged},
        {"vaxoIslandTab", QStringLiteral("agents"), &IslandSettings::tabChanged},
        {"vaxoIslandSpeak", true, &IslandSettings::speakChanged},
        {"vaxoIslandClipScrubV1", false, nullptr},
    }};
    return table;
}

const Entry &entry(K key)
{
    return entries()[size_t(key)];
}

} // namespace

IslandSettings::IslandSettings(const QString &file, QObject *parent)
    : QObject(parent), m_store(file, QSettings::IniFormat)
{
}

QString IslandSettings::keyName(Key key)
{
    return QLatin1String(entry(key).name);
}

std::optional<bool> IslandSettings::storedBool(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    // The INI format keeps booleans as words.
    const QString word = value.toString().trimmed().toLower();
    if (word == QLatin1String("true"))
        return true;
    if (word == QLatin1String("false"))
        return false;
    return std::nullopt;
}

bool IslandSettings::flag(Key key) const
{
    return storedBool(m_store.value(keyName(key))).value_or(entry(key).fallback.toBool());
}

QString IslandSettings::text(Key key) const
{
    const QVariant value = m_store.value(keyName(key));
    return value.typeId() == QMetaType::QString ? value.toString() : entry(key).fallback.toString();
}

void IslandSettings::write(Key key, const QVariant &value, const QVariant &current)
{
    if (value == current)
        return;
    m_store.setValue(keyName(key), value);
    m_store.sync();
    if (auto changed = entry(key).changed)
        emit(this->*changed)();
}

bool IslandSettings::enabled() const
{
    return flag(Key::Enabled);
}
QString IslandSettings::icon() const
{
    return text(Key::Icon);
}
QString IslandSettings::accent() const
{
    return text(Key::Accent);
}
QString IslandSettings::anim() const
{
    return text(Key::Anim);
}
bool IslandSettings::calm() const
{
    return anim() == QLatin1String("calm");
}
bool IslandSettings::sound() const
{
    return flag(Key::Sound);
}
QString IslandSettings::soundName() const
{
    return text(Key::SoundName);
}
QString IslandSettings::backdrop() const
{
    return text(Key::Backdrop);
}
QString IslandSettings::backdropStrength() const
{
    return text(Key::BackdropStrength);
}
QString IslandSettings::backdropFocus() const
{
    return text(Key::BackdropFocus);
}
bool IslandSettings::music() const
{
    return flag(Key::Music);
}
bool IslandSettings::clipboard() const
{
    return flag(Key::Clipboard);
}
QString IslandSettings::tab() const
{
    return text(Key::Tab);
}
bool IslandSettings::speak() const
{
    return flag(Key::Speak);
}
bool IslandSettings::clipScrubbed() const
{
    return flag(Key::ClipScrubbed);
}

int IslandSettings::clipRows() const
{
    bool ok = false;
    const int rows = m_store.value(keyName(Key::ClipRows)).toInt(&ok);
    return ok && rows >= kMinClipRows && rows <= kMaxClipRows ? rows : entry(Key::ClipRows).fallback.toInt();
}

void IslandSettings::setIcon(const QString &value)
{
    write(Key::Icon, value, icon());
}
void IslandSettings::setAccent(const QString &value)
{
    write(Key::Accent, value, accent());
}
void IslandSettings::setAnim(const QString &value)
{
    write(Key::Anim, value, anim());
}
void IslandSettings::setSound(bool value)
{
    write(Key::Sound, value, sound());
}
void IslandSettings::setSoundName(const QString &value)
{
    write(Key::SoundName, value, soundName());
}
void IslandSettings::setBackdrop(const QString &value)
{
    write(Key::Backdrop, value, backdrop());
}
void IslandSettings::setBackdropStrength(const QString &value)
{
    write(Key::BackdropStrength, value, backdropStrength());
}
void IslandSettings::setBackdropFocus(const QString &value)
{
    write(Key::BackdropFocus, value, backdropFocus());
}
void IslandSettings::setMusic(bool value)
{
    write(Key::Music, value, music());
}
void IslandSettings::setClipboard(bool value)
{
    write(Key::Clipboard, value, clipboard());
}
void IslandSettings::setTab(const QString &value)
{
    write(Key::Tab, value, tab());
}
void IslandSettings::setSpeak(bool value)
{
    write(Key::Speak, value, speak());
}
void IslandSettings::setClipScrubbed(bool value)
{
    write(Key::ClipScrubbed, value, clipScrubbed());
}

void IslandSettings::setClipRows(int value)
{
    if (value >= kMinClipRows && value <= kMaxClipRows)
        write(Key::ClipRows, value, clipRows());
}

} // namespace vaxo
