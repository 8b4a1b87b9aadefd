#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QSet>

namespace vaxo {

// A list model whose rows carry an id. A new list reaches the views as the row removals, moves,
// insertions and changes that turn the old list into it, never as a reset, so that a view keeps its
// delegates and can animate what really changed.
class KeyedListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    using QAbstractListModel::QAbstractListModel;

    int count() const { return rowCount(); }

signals:
    void countChanged();

protected:
    // Row is a value type with a QString `id` and ==. Ids may repeat; rows then pair up in order.
    template <typename Row> void syncRows(QList<Row> &rows, const QList<Row> &next);
};

template <typename Row> void KeyedListModel::syncRows(QList<Row> &rows, const QList<Row> &next)
{
    const qsizetype before = rows.size();
    QSet<QString> wanted;
    for (const Row &row : next)
        wanted.insert(row.id);
    for (qsizetype i = rows.size() - 1; i >= 0; --i) {
        if (wanted.contains(rows.at(i).id))
            continue;
        beginRemoveRows({}, int(i), int(i));
        rows.removeAt(i);
        endRemoveRows();
    }
    for (qsizetype i = 0; i < next.size(); ++i) {
        const Row &row = next.at(i);
        if (i >= rows.size() || rows.at(i).id != row.id) {
            qsizetype from = i + 1;
            while (from < rows.size() && rows.at(from).id != row.id)
                ++from;
            if (from < rows.size()) {
                beginMoveRows({}, int(from), int(from), {}, int(i));
                rows.move(from, i);
                endMoveRows();
            } else {
                beginInsertRows({}, int(i), int(i));
                rows.insert(i, row);
                endInsertRows();
                continue;
            }
        }
        if (!(rows.at(i) == row)) {
            rows[i] = row;
            emit dataChanged(index(int(i)), index(int(i)));
        }
    }
    if (rows.size() > next.size()) {
        beginRemoveRows({}, int(next.size()), int(rows.size() - 1));
        rows.resize(next.size());
        endRemoveRows();
    }
    if (rows.size() != before)
        emit countChanged();
}

} // namespace vaxo
