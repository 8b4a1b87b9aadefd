#pragma once

#include "clipboard/ClipItem.h"

namespace vaxo {

// Turning copied text into a clip. Pure apart from the secret scan; safe on any thread.
namespace ClipText {

// The longest preview, in user-perceived characters, before it is cut and "…" is appended.
inline constexpr int kPreviewLimit = 220;

// The kind of an already trimmed text: link, colour, code or plain text (never image or file).
ClipKind classify(const QString &text);

// A new clip of copied text: scanned for secrets, previewed from the redacted text, classified on
// the unredacted one; the text is kept as captured.
ClipItem textItem(const QString &text, const QString &id, double at, const std::optional<QString> &from);

// One line from text: newlines and tabs become blanks, runs of blanks one blank, cut after
// kPreviewLimit characters with "…".
QString preview(const QString &text);

// The number of user-perceived characters (extended grapheme clusters).
int characterCount(const QString &text);

} // namespace ClipText
} // namespace vaxo
