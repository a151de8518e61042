// The real file dialog: a typed name that does not exist reaches the program, which has its
// own answer for it, and a name the toolkit cannot read comes back with its bytes.
#include "editor/file_system.h"
#include "platform/common_dialog.h"
#include "test_shell.h"
#include "ui/desktop/qt_platform.h"
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <fcntl.h>
#include <unistd.h>

using namespace tsl;
using namespace tsl::test;

namespace {
// Types a name into the next file dialog and presses Return.
void typeIntoTheDialog(const QString& name) {
    auto* timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, name] {
        auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!box) return;
        auto* edit = box->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!edit) return;
        timer->deleteLater();
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    timer->start(20);
}

CommonDialog openDialogIn(Platform& platform, const QString& folder, int flags) {
    CommonDialog dialog(platform);
    dialog.Flags = flags;
    dialog.InitDir = folder;
    dialog.Filter = QStringLiteral("HTML Files (*.htm)|*.htm|All|*");
    dialog.FilterIndex = 2;
    return dialog;
}

constexpr int kExplorerMultiPrompt = 524802;
} // namespace

class FileDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void aTypedNameThatDoesNotExistIsTaken() {
        QTemporaryDir dir;
        QtPlatform platform;
        CommonDialog dialog = openDialogIn(platform, dir.path(), kExplorerMultiPrompt);
        typeIntoTheDialog(QStringLiteral("missing.htm"));
        QVERIFY(platform.showOpen(dialog));
        QCOMPARE(dialog.FileName, dir.filePath(QStringLiteral("missing.htm")));
        QCOMPARE(dialog.FileTitle, QStringLiteral("missing.htm"));
    }

    void aNameTheToolkitCannotReadComesBackWhole() {
        QTemporaryDir dir;
        const QByteArray raw = QFile::encodeName(dir.path()) + "/caf\xE9.htm";
        const int fd = ::open(raw.constData(), O_WRONLY | O_CREAT, 0644);
        QVERIFY(fd >= 0);
        ::close(fd);
        QtPlatform platform;
        CommonDialog dialog = openDialogIn(platform, dir.path(), kExplorerMultiPrompt);
        typeIntoTheDialog(QStringLiteral("caf\uFFFD.htm"));
        QVERIFY(platform.showOpen(dialog));
        QCOMPARE(fileNameBytes(dialog.FileName), raw);
    }
};

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    FileDialogTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_file_dialog.moc"
