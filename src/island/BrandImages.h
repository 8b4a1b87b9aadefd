#pragma once

#include <QQuickImageProvider>

namespace vaxo {

class InstalledApps;

// The mark of a session's agent, "image://brand/<agent, percent-encoded>": the icon of the maker's
// application where it is installed, else the brand's symbol drawn in the brand's colour at the size
// asked for, crisp at any scale.
class BrandImages final : public QQuickImageProvider {
public:
    explicit BrandImages(const InstalledApps &apps);

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

    // The symbol's drawing in SVG, in a 24 by 24 box and in the colour given ("#rrggbb"); empty for a
    // name that has none.
    static QString symbolSvg(const QString &symbol, const QString &color);

private:
    const InstalledApps &m_apps;
};

} // namespace vaxo
