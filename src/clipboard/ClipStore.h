#pragma once

#include "clipboard/ClipItem.h"

#include <QList>

namespace vaxo {

// The history file "clipboard.json": a JSON array of saved clips, private to the user (0600).
class ClipStore {
public:
    explicit ClipStore(QString path) : m_path(std::move(path)) {}

    // Absent when the file is missing, unreadable, or not an array of clip records.
    std::optional<QList<ClipItem>> load() const;
    // Writes every clip that may reach the disk (no image clip, no secret clip) atomically, then makes
    // the file owner-only. Creates the folder. Failures are logged and otherwise ignored.
    void save(const QList<ClipItem> &items) const;

    const QString &path() const { return m_path; }

private:
    QString m_path;
};

} // namespace vaxo
