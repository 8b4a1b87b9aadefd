#pragma once

#include <QString>

#include <optional>

namespace vaxo {

// The system's record that the program starts when the user logs in. Main thread; each call reads or
// writes the record afresh, so that a change made elsewhere shows.
class LoginRegistration {
public:
    virtual ~LoginRegistration() = default;
    // Registered and switched on.
    virtual bool enabled() const = 0;
    // Each returns why it failed, in the user's words, or nothing when it did what it says.
    virtual std::optional<QString> enable() = 0;
    virtual std::optional<QString> disable() = 0;
};

} // namespace vaxo
