#include "clipboard/ClipListModel.h"

namespace vaxo {

ClipListModel::ClipListModel(QObject *parent) : KeyedListModel(parent) {}

void ClipListModel::sync(const QList<ClipItem> &clips)
{
    syncRows(m_rows, clips);
}

int ClipListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ClipListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const ClipItem &clip = m_rows.at(index.row());
    switch (role) {
    case IdRole:
        return clip.id;
    case KindRole:
        return QVariant::fromValue(clip.kind);
    case PreviewRole:
        return clip.preview;
    case PinnedRole:
        return clip.pinned;
    case SecretRole:
        return clip.secret;
    case SourceRole:
        return clip.sourceApp.value_or(QString());
    case ImageRole:
        return imageSource(clip);
    default:
        return {};
    }
}

QHash<int, QByteArray> ClipListModel::roleNames() const
{
    return {{IdRole, "clipId"},     {KindRole, "kind"},     {PreviewRole, "preview"}, {PinnedRole, "pinned"},
            {SecretRole, "secret"}, {SourceRole, "source"}, {ImageRole, "image"}};
}

QString ClipListModel::imageSource(const ClipItem &clip)
{
    return clip.kind == ClipKind::Image ? QStringLiteral("image://clips/") + clip.id : QString();
}

} // namespace vaxo
