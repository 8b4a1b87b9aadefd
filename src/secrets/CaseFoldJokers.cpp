#include "secrets/CaseFoldJokers.h"

#include <unicode/uniset.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <bitset>
#include <memory>

namespace vaxo::secrets {
namespace {

struct Jokers {
    std::bitset<0x10000> bmp;
    icu::UnicodeSet all;
};

const Jokers &jokers()
{
    static const Jokers table = [] {
        Jokers out;
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeSet changing(icu::UnicodeString(u"[[:Changes_When_Casefolded:]-[\\u0000-\\u007f]]"), status);
        if (U_FAILURE(status))
            changing.clear();
        for (int32_t r = 0; r < changing.getRangeCount(); ++r) {
            for (UChar32 c = changing.getRangeStart(r); c <= changing.getRangeEnd(r); ++c) {
                icu::UnicodeString folded(c);
                folded.foldCase();
                for (int32_t i = 0; i < folded.length(); ++i) {
                    if (folded.charAt(i) < 0x80) {
                        out.all.add(c);
                        if (c < 0x10000)
                            out.bmp.set(size_t(c));
                        break;
                    }
                }
            }
        }
        out.all.freeze();
        return out;
    }();
    return table;
}

} // namespace

bool hasCaseFoldJoker(std::u16string_view text)
{
    const Jokers &table = jokers();
    const size_t n = text.size();
    for (size_t i = 0; i < n; ++i) {
        const char16_t c = text[i];
        if (c < 0x80)
            continue;
        if (U16_IS_LEAD(c) && i + 1 < n && U16_IS_TRAIL(text[i + 1])) {
            if (table.all.contains(U16_GET_SUPPLEMENTARY(c, text[i + 1])))
                return true;
            ++i;
        } else if (table.bmp.test(c)) {
            return true;
        }
    }
    return false;
}

} // namespace vaxo::secrets
