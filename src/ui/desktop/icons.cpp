#include "ui/desktop/icons.h"
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QSvgRenderer>
#include <utility>

namespace tsl {

namespace {
// Key and picture, in the menus' order; a picture is resources/icons/<name>.svg.
const std::pair<const char*, const char*> Pictures[] = {
    {"New", "new"},
    {"Open", "open"},
    {"Save", "save"},
    {"Print", "print"},
    {"Undo", "undo"},
    {"Redo", "redo"},
    {"Cut", "cut"},
    {"Copy", "copy"},
    {"Paste", "paste"},
    {"Find", "find"},
    {"Hyperlink", "hyperlink"},
    {"Style", "style"},
    {"LinkToCSS", "link-css"},
    {"Anchor", "anchor"},
    {"Table", "table"},
    {"Image", "image"},
    {"Marquee", "marquee"},
    {"Paragraph", "paragraph"},
    {"Form", "form"},
    {"Comment", "comment"},
    {"Font", "font"},
    {"Bold", "bold"},
    {"Italic", "italic"},
    {"Underline", "underline"},
    {"Heading", "heading"},
    {"Help", "help"},
};

QPixmap render(QSvgRenderer& renderer, int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    painter.end();
    return QPixmap::fromImage(image);
}

QIcon load(const QString& key) {
    for (const auto& [k, name] : Pictures) {
        if (key != QLatin1String(k)) continue;
        QSvgRenderer renderer(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
        if (!renderer.isValid()) return QIcon();
        // Rendered ahead at the sizes menus ask for on common screen scales, so that none is
        // a stretched bitmap; the icon picks by device pixels.
        QIcon icon;
        for (int pixels : {16, 24, 32, 48, 64})
            icon.addPixmap(render(renderer, pixels));
        return icon;
    }
    return QIcon();
}
} // namespace

QIcon menuIcon(const QString& key) {
    static QHash<QString, QIcon> cache;
    const auto found = cache.constFind(key);
    if (found != cache.constEnd()) return *found;
    const QIcon icon = load(key);
    cache.insert(key, icon);
    return icon;
}

QStringList menuIconKeys() {
    QStringList keys;
    for (const auto& [key, name] : Pictures)
        keys << QLatin1String(key);
    return keys;
}

} // namespace tsl
