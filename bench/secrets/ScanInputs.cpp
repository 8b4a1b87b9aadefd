#include "ScanInputs.h"

#include <random>

namespace vaxo::bench {
namespace {

std::u16string widen(const std::string &s)
{
    return std::u16string(s.begin(), s.end());
}

template <typename Make> std::u16string fill(size_t size, Make make)
{
    std::string out;
    while (out.size() < size)
        out += make();
    out.resize(size);
    return widen(out);
}

const char *const kWords[] = {"the",  "island", "shows", "what",    "agents", "do",     "while",   "you",
                              "work", "on",     "other", "things",  "and",    "waits",  "quietly", "for",
                              "a",    "click",  "when",  "someone", "asks",   "before", "running", "tests"};

} // namespace

std::vector<std::pair<std::string, std::u16string>> scanInputs(size_t size, unsigned seed)
{
    std::mt19937 rng(seed);
    auto pick = [&](size_t n) { return size_t(rng() % n); };
    std::vector<std::pair<std::string, std::u16string>> out;

    out.emplace_back("prose", fill(size, [&] {
                         std::string sentence;
                         for (size_t i = 0, n = 6 + pick(12); i < n; ++i)
                             sentence += std::string(i ? " " : "") + kWords[pick(std::size(kWords))];
                         return sentence + (pick(4) ? ". " : ".\n\n");
                     }));
    const char *const code[] = {
        "    const auto session = sessions.value(id);\n",
        "    if (!session.isAnswerable())\n        return;\n",
        "struct Item { QString name; int count = 0; };\n",
        "    for (const auto &item : items) total += item.count;\n",
        "    // keep the last good state when the read fails\n",
        "#include \"agents/AgentSession.h\"\n",
        "    auto token = lexer.next(); // the parser's token, not a credential\n",
        "    std::sort(list.begin(), list.end(), [](auto &a, auto &b) { return a.at > b.at; });\n"};
    out.emplace_back("source code", fill(size, [&] { return std::string(code[pick(std::size(code))]); }));
    out.emplace_back("log", fill(size, [&] {
                         const std::string level[] = {"INFO", "DEBUG", "WARN"};
                         return "2026-11-21T12:" + std::to_string(10 + pick(50)) + ":" + std::to_string(10 + pick(50)) +
                                ".123Z " + level[pick(3)] + " [worker-" + std::to_string(pick(8)) +
                                "] GET /api/v1/items/" + std::to_string(pick(100000)) +
                                " status=200 took=" + std::to_string(pick(900)) + "ms user=u" +
                                std::to_string(pick(999)) + "\n";
                     }));
    const char b64[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    out.emplace_back("base64 blob", fill(size, [&] { return std::string(1, b64[pick(64)]); }));
    out.emplace_back("a- pairs", fill(size, [] { return std::string("a-"); }));
    out.emplace_back("key names, no value", fill(size, [&] {
                         const char *const keys[] = {"password ", "api_key ", "secret ", "token ", "credentials "};
                         return std::string(keys[pick(5)]);
                     }));
    out.emplace_back("key names with signs", fill(size, [&] {
                         const char *const keys[] = {"password= ", "api_key: ", "secret=\n", "token:: "};
                         return std::string(keys[pick(4)]);
                     }));
    out.emplace_back("key names run together", fill(size, [] { return std::string("password=api_key:"); }));
    out.emplace_back("prefixes in one run", fill(size, [] { return std::string("sk-AKIAghp_xoxb-eyJbasic"); }));
    out.emplace_back("dotted 24-letter runs", fill(size, [&] {
                         std::string run;
                         for (int i = 0; i < 24; ++i)
                             run += char('a' + pick(26));
                         return run + ".";
                     }));
    return out;
}

} // namespace vaxo::bench
