#include "agents/SettingsText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace vaxo {
namespace {

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

qsizetype skipSpace(const QByteArray &text, qsizetype i)
{
    while (i < text.size() && isSpace(text.at(i)))
        ++i;
    return i;
}

// The index after the string that opens at i, or -1.
qsizetype stringEnd(const QByteArray &text, qsizetype i)
{
    for (++i; i < text.size(); ++i) {
        if (text.at(i) == '\\')
            ++i;
        else if (text.at(i) == '"')
            return i + 1;
    }
    return -1;
}

// The index after the value that starts at i, or -1.
qsizetype valueEnd(const QByteArray &text, qsizetype i)
{
    if (i >= text.size())
        return -1;
    const char first = text.at(i);
    if (first == '"')
        return stringEnd(text, i);
    if (first != '{' && first != '[') {
        while (i < text.size() && !isSpace(text.at(i)) && !QByteArray(",]}").contains(text.at(i)))
            ++i;
        return i;
    }
    int depth = 0;
    while (i >= 0 && i < text.size()) {
        const char c = text.at(i);
        if (c == '"') {
            i = stringEnd(text, i);
            continue;
        }
        if (c == '{' || c == '[')
            ++depth;
        else if ((c == '}' || c == ']') && --depth == 0)
            return i + 1;
        ++i;
    }
    return -1;
}

QString keyText(const QByteArray &token)
{
    if (!token.contains('\\'))
        return QString::fromUtf8(token.mid(1, token.size() - 2));
    return QJsonDocument::fromJson('[' + token + ']').array().at(0).toString();
}

} // namespace

SettingsText::Span SettingsText::root() const
{
    const qsizetype begin = skipSpace(m_text, 0);
    const qsizetype end = valueEnd(m_text, begin);
    return end < 0 ? Span{} : Span{begin, end};
}

SettingsText::Span SettingsText::member(Span object, const QString &key) const
{
    Span found;
    if (object.opener(m_text) != '{')
        return found;
    qsizetype i = object.begin + 1;
    for (;;) {
        i = skipSpace(m_text, i);
        if (i >= object.end || m_text.at(i) != '"')
            return found;
        const qsizetype keyEnd = stringEnd(m_text, i);
        const qsizetype colon = skipSpace(m_text, keyEnd);
        if (keyEnd < 0 || colon >= object.end || m_text.at(colon) != ':')
            return found;
        const qsizetype value = skipSpace(m_text, colon + 1);
        const qsizetype end = valueEnd(m_text, value);
        if (end < 0)
            return found;
        if (keyText(m_text.mid(i, keyEnd - i)) == key)
            found = {value, end};
        i = skipSpace(m_text, end);
        if (i >= object.end || m_text.at(i) != ',')
            return found;
        ++i;
    }
}

void SettingsText::replace(Span value, const QByteArray &with)
{
    if (value.found())
        m_text.replace(value.begin, value.end - value.begin, with);
}

void SettingsText::appendMember(Span object, const QString &key, const QByteArray &value)
{
    const QByteArray name = QJsonDocument(QJsonArray{key}).toJson(QJsonDocument::Compact).chopped(1).mid(1);
    insertLast(object, name + ": " + value);
}

void SettingsText::appendElement(Span array, const QByteArray &value)
{
    insertLast(array, value);
}

void SettingsText::insertLast(Span container, const QByteArray &item)
{
    if (!container.found())
        return;
    const qsizetype closing = container.end - 1;
    if (skipSpace(m_text, container.begin + 1) == closing) {
        m_text.insert(closing, item);
        return;
    }
    // After the last element, before the white space that leads to the closing bracket.
    qsizetype last = closing - 1;
    while (last > container.begin && isSpace(m_text.at(last)))
        --last;
    m_text.insert(last + 1, ", " + item);
}

} // namespace vaxo
