#pragma once
// The printer as the printing of the Source view needs it: lengths in twips, the printable
// area's offset from the paper's edge in device pixels, and the formatting of a range of text
// into a rectangle of the page.
#include <QString>

namespace tsl {

struct TwipsRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

class PrinterDevice {
  public:
    virtual ~PrinterDevice() = default;
    // Prints text at the current position; the first output starts the page.
    virtual void Print(const QString& text) = 0;
    // The paper, in twips.
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    // The printable area, in twips; drawing coordinates start at its top left corner.
    virtual int ScaleWidth() const = 0;
    virtual int ScaleHeight() const = 0;
    // Where the printable area begins, from the paper's edge, in device pixels.
    virtual int PhysicalOffsetX() const = 0;
    virtual int PhysicalOffsetY() const = 0;
    // Twips per device pixel across and down.
    virtual double TwipsPerPixelX() const = 0;
    virtual double TwipsPerPixelY() const = 0;
    // Lays text out from `start` in the font, line by line inside `drawing` (twips, from the
    // printable area's corner), renders what fits when `render` is set, and answers the index
    // of the first character that did not fit (the text's length when everything did).
    virtual int FormatRange(const QString& text, int start, const QString& fontName,
                            double fontSize, const TwipsRect& drawing, const TwipsRect& page,
                            bool render) = 0;
    virtual void NewPage() = 0;
    virtual void EndDoc() = 0;
};

} // namespace tsl
