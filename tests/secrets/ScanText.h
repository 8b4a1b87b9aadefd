#pragma once

#include "secrets/SecretScanner.h"

#include <QString>
#include <QStringList>

// Bridges between the scanner's UTF-16 strings and QString, and a compact form of findings for tables.
namespace vaxo::test {

inline std::u16string u16(const QString &s)
{
    return std::u16string(reinterpret_cast<const char16_t *>(s.utf16()), size_t(s.size()));
}

inline QString qs(std::u16string_view s)
{
    return QString(reinterpret_cast<const QChar *>(s.data()), qsizetype(s.size()));
}

// "rule@location+length" for each finding, in order.
inline QStringList described(const std::vector<SecretFinding> &findings)
{
    QStringList out;
    for (const auto &f : findings)
        out << QStringLiteral("%1@%2+%3").arg(QString::fromStdString(f.rule)).arg(f.range.location).arg(f.range.length);
    return out;
}

} // namespace vaxo::test
