#pragma once
// The printer of the real program: a print job on a QPrinter, and the printing of an engine
// page through the same kind of printer.
// Used by QtPlatform and the Layout surface.
#include "platform/printer_device.h"
#include <QFont>
#include <QPainter>
#include <memory>

class QPrinter;

namespace tsl {

class EnginePage;

class QtPrinterDevice : public PrinterDevice {
  public:
    explicit QtPrinterDevice(std::unique_ptr<QPrinter> printer);
    ~QtPrinterDevice() override;
    QPrinter& printer() { return *printer_; }

    void Print(const QString& text) override;
    int Width() const override;
    int Height() const override;
    int ScaleWidth() const override;
    int ScaleHeight() const override;
    int PhysicalOffsetX() const override;
    int PhysicalOffsetY() const override;
    double TwipsPerPixelX() const override;
    double TwipsPerPixelY() const override;
    int FormatRange(const QString& text, int start, const QString& fontName, double fontSize,
                    const TwipsRect& drawing, const TwipsRect& page, bool render) override;
    void NewPage() override;
    void EndDoc() override;

  private:
    bool begin();
    std::unique_ptr<QPrinter> printer_;
    QPainter painter_;
};

// The system's default printer, made for a job; null when there is none.
std::unique_ptr<QPrinter> makeDefaultPrinter();
// Prints an engine page and waits, without taking the user's input, until the job is handed
// over. The printer is kept until the page is done with it.
bool printEnginePage(EnginePage& page, std::shared_ptr<QPrinter> printer);

} // namespace tsl
