#include "secrets/ScanWindows.h"

#include "secrets/CaseFoldJokers.h"

#include <algorithm>
#include <string>
#include <utility>

namespace vaxo::secrets {
namespace {

using Text = std::u16string_view;

bool isAlnum(char16_t c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// Every character any token rule is made of (letters, digits, "_", "-" and the dots of a JWT).
bool isTokenChar(char16_t c)
{
    return isAlnum(c) || c == u'_' || c == u'-' || c == u'.';
}

bool isBlank(char16_t c)
{
    return c == u' ' || c == u'\t';
}

bool isQuote(char16_t c)
{
    return c == u'"' || c == u'\'' || c == u'`';
}

// Characters that end a bare value: each is white space or one the value excludes.
bool endsBareValue(char16_t c)
{
    switch (c) {
    case u' ': case u'\t': case u'\n': case u'\r': case u'\f': case u'"': case u'\'': case u'`': case u',':
    case u';': case u'(': case u')': case u'[': case u']': case u'{': case u'}': case u'<': case u'>':
        return true;
    default:
        return false;
    }
}

char16_t lower(char16_t c)
{
    return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
}

bool startsWith(Text t, size_t at, Text prefix)
{
    return t.size() - at >= prefix.size() && t.compare(at, prefix.size(), prefix) == 0;
}

bool startsWithFolded(Text t, size_t at, Text lowerPrefix)
{
    if (t.size() - at < lowerPrefix.size())
        return false;
    for (size_t i = 0; i < lowerPrefix.size(); ++i) {
        if (lower(t[at + i]) != lowerPrefix[i])
            return false;
    }
    return true;
}

template <typename Pred> size_t skip(Text t, size_t at, Pred pred)
{
    while (at < t.size() && pred(t[at]))
        ++at;
    return at;
}

// Every spelling of every key name, lower case: the alternation written out.
const std::vector<std::u16string> &keyNames()
{
    static const std::vector<std::u16string> names = [] {
        std::vector<std::u16string> out{u"password", u"passwords", u"passwd", u"pwd", u"secret", u"secrets",
                                        u"token", u"tokens", u"authorization", u"credential", u"credentials",
                                        u"passphrase"};
        const std::pair<Text, Text> compounds[] = {{u"api", u"key"},     {u"access", u"key"},  {u"secret", u"key"},
                                                   {u"private", u"key"}, {u"session", u"key"}, {u"client", u"secret"},
                                                   {u"auth", u"token"}};
        for (const auto &[first, second] : compounds) {
            for (Text joint : {Text(u""), Text(u"_"), Text(u"-")}) {
                for (Text plural : {Text(u""), Text(u"s")})
                    out.push_back(std::u16string(first) + std::u16string(joint) + std::u16string(second) +
                                  std::u16string(plural));
            }
        }
        return out;
    }();
    return names;
}

// The length of the longest key name that ends at `end`, 0 when none does.
size_t keyNameBefore(Text t, size_t end)
{
    size_t longest = 0;
    for (const auto &name : keyNames()) {
        if (name.size() > longest && end >= name.size() && startsWithFolded(t, end - name.size(), name))
            longest = name.size();
    }
    return longest;
}

// What can follow an assignment sign whose value starts at `at` (after the sign's blanks): a quoted
// value, a bare one, either after a scheme word, and how far the assignment can reach.
struct AssignmentTail {
    bool quoted = false;
    bool bare = false;
    size_t end = 0;
};

size_t closingQuote(Text t, size_t open)
{
    const size_t at = skip(t, open + 1, [](char16_t c) { return !isQuote(c) && c != u'\n'; });
    return at < t.size() && isQuote(t[at]) ? at + 1 : at;
}

AssignmentTail assignmentTail(Text t, size_t at)
{
    AssignmentTail tail;
    at = skip(t, at, isBlank);
    if (at < t.size() && isQuote(t[at]))
        return {true, false, closingQuote(t, at)};
    const size_t word = skip(t, at, [](char16_t c) { return !endsBareValue(c); });
    tail.bare = word > at;
    tail.end = word;
    const size_t next = skip(t, word, isBlank);
    if (tail.bare && next > word && next < t.size()) { // the word may have been a scheme ("Bearer ...")
        if (isQuote(t[next])) {
            tail.quoted = true;
            tail.end = closingQuote(t, next);
        } else {
            tail.end = skip(t, next, [](char16_t c) { return !endsBareValue(c); });
        }
    }
    return tail;
}

void addAssignment(ScanPlan &plan, Text t, size_t sign)
{
    size_t keyEnd = sign;
    while (keyEnd > 0 && isBlank(t[keyEnd - 1]))
        --keyEnd;
    if (keyEnd > 0 && (t[keyEnd - 1] == u'"' || t[keyEnd - 1] == u'\''))
        --keyEnd;
    const size_t key = keyNameBefore(t, keyEnd);
    if (key == 0)
        return;
    // A two-character sign (":=", "=>") may also be read as its first character and a value.
    AssignmentTail tail = assignmentTail(t, sign + 1);
    if (sign + 1 < t.size() && (t[sign + 1] == u'=' || t[sign + 1] == u'>')) {
        const AssignmentTail longer = assignmentTail(t, sign + 2);
        tail = {tail.quoted || longer.quoted, tail.bare || longer.bare, std::max(tail.end, longer.end)};
    }
    const Window w{int64_t(keyEnd - key), int64_t(tail.end)};
    if (tail.quoted)
        plan[size_t(RuleId::LabeledQuoted)].push_back(w);
    if (tail.bare)
        plan[size_t(RuleId::LabeledBare)].push_back(w);
}

void addToken(ScanPlan &plan, RuleId id, Text t, size_t at)
{
    plan[size_t(id)].push_back({int64_t(at), int64_t(skip(t, at, isTokenChar))});
}

void addBearer(ScanPlan &plan, Text t, size_t at)
{
    size_t scheme = startsWithFolded(t, at, u"bearer") ? 6 : startsWithFolded(t, at, u"basic") ? 5 : 0;
    if (scheme == 0)
        return;
    const size_t end = skip(t, skip(t, at + scheme, isBlank),
                            [](char16_t c) { return isAlnum(c) || std::u16string_view(u"-._~+/=").find(c) != Text::npos; });
    plan[size_t(RuleId::Bearer)].push_back({int64_t(at), int64_t(end)});
}

constexpr Text kAwsPrefixes[] = {u"AKIA", u"ASIA", u"ABIA", u"ACCA", u"AGPA", u"AIDA",
                                 u"AIPA", u"ANPA", u"ANVA", u"AROA", u"APKA"};

void visit(ScanPlan &plan, Text t, size_t i, bool foldedLettersExact)
{
    switch (t[i]) {
    case u'A':
        if (startsWith(t, i, u"AIza"))
            addToken(plan, RuleId::GoogleApiKey, t, i);
        for (Text prefix : kAwsPrefixes) {
            if (startsWith(t, i, prefix)) {
                addToken(plan, RuleId::AwsAccessKey, t, i);
                break;
            }
        }
        break;
    case u'g':
        if (i + 3 < t.size() && t[i + 1] == u'h' && Text(u"pousr").find(t[i + 2]) != Text::npos && t[i + 3] == u'_')
            addToken(plan, RuleId::GithubToken, t, i);
        if (startsWith(t, i, u"github_pat_"))
            addToken(plan, RuleId::GithubPat, t, i);
        break;
    case u'x':
        if (i + 4 < t.size() && startsWith(t, i, u"xox") && Text(u"abprse").find(t[i + 3]) != Text::npos &&
            t[i + 4] == u'-')
            addToken(plan, RuleId::SlackToken, t, i);
        break;
    case u's':
        if (startsWith(t, i, u"sk-"))
            addToken(plan, RuleId::SkKey, t, i);
        else if (startsWith(t, i, u"sk_"))
            addToken(plan, RuleId::StripeKey, t, i);
        break;
    case u'r':
        if (startsWith(t, i, u"rk_"))
            addToken(plan, RuleId::StripeKey, t, i);
        break;
    case u'n':
        if (startsWith(t, i, u"npm_"))
            addToken(plan, RuleId::NpmToken, t, i);
        break;
    case u'e':
        if (startsWith(t, i, u"eyJ"))
            addToken(plan, RuleId::Jwt, t, i);
        break;
    case u'b':
    case u'B':
        if (foldedLettersExact)
            addBearer(plan, t, i);
        break;
    case u':':
    case u'=':
        if (foldedLettersExact)
            addAssignment(plan, t, i);
        break;
    default:
        break;
    }
}

// Three dotted parts of at least 20 characters each: a run of token characters long enough, with two dots.
void addDottedRuns(ScanPlan &plan, Text t)
{
    size_t at = 0;
    while (at < t.size()) {
        if (!isTokenChar(t[at])) {
            ++at;
            continue;
        }
        const size_t end = skip(t, at, isTokenChar);
        if (end - at >= 62 && std::count(t.begin() + at, t.begin() + end, u'.') >= 2)
            plan[size_t(RuleId::JwtGeneric)].push_back({int64_t(at), int64_t(end)});
        at = end;
    }
}

void mergeOverlaps(std::vector<Window> &windows)
{
    std::sort(windows.begin(), windows.end(), [](const Window &a, const Window &b) { return a.start < b.start; });
    std::vector<Window> merged;
    for (const Window &w : windows) {
        if (!merged.empty() && w.start < merged.back().end)
            merged.back().end = std::max(merged.back().end, w.end);
        else
            merged.push_back(w);
    }
    windows = std::move(merged);
}

} // namespace

ScanPlan planScan(std::u16string_view t)
{
    ScanPlan plan;
    const size_t begin = t.find(u"-----BEGIN");
    if (begin != Text::npos && t.find(u"PRIVATE KEY-----", begin) != Text::npos)
        plan[size_t(RuleId::Pem)].push_back({int64_t(begin), int64_t(t.size())});

    // Case-insensitive rules see letters through case folding; only without characters that fold to
    // ASCII letters does an ASCII comparison find all their places. Otherwise they scan everything.
    const bool foldedLettersExact = !hasCaseFoldJoker(t);
    if (!foldedLettersExact) {
        for (RuleId id : {RuleId::LabeledQuoted, RuleId::LabeledBare, RuleId::Bearer})
            plan[size_t(id)].push_back({0, int64_t(t.size())});
    }
    for (size_t i = 0; i < t.size(); ++i)
        visit(plan, t, i, foldedLettersExact);
    addDottedRuns(plan, t);
    for (auto &windows : plan)
        mergeOverlaps(windows);
    return plan;
}

ScanPlan wholeTextPlan(std::u16string_view text)
{
    ScanPlan plan;
    for (auto &windows : plan)
        windows.push_back({0, int64_t(text.size())});
    return plan;
}

} // namespace vaxo::secrets
