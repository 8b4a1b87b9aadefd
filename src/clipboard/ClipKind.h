#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace vaxo {

// The enumeration has a namespace of its own so that the views can name its values.
namespace clip_kinds {
Q_NAMESPACE

// What a clip holds. A secret is not a kind: a clip keeps the kind of its unredacted text.
enum class ClipKind { Text, Link, Code, Color, Image, File };
Q_ENUM_NS(ClipKind)

} // namespace clip_kinds

using clip_kinds::ClipKind;

// "text", "link", "code", "color", "image", "file": the saved form.
QString rawValue(ClipKind kind);
std::optional<ClipKind> clipKindFromRaw(const QString &raw);

} // namespace vaxo
