#pragma once

#include <QByteArray>
#include <QList>
#include <QTest>

namespace vaxo::test {

// Adds a data row per line of table, "name | cell | cell ...", each cell a trimmed QByteArray, so that
// long case tables read one case a line.
inline void rows(const QByteArray &table)
{
    for (const QByteArray &line : table.trimmed().split('\n')) {
        const QList<QByteArray> cells = line.split('|');
        QTestData &row = QTest::newRow(cells[0].trimmed().constData());
        for (const QByteArray &cell : cells.mid(1))
            row << cell.trimmed();
    }
}

} // namespace vaxo::test
