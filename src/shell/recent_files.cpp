// The last four files in the File menu: four settings hold them, newest first, and the
// captions of four menu items are the working copy.
#include "runtime/resume.h"
#include "shell/shell_mdi.h"
#include <cmath>

namespace tsl {

namespace {
const QString kSection = QStringLiteral("Recent File List");
const QString kKeys[] = {QStringLiteral("1stRecentFile"), QStringLiteral("2ndRecentFile"),
                         QStringLiteral("3rdRecentFile"), QStringLiteral("4thRecentFile")};
constexpr int kEntries = 4;

QString entryName(int index) {
    return QStringLiteral("mnuFileMRU(%1)").arg(index);
}
} // namespace

void ShellMDI::LoadRecentFiles() {
    if (settings_.get(kSection, kKeys[0]).isEmpty()) return;
    const SettingsStore::Pairs entries = settings_.GetAllSettings(kAppName, kSection);
    // Items once shown stay shown for the rest of the run.
    for (int i = 0; i < entries.size(); ++i) {
        const QString& path = entries.at(i).second;
        if (path.isEmpty()) break;
        MenuItem& item = menu(entryName(i));
        item.setVisible(true);
        item.setCaption(path);
        menu(QStringLiteral("mnuFileBar6")).setVisible(true);
    }
}

void ShellMDI::AddRecentFile(const QString& path, const QString&) {
    QStringList current;
    for (int i = 0; i < kEntries; ++i)
        current.append(menu(entryName(i)).Caption());
    int hit = -1;
    for (int i = 0; i < kEntries && hit < 0; ++i)
        if (current.at(i).toLower() == path.toLower()) hit = i;
    if (hit == 0) return;

    // A hit moves its entry, with its own spelling, to the top; the entries above it move
    // down one and those below stay. A new path pushes the oldest out.
    QStringList order;
    if (hit > 0) {
        order.append(current.at(hit));
        order.append(current.mid(0, hit));
    } else {
        order.append(path);
        order.append(current.mid(0, kEntries - 1));
    }
    for (int i = 0; i < order.size(); ++i)
        settings_.save(kSection, kKeys[i], order.at(i));
    LoadRecentFiles();
}

QString ShellMDI::FileTitleFromPath(const QString& path) {
    // Only the system's own separator counts here.
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

void ShellMDI::mnuFileMRU_Click(int index) {
    const QString path = menu(entryName(index)).Caption();
    CurrentDocument = ActiveForm();
    LockWindowUpdate(true);
    CheckFileOpen(path);
    if (bFileAlreadyOpen) {
        LockWindowUpdate(false);
        platform_.msgBox(QStringLiteral("File is already open."), MsgIcon::Information);
        resumeNext([&] {
            if (!ActiveForm()) raise(ErrObjectRequired);
            ActiveForm()->SetFocus();
        });
        bFileAlreadyOpen = false;
        return;
    }

    // Each statement resumes at the next, except a file that cannot be read: its window goes
    // and the entry stays in the list.
    bool missing = false;
    const auto step = [&](const std::function<void()>& statement) {
        if (missing) return;
        if (resumeNext(statement) != ErrPathFileAccess) return;
        missing = true;
        LockWindowUpdate(false);
        resumeNext([&] {
            ActiveForm()->Tag = QStringLiteral("Clean");
            unloadDocument(ActiveForm());
        });
        platform_.msgBox(QStringLiteral("File could not be found."), MsgIcon::Critical);
    };
    const auto active = [this]() -> codeEditor& {
        if (!ActiveForm()) raise(ErrObjectRequired);
        return *ActiveForm();
    };
    step([&] { OpenDocumentWindow(QString()); });
    step([&] { active().codebox().LoadFile(path, 1); });
    step([&] { active().AddStep(); });
    step([&] { active().setCaption(active().codebox().FileName()); });
    step([&] { active().Tag = QStringLiteral("Clean"); });
    step([&] { active().txtFileTitle = FileTitleFromPath(path); });
    step([&] { active().txtFileName = path; });
    step([&] {
        active().CSSDoc =
            path.right(4) == QLatin1String(".css") ? QStringLiteral("Yes") : QStringLiteral("No");
    });
    // The next file dialog opens in this file's folder.
    step([&] {
        OpenSave.InitDir =
            active().txtFileName.left(active().txtFileName.size() - active().txtFileTitle.size());
    });
    step([&] {
        if (CurrentDocument && CurrentDocument->Caption() == QLatin1String("Document 1") &&
            CurrentDocument->Tag == QLatin1String("Clean"))
            unloadDocument(CurrentDocument);
    });
    step([&] {
        TabStrip1.add(path, active().txtFileTitle);
        TabStrip1.selectLast();
    });
    step([&] { AddRecentFile(path, active().txtFileTitle); });
    step([&] { TabStrip1.setVisible(true); });
    if (!missing) LockWindowUpdate(false);
}

bool ShellMDI::ctlPopMenu_RequestNewMenuDetails(const QString& caption, QString& key, int& icon) {
    for (int i = 0; i < kEntries; ++i) {
        if (menu(entryName(i)).Caption() != caption) continue;
        // The first entry stays without a picture.
        if (i == 0) return false;
        key = QStringLiteral("mnuFile(%1)").arg(i);
        icon = static_cast<int>(std::nearbyint(nMenuIconCount * Rnd() - 1));
        return true;
    }
    return false;
}

double ShellMDI::Rnd() {
    // A fixed start: the pictures come in the same order in every run.
    nRndState = (nRndState * 1140671485u + 12820163u) & 0xFFFFFFu;
    return nRndState / 16777216.0;
}

} // namespace tsl
