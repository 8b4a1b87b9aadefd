#pragma once

#include <QString>

#include <optional>

namespace vaxo {

// What a clip holds. A secret is not a kind: a clip keeps the kind of its unredacted text.
enum class ClipKind { Text, Link, Code, Color, Image, File };

// "text", "link", "code", "color", "image", "file": the saved form.
QString rawValue(ClipKind kind);
std::optional<ClipKind> clipKindFromRaw(const QString &raw);

} // namespace vaxo
