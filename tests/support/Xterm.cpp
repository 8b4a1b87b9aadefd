#include "Xterm.h"

#include <QFile>
#include <QRegularExpression>

namespace vaxo::test {
namespace {

QByteArray output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput();
}

} // namespace

Xterm::Xterm(const QString &command)
{
    m_process.start(QStringLiteral("xterm"), {QStringLiteral("-e"), QStringLiteral("sh"), QStringLiteral("-c"),
                                              QStringLiteral("tty > \"$0.part\" && mv \"$0.part\" \"$0\"; eval \"$1\""),
                                              m_dir.filePath(QStringLiteral("tty")), command});
}

Xterm::~Xterm()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool Xterm::ready()
{
    if (m_tty.isEmpty()) {
        QFile file(m_dir.filePath(QStringLiteral("tty")));
        if (file.open(QIODevice::ReadOnly))
            m_tty = QString::fromLocal8Bit(file.readAll()).trimmed();
    }
    if (!m_window)
        m_window = output(QStringLiteral("xdotool"),
                          {QStringLiteral("search"), QStringLiteral("--pid"), QString::number(m_process.processId())})
                       .trimmed()
                       .split('\n')
                       .value(0)
                       .toUInt();
    return !m_tty.isEmpty() && m_window;
}

quint32 Xterm::activeWindow()
{
    // "_NET_ACTIVE_WINDOW(WINDOW): window id # 0x200008"
    const QString line = QString::fromLatin1(
        output(QStringLiteral("xprop"), {QStringLiteral("-root"), QStringLiteral("_NET_ACTIVE_WINDOW")}));
    const QRegularExpressionMatch match = QRegularExpression(QStringLiteral("0x[0-9a-fA-F]+")).match(line);
    return match.hasMatch() ? match.captured().toUInt(nullptr, 16) : 0;
}

} // namespace vaxo::test
