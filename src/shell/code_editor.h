#pragma once
// One document window: its identity fields, its panes and its life-cycle handlers.
#include "editor/step_text.h"
#include "editor/surfaces.h"
#include "gadgets/controls.h"
#include "gadgets/tab_control.h"
#include "gadgets/toolbar.h"
#include "platform/common_dialog.h"
#include "runtime/int16.h"
#include <QObject>
#include <QString>
#include <array>
#include <memory>

namespace tsl {

class ShellCore;
class ShellMDI;

// One snapshot of the Source pane: the whole text and the selection that goes with it.
struct UndoStep {
    StepText Text;
    qint32 SelStart = 0;
    qint32 SelLen = 0;
    // How far the caret really stood before SelStart after the insertion that made the step.
    qint32 CaretBack = 0;
};

// Key codes and shift bits of the pane's key events.
namespace keys {
enum ShiftBits { ShiftMask = 1, CtrlMask = 2, AltMask = 4 };
enum KeyCode {
    vbKeyBack = 8,
    vbKeyReturn = 13,
    vbKeySpace = 32,
    vbKeyPageUp = 33,
    vbKeyPageDown = 34,
    vbKeyEnd = 35,
    vbKeyHome = 36,
    vbKeyLeft = 37,
    vbKeyUp = 38,
    vbKeyRight = 39,
    vbKeyDown = 40,
    vbKeyInsert = 45,
    vbKeyDelete = 46,
    vbKeyB = 66,
    vbKeyE = 69,
    vbKeyI = 73,
    vbKeyP = 80,
    vbKeyQ = 81,
    vbKeyU = 85,
    vbKeyV = 86,
    vbKeyX = 88,
    vbKeyY = 89,
    vbKeyZ = 90,
    vbKeyF4 = 115,
    vbKeyF6 = 117,
    vbKeyF12 = 123,
};
enum MouseButton { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };
} // namespace keys

class codeEditor : public QObject {
    Q_OBJECT
  public:
    codeEditor(ShellCore& shell, std::unique_ptr<SourcePane> codebox,
               std::unique_ptr<LayoutSurface> layout,
               std::unique_ptr<BrowserSurface> browser = nullptr);
    ~codeEditor() override;

    // Identity. An untitled window keeps the label's design text "Label2" as its title.
    QString Caption() const { return caption_; }
    void setCaption(const QString& caption);
    QString Tag = QStringLiteral("Clean");
    QString txtFileName;
    QString txtFileTitle = QStringLiteral("Label2");
    QString CSSDoc = QStringLiteral("No");
    QString lblOnlineFile = QStringLiteral("No");
    bool bSaveAsked = false;

    SourcePane& codebox() const { return *codebox_; }
    LayoutSurface& DHTMLEdit1() const { return *layout_; }
    BrowserSurface& WebBrowser1() const { return *browser_; }

    bool isShown() const { return shown_; }
    bool isLoaded() const { return loaded_; }

    // Handlers.
    void Form_Load();
    void Form_Activate();
    // Answers the Cancel value: non-zero keeps the window.
    int Form_QueryUnload();
    void Form_Unload();
    void codebox_Change();

    // The undo history: 26 slots, slot 0 kept empty, the usable history in slots 1 to 25.
    static constexpr int kSlots = 26;
    std::array<UndoStep, kSlots> Steps;
    Int16 nDoneIndex = 0;
    Int16 nTopIndex = 0;
    qint32 nLastStepTime = 0;
    bool bSkipKeyUp = false;
    bool bAutoCloseStep = false;
    // A slot by index; an index outside the array is a run-time error (9).
    UndoStep& step(int index);

    void Redo();
    void Undo();
    void AddStep();
    void AddSelectionToStack();
    void DecreaseNDoneIndex() { nDoneIndex = toInt16(nDoneIndex - 1); }
    void CheckToAddStep(bool bFlag = false);
    // The step after inserted markup: checked against the last one, or always a new one when
    // the caret's own step was already taken (bCaretStepTaken).
    void AddInsertStep();
    qint32 ReturnCurrStepSelLen() { return step(nDoneIndex).SelLen; }
    // Brings the shared Undo and Redo commands up to date from this window's stack.
    void updateUndoRedoState();

    // The pane's events.
    void codebox_KeyDown(int& keyCode, int shift);
    void codebox_KeyPress(int& keyAscii);
    void codebox_KeyUp(int keyCode, int shift);
    void codebox_MouseUp(int button, int shift);
    void codebox_SelChange();
    void codebox_OLEStartDrag();
    void codebox_OLECompleteDrag();
    void Form_KeyDown(int& keyCode, int shift);
    void Form_MouseDown(int button, int shift);

    // The selected view of the window: 1 Source, 2 Layout, 3 Preview.
    int SelectedTab = 1;

    // The three views and the tool strips above the two surfaces.
    TabControl tabEditor{QStringLiteral("tabEditor")};
    ComboBox cmbStyles{QStringLiteral("cmbStyles")};
    ComboBox cmbFonts{QStringLiteral("cmbFonts")};
    ComboBox cmbFontSize{QStringLiteral("cmbFontSize")};
    cToolbar tbrLayout{QStringLiteral("tbrLayout")};
    cToolbar tbrTable{QStringLiteral("tbrTable")};
    cToolbar tbrWebBrowser{QStringLiteral("tbrWebBrowser")};
    CommonDialog cdColor;
    void tabEditor_TabClick();
    void DHTMLEdit1_DisplayChanged();
    void cmbStyles_Click();
    void cmbFonts_Click();
    void cmbFontSize_Click();
    void tbrLayout_ButtonClick(int index);
    void tbrTable_ButtonClick(int index);
    void tbrWebBrowser_ButtonClick(int index);
    void WebBrowser1_BeforeNavigate2();

    // Window operations.
    void Show();
    void SetFocus();
    void ZOrder();

  signals:
    void captionChanged();
    void focusRequested();
    // The pane asks for the Edit menu as a popup at the mouse.
    void editMenuRequested();

  private:
    friend class ShellCore;
    friend class ShellMDI;
    void buildViews();
    void toSource();
    void toLayout();
    void toPreview();
    void showTempFile(const QString& folder);
    void askToSave(int& cancel, bool fromLayout);
    void overwriteCurrentStep();
    // Puts a text in a slot, as a difference from the slot below where that is small.
    void keepText(UndoStep& slot, const QString& text);

    ShellCore& shell_;
    std::unique_ptr<SourcePane> codebox_;
    std::unique_ptr<LayoutSurface> layout_;
    std::unique_ptr<BrowserSurface> browser_;
    QString caption_ = QStringLiteral("codeEditor");
    bool shown_ = false;
    bool loaded_ = true;
};

} // namespace tsl
