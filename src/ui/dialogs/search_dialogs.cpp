// The search dialogs on screen: Find & Replace beside the documents, Extended Replace and the
// chooser of its files.
#include "search/frm_choose_files.h"
#include "search/frm_ext_find.h"
#include "search/frm_find.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildFindView(frmFind& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Row({Column({Rows({Field(f.Label1, Text(f.txtFind, 260)),
                             Field(f.Label2, Text(f.txtReplace, 260))}),
                       Row({Group(f.Frame1, {Option(f.optDirectionUp), Option(f.optDirectionDown)}),
                            Column({Stretch(), Check(f.chkCase)}), Stretch()}),
                       Stretch()}),
               Column({Button(f.cmdFind), Button(f.cmdReplace), Button(f.Command1),
                       Button(f.cmdCancel), Stretch()})}));
}

void buildExtFindView(frmExtFind& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({FormGroup(f.Frame1,
                            {Field(f.Label1, Text(f.FindBox)), Field(f.Label2, Text(f.ReplaceBox)),
                             Check(f.chkMatchCase), Check(f.chkWholeWord)}),
                  Group(f.Frame2,
                        {Option(f.optSpecFolder), Field(f.Label3, Combo(f.txtFilter, 200)),
                         Named(QStringLiteral("Folder"), Picked(f.txtPath, f.cmdSelectDocFolder)),
                         Option(f.optSelected), Named(QStringLiteral("Files"), List(f.lstFiles, 5)),
                         Row({Stretch(), Button(f.cmdSelectDocFiles)})}),
                  Progress(f.pbProgress), Buttons({&f.ReplaceButton, &f.CancelButton})}));
    dialog.setMinimumWidth(480);
}

void buildChooseFilesView(frmChooseFiles& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({Row({Column({Named(QStringLiteral("Drive"), Drives(f.drvDrive)),
                               Named(QStringLiteral("Folders"), Folders(f.dirHTML))}),
                       Column({Named(QStringLiteral("Files"), List(f.fileList, 10)),
                               Rows({Field(f.Label3, Combo(f.txtFilter))})}),
                       Column({Stretch(), Button(f.cmdAdd), Button(f.cmdDelete2), Stretch()}),
                       Named(QStringLiteral("Chosen files"), List(f.lstHTMLFiles, 10))}),
                  Buttons({&f.cmdOK, &f.cmdCancel})}));
    dialog.resize(900, 420);
}

} // namespace tsl
