#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vaxo::bench {

// Texts of about `size` UTF-16 code units that a clipboard sees (prose, source code, a log, a base64
// blob) and texts built to make a naive scan slow. The same seed gives the same texts.
std::vector<std::pair<std::string, std::u16string>> scanInputs(size_t size, unsigned seed = 7);

} // namespace vaxo::bench
