#pragma once

#include "clipboard/ClipKind.h"

#include <QJsonObject>
#include <QString>

#include <optional>

namespace vaxo {

// One entry of the clipboard history. The full text stays in memory even for a secret, so that
// copying it back gives the real value; views get the preview only, which never shows a secret.
struct ClipItem {
    QString id; // upper-case UUID; also the key of an image clip's thumbnail
    ClipKind kind = ClipKind::Text;
    QString preview; // one line, at most 221 characters
    std::optional<QString> text;
    bool pinned = false;
    double copiedAt = 0; // seconds since 1970
    std::optional<QString> sourceApp;
    bool secret = false;

    // The saved form: exactly the eight keys, "text" and "sourceApp" null when absent.
    QJsonObject toJson() const;
    // Absent when a key is missing or of the wrong type ("text" and "sourceApp" may be missing or null).
    static std::optional<ClipItem> fromJson(const QJsonObject &object);

    bool operator==(const ClipItem &) const = default;
};

} // namespace vaxo
