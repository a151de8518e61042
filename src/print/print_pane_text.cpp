#include "print/print_pane_text.h"
#include "runtime/resume.h"
#include "shell/command_registry.h"
#include "shell/shell_core.h"
#include <cmath>

namespace tsl {

namespace {
constexpr int kOneInch = 1440;
// Whole twips, halves to even as the printer's own conversions round.
int roundTwips(double twips) {
    return static_cast<int>(std::nearbyint(twips));
}
} // namespace

TwipsRect DrawingRect(const PrinterDevice& printer, int nLeftMargin, int nTopMargin,
                      int nRightMargin, int nBottomMargin) {
    const int nOffsetX = roundTwips(printer.PhysicalOffsetX() * printer.TwipsPerPixelX());
    const int nOffsetY = roundTwips(printer.PhysicalOffsetY() * printer.TwipsPerPixelY());
    return {nLeftMargin - nOffsetX, nTopMargin - nOffsetY,
            printer.Width() - nRightMargin - nOffsetX, printer.Height() - nBottomMargin - nOffsetY};
}

void PrintPaneText(SourcePane& pane, PrinterDevice& printer, int nLeftMargin, int nTopMargin,
                   int nRightMargin, int nBottomMargin) {
    printer.Print(QStringLiteral(" ")); // starts the page
    const TwipsRect drawing =
        DrawingRect(printer, nLeftMargin, nTopMargin, nRightMargin, nBottomMargin);
    const TwipsRect page{0, 0, printer.ScaleWidth(), printer.ScaleHeight()};
    const QString text = pane.Text();
    const int TextLength = static_cast<int>(text.size());
    int start = 0;
    for (;;) {
        const int next =
            printer.FormatRange(text, start, pane.FontName(), pane.FontSize(), drawing, page, true);
        if (next >= TextLength) break;
        start = next;
        printer.NewPage();
        printer.Print(QStringLiteral(" "));
    }
    printer.EndDoc();
}

void mnuFilePrint_Click(ShellCore& shell) {
    // One handler for the whole command: a cancel ends it, any other failure goes on with the
    // next statement, and a failure inside the paging abandons the job where it stood.
    Platform& platform = shell.platform();
    codeEditor* doc = shell.ActiveForm();
    if (!doc) return;
    // With no printer on the system the command does nothing, as any failure of a print.
    if (shell.bLayoutActive) {
        if (!platform.defaultPrinter()) return;
        resumeNext([&] { doc->DHTMLEdit1().PrintDocument(); });
    } else if (doc->tabEditor.SelectedTab() == 3) {
        // The browser asks for the printer in its own dialog.
        resumeNext([&] {
            doc->WebBrowser1().ExecWB(BrowserSurface::OLECMDID_PRINT,
                                      BrowserSurface::OLECMDEXECOPT_PROMPTUSER);
        });
    } else {
        std::unique_ptr<PrinterDevice> printer;
        resumeNext([&] { printer = platform.defaultPrinter(); });
        if (!printer) return;
        resumeNext([&] {
            PrintPaneText(doc->codebox(), *printer, kOneInch, kOneInch, kOneInch, kOneInch);
        });
    }
}

void bindPrinting(ShellCore& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuFilePrint"), [&shell] { mnuFilePrint_Click(shell); });
}

static const CommandSet printingCommands{bindPrinting};

} // namespace tsl
