#include "ui/desktop/qt_printer.h"
#include "runtime/runtime_error.h"
#include "ui/desktop/engine.h"
#include <QEventLoop>
#include <QFontMetricsF>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextLayout>
#include <QTimer>
#include <vector>

namespace tsl {

namespace {
constexpr double kTwipsPerInch = 1440.0;
} // namespace

QtPrinterDevice::QtPrinterDevice(std::unique_ptr<QPrinter> printer)
    : printer_(std::move(printer)) {}

QtPrinterDevice::~QtPrinterDevice() {
    if (painter_.isActive()) painter_.end();
}

bool QtPrinterDevice::begin() {
    if (painter_.isActive()) return true;
    if (!painter_.begin(printer_.get()))
        raise(ErrDeviceUnavailable, QStringLiteral("Printer error"));
    return true;
}

void QtPrinterDevice::Print(const QString& text) {
    begin();
    const QFontMetricsF metrics(painter_.font(), printer_.get());
    painter_.drawText(QPointF(0, metrics.ascent()), text);
}

double QtPrinterDevice::TwipsPerPixelX() const {
    return kTwipsPerInch / printer_->resolution();
}

double QtPrinterDevice::TwipsPerPixelY() const {
    return kTwipsPerInch / printer_->resolution();
}

int QtPrinterDevice::Width() const {
    return qRound(printer_->paperRect(QPrinter::DevicePixel).width() * TwipsPerPixelX());
}

int QtPrinterDevice::Height() const {
    return qRound(printer_->paperRect(QPrinter::DevicePixel).height() * TwipsPerPixelY());
}

int QtPrinterDevice::ScaleWidth() const {
    return qRound(printer_->pageRect(QPrinter::DevicePixel).width() * TwipsPerPixelX());
}

int QtPrinterDevice::ScaleHeight() const {
    return qRound(printer_->pageRect(QPrinter::DevicePixel).height() * TwipsPerPixelY());
}

int QtPrinterDevice::PhysicalOffsetX() const {
    return qRound(printer_->pageRect(QPrinter::DevicePixel).left() -
                  printer_->paperRect(QPrinter::DevicePixel).left());
}

int QtPrinterDevice::PhysicalOffsetY() const {
    return qRound(printer_->pageRect(QPrinter::DevicePixel).top() -
                  printer_->paperRect(QPrinter::DevicePixel).top());
}

int QtPrinterDevice::FormatRange(const QString& text, int start, const QString& fontName,
                                 double fontSize, const TwipsRect& drawing, const TwipsRect&,
                                 bool render) {
    begin();
    QFont font(fontName);
    font.setPointSizeF(fontSize > 0 ? fontSize : 9);
    font = QFont(font, printer_.get());
    const QRectF rect(drawing.left / TwipsPerPixelX(), drawing.top / TwipsPerPixelY(),
                      (drawing.right - drawing.left) / TwipsPerPixelX(),
                      (drawing.bottom - drawing.top) / TwipsPerPixelY());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTabStopDistance(QFontMetricsF(font, printer_.get()).horizontalAdvance(u' ') * 8);
    if (render) {
        painter_.setFont(font);
        painter_.setPen(Qt::black);
    }

    // Paragraph by paragraph, line by line, until a line no longer fits; the first line of a
    // page always goes on it, however tall, so that every page moves on.
    const int length = static_cast<int>(text.size());
    qreal y = 0;
    bool placed = false;
    int pos = start;
    while (pos < length) {
        const int feed = static_cast<int>(text.indexOf(u'\n', pos));
        const int end = feed < 0 ? length : feed;
        QTextLayout layout(text.mid(pos, end - pos), font, printer_.get());
        layout.setTextOption(option);
        layout.beginLayout();
        int fitted = 0;
        int overflow = -1;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(rect.width());
            if (placed && y + line.height() > rect.height()) {
                overflow = line.textStart();
                break;
            }
            line.setPosition(QPointF(0, y));
            y += line.height();
            placed = true;
            ++fitted;
        }
        layout.endLayout();
        if (render)
            for (int i = 0; i < fitted; ++i)
                layout.lineAt(i).draw(&painter_, rect.topLeft());
        if (overflow >= 0) return pos + overflow;
        pos = feed < 0 ? length : feed + 1;
    }
    return std::max(pos, start);
}

void QtPrinterDevice::NewPage() {
    begin();
    if (!printer_->newPage()) raise(ErrDeviceUnavailable, QStringLiteral("Printer error"));
}

void QtPrinterDevice::EndDoc() {
    if (painter_.isActive()) painter_.end();
}

std::unique_ptr<QPrinter> makeDefaultPrinter() {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) return nullptr;
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setDocName(QStringLiteral("Tessaline"));
    return printer;
}

bool printEnginePage(EnginePage& page, std::shared_ptr<QPrinter> printer) {
    struct Job {
        QEventLoop loop;
        bool done = false;
        bool ok = false;
    };
    auto job = std::make_shared<Job>();
    page.print(printer.get(), [job, printer](bool ok) {
        job->ok = ok;
        job->done = true;
        job->loop.quit();
    });
    if (!job->done) {
        // A page that never reports back stops the wait, not the program.
        QTimer::singleShot(120000, &job->loop, &QEventLoop::quit);
        job->loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return job->ok;
}

} // namespace tsl
