#include "secrets/SecretScanner.h"

#include "secrets/ScanWindows.h"
#include "secrets/SecretRules.h"

#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>

namespace vaxo {
namespace {

using secrets::CompiledRule;
using secrets::ScanPlan;

constexpr int32_t kMatcherStack = 64 << 20;

struct UTextCloser {
    void operator()(UText *ut) const { utext_close(ut); }
};

// Appends the rule's matches inside its windows; returns whether it found any. The matcher is the
// call's own, so concurrent scans share nothing but the compiled pattern.
bool scanRule(const CompiledRule &compiled, UText *text, const std::vector<secrets::Window> &windows, bool firstOnly,
              std::vector<SecretFinding> &out)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexMatcher> matcher(compiled.pattern->matcher(status));
    if (U_FAILURE(status) || !matcher)
        return false;
    matcher->reset(text);
    // A value as long as a whole clipboard's worth of text keeps a backtracking state per character:
    // allow for that (ICU's default stops at 8 MB, about 150,000 characters, and misses the match).
    matcher->setStackLimit(kMatcherStack, status);
    bool found = false;
    int64_t resumeAt = 0; // where the previous match ended: matches never overlap
    for (const auto &window : windows) {
        const int64_t start = std::max(window.start, resumeAt);
        if (start >= window.end)
            continue;
        matcher->region(start, window.end, status);
        matcher->useTransparentBounds(true);
        matcher->useAnchoringBounds(false);
        while (U_SUCCESS(status) && matcher->find(status)) {
            resumeAt = matcher->end64(status);
            const int group = compiled.rule->group < matcher->groupCount() + 1 ? compiled.rule->group : 0;
            const int64_t from = matcher->start64(group, status);
            const int64_t to = matcher->end64(group, status);
            if (U_FAILURE(status) || from < 0 || to - from < 1)
                continue;
            out.push_back({compiled.rule->name, {int32_t(from), int32_t(to - from)}});
            found = true;
            if (firstOnly)
                return true;
        }
        if (U_FAILURE(status))
            return found;
    }
    return found;
}

bool isUnicodeSpace(char16_t c)
{
    return u_isUWhiteSpace(c); // every white-space character lies in the BMP
}

void addOpaqueToken(std::u16string_view text, std::vector<SecretFinding> &out)
{
    size_t from = 0;
    size_t to = text.size();
    while (from < to && isUnicodeSpace(text[from]))
        ++from;
    while (to > from && isUnicodeSpace(text[to - 1]))
        --to;
    const std::u16string_view trimmed = text.substr(from, to - from);
    if (!trimmed.empty() && SecretScanner::looksLikeOpaqueToken(trimmed))
        out.push_back({"opaque-token", {int32_t(text.find(trimmed)), int32_t(trimmed.size())}});
}

std::vector<SecretFinding> scan(std::u16string_view text, const ScanPlan &plan, bool firstOnly)
{
    std::vector<SecretFinding> out;
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UText, UTextCloser> utext(utext_openUChars(nullptr, text.data(), int64_t(text.size()), &status));
    if (U_FAILURE(status))
        return out;
    for (const CompiledRule &compiled : secrets::compiledRules()) {
        const auto &windows = plan[size_t(compiled.id)];
        if (!windows.empty() && scanRule(compiled, utext.get(), windows, firstOnly, out) && firstOnly)
            return out;
    }
    if (out.empty())
        addOpaqueToken(text, out);
    std::stable_sort(out.begin(), out.end(), [](const SecretFinding &a, const SecretFinding &b) {
        return a.range.location < b.range.location;
    });
    return out;
}

} // namespace

std::vector<SecretFinding> SecretScanner::findings(std::u16string_view text)
{
    if (text.empty())
        return {};
    return scan(text, secrets::planScan(text), false);
}

std::vector<SecretFinding> SecretScanner::plainFindings(std::u16string_view text)
{
    if (text.empty())
        return {};
    return scan(text, secrets::wholeTextPlan(text), false);
}

bool SecretScanner::containsSecret(std::u16string_view text)
{
    return !text.empty() && !scan(text, secrets::planScan(text), true).empty();
}

std::u16string SecretScanner::redact(std::u16string_view text)
{
    const auto found = findings(text);
    if (found.empty())
        return std::u16string(text);
    std::vector<SecretFinding::Range> merged;
    for (const auto &finding : found) { // already sorted by location
        if (!merged.empty() && merged.back().end() >= finding.range.location)
            merged.back().length = std::max(merged.back().end(), finding.range.end()) - merged.back().location;
        else
            merged.push_back(finding.range);
    }
    std::u16string out;
    int32_t cursor = 0;
    for (const auto &range : merged) {
        if (cursor < range.location)
            out.append(text.substr(size_t(cursor), size_t(range.location - cursor)));
        out.append(mask);
        cursor = range.end();
    }
    if (size_t(cursor) < text.size())
        out.append(text.substr(size_t(cursor)));
    return out;
}

} // namespace vaxo
