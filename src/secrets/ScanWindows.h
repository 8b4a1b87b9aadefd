#pragma once

#include "secrets/SecretRules.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vaxo::secrets {

struct Window {
    int64_t start;
    int64_t end;
};

// For each rule, sorted disjoint stretches of the text that together hold every match the rule can
// have there. Cheap necessary conditions (a literal a match must begin with, the characters it is made
// of, the sign of an assignment) decide where a rule cannot match; a rule with no window has no match.
// Matching a rule only inside its windows, with bounds that let look-around see the whole text, finds
// exactly the matches of a scan over the whole text.
using ScanPlan = std::array<std::vector<Window>, kRuleCount>;

ScanPlan planScan(std::u16string_view text);
// Every rule gets the whole text as its one window.
ScanPlan wholeTextPlan(std::u16string_view text);

} // namespace vaxo::secrets
