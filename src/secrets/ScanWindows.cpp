#include "secrets/ScanWindows.h"

#include "secrets/CaseFoldJokers.h"
#include "secrets/KeyNames.h"
#include "secrets/ScanChars.h"

#include <algorithm>

namespace vaxo::secrets {
namespace {

using namespace chars;

constexpr Text kAwsPrefixes[] = {u"AKIA", u"ASIA", u"ABIA", u"ACCA", u"AGPA", u"AIDA",
                                 u"AIPA", u"ANPA", u"ANVA", u"AROA", u"APKA"};

// What can follow an assignment sign: a quoted value, a bare one, either after a scheme word, and how
// far the assignment can reach.
struct AssignmentTail {
    bool quoted = false;
    bool bare = false;
    size_t end = 0;
};

// One pass over the text that drops, for each rule, a window at every place a match can begin.
// Each walk along a run goes through a RunEnd, so that the pass stays linear in the text's length.
class Planner {
public:
    Planner(Text t, ScanPlan &plan)
        : m_t(t), m_plan(plan), m_blanks(t, isBlank), m_bare(t, inBareValue), m_quoted(t, inQuotedValue),
          m_tokens(t, isTokenChar), m_credentials(t, isCredentialChar), m_firstDot(t, u'.'), m_secondDot(t, u'.')
    {
    }

    void visit(size_t i, bool foldedLettersExact);

private:
    void add(RuleId id, size_t from, size_t to) { m_plan[size_t(id)].push_back({int64_t(from), int64_t(to)}); }
    void addToken(RuleId id, size_t at) { add(id, at, m_tokens(at)); }
    void addBearer(size_t at);
    void addJwt(size_t at);
    void addAssignment(size_t sign);
    AssignmentTail assignmentTail(size_t at);
    size_t closingQuote(size_t open);

    Text m_t;
    ScanPlan &m_plan;
    RunEnd m_blanks, m_bare, m_quoted, m_tokens, m_credentials;
    NextOf m_firstDot, m_secondDot; // two caches: each is asked with growing positions
};

size_t Planner::closingQuote(size_t open)
{
    const size_t at = m_quoted(open + 1);
    return at < m_t.size() && isQuote(m_t[at]) ? at + 1 : at;
}

AssignmentTail Planner::assignmentTail(size_t at)
{
    at = m_blanks(at);
    if (at < m_t.size() && isQuote(m_t[at]))
        return {true, false, closingQuote(at)};
    AssignmentTail tail;
    const size_t word = m_bare(at);
    tail.bare = word > at;
    tail.end = word;
    const size_t next = m_blanks(word);
    if (tail.bare && next > word && next < m_t.size()) { // the word may have been a scheme ("Bearer ...")
        if (isQuote(m_t[next])) {
            tail.quoted = true;
            tail.end = closingQuote(next);
        } else {
            tail.end = m_bare(next);
        }
    }
    return tail;
}

void Planner::addAssignment(size_t sign)
{
    size_t keyEnd = sign;
    while (keyEnd > 0 && isBlank(m_t[keyEnd - 1]))
        --keyEnd;
    if (keyEnd > 0 && (m_t[keyEnd - 1] == u'"' || m_t[keyEnd - 1] == u'\''))
        --keyEnd;
    const size_t key = keyNameBefore(m_t, keyEnd);
    if (key == 0)
        return;
    // A two-character sign (":=", "=>") may also be read as its first character and a value.
    AssignmentTail tail = assignmentTail(sign + 1);
    if (sign + 1 < m_t.size() && (m_t[sign + 1] == u'=' || m_t[sign + 1] == u'>')) {
        const AssignmentTail longer = assignmentTail(sign + 2);
        tail = {tail.quoted || longer.quoted, tail.bare || longer.bare, std::max(tail.end, longer.end)};
    }
    if (tail.quoted)
        add(RuleId::LabeledQuoted, keyEnd - key, tail.end);
    if (tail.bare)
        add(RuleId::LabeledBare, keyEnd - key, tail.end);
}

void Planner::addBearer(size_t at)
{
    const size_t scheme = startsWithFolded(m_t, at, u"bearer") ? 6 : startsWithFolded(m_t, at, u"basic") ? 5 : 0;
    if (scheme != 0)
        add(RuleId::Bearer, at, m_credentials(m_blanks(at + scheme)));
}

// A JWT has two dots in its run of token characters. Without them the rule could not match, and
// matching would only walk the run once per "eyJ" in it.
void Planner::addJwt(size_t at)
{
    const size_t end = m_tokens(at);
    if (m_secondDot(m_firstDot(at) + 1) < end)
        add(RuleId::Jwt, at, end);
}

void Planner::visit(size_t i, bool foldedLettersExact)
{
    const Text t = m_t;
    switch (t[i]) {
    case u'A':
        if (startsWith(t, i, u"AIza"))
            addToken(RuleId::GoogleApiKey, i);
        if (std::any_of(std::begin(kAwsPrefixes), std::end(kAwsPrefixes), [&](Text p) { return startsWith(t, i, p); }))
            addToken(RuleId::AwsAccessKey, i);
        break;
    case u'g':
        if (i + 3 < t.size() && t[i + 1] == u'h' && Text(u"pousr").find(t[i + 2]) != Text::npos && t[i + 3] == u'_')
            addToken(RuleId::GithubToken, i);
        if (startsWith(t, i, u"github_pat_"))
            addToken(RuleId::GithubPat, i);
        break;
    case u'x':
        if (i + 4 < t.size() && startsWith(t, i, u"xox") && Text(u"abprse").find(t[i + 3]) != Text::npos &&
            t[i + 4] == u'-')
            addToken(RuleId::SlackToken, i);
        break;
    case u's':
        if (startsWith(t, i, u"sk-"))
            addToken(RuleId::SkKey, i);
        else if (startsWith(t, i, u"sk_"))
            addToken(RuleId::StripeKey, i);
        break;
    case u'r':
        if (startsWith(t, i, u"rk_"))
            addToken(RuleId::StripeKey, i);
        break;
    case u'n':
        if (startsWith(t, i, u"npm_"))
            addToken(RuleId::NpmToken, i);
        break;
    case u'e':
        if (startsWith(t, i, u"eyJ"))
            addJwt(i);
        break;
    case u'b':
    case u'B':
        if (foldedLettersExact)
            addBearer(i);
        break;
    case u':':
    case u'=':
        if (foldedLettersExact)
            addAssignment(i);
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
    Planner planner(t, plan);
    for (size_t i = 0; i < t.size(); ++i)
        planner.visit(i, foldedLettersExact);
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
