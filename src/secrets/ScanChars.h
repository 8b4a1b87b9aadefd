#pragma once

#include <algorithm>
#include <string_view>

// Character tests and skips that the scan's prefilters share. ASCII only: they decide where a rule's
// ASCII letters and signs can stand, never what a rule matches.
namespace vaxo::secrets::chars {

using Text = std::u16string_view;

inline bool isAlnum(char16_t c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// Every character any token rule is made of (letters, digits, "_", "-" and the dots of a JWT).
inline bool isTokenChar(char16_t c)
{
    return isAlnum(c) || c == u'_' || c == u'-' || c == u'.';
}

// A bearer credential's characters and its padding.
inline bool isCredentialChar(char16_t c)
{
    return isAlnum(c) || Text(u"-._~+/=").find(c) != Text::npos;
}

inline bool isBlank(char16_t c)
{
    return c == u' ' || c == u'\t';
}

inline bool isQuote(char16_t c)
{
    return c == u'"' || c == u'\'' || c == u'`';
}

// Characters that end a bare value: each is white space or one the value excludes.
inline bool endsBareValue(char16_t c)
{
    return Text(u" \t\n\r\f\"'`,;()[]{}<>").find(c) != Text::npos;
}

inline bool inBareValue(char16_t c)
{
    return !endsBareValue(c);
}

inline bool inQuotedValue(char16_t c)
{
    return !isQuote(c) && c != u'\n';
}

inline char16_t lower(char16_t c)
{
    return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
}

inline bool startsWith(Text t, size_t at, Text prefix)
{
    return t.size() - at >= prefix.size() && t.compare(at, prefix.size(), prefix) == 0;
}

inline bool startsWithFolded(Text t, size_t at, Text lowerPrefix)
{
    if (t.size() - at < lowerPrefix.size())
        return false;
    for (size_t i = 0; i < lowerPrefix.size(); ++i) {
        if (lower(t[at + i]) != lowerPrefix[i])
            return false;
    }
    return true;
}

inline size_t skip(Text t, size_t at, bool (*pred)(char16_t))
{
    while (at < t.size() && pred(t[at]))
        ++at;
    return at;
}

// skip() that remembers the last run it walked: many anchors inside one long run (a key name repeated
// thousands of times) then cost one walk instead of one each.
class RunEnd {
public:
    RunEnd(Text t, bool (*pred)(char16_t)) : m_t(t), m_pred(pred) {}

    size_t operator()(size_t at)
    {
        if (at < m_from || at > m_end) {
            m_from = at;
            m_end = skip(m_t, at, m_pred);
        }
        return m_end;
    }

private:
    Text m_t;
    bool (*m_pred)(char16_t);
    size_t m_from = 1;
    size_t m_end = 0;
};

// The first `c` at or after a position, remembered like RunEnd: asked with growing positions, it
// reads every character at most once.
class NextOf {
public:
    NextOf(Text t, char16_t c) : m_t(t), m_c(c) {}

    size_t operator()(size_t at)
    {
        if (at < m_from || at > m_at) {
            m_from = at;
            m_at = std::min(m_t.find(m_c, at), m_t.size());
        }
        return m_at;
    }

private:
    Text m_t;
    char16_t m_c;
    size_t m_from = 1;
    size_t m_at = 0;
};

} // namespace vaxo::secrets::chars
