#pragma once

#include "base/AppPaths.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace vaxo::test {

// A throw-away folder with the program's folders under it, removed when the test ends.
class TempHome {
public:
    TempHome();

    QString root() const { return m_dir.path(); }
    const AppPaths &paths() const { return m_paths; }

    // Writes bytes to path (parents created), replacing what was there.
    static void write(const QString &path, const QByteArray &bytes);
    // As the hook writes: a temporary name beside path, then a rename over it.
    static void replace(const QString &path, const QByteArray &bytes);
    static QByteArray read(const QString &path);
    static int mode(const QString &path); // POSIX permission bits, -1 when missing

private:
    QTemporaryDir m_dir;
    AppPaths m_paths;
};

} // namespace vaxo::test
