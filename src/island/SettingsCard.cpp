#include "island/SettingsCard.h"

#include "base/IslandSettings.h"
#include "island/Palette.h"

#include <QDir>
#include <QFileInfo>

namespace vaxo {

SettingsCard::SettingsCard(QString backgrounds, QObject *parent) : QObject(parent), m_folder(std::move(backgrounds))
{
    reload();
}

QString SettingsCard::title() const
{
    return QStringLiteral("Settings");
}

QStringList SettingsCard::rowLabels() const
{
    return {QStringLiteral("Icon"),   QStringLiteral("Accent"),   QStringLiteral("Animation"),
            QStringLiteral("Sounds"), QStringLiteral("Backdrop"), QStringLiteral("Depth"),
            QStringLiteral("Focus"),  QStringLiteral("Music"),    QStringLiteral("Clipboard"),
            QStringLiteral("Clips"),  QStringLiteral("Speech")};
}

QStringList SettingsCard::iconValues() const
{
    return {QStringLiteral("face"), QStringLiteral("dot"), QStringLiteral("none")};
}

QStringList SettingsCard::iconLabels() const
{
    return {QStringLiteral("Vaxo"), QStringLiteral("Dot"), QStringLiteral("None")};
}

QStringList SettingsCard::accentValues() const
{
    return Palette::accentNames();
}

QStringList SettingsCard::accentLabels() const
{
    return Palette::accentLabels();
}

QStringList SettingsCard::accentColors() const
{
    QStringList colors;
    for (const QString &name : Palette::accentNames())
        colors << Palette::accent(name);
    return colors;
}

QStringList SettingsCard::animValues() const
{
    return {QStringLiteral("pulse"), QStringLiteral("calm")};
}

QStringList SettingsCard::animLabels() const
{
    return {QStringLiteral("Pulse"), QStringLiteral("Calm")};
}

// Names of the desktop's sound theme, but "Glass", the done sound's first name, which the sound player
// plays as the theme's "complete".
QStringList SettingsCard::soundValues() const
{
    return {QStringLiteral("Glass"), QStringLiteral("bell"), QStringLiteral("message"),
            QStringLiteral("window-attention"), QStringLiteral("service-login")};
}

QStringList SettingsCard::soundLabels() const
{
    return {QStringLiteral("Glass"), QStringLiteral("Bell"), QStringLiteral("Message"), QStringLiteral("Attention"),
            QStringLiteral("Chime")};
}

QStringList SettingsCard::strengthValues() const
{
    return {QStringLiteral("subtle"), QStringLiteral("medium"), QStringLiteral("strong")};
}

QStringList SettingsCard::strengthLabels() const
{
    return {QStringLiteral("Subtle"), QStringLiteral("Medium"), QStringLiteral("Strong")};
}

QStringList SettingsCard::focusValues() const
{
    return {QStringLiteral("auto"), QStringLiteral("sharp"), QStringLiteral("soft")};
}

QStringList SettingsCard::focusLabels() const
{
    return {QStringLiteral("Auto"), QStringLiteral("Sharp"), QStringLiteral("Soft")};
}

QStringList SettingsCard::clipRowValues() const
{
    QStringList rows;
    for (int n = IslandSettings::kMinClipRows; n <= IslandSettings::kMaxClipRows; ++n)
        rows << QString::number(n);
    return rows;
}

QStringList SettingsCard::backdropLabels() const
{
    QStringList labels{QStringLiteral("None")};
    for (qsizetype i = 1; i < m_backdrops.size(); ++i)
        labels << QFileInfo(m_backdrops.at(i)).completeBaseName();
    return labels;
}

QString SettingsCard::quitLabel() const
{
    return QStringLiteral("Quit VAXO Island");
}

void SettingsCard::reload()
{
    const QStringList images = QDir(m_folder).entryList(
        {QStringLiteral("*.png"), QStringLiteral("*.jpg"), QStringLiteral("*.jpeg"), QStringLiteral("*.webp")},
        QDir::Files | QDir::Readable, QDir::Name | QDir::IgnoreCase);
    const QStringList backdrops = QStringList{QString()} + images;
    if (backdrops == m_backdrops)
        return;
    m_backdrops = backdrops;
    emit backdropsChanged();
}

} // namespace vaxo
