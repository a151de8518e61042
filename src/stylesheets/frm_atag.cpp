#include "stylesheets/frm_atag.h"
#include "stylesheets/style_session.h"

namespace tsl {

frmATag::frmATag(DialogContext& shell) : ElementDialog(QStringLiteral("frmATag"), shell) {
    setCaption(QStringLiteral("Which form of Hyperlink?"));
    OptionButton::group({&LinkOpt, &Vopt, &Aopt, &AllOpt});
    OK.Click = [this] { OK_Click(); };
}

void frmATag::OK_Click() {
    const std::pair<OptionButton*, const char*> choices[] = {
        {&LinkOpt, "A:Link"}, {&Vopt, "A:Visited"}, {&Aopt, "A:Active"}, {&AllOpt, "A"}};
    for (const auto& [option, type] : choices) {
        if (option->Value()) {
            styleSession().AType = QLatin1String(type);
            break;
        }
    }
    Unload();
}

} // namespace tsl
