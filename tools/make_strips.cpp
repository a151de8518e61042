// Builds the toolbar strips from the SVG pictures.
//
//   make_strips <manifest> <svg folder> <output folder> [--preview <png>]
//
// The manifest names, line by line, a strip file and its pictures in image-index order:
//   toolbar1.tbr: new open save
// Each strip is one PNG row of square images, drawn at twice the 16-pixel button size so that
// the buttons stay sharp on high-density screens; the program reads the scale from the height.
// A missing or broken picture fails the build rather than leaving a hole in a toolbar.
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QStringList>
#include <QSvgRenderer>
#include <QTextStream>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

constexpr int ButtonSize = 16;
constexpr int Scale = 2;

struct Strip {
    QString file;
    QStringList pictures;
};

void fail(const QString& message) {
    std::fprintf(stderr, "make_strips: %s\n", qPrintable(message));
    std::exit(1);
}

std::vector<Strip> readManifest(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) fail("cannot read " + path);
    std::vector<Strip> strips;
    QTextStream in(&file);
    int lineNumber = 0;
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        ++lineNumber;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        const int colon = line.indexOf(QLatin1Char(':'));
        if (colon <= 0)
            fail(QStringLiteral("%1:%2: expected 'file: pictures'").arg(path).arg(lineNumber));
        Strip strip{line.left(colon).trimmed(),
                    line.mid(colon + 1).split(QLatin1Char(' '), Qt::SkipEmptyParts)};
        if (strip.pictures.isEmpty())
            fail(QStringLiteral("%1:%2: no pictures").arg(path).arg(lineNumber));
        strips.push_back(std::move(strip));
    }
    return strips;
}

QImage render(const QString& svgFolder, const QString& name, int pixels) {
    const QString path = svgFolder + QLatin1Char('/') + name + QStringLiteral(".svg");
    QSvgRenderer renderer(path);
    if (!renderer.isValid()) fail("cannot render " + path);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    return image;
}

void write(const QImage& image, const QString& path) {
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || !image.save(&out, "PNG") || !out.commit())
        fail("cannot write " + path);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments();
    args.removeFirst();
    QString previewPath;
    const int previewAt = static_cast<int>(args.indexOf(QStringLiteral("--preview")));
    if (previewAt >= 0 && previewAt + 1 < args.size()) {
        previewPath = args.at(previewAt + 1);
        args.remove(previewAt, 2);
    }
    if (args.size() != 3) fail("usage: make_strips <manifest> <svg folder> <output folder>");
    const std::vector<Strip> strips = readManifest(args.at(0));
    const QString svgFolder = args.at(1);
    const QString outFolder = args.at(2);

    const int cell = ButtonSize * Scale;
    for (const Strip& strip : strips) {
        QImage image(cell * static_cast<int>(strip.pictures.size()), cell,
                     QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        for (int i = 0; i < strip.pictures.size(); ++i)
            painter.drawImage(i * cell, 0, render(svgFolder, strip.pictures.at(i), cell));
        painter.end();
        write(image, outFolder + QLatin1Char('/') + strip.file);
    }

    // A contact sheet for looking the pictures over: each strip at 1x, 2x and 4x on white.
    if (!previewPath.isEmpty()) {
        int width = 0;
        for (const Strip& strip : strips)
            width = std::max(width, static_cast<int>(strip.pictures.size()) * (ButtonSize * 8));
        const int rowHeight = ButtonSize * (1 + 2 + 4) + 24;
        QImage sheet(width + 16, rowHeight * static_cast<int>(strips.size()) + 8,
                     QImage::Format_RGB32);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        int y = 8;
        for (const Strip& strip : strips) {
            int x = 8;
            for (int scale : {1, 2, 4}) {
                for (int i = 0; i < strip.pictures.size(); ++i)
                    painter.drawImage(x + i * ButtonSize * scale * 2, y,
                                      render(svgFolder, strip.pictures.at(i), ButtonSize * scale));
                y += ButtonSize * scale + 4;
            }
            y += 12;
        }
        painter.end();
        write(sheet, previewPath);
    }
    return 0;
}
