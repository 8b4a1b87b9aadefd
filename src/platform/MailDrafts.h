#pragma once

#include <QUrl>

namespace vaxo {

// Hands a "mailto:" address to the user's mail program, which opens a draft of it. Main thread.
class MailDrafts {
public:
    virtual ~MailDrafts() = default;
    // False when no mail program is set up to take the address, or it could not be started.
    virtual bool open(const QUrl &mailto) = 0;
};

} // namespace vaxo
