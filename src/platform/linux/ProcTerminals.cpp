#include "platform/linux/ProcTerminals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>
#include <unistd.h>

namespace vaxo::linux_platform::ProcTerminals {
namespace {

QList<qint64> processIds()
{
    QList<qint64> pids;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool ok = false;
        const qint64 pid = name.toLongLong(&ok);
        if (ok)
            pids << pid;
    }
    return pids;
}

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The "tty-index" line that the kernel writes in the fdinfo of a pseudo-terminal master.
std::optional<int> ttyIndex(const QByteArray &fdinfo)
{
    for (const QByteArray &line : fdinfo.split('\n'))
        if (line.startsWith("tty-index:")) {
            bool ok = false;
            const int index = line.mid(10).trimmed().toInt(&ok);
            return ok ? std::optional(index) : std::nullopt;
        }
    return std::nullopt;
}

// The descriptors of pid that are pseudo-terminal masters. Read with readlink(2) directly: a desktop
// has thousands of descriptors open.
QList<QByteArray> masterDescriptors(qint64 pid)
{
    QList<QByteArray> found;
    const QByteArray folder = "/proc/" + QByteArray::number(pid) + "/fd";
    DIR *dir = opendir(folder.constData());
    if (!dir)
        return found;
    char target[64];
    while (const dirent *entry = readdir(dir)) {
        const QByteArray link = folder + '/' + entry->d_name;
        const ssize_t length = readlink(link.constData(), target, sizeof target);
        const QByteArrayView name(target, length > 0 ? length : 0);
        if (name == "/dev/ptmx" || name == "/dev/pts/ptmx")
            found << QByteArray(entry->d_name);
    }
    closedir(dir);
    return found;
}

} // namespace

QList<QByteArray> statFields(qint64 pid)
{
    const QByteArray stat = readAll(QStringLiteral("/proc/%1/stat").arg(pid));
    // The command name may itself hold blanks and brackets; the fields after it do not.
    const qsizetype close = stat.lastIndexOf(')');
    return close < 0 ? QList<QByteArray>() : stat.mid(close + 2).trimmed().split(' ');
}

std::optional<qint64> masterHolder(int ptsNumber)
{
    for (qint64 pid : processIds())
        for (const QByteArray &fd : masterDescriptors(pid))
            if (ttyIndex(readAll("/proc/" + QString::number(pid) + "/fdinfo/" + QString::fromLatin1(fd))) == ptsNumber)
                return pid;
    return std::nullopt;
}

QList<qint64> processesOn(int ptsNumber)
{
    // Pseudo-terminal slaves have the majors 136 to 143, 256 minors each; the kernel writes the
    // device as major * 256 + minor.
    const qulonglong device = qulonglong(136 + ptsNumber / 256) * 256 + qulonglong(ptsNumber % 256);
    QList<qint64> pids;
    for (qint64 pid : processIds()) {
        const QList<QByteArray> fields = statFields(pid);
        if (fields.size() > 4 && fields.at(4).toULongLong() == device)
            pids << pid;
    }
    return pids;
}

QList<qint64> lineage(qint64 pid)
{
    QList<qint64> chain;
    while (pid > 1 && !chain.contains(pid)) {
        chain << pid;
        pid = statFields(pid).value(1).toLongLong();
    }
    return chain;
}

QString program(qint64 pid)
{
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(pid))).fileName();
}

QByteArray environment(qint64 pid)
{
    return readAll(QStringLiteral("/proc/%1/environ").arg(pid));
}

} // namespace vaxo::linux_platform::ProcTerminals
