#include "clipboard/ClipText.h"

#include "secrets/SecretScanner.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

namespace vaxo::ClipText {
namespace {

std::u16string_view utf16(const QString &s)
{
    return {reinterpret_cast<const char16_t *>(s.utf16()), size_t(s.size())};
}

// Where the first `count` characters end, in code units; the whole length when there are fewer.
qsizetype endOfCharacters(const QString &text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (int i = 0; i < count; ++i) {
        if (finder.toNextBoundary() < 0)
            return text.size();
    }
    return finder.position();
}

const QStringList kCodeMarkers{
    QStringLiteral("func "),   QStringLiteral("class "), QStringLiteral("import "), QStringLiteral("const "),
    QStringLiteral("let "),    QStringLiteral("var "),   QStringLiteral("def "),    QStringLiteral("=>"),
    QStringLiteral("{"),       QStringLiteral("};"),     QStringLiteral("</"),      QStringLiteral("#include"),
    QStringLiteral("SELECT "), QStringLiteral("npm "),   QStringLiteral("git "),
};

} // namespace

int characterCount(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

ClipKind classify(const QString &text)
{
    const QString lower = text.toLower();
    if ((lower.startsWith(QLatin1String("http://")) || lower.startsWith(QLatin1String("https://"))) &&
        !text.contains(QLatin1Char(' ')))
        return ClipKind::Link;
    static const QRegularExpression colour(QRegularExpression::anchoredPattern(QStringLiteral("#[0-9a-fA-F]{3,8}")));
    if (colour.match(text).hasMatch())
        return ClipKind::Color;
    for (const QString &marker : kCodeMarkers) {
        if (text.contains(marker))
            return characterCount(text) < 13 ? ClipKind::Text : ClipKind::Code;
    }
    return ClipKind::Text;
}

QString preview(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral(" {2,}"));
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\t'), QLatin1Char(' '));
    line.replace(blanks, QStringLiteral(" "));
    const qsizetype cut = endOfCharacters(line, kPreviewLimit);
    if (cut < line.size())
        return line.left(cut) + QChar(0x2026);
    return line;
}

ClipItem textItem(const QString &text, const QString &id, double at, const std::optional<QString> &from)
{
    const QString trimmed = text.trimmed();
    const bool secret = SecretScanner::containsSecret(utf16(trimmed));
    const QString shown = secret ? [&] {
        const std::u16string redacted = SecretScanner::redact(utf16(trimmed));
        return QString(reinterpret_cast<const QChar *>(redacted.data()), qsizetype(redacted.size()));
    }()
                                 : trimmed;
    return ClipItem{id, classify(trimmed), preview(shown), text, false, at, from, secret};
}

} // namespace vaxo::ClipText
