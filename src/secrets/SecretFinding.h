#pragma once

#include <cstdint>
#include <string>

namespace vaxo {

// One credential found in a text: the rule that found it and where it lies, counted in UTF-16 code
// units of the scanned text.
struct SecretFinding {
    struct Range {
        int32_t location = 0;
        int32_t length = 0;

        int32_t end() const { return location + length; }
        bool operator==(const Range &) const = default;
    };

    std::string rule;
    Range range;

    bool operator==(const SecretFinding &) const = default;
};

} // namespace vaxo
