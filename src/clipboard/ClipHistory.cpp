#include "clipboard/ClipHistory.h"

#include <algorithm>

namespace vaxo::ClipHistory {

void record(QList<ClipItem> &items, const ClipItem &item, int maxItems)
{
    if (item.text) {
        const auto same = std::find_if(items.begin(), items.end(), [&](const ClipItem &old) {
            return !old.pinned && old.text && *old.text == *item.text;
        });
        if (same != items.end())
            items.erase(same);
    }
    items.prepend(item);
    int unpinned = 0;
    items.removeIf([&](const ClipItem &clip) { return !clip.pinned && ++unpinned > maxItems; });
}

void sortPinnedFirst(QList<ClipItem> &items)
{
    std::stable_sort(items.begin(), items.end(), [](const ClipItem &a, const ClipItem &b) {
        if (a.pinned != b.pinned)
            return a.pinned;
        return a.copiedAt > b.copiedAt;
    });
}

bool moveToFront(QList<ClipItem> &items, const QString &id, double now)
{
    const auto it = std::find_if(items.begin(), items.end(), [&](const ClipItem &clip) { return clip.id == id; });
    if (it == items.end())
        return false;
    ClipItem clip = *it;
    items.erase(it);
    clip.copiedAt = now;
    items.prepend(clip);
    return true;
}

void clearUnpinned(QList<ClipItem> &items)
{
    items.removeIf([](const ClipItem &clip) { return !clip.pinned; });
}

QSet<QString> ids(const QList<ClipItem> &items)
{
    QSet<QString> out;
    for (const ClipItem &clip : items)
        out.insert(clip.id);
    return out;
}

} // namespace vaxo::ClipHistory
