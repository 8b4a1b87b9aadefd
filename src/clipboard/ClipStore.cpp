#include "clipboard/ClipStore.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

namespace vaxo {

std::optional<QList<ClipItem>> ClipStore::load() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll());
    if (!doc.isArray())
        return std::nullopt;
    QList<ClipItem> items;
    for (const QJsonValue &value : doc.array()) {
        const auto item = ClipItem::fromJson(value.toObject());
        if (!value.isObject() || !item)
            return std::nullopt;
        items.append(*item);
    }
    return items;
}

void ClipStore::save(const QList<ClipItem> &items) const
{
    QJsonArray array;
    for (const ClipItem &clip : items) {
        if (clip.kind != ClipKind::Image && !clip.secret)
            array.append(clip.toJson());
    }
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    const auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
    QSaveFile file(m_path);
    // The temporary file is made private before anything is written to it.
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(ownerOnly) ||
        file.write(QJsonDocument(array).toJson(QJsonDocument::Compact)) < 0 || !file.commit()) {
        qWarning().noquote() << "[clipboard] could not save the history:" << file.errorString();
        return;
    }
    QFile::setPermissions(m_path, ownerOnly);
}

} // namespace vaxo
