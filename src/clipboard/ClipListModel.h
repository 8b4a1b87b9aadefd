#pragma once

#include "base/KeyedListModel.h"
#include "clipboard/ClipItem.h"

namespace vaxo {

// The clipboard history as the card lists it, newest first with pinned clips on top. A clip's full
// text never reaches a view: rows carry its preview, which masks secrets.
class ClipListModel : public KeyedListModel {
    Q_OBJECT
public:
    enum Role {
        IdRole = Qt::UserRole + 1,
        KindRole,
        PreviewRole,
        PinnedRole,
        SecretRole,
        SourceRole,
        ImageRole,
    };

    explicit ClipListModel(QObject *parent = nullptr);

    void sync(const QList<ClipItem> &clips);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // Where a view finds an image clip's thumbnail; empty for other clips.
    static QString imageSource(const ClipItem &clip);

private:
    QList<ClipItem> m_rows;
};

} // namespace vaxo
