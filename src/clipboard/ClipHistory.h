#pragma once

#include "clipboard/ClipItem.h"

#include <QList>
#include <QSet>

namespace vaxo {

// The rules that order, de-duplicate and bound the history's list. Pure functions on a list.
namespace ClipHistory {

inline constexpr int kMaxItems = 50; // unpinned clips kept; pinned ones never count

// A new clip goes to the front, replacing the first unpinned clip of the same text, and the oldest
// unpinned clips beyond kMaxItems fall off.
void record(QList<ClipItem> &items, const ClipItem &item, int maxItems = kMaxItems);

// Pinned clips first, then newest first within each group; stable.
void sortPinnedFirst(QList<ClipItem> &items);

// The clip with this id moved to the front with a new copy time; false when there is none.
bool moveToFront(QList<ClipItem> &items, const QString &id, double now);

// Every unpinned clip removed; pinned clips keep their order.
void clearUnpinned(QList<ClipItem> &items);

QSet<QString> ids(const QList<ClipItem> &items);

} // namespace ClipHistory
} // namespace vaxo
