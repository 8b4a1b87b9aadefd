#include "secrets/SecretRules.h"

namespace vaxo {

const std::vector<std::u16string> &SecretScanner::labelPatterns()
{
    static const std::vector<std::u16string> patterns{
        u"passwords?",
        u"passwd",
        u"pwd",
        u"secrets?",
        u"tokens?",
        u"api[_-]?keys?",
        u"access[_-]?keys?",
        u"secret[_-]?keys?",
        u"private[_-]?keys?",
        u"session[_-]?keys?",
        u"client[_-]?secrets?",
        u"auth[_-]?tokens?",
        u"authorization",
        u"credentials?",
        u"passphrase",
    };
    return patterns;
}

const std::u16string &SecretScanner::labels()
{
    static const std::u16string joined = [] {
        std::u16string out;
        for (const auto &label : labelPatterns())
            out += (out.empty() ? u"" : u"|") + label;
        return out;
    }();
    return joined;
}

const std::vector<SecretScanner::Rule> &SecretScanner::rules()
{
    static const std::vector<Rule> table = [] {
        // What follows a key name: it closes the key-name group, then takes an optional closing quote,
        // the assignment sign and an optional scheme word, never a newline.
        const std::u16string assignment = uR"re()["']?[ \t]*(?::=|=>|[:=])[ \t]*(?:(?:Bearer|Basic|Token)[ \t]+)?)re";
        const std::u16string key = u"(?:" + labels() + assignment;
        return std::vector<Rule>{
            {"pem", uR"re(-----BEGIN[A-Z ]*PRIVATE KEY-----(?:[\s\S]*?-----END[A-Z ]*PRIVATE KEY-----|[\s\S]*))re", 0,
             false},
            {"labeled-quoted", key + uR"re((["'`])([^"'`\n]{3,})\1)re", 2, true},
            {"labeled-bare", key + uR"re(([^\s"'`,;()\[\]{}<>]{3,}))re", 1, true},
            {"bearer", uR"re(\b(?:Bearer|Basic)[ \t]+((?=[A-Za-z0-9\-._~+/]*[0-9])[A-Za-z0-9\-._~+/]{12,}={0,2}))re", 1,
             true},
            {"aws-access-key", uR"re(\b((?:AKIA|ASIA|ABIA|ACCA|AGPA|AIDA|AIPA|ANPA|ANVA|AROA|APKA)[0-9A-Z]{16})\b)re",
             1, false},
            {"github-token", uR"re(\b(gh[pousr]_[A-Za-z0-9]{36,})\b)re", 1, false},
            {"github-pat", uR"re(\b(github_pat_[A-Za-z0-9_]{22,})\b)re", 1, false},
            {"slack-token", uR"re(\b(xox[abprse]-[A-Za-z0-9-]{10,}))re", 1, false},
            {"sk-key", uR"re(\b(sk-[A-Za-z0-9_-]{16,})\b)re", 1, false},
            {"stripe-key", uR"re(\b((?:sk|rk)_(?:live|test)_[A-Za-z0-9]{10,})\b)re", 1, false},
            {"google-api-key", uR"re(\b(AIza[0-9A-Za-z_-]{35})\b)re", 1, false},
            {"npm-token", uR"re(\b(npm_[A-Za-z0-9]{36})\b)re", 1, false},
            {"jwt", uR"re(\b(eyJ[A-Za-z0-9_-]{6,}\.[A-Za-z0-9_-]{6,}\.[A-Za-z0-9_-]{6,}))re", 1, false},
            {"jwt-generic", uR"re(\b([A-Za-z0-9_-]{20,}\.[A-Za-z0-9_-]{20,}\.[A-Za-z0-9_-]{20,})\b)re", 1, false},
        };
    }();
    return table;
}

namespace secrets {

const std::vector<CompiledRule> &compiledRules()
{
    static const std::vector<CompiledRule> compiled = [] {
        std::vector<CompiledRule> out;
        const auto &table = SecretScanner::rules();
        for (size_t i = 0; i < table.size(); ++i) {
            const auto &rule = table[i];
            UParseError where{};
            UErrorCode status = U_ZERO_ERROR;
            const icu::UnicodeString pattern(false, rule.pattern.data(), int32_t(rule.pattern.size()));
            std::unique_ptr<icu::RegexPattern> re(
                icu::RegexPattern::compile(pattern, rule.caseInsensitive ? UREGEX_CASE_INSENSITIVE : 0, where, status));
            if (U_SUCCESS(status) && re)
                out.push_back({&rule, RuleId(i), std::move(re)});
        }
        return out;
    }();
    return compiled;
}

} // namespace secrets
} // namespace vaxo
