#pragma once

#include <QByteArray>
#include <QString>

namespace vaxo {

// The text of a JSON document edited in place: values are found by key, replaced or extended, and
// every byte outside an edit stays as it was. A person's settings keep their numbers, duplicate
// keys, escapes and layout exactly, which no parse-and-write round trip promises.
// The text must be valid JSON (check it with a parser first); otherwise lookups find nothing.
class SettingsText {
public:
    // Where a value lies: [begin, end) in the text; begin is -1 when there is none.
    struct Span {
        qsizetype begin = -1;
        qsizetype end = -1;
        bool found() const { return begin >= 0; }
        char opener(const QByteArray &text) const { return found() ? text.at(begin) : '\0'; }
    };

    explicit SettingsText(QByteArray text) : m_text(std::move(text)) {}

    const QByteArray &text() const { return m_text; }

    // The top-level value.
    Span root() const;
    // The value of key in the object at `object`; of several equal keys the last, as readers take it.
    Span member(Span object, const QString &key) const;

    void replace(Span value, const QByteArray &with);
    // Adds "key": value as the object's last member.
    void appendMember(Span object, const QString &key, const QByteArray &value);
    // Adds value as the array's last element.
    void appendElement(Span array, const QByteArray &value);

private:
    void insertLast(Span container, const QByteArray &item);

    QByteArray m_text;
};

} // namespace vaxo
