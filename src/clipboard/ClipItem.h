#pragma once

#include "clipboard/ClipKind.h"

#include <QJsonObject>
#include <QMetaType>
#include <QString>

#include <optional>

namespace vaxo {

// One entry of the clipboard history. The full text stays in memory even for a secret, so that
// copying it back gives the real value; views get the preview only, which never shows a secret.
struct ClipItem {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id CONSTANT)
    Q_PROPERTY(QString kind READ kindName CONSTANT)
    Q_PROPERTY(QString preview MEMBER preview CONSTANT)
    Q_PROPERTY(bool pinned MEMBER pinned CONSTANT)
    Q_PROPERTY(double copiedAt MEMBER copiedAt CONSTANT)
    Q_PROPERTY(QString sourceApp READ sourceAppName CONSTANT)
    Q_PROPERTY(bool secret MEMBER secret CONSTANT)
public:
    QString id; // upper-case UUID; also the key of an image clip's thumbnail
    ClipKind kind = ClipKind::Text;
    QString preview; // one line, at most 221 characters
    std::optional<QString> text;
    bool pinned = false;
    double copiedAt = 0; // seconds since 1970
    std::optional<QString> sourceApp;
    bool secret = false;

    QString kindName() const { return rawValue(kind); }
    QString sourceAppName() const { return sourceApp.value_or(QString()); }

    // The saved form: exactly the eight keys, "text" and "sourceApp" null when absent.
    QJsonObject toJson() const;
    // Absent when a key is missing or of the wrong type ("text" and "sourceApp" may be missing or null).
    static std::optional<ClipItem> fromJson(const QJsonObject &object);

    bool operator==(const ClipItem &) const = default;
};

} // namespace vaxo

Q_DECLARE_METATYPE(vaxo::ClipItem)
