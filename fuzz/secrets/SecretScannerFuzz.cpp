// Random UTF-16 into the scanner, unpaired surrogates included and up to the clipboard's cap: no
// crash, no sanitizer report, every finding inside the text, the redacted text no longer than the text
// with its masks, and, for texts small enough to scan twice, the same findings as the plain scan.
#include "secrets/SecretScanner.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

using vaxo::SecretScanner;

namespace {
constexpr size_t kCap = 262144;       // the largest text the clipboard scans, in code units here
constexpr size_t kCompareUpTo = 4096; // the plain scan is slow: compare on small inputs only

// Code units that ASCII bytes rarely become: folding letters, lone surrogate halves, joiners, marks.
constexpr char16_t kOddUnits[] = {0x017F, 0x212A, 0x00DF, 0x0130, 0xFB06, 0xD83D, 0xDE00, 0xD800,
                                  0xDC00, 0x0301, 0x200D, 0x2028, 0x00A0, 0x0663, 0xFEFF, 0x1E9E};

// The first byte picks the reading: raw UTF-16 pairs, or one byte per code unit so that the key names,
// prefixes and signs of the rules come up often, with bytes 0x80 to 0x8F standing for odd code units.
// About one input in 4000 is then repeated up to the cap, for the sizes the fuzzer's own inputs never reach.
std::u16string decode(const uint8_t *data, size_t size)
{
    if (size == 0)
        return {};
    std::u16string text;
    if (data[0] & 1) {
        for (size_t i = 1; i < size && text.size() < kCap; ++i)
            text += (data[i] & 0xF0) == 0x80 ? kOddUnits[data[i] & 0x0F] : char16_t(data[i]);
    } else {
        text.resize(std::min((size - 1) / 2, kCap));
        std::memcpy(text.data(), data + 1, text.size() * 2);
    }
    if ((data[0] & 0x7E) == 0x7E && size % 64 == 0 && !text.empty()) {
        const std::u16string unit = text;
        while (text.size() + unit.size() <= kCap)
            text += unit;
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::u16string text = decode(data, size);

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
