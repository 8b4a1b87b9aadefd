#pragma once

#include <string_view>

namespace vaxo::secrets {

// True when the text holds a non-ASCII character that case-insensitive matching may equate with ASCII
// letters (the long s, the Kelvin sign, sharp s, ligatures, ...). Without one, an ASCII-only
// comparison decides exactly where a case-insensitive rule's letters can match.
bool hasCaseFoldJoker(std::u16string_view text);

} // namespace vaxo::secrets
