#include "agents/AskDecision.h"

#include "base/Clock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace vaxo {
namespace {

constexpr auto kPrivateFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto kPrivateFolder = kPrivateFile | QFileDevice::ExeOwner;

bool isKept(char32_t c)
{
    if (c == U'-' || c == U'_')
        return true;
    switch (QChar::category(c)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Number_DecimalDigit:
        return true;
    default:
        return false;
    }
}

QString behavior(AskDecision::Answer answer)
{
    switch (answer) {
    case AskDecision::Answer::Allow:
        return QStringLiteral("allow");
    case AskDecision::Answer::Deny:
        return QStringLiteral("deny");
    case AskDecision::Answer::Always:
        return QStringLiteral("always");
    }
    return QStringLiteral("deny");
}

} // namespace

AskDecision::AskDecision(const QString &decisions, const Clock &clock) : m_folder(decisions), m_clock(clock) {}

QString AskDecision::sanitised(const QString &id)
{
    QList<uint> scalars = id.toUcs4();
    if (scalars.size() > 120)
        scalars.resize(120);
    for (uint &c : scalars) {
        if (!isKept(char32_t(c)))
            c = U'_';
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(scalars.constData()), scalars.size());
}

void AskDecision::answer(const QString &id, Answer answer) const
{
    if (id.isEmpty())
        return;
    QDir().mkpath(m_folder);
    QFile::setPermissions(m_folder, kPrivateFolder);

    const QJsonObject decision{{QStringLiteral("id"), id},
                               {QStringLiteral("behavior"), behavior(answer)},
                               {QStringLiteral("at"), m_clock.now()}};
    const QByteArray bytes = QJsonDocument(decision).toJson(QJsonDocument::Compact);

    // The reporter looks only for the final name, which appears whole through the rename.
    const QString base = m_folder + QLatin1Char('/') + sanitised(id);
    const QString temporary = base + QStringLiteral(".tmp");
    QFile file(temporary);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate, kPrivateFile))
        return;
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    QFile::setPermissions(temporary, kPrivateFile);
    if (!written || std::rename(QFile::encodeName(temporary).constData(),
                                QFile::encodeName(base + QStringLiteral(".json")).constData()) != 0)
        QFile::remove(temporary);
}

void AskDecision::sweep() const
{
    const double oldest = m_clock.now() - kMaxAge;
    const QFileInfoList entries =
        QDir(m_folder).entryInfoList(QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const QDateTime modified = entry.lastModified();
        const double at = modified.isValid() ? double(modified.toMSecsSinceEpoch()) / 1000.0 : 0.0;
        if (at < oldest)
            QFile::remove(entry.filePath());
    }
}

} // namespace vaxo
