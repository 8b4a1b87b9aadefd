#pragma once

#include "secrets/SecretScanner.h"

#include <unicode/regex.h>

#include <memory>
#include <vector>

namespace vaxo::secrets {

// Rules in table order, as the scan uses them.
enum class RuleId {
    Pem,
    LabeledQuoted,
    LabeledBare,
    Bearer,
    AwsAccessKey,
    GithubToken,
    GithubPat,
    SlackToken,
    SkKey,
    StripeKey,
    GoogleApiKey,
    NpmToken,
    Jwt,
    JwtGeneric,
};
inline constexpr int kRuleCount = 14;

struct CompiledRule {
    const SecretScanner::Rule *rule;
    RuleId id;
    std::unique_ptr<icu::RegexPattern> pattern; // safe for concurrent matcher() calls
};

// Built once, thread-safely, on first use; rules that fail to compile are missing from the list.
const std::vector<CompiledRule> &compiledRules();

} // namespace vaxo::secrets
