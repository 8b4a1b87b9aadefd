// Session files come from another process and may be half-written or hostile: decoding must never
// crash, and whatever it accepts must survive its own encoding unchanged.
#include "agents/AgentSession.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto session = vaxo::AgentSession::decode(bytes);
    if (session) {
        const auto again = vaxo::AgentSession::decode(session->encode());
        if (!again || *again != *session)
            std::abort();
        (void)session->isAnswerable();
    }
    return 0;
}
