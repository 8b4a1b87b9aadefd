// Random UTF-16 (unpaired surrogates included) into the scanner: no crash, no sanitizer report, every
// finding inside the text, the redacted text no longer than the text with masks, and, for texts small
// enough to scan twice, the same findings as the plain scan over the whole text.
#include "secrets/SecretScanner.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

using vaxo::SecretScanner;

namespace {
constexpr size_t kCap = 262144;     // the largest text the clipboard scans, in code units here
constexpr size_t kCompareUpTo = 4096; // the plain scan is slow: compare on small inputs only
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::u16string text(std::min(size / 2, kCap), u'\0');
    std::memcpy(text.data(), data, text.size() * 2);

    const auto found = SecretScanner::findings(text);
    for (const auto &f : found) {
        if (f.range.location < 0 || f.range.length < 1 || size_t(f.range.end()) > text.size())
            std::abort();
    }
    if (SecretScanner::containsSecret(text) != !found.empty())
        std::abort();
    const std::u16string redacted = SecretScanner::redact(text);
    if (found.empty() ? redacted != text : redacted.size() > text.size() + found.size() * SecretScanner::mask.size())
        std::abort();
    if (text.size() <= kCompareUpTo && found != SecretScanner::plainFindings(text))
        std::abort();
    return 0;
}
