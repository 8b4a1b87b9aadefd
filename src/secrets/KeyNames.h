#pragma once

#include <string_view>

namespace vaxo::secrets {

// The length of the longest key name of the labelled rules (any letter case, ASCII) that ends at
// `end`; 0 when none does.
size_t keyNameBefore(std::u16string_view t, size_t end);

} // namespace vaxo::secrets
