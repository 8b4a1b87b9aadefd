#include "clipboard/ClipItem.h"

#include <QJsonValue>

namespace vaxo {
namespace {

QJsonValue optionalString(const std::optional<QString> &s)
{
    return s ? QJsonValue(*s) : QJsonValue(QJsonValue::Null);
}

// Missing and null read as absent; any other non-string makes the record unreadable.
bool readOptionalString(const QJsonObject &object, const QString &key, std::optional<QString> &out)
{
    const QJsonValue v = object.value(key);
    if (v.isUndefined() || v.isNull())
        return true;
    if (!v.isString())
        return false;
    out = v.toString();
    return true;
}

} // namespace

QJsonObject ClipItem::toJson() const
{
    return {{QStringLiteral("id"), id},
            {QStringLiteral("kind"), rawValue(kind)},
            {QStringLiteral("preview"), preview},
            {QStringLiteral("text"), optionalString(text)},
            {QStringLiteral("pinned"), pinned},
            {QStringLiteral("copiedAt"), copiedAt},
            {QStringLiteral("sourceApp"), optionalString(sourceApp)},
            {QStringLiteral("secret"), secret}};
}

std::optional<ClipItem> ClipItem::fromJson(const QJsonObject &o)
{
    const QJsonValue id = o.value(QStringLiteral("id"));
    const auto kind = clipKindFromRaw(o.value(QStringLiteral("kind")).toString());
    const QJsonValue preview = o.value(QStringLiteral("preview"));
    const QJsonValue pinned = o.value(QStringLiteral("pinned"));
    const QJsonValue copiedAt = o.value(QStringLiteral("copiedAt"));
    const QJsonValue secret = o.value(QStringLiteral("secret"));
    if (!id.isString() || !kind || !preview.isString() || !pinned.isBool() || !copiedAt.isDouble() || !secret.isBool())
        return std::nullopt;
    ClipItem item{id.toString(),       *kind, preview.toString(), {}, pinned.toBool(),
                  copiedAt.toDouble(), {},    secret.toBool()};
    if (!readOptionalString(o, QStringLiteral("text"), item.text) ||
        !readOptionalString(o, QStringLiteral("sourceApp"), item.sourceApp))
        return std::nullopt;
    return item;
}

} // namespace vaxo
