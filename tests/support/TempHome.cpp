#include "TempHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <sys/stat.h>

namespace vaxo::test {

TempHome::TempHome() : m_paths(AppPaths::under(m_dir.path())) {}

void TempHome::write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

void TempHome::replace(const QString &path, const QByteArray &bytes)
{
    const QFileInfo info(path);
    const QString tmp = info.absolutePath() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".tmp");
    write(tmp, bytes);
    // QFile::rename refuses to replace an existing file; rename(2) replaces it in one step.
    ::rename(QFile::encodeName(tmp).constData(), QFile::encodeName(path).constData());
}

QByteArray TempHome::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int TempHome::mode(const QString &path)
{
    struct stat st {};
    return ::stat(QFile::encodeName(path).constData(), &st) == 0 ? int(st.st_mode & 07777) : -1;
}

} // namespace vaxo::test
