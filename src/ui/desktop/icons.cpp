#include "ui/desktop/icons.h"
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
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
    return forTheme(QPixmap::fromImage(image));
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

bool darkTheme() {
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

QPixmap forTheme(const QPixmap& picture) {
    if (!darkTheme() || picture.isNull()) return picture;
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) == 0) continue;
            QColor colour = QColor::fromRgba(line[x]);
            int h = 0, s = 0, l = 0, a = 0;
            colour.getHsl(&h, &s, &l, &a);
            colour.setHsl(h, s, 255 - l, a);
            line[x] = colour.rgba();
        }
    }
    QPixmap themed = QPixmap::fromImage(image);
    themed.setDevicePixelRatio(picture.devicePixelRatio());
    return themed;
}

namespace {
double luminance(const QColor& c) {
    const auto channel = [](double v) {
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) + 0.0722 * channel(c.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}
} // namespace

QColor readableOnBase(const QColor& preferred, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    QColor colour = preferred;
    const bool lighten = base.lightness() < 128;
    for (int step = 0; step < 20 && contrast(colour, base) < 4.5; ++step) {
        int h = 0, s = 0, l = 0;
        colour.getHsl(&h, &s, &l);
        colour.setHsl(h, s, std::clamp(l + (lighten ? 12 : -12), 0, 255));
    }
    return colour;
}

QStringList menuIconKeys() {
    QStringList keys;
    for (const auto& [key, name] : Pictures)
        keys << QLatin1String(key);
    return keys;
}

} // namespace tsl
