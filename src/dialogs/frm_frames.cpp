#include "dialogs/frm_frames.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
enum Page { ChooseLayout = 0, FrameSettingsPage = 1, Welcome = 2, Finished = 3 };

// The slot a region edits in a layout's map; 0 when the layout has no such region.
int clickSlot(const FrameLayout& layout, FrameRegion region) {
    for (const RegionImage& image : layout.regions)
        if (image.region == region) return image.slot;
    return 0;
}
} // namespace

frmFrames::frmFrames(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmFrames"), shell), cdOpenSave(shell.platform()) {
    setCaption(QStringLiteral("Frame Hanger"));
    cdOpenSave.Filter =
        QStringLiteral("HTML Files (*.htm, *.html, *.shtml; *.asp)|*.htm; *.html; *.shtml; *.asp");
    for (const char* item : {"Yes", "No", "Auto"})
        cmbScrolling.AddItem(QLatin1String(item));
    cmdColor.ToolTipText = QStringLiteral("Choose a border colour");
    cmdURL.ToolTipText = QStringLiteral("Choose the frame's page");

    const std::vector<FrameLayout>& layouts = frameLayouts();
    for (size_t i = 0; i < layouts.size(); ++i) {
        const FrameLayout& layout = layouts[i];
        const QString name = QLatin1String(layout.name);
        lstFrameType.AddItem(name);
        pictures_.push_back(
            std::make_unique<Label>(this, QStringLiteral("Picture1_%1").arg(i), name));
        pictures_.back()->setVisible(false);
        FrameMap map{&layout, std::make_unique<Label>(this, layout.container, name), {}};
        map.container->setVisible(false);
        for (const RegionImage& region : layout.regions) {
            map.images.push_back(
                std::make_unique<ImageBox>(this, region.image, regionName(region.region)));
            ImageBox* image = map.images.back().get();
            image->Click = [this, image] { region_Click(*image); };
        }
        maps_.push_back(std::move(map));
    }

    for (int index : {ChooseLayout, FrameSettingsPage, Finished})
        Frame1[index].setVisible(false);
    enableControls({&Label13, &txtBorderColor, &cmdColor, &cmdBack, &cmdFinish}, false);
    txtBorderColor.setBackColor(Control::kButtonFace);

    lstFrameType.Click = [this] { lstFrameType_Click(); };
    chkBorders.Click = [this] { chkBorders_Click(); };
    cmdColor.Click = [this] { cmdColor_Click(); };
    cmdURL.Click = [this] { cmdURL_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    cmdBack.Click = [this] { cmdBack_Click(); };
    NextButton.Click = [this] { NextButton_Click(); };
    cmdFinish.Click = [this] { cmdFinish_Click(); };
}

void frmFrames::Form_Load() {
    lstFrameType.setListIndex(0);
    cdOpenSave.InitDir = shell().OpenSave.InitDir;
    cmbScrolling.setText(QStringLiteral("Auto"));
}

int frmFrames::page() const {
    for (int index = 0; index < 4; ++index)
        if (Frame1[index].Visible()) return index;
    return Welcome;
}

void frmFrames::showPage(int index) {
    for (int other = 0; other < 4; ++other)
        Frame1[other].setVisible(other == index);
    // Enter presses Next, and Finish once Next is no longer there to press.
    const bool next = NextButton.Enabled();
    NextButton.setDefault(next);
    cmdFinish.setDefault(!next);
    // The keys go on with the page shown, not with a control the page took away.
    Control* first[] = {&lstFrameType, &txtFrameName, &NextButton, &cmdFinish};
    first[index]->SetFocus();
}

const FrameMap* frmFrames::mapOfType(int frameType) const {
    for (const FrameMap& map : maps_)
        if (map.layout->frameType == frameType) return &map;
    return nullptr;
}

void frmFrames::lstFrameType_Click() {
    for (size_t i = 0; i < pictures_.size(); ++i)
        pictures_[i]->setVisible(static_cast<int>(i) == lstFrameType.ListIndex());
}

void frmFrames::NextButton_Click() {
    switch (page()) {
    case Welcome:
        cmdBack.setEnabled(true);
        showPage(ChooseLayout);
        break;
    case ChooseLayout: {
        cmdFinish.setEnabled(true);
        showPage(FrameSettingsPage);
        const QString chosen = lstFrameType.List(lstFrameType.ListIndex());
        for (FrameMap& map : maps_) {
            const FrameLayout& layout = *map.layout;
            if (chosen != QLatin1String(layout.name)) continue;
            map.container->setVisible(true);
            for (size_t i = 0; i < map.images.size(); ++i)
                map.images[i]->setHighlighted(layout.regions[i].region == layout.start);
            FrameType = layout.frameType;
            CurrentRegion = layout.start;
        }
        break;
    }
    case FrameSettingsPage:
        // The page keeps its values: Finish saves them.
        NextButton.setEnabled(false);
        cmdFinish.setEnabled(true);
        showPage(Finished);
        break;
    }
}

void frmFrames::cmdBack_Click() {
    switch (page()) {
    case ChooseLayout:
        cmdBack.setEnabled(false);
        showPage(Welcome);
        break;
    case FrameSettingsPage:
        // A fresh start, but Finish stays enabled and the layout stays chosen: an early
        // Finish writes it with empty frames.
        NextButton.setEnabled(true);
        showPage(ChooseLayout);
        for (FrameMap& map : maps_)
            map.container->setVisible(false);
        for (int n = 1; n <= 4; ++n)
            ClearFrame(n);
        for (TextBox* box : {&txtFrameName, &txtFrameURL, &txtMWidth, &txtMHeight})
            box->setText(QString());
        cmbScrolling.setText(QStringLiteral("Auto"));
        chkBorders.setValue(0);
        chkNoResize.setValue(0);
        break;
    case Finished:
        // Finish is back only when Next is pressed again.
        cmdFinish.setEnabled(false);
        NextButton.setEnabled(true);
        showPage(FrameSettingsPage);
        break;
    }
}

void frmFrames::region_Click(ImageBox& clicked) {
    for (FrameMap& map : maps_) {
        const FrameLayout& layout = *map.layout;
        for (size_t i = 0; i < map.images.size(); ++i) {
            if (map.images[i].get() != &clicked) continue;
            for (size_t other = 0; other < map.images.size(); ++other)
                map.images[other]->setHighlighted(other == i);
            if (const int left = clickSlot(layout, CurrentRegion)) SaveFrame(left);
            LoadFrame(layout.regions[i].slot);
            CurrentRegion = layout.regions[i].region;
            return;
        }
    }
}

void frmFrames::chkBorders_Click() {
    const bool on = chkBorders.Value() == 1;
    enableControls({&Label13, &txtBorderColor, &cmdColor}, on);
    txtBorderColor.setBackColor(on ? Control::kDefaultColour : Control::kButtonFace);
}

void frmFrames::SaveFrame(int n) {
    settings(n) = {txtFrameName.Text(), txtFrameURL.Text(), cmbScrolling.Text(),
                   txtMWidth.Text(),    txtMHeight.Text(),  QString::number(chkNoResize.Value())};
}

void frmFrames::LoadFrame(int n) {
    const FrameSettings& frame = slot(n);
    txtFrameName.setText(frame.name);
    txtFrameURL.setText(frame.src);
    txtMWidth.setText(frame.marginwidth);
    txtMHeight.setText(frame.marginheight);
    cmbScrolling.setText(frame.scrolling.isEmpty() ? QStringLiteral("Auto") : frame.scrolling);
    chkNoResize.setValue(frame.noresize.toInt());
}

void frmFrames::ClearFrame(int n) {
    settings(n) = FrameSettings();
}

void frmFrames::FormatFrame(int n) {
    FrameSettings& frame = settings(n);
    frame.name = attribute(QStringLiteral("name"), frame.name);
    frame.src = attribute(QStringLiteral("src"), frame.src);
    // Anything else typed in the combo goes out as it stands.
    for (const char* item : {"Yes", "No", "Auto"})
        if (frame.scrolling == QLatin1String(item))
            frame.scrolling = attribute(QStringLiteral("scrolling"), frame.scrolling.toLower());
    if (!frame.marginwidth.isEmpty())
        frame.marginwidth = attribute(QStringLiteral("marginwidth"), frame.marginwidth);
    if (!frame.marginheight.isEmpty())
        frame.marginheight = attribute(QStringLiteral("marginheight"), frame.marginheight);
    frame.noresize = frame.noresize == QLatin1String("1") ? QStringLiteral(" noresize") : QString();
    if (chkBorders.Value() == 1) {
        // Borders without a colour leave the browser's own borders.
        if (!txtBorderColor.Text().isEmpty())
            BorderColorAttr = attribute(QStringLiteral("bordercolor"), txtBorderColor.Text());
        BorderOffAttr.clear();
    } else {
        BorderOffAttr = QStringLiteral(" border=\"0\"");
        BorderColorAttr.clear();
    }
}

QString frmFrames::frameset() const {
    const std::vector<TemplateLine>& lines = frameTemplate(FrameType);
    QString text;
    for (size_t i = 0; i < lines.size(); ++i) {
        const TemplateLine& line = lines[i];
        const int indent = (line.nested ? 2 : 0) + (line.kind == TemplateLine::Frame ? 2 : 0);
        text += QString(indent, QLatin1Char(' '));
        if (line.kind == TemplateLine::Frameset) {
            text += QStringLiteral("<frameset ") + QLatin1String(line.rowsOrCols) +
                    BorderColorAttr + BorderOffAttr + QLatin1Char('>');
        } else if (line.kind == TemplateLine::Frame) {
            const FrameSettings& frame = slot(line.slot);
            const FrameSettings& resizing = slot(line.noresizeSlot ? line.noresizeSlot : line.slot);
            text += QStringLiteral("<frame") + frame.src + frame.name + frame.scrolling +
                    frame.marginwidth + frame.marginheight + resizing.noresize + QLatin1Char('>');
        } else {
            text += QStringLiteral("</frameset>");
        }
        if (i + 1 < lines.size()) text += QLatin1Char('\n');
    }
    return text;
}

void frmFrames::cmdFinish_Click() {
    DialogContext& s = shell();
    // Without a document it ends here, before the slots are touched: the dialog stays open.
    silentExit([&] {
        s.bInsertingMarkup = true;
        codeEditor& doc = required(s.ActiveForm());
        SaveFrame(finishSlot(FrameType, CurrentRegion));
        const FrameMap* map = mapOfType(FrameType);
        const int frames = map ? static_cast<int>(map->layout->regions.size()) : 0;
        for (int n = 1; n <= frames; ++n)
            FormatFrame(n);
        // Always the Source pane, even with Layout view showing.
        doc.codebox().setSelText(frameset());
        for (int n = 1; n <= 4; ++n)
            ClearFrame(n);
        Unload();
        doc.codebox().SetFocus();
        doc.AddInsertStep();
        s.bCaretStepTaken = false;
        s.bInsertingMarkup = false;
    });
}

void bindFramesDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertFrames"), [&shell] { showDialog<frmFrames>(shell); });
}

static const CommandSet framesDialogCommands{bindFramesDialog};

} // namespace tsl
