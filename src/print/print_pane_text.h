#pragma once
// File > Print: each view prints the way it can. The Source view's text is paged out onto the
// default printer with fixed margins and no decoration.
#include "platform/printer_device.h"

namespace tsl {

class ShellCore;
class Commands;
class SourcePane;

// The rectangle the text is drawn in, relative to the printable area: margins from the paper's
// edge, less the printable area's own offset from that edge.
TwipsRect DrawingRect(const PrinterDevice& printer, int nLeftMargin, int nTopMargin,
                      int nRightMargin, int nBottomMargin);
// Pages the pane's text onto the printer: each page starts at the first character that did not
// fit on the one before.
void PrintPaneText(SourcePane& pane, PrinterDevice& printer, int nLeftMargin, int nTopMargin,
                   int nRightMargin, int nBottomMargin);
void mnuFilePrint_Click(ShellCore& shell);

void bindPrinting(ShellCore& shell, Commands& commands);

} // namespace tsl
