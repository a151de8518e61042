// The toolbar pictures: the strips made by the build, the buttons that take their images from
// them, and the menu icons by key.
#include "scripted_platform.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/desktop/icons.h"
#include "ui/window/main_window.h"
#include "ui/window/workbench.h"
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPixmap>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <algorithm>

using namespace tsl;
using namespace tsl::test;

namespace {
// The folder the strips stand in: the program's build folder, one up from the tests.
QString programFolder() {
    const QDir here(QCoreApplication::applicationDirPath());
    for (const QString& candidate :
         {here.absolutePath(), here.absoluteFilePath(QStringLiteral(".."))})
        if (QFileInfo::exists(candidate + QStringLiteral("/resources/toolbar1.tbr")))
            return QDir(candidate).absolutePath();
    return QString();
}

// Opaque pixels of an image: a picture that draws next to nothing is as bad as none.
int inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 128) ++count;
    return count;
}

QImage argb(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32);
}

struct Program {
    ScriptedPlatform platform;
    MemorySettingsStore settings;
    std::unique_ptr<Workbench> bench;

    explicit Program(const QString& folder) {
        platform.appFolder = folder;
        bench = std::make_unique<Workbench>(platform, settings);
        bench->load(QString());
    }
    QToolBar* bar(const char* name) {
        auto* bar = bench->window().findChild<QToolBar*>(QLatin1String(name));
        if (!bar) qFatal("no toolbar %s", name);
        return bar;
    }
    QAction* button(const cToolbar& model, int index) {
        return bench->window().findChild<QAction*>(model.name() + QStringLiteral("_%1").arg(index));
    }
};
} // namespace

class ToolbarImagesTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        folder_ = programFolder();
        QVERIFY2(!folder_.isEmpty(), "the build has not made the strips beside the program");
    }

    void everyButtonShowsItsPictureFromTheStrip() {
        Program p(folder_);
        ShellMDI& shell = p.bench->shell();
        for (cToolbar* model : {&shell.tbrMain, &shell.tbrTags, &shell.tbrForms}) {
            const QPixmap strip(folder_ + QLatin1Char('/') + model->ImageFile);
            QVERIFY2(!strip.isNull(), qPrintable(model->ImageFile));
            QCOMPARE(strip.height(), 32);
            p.bar(qPrintable(model->name()));
            for (int i = 0; i < model->ButtonCount(); ++i) {
                const cToolbar::Button& b = model->button(i);
                if (b.style == cToolbar::Separator) continue;
                const QString where =
                    QStringLiteral("%1 %2 \"%3\"").arg(model->name()).arg(i).arg(b.toolTip);
                QAction* action = p.button(*model, i);
                QVERIFY2(action, qPrintable(where));
                QVERIFY2(!action->icon().isNull(), qPrintable(where));
                // At scale 2 the button shows the strip's own pixels, not letters drawn for a
                // missing strip.
                const QImage shown = argb(action->icon().pixmap(QSize(16, 16), 2.0).toImage());
                const QImage wanted = argb(strip.copy(b.image * 32, 0, 32, 32).toImage());
                QCOMPARE(shown.size(), QSize(32, 32));
                QVERIFY2(shown == wanted, qPrintable(where));
                QVERIFY2(inked(wanted) > 40, qPrintable(where));
                // And at scale 1 a 16-pixel picture with something in it.
                const QImage small = action->icon().pixmap(QSize(16, 16), 1.0).toImage();
                QCOMPARE(small.size(), QSize(16, 16));
                QVERIFY2(inked(small) > 10, qPrintable(where));
            }
        }
    }

    void eachStripHoldsAsManyPicturesAsItsButtonsUse() {
        Program p(folder_);
        ShellMDI& shell = p.bench->shell();
        QHash<QString, int> used;
        for (cToolbar* model : {&shell.tbrMain, &shell.tbrTags, &shell.tbrForms}) {
            int highest = -1;
            for (int i = 0; i < model->ButtonCount(); ++i)
                highest = std::max(highest, model->button(i).image);
            used.insert(model->ImageFile, highest + 1);
        }
        // The document window's strips and the style dialog's: images in button order.
        used.insert(QStringLiteral("resources/Toolbar4.tbr"), 5);
        used.insert(QStringLiteral("resources/Toolbar5.tbr"), 9);
        used.insert(QStringLiteral("resources/toolbar6.tbr"), 4);
        used.insert(QStringLiteral("resources/toolbar7.tbr"), 3);
        QCOMPARE(used.value(QStringLiteral("resources/toolbar1.tbr")), 17);
        QCOMPARE(used.value(QStringLiteral("resources/toolbar2.tbr")), 18);
        QCOMPARE(used.value(QStringLiteral("resources/toolbar3.tbr")), 9);
        for (auto it = used.cbegin(); it != used.cend(); ++it) {
            const QImage strip(folder_ + QLatin1Char('/') + it.key());
            QVERIFY2(!strip.isNull(), qPrintable(it.key()));
            QCOMPARE(strip.height(), 32);
            QCOMPARE(strip.width(), it.value() * 32);
            // No two pictures of a strip are alike, so no button borrows another's image.
            QSet<QByteArray> seen;
            for (int i = 0; i < it.value(); ++i) {
                const QImage one = argb(strip.copy(i * 32, 0, 32, 32));
                QVERIFY2(inked(one) > 40, qPrintable(it.key() + QString::number(i)));
                const QByteArray bytes(reinterpret_cast<const char*>(one.constBits()),
                                       one.sizeInBytes());
                QVERIFY2(!seen.contains(bytes), qPrintable(it.key() + QString::number(i)));
                seen.insert(bytes);
            }
        }
    }

    void missingStripsFallBackToLetters() {
        QTemporaryDir empty;
        Program p(empty.path());
        ShellMDI& shell = p.bench->shell();
        p.bar("tbrMain");
        QAction* save = p.button(shell.tbrMain, 3);
        QVERIFY(save);
        QVERIFY(!save->icon().isNull());
        QVERIFY(inked(save->icon().pixmap(QSize(16, 16), 1.0).toImage()) > 0);
    }

    void everyMenuKeyHasAnIcon() {
        const QStringList keys = menuIconKeys();
        QCOMPARE(keys.size(), 26);
        for (const char* key :
             {"New",   "Open",   "Save",      "Print",     "Undo",  "Redo",      "Cut",
              "Copy",  "Paste",  "Find",      "Hyperlink", "Style", "LinkToCSS", "Anchor",
              "Table", "Image",  "Marquee",   "Paragraph", "Form",  "Comment",   "Font",
              "Bold",  "Italic", "Underline", "Heading",   "Help"}) {
            const QIcon icon = menuIcon(QLatin1String(key));
            QVERIFY2(!icon.isNull(), key);
            QVERIFY2(keys.contains(QLatin1String(key)), key);
            for (qreal scale : {1.0, 2.0}) {
                const QImage image = icon.pixmap(QSize(16, 16), scale).toImage();
                QCOMPARE(image.size(), QSize(16, 16) * scale);
                QVERIFY2(inked(image) > 10 * scale * scale, key);
            }
        }
        QVERIFY(menuIcon(QStringLiteral("NoSuchKey")).isNull());
    }

  private:
    QString folder_;
};

QTEST_MAIN(ToolbarImagesTest)
#include "test_toolbar_images.moc"
