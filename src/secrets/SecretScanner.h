#pragma once

#include "secrets/SecretFinding.h"

#include <string>
#include <string_view>
#include <vector>

namespace vaxo {

// Decides whether a text holds a credential and masks it. Stateless apart from the rule table, which
// is compiled once on first use and shared read-only, so every operation may run on any thread.
// Texts are UTF-16; positions count UTF-16 code units. Nothing here fails: a rule whose expression
// does not compile is left out.
class SecretScanner {
public:
    SecretScanner() = delete;

    struct Rule {
        std::string name;
        std::u16string pattern; // ICU syntax
        int group = 0;          // capture group holding the secret; 0 is the whole match
        bool caseInsensitive = false;
    };

    // What every secret becomes in redacted text: eight bullets, whatever the secret's length.
    static constexpr std::u16string_view mask = u"\u2022\u2022\u2022\u2022\u2022\u2022\u2022\u2022";

    // The key names of a labelled assignment, in order, and their alternation.
    static const std::vector<std::u16string> &labelPatterns();
    static const std::u16string &labels();
    // The fourteen detection rules, in the order they are tried.
    static const std::vector<Rule> &rules();

    // Every finding, ordered by location (stable: rule order, then match order, at equal locations).
    static std::vector<SecretFinding> findings(std::u16string_view text);
    static bool containsSecret(std::u16string_view text);
    // The text with every finding replaced by the mask; touching or overlapping findings share one mask.
    static std::u16string redact(std::u16string_view text);

    static bool isUUID(std::u16string_view s);
    // Bits per user-perceived character; 0 for an empty text.
    static double shannonEntropy(std::u16string_view s);
    // The heuristic for a bare high-entropy token; s is already trimmed.
    static bool looksLikeOpaqueToken(std::u16string_view s);

    // The same findings as findings(), got by running every rule over the whole text. findings() skips
    // the parts of a text where a rule cannot match; this is the reference it is checked against.
    static std::vector<SecretFinding> plainFindings(std::u16string_view text);
};

} // namespace vaxo
