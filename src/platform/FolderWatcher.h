#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

// Reports changes among a folder's entries: files created, deleted, renamed, written or changed in
// their attributes. Events come on the thread that owns the watcher, uncoalesced.
class FolderWatcher : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Starts watching path. False when the folder cannot be watched; nothing is reported then.
    virtual bool watch(const QString &path) = 0;
    // Stops reporting and releases the watch. Safe to call more than once.
    virtual void cancel() = 0;

signals:
    void changed();
};

} // namespace vaxo
