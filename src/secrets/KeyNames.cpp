#include "secrets/KeyNames.h"

#include "secrets/ScanChars.h"

#include <string>
#include <utility>
#include <vector>

namespace vaxo::secrets {
namespace {

using chars::Text;

// Every spelling of every key name, lower case: the alternation written out.
const std::vector<std::u16string> &keyNames()
{
    static const std::vector<std::u16string> names = [] {
        std::vector<std::u16string> out{u"password",      u"passwords",  u"passwd",      u"pwd",
                                        u"secret",        u"secrets",    u"token",       u"tokens",
                                        u"authorization", u"credential", u"credentials", u"passphrase"};
        const std::pair<Text, Text> compounds[] = {{u"api", u"key"},     {u"access", u"key"},  {u"secret", u"key"},
                                                   {u"private", u"key"}, {u"session", u"key"}, {u"client", u"secret"},
                                                   {u"auth", u"token"}};
        for (const auto &[first, second] : compounds) {
            for (Text joint : {Text(u""), Text(u"_"), Text(u"-")}) {
                for (Text plural : {Text(u""), Text(u"s")})
                    out.push_back(std::u16string(first) + std::u16string(joint) + std::u16string(second) +
                                  std::u16string(plural));
            }
        }
        return out;
    }();
    return names;
}

} // namespace

size_t keyNameBefore(std::u16string_view t, size_t end)
{
    size_t longest = 0;
    for (const auto &name : keyNames()) {
        if (name.size() > longest && end >= name.size() && chars::startsWithFolded(t, end - name.size(), name))
            longest = name.size();
    }
    return longest;
}

} // namespace vaxo::secrets
