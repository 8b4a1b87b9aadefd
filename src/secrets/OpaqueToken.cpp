#include "secrets/SecretScanner.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>

namespace vaxo {
namespace {

using Text = std::u16string_view;

// The text's user-perceived characters (extended grapheme clusters), at most `limit` of them.
std::vector<Text> characters(Text s, size_t limit)
{
    std::vector<Text> out;
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> it(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    UText *ut = utext_openUChars(nullptr, s.data(), int64_t(s.size()), &status);
    if (U_FAILURE(status) || !it) {
        utext_close(ut);
        return out;
    }
    it->setText(ut, status);
    for (int32_t from = it->first(), to = it->next(); to != icu::BreakIterator::DONE && out.size() < limit;
         from = to, to = it->next())
        out.push_back(s.substr(size_t(from), size_t(to - from)));
    utext_close(ut);
    return out;
}

UChar32 firstCodePoint(Text character)
{
    UChar32 c = 0;
    int32_t i = 0;
    U16_NEXT(character.data(), i, int32_t(character.size()), c);
    return c;
}

bool isHexDigit(char16_t c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

constexpr Text kAlphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=_.-~";
// Base64 forms of common file headers (PNG, JPEG, GIF, RIFF, PDF, ZIP, XML, SVG) and a data URL.
constexpr Text kFileHeaders[] = {u"iVBORw0KGgo", u"/9j/",    u"R0lGOD", u"UklGR", u"JVBERi0",
                                 u"UEsDB",       u"PD94bWw", u"PHN2Zw", u"data:"};

} // namespace

bool SecretScanner::isUUID(std::u16string_view s)
{
    if (s.size() != 36)
        return false;
    for (size_t i = 0; i < s.size(); ++i) {
        const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
        if (dash ? s[i] != u'-' : !isHexDigit(s[i]))
            return false;
    }
    return true;
}

double SecretScanner::shannonEntropy(std::u16string_view s)
{
    const auto chars = characters(s, s.size());
    if (chars.empty())
        return 0.0;
    std::map<Text, int> counts;
    for (Text c : chars)
        ++counts[c];
    double entropy = 0.0;
    const double n = double(chars.size());
    for (const auto &[c, count] : counts) {
        const double p = count / n;
        entropy -= p * std::log2(p);
    }
    return entropy;
}

bool SecretScanner::looksLikeOpaqueToken(std::u16string_view s)
{
    if (s.size() < 24) // fewer code units than 24 cannot make 24 characters
        return false;
    const auto chars = characters(s, 129); // counting stops past the limit: a long text costs nothing more
    if (chars.size() < 24 || chars.size() > 128)
        return false;
    for (Text c : chars) {
        if (u_isUWhiteSpace(firstCodePoint(c)))
            return false;
    }
    for (Text c : chars) {
        if (c.size() != 1 || kAlphabet.find(c[0]) == Text::npos)
            return false;
    }
    // From here on every character is one ASCII code unit.
    const size_t padding = s.find(u'=');
    if (padding != Text::npos && s.find_first_not_of(u'=', padding) != Text::npos)
        return false;
    if (s[0] == u'/' || s[0] == u'~' || s[0] == u'.')
        return false;
    if (std::count(s.begin(), s.end(), u'/') >= 2)
        return false;
    if (std::all_of(s.begin(), s.end(), isHexDigit))
        return false;
    if (isUUID(s))
        return false;
    for (Text header : kFileHeaders) {
        if (s.substr(0, header.size()) == header)
            return false;
    }
    const bool letter = std::any_of(s.begin(), s.end(), [](char16_t c) { return u_isalpha(c); });
    const bool digit = std::any_of(s.begin(), s.end(), [](char16_t c) { return u_isdigit(c); });
    if (!letter || !digit)
        return false;
    if (s.find_first_of(u"+/=_-~") == Text::npos) {
        const bool upper = std::any_of(s.begin(), s.end(), [](char16_t c) { return u_isupper(c); });
        const bool lowerCase = std::any_of(s.begin(), s.end(), [](char16_t c) { return u_islower(c); });
        if (!upper || !lowerCase)
            return false;
    }
    return shannonEntropy(s) >= 3.6;
}

} // namespace vaxo
