#pragma once

#include "platform/MailDrafts.h"

namespace vaxo::linux_platform {

// Opens "mailto:" addresses with the desktop's default handler for them (xdg-open). A desktop without
// a default mail program, or without the xdg tools, takes none.
class XdgMailDrafts final : public MailDrafts {
public:
    bool open(const QUrl &mailto) override;

    // The desktop entry of the default mail program, as xdg-mime names it; empty when there is none.
    static QString defaultHandler();
};

} // namespace vaxo::linux_platform
