#include "ui/window/main_window.h"
#include "shell/shell_mdi.h"
#include "ui/desktop/dropped_files.h"
#include "ui/desktop/icons.h"
#include "ui/source/source_editor.h"
#include "ui/window/document_view.h"
#include "ui/window/tag_pane.h"
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace tsl {

DocumentWindow::DocumentWindow(ShellMDI& shell, codeEditor* doc) : shell_(shell), doc_(doc) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("codeEditor"));
    setWindowIcon(menuIcon(QStringLiteral("New")));
}

void DocumentWindow::closeEvent(QCloseEvent* event) {
    if (released_) {
        event->accept();
        return;
    }
    // The document answers: it may ask to save and stay.
    event->ignore();
    codeEditor* doc = doc_;
    shell_.dispatch([&] { shell_.unloadDocument(doc); });
}

ShellWindow::ShellWindow(ShellMDI& shell, QWidget* parent)
    : QMainWindow(parent), shell_(shell), menus_(shell) {
    setObjectName(QStringLiteral("ShellMDI"));
    setWindowTitle(QStringLiteral("Tessaline"));
    setAcceptDrops(true);
    menus_.iconForKey = menuIcon;
    // Recent files but the first get a picture of the menu set, by the logic's choice.
    shell_.nMenuIconCount = static_cast<int>(menuIconKeys().size());
    menus_.iconForItem = [this](const MenuItem& item) {
        QString key;
        int icon = -1;
        const QStringList keys = menuIconKeys();
        if (!shell_.ctlPopMenu_RequestNewMenuDetails(item.Caption(), key, icon) || icon < 0 ||
            icon >= keys.size())
            return QIcon();
        return menuIcon(keys.at(icon));
    };
    menus_.buildMenuBar(menuBar(), shell_.menuBar());

    const QString folder = shell.platform().applicationFolder();
    const QString titles[] = {QStringLiteral("Standard"), QStringLiteral("Formatting"),
                              QStringLiteral("Forms")};
    // One toolbar per band of cReBar1, shown as the band says. The toolbars' own context menu
    // offers the View commands (createPopupMenu), so the logic's flags stay the truth.
    for (int i = 0; i < 3; ++i) {
        toolBars_[i] = menus_.buildToolBar(*shell.cReBar1.BandChild(i), titles[i], folder, this);
        toolBars_[i]->setFloatable(false);
        addToolBar(Qt::TopToolBarArea, toolBars_[i]);
        if (i == 0) addToolBarBreak();
    }
    connect(&shell.cReBar1, &Control::changed, this, &ShellWindow::syncBands);
    syncBands();

    auto* central = new QWidget(this);
    auto* row = new QHBoxLayout(central);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    tabs_ = new QTabBar(central);
    tabs_->setObjectName(QStringLiteral("TabStrip1"));
    tabs_->setDocumentMode(true);
    tabs_->setExpanding(false);
    tabs_->setElideMode(Qt::ElideMiddle);
    tabs_->setFocusPolicy(Qt::NoFocus);
    mdi_ = new QMdiArea(central);
    mdi_->setObjectName(QStringLiteral("mdiArea"));
    column->addWidget(tabs_);
    column->addWidget(mdi_, 1);
    row->addLayout(column, 1);
    sizer_ = new PaneSizer(shell, central);
    pane_ = new TagPane(shell, central);
    row->addWidget(sizer_);
    row->addWidget(pane_);
    setCentralWidget(central);

    status_ = new QLabel(this);
    statusBar()->addWidget(status_, 1);
    status_->setObjectName(QStringLiteral("StatusBar1"));
    connect(&shell.StatusBar1, &Control::changed, this, [this] {
        status_->setText(shell_.StatusBar1.PanelText(1));
        // Shown at once, even while a command waits for a transfer.
        status_->repaint();
    });

    connect(tabs_, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index < 0) return;
        shell_.dispatch([&] { shell_.TabStrip1.select(index); });
    });
    connect(&shell.TabStrip1, &Control::changed, this, &ShellWindow::syncTabs);
    connect(mdi_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        keepMaximised(window);
        auto* doc = qobject_cast<DocumentWindow*>(window);
        if (activating_ || !doc || !doc->document()) return;
        codeEditor* target = doc->document();
        if (shell_.ActiveForm() == target) return;
        shell_.dispatch([&] { target->ZOrder(); });
    });

    connect(&shell, &ShellMDI::documentAdded, this, &ShellWindow::addDocument);
    connect(&shell, &ShellMDI::documentActivated, this, &ShellWindow::activateDocument);
    connect(&shell, &ShellMDI::documentRemoved, this, &ShellWindow::removeDocument);
    connect(&shell, &ShellMDI::drawingFrozen, this,
            [this](bool frozen) { mdi_->setUpdatesEnabled(!frozen); });
    connect(&shell, &ShellMDI::paneChanged, this, &ShellWindow::syncPane);
    connect(&shell, &ShellMDI::popupMenuRequested, this,
            [this](const QString& menuName) { showPopup(menuName, QCursor::pos()); });
    connect(&shell, &ShellMDI::arrangeRequested, this, &ShellWindow::arrange);
    connect(&shell, &ShellMDI::exitAccepted, this, [this] {
        saveWindowPlace();
        exiting_ = true;
        QTimer::singleShot(0, this, &QWidget::close);
    });
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState s) {
        if (s == Qt::ApplicationActive) shell_.dispatch([this] { shell_.applicationActivated(); });
    });
    if (QMenu* window = menus_.menuNamed(QStringLiteral("mnuWindow")))
        connect(window, &QMenu::aboutToShow, this, &ShellWindow::fillWindowList);

    restoreWindowPlace();
    syncPane();
}

namespace {
const QString kWindowSection = QStringLiteral("Window");
const QString kGeometryKey = QStringLiteral("Geometry");
const QString kTagListWidthKey = QStringLiteral("TagListWidth");
} // namespace

void ShellWindow::restoreWindowPlace() {
    SettingsStore& settings = shell_.settings();
    const int width = settings.get(kWindowSection, kTagListWidthKey).toInt();
    if (width > 0) {
        shell_.Picture1Width = width;
    } else {
        // The first time the pane is as wide as its widest tag in the desktop's font.
        TagListView* list = pane_->list();
        const int needed = list->sizeHintForColumn(0) + 2 * list->frameWidth() +
                           list->verticalScrollBar()->sizeHint().width() + 8;
        shell_.Picture1Width = std::max(shell_.Picture1Width, needed * 1440 / logicalDpiX());
    }
    const QByteArray geometry =
        QByteArray::fromBase64(settings.get(kWindowSection, kGeometryKey).toLatin1());
    if (!geometry.isEmpty() && restoreGeometry(geometry)) return;
    // The first time: a good size, but never more than the screen holds (at any scale).
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    resize(QSize(1000, 700).boundedTo(screen.size() * 0.9));
    move(screen.center() - rect().center());
}

void ShellWindow::saveWindowPlace() {
    SettingsStore& settings = shell_.settings();
    settings.save(kWindowSection, kGeometryKey, QString::fromLatin1(saveGeometry().toBase64()));
    settings.save(kWindowSection, kTagListWidthKey, QString::number(shell_.Picture1Width));
}

ShellWindow::~ShellWindow() {
    // QWidget's destructor closes the window, which hides the document windows: the area then
    // reports a new active window, and the windows new states, to a ShellWindow that is already
    // gone. Stop listening first.
    mdi_->disconnect(this);
    for (QMdiSubWindow* window : mdi_->subWindowList())
        window->disconnect(this);
}

void ShellWindow::arrange(int code) {
    if (code == ShellMDI::Cascade) {
        mdi_->cascadeSubWindows();
        return;
    }
    QList<QMdiSubWindow*> open;
    QList<QMdiSubWindow*> minimised;
    for (QMdiSubWindow* window : mdi_->subWindowList())
        (window->isMinimized() ? minimised : open).append(window);
    const QRect area = mdi_->viewport()->rect();
    if (code == ShellMDI::ArrangeIcons) {
        // Minimised windows line up along the bottom edge, left to right.
        int x = 0;
        for (QMdiSubWindow* window : minimised) {
            const QSize size = window->size();
            if (x > 0 && x + size.width() > area.width()) x = 0;
            window->move(x, area.height() - size.height());
            x += size.width();
        }
        return;
    }
    if (open.isEmpty()) return;
    // Horizontally: one above the other; vertically: side by side.
    const bool sideBySide = code == ShellMDI::TileVertical;
    const int count = static_cast<int>(open.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* window = open.at(i);
        window->showNormal();
        if (sideBySide) {
            const int left = area.width() * i / count;
            window->setGeometry(left, 0, area.width() * (i + 1) / count - left, area.height());
        } else {
            const int top = area.height() * i / count;
            window->setGeometry(0, top, area.width(), area.height() * (i + 1) / count - top);
        }
    }
}

int ShellWindow::pixels(int twips) const {
    return twips * logicalDpiX() / 1440;
}

void ShellWindow::applyViewState() {
    syncBands();
    syncPane();
}

void ShellWindow::syncBands() {
    const cReBar& bands = shell_.cReBar1;
    for (int i = 0; i < 3; ++i)
        toolBars_[i]->setVisible(bands.BandVisible(i));
}

QMenu* ShellWindow::createPopupMenu() {
    // Right-clicking the toolbars offers the View menu's own items: a toolbar is hidden the
    // way the View menu hides it, and the flags follow.
    QMenu* view = menus_.menuNamed(QStringLiteral("mnuView"));
    if (!view) return nullptr;
    auto* popup = new QMenu(this);
    popup->setObjectName(QStringLiteral("toolbarMenu"));
    popup->addActions(view->actions());
    return popup;
}

void ShellWindow::addDocument(codeEditor* doc) {
    auto* pane = dynamic_cast<QtSourcePane*>(&doc->codebox());
    auto* window = new DocumentWindow(shell_, doc);
    if (pane)
        pane->widget()->attach(
            &shell_, doc, [this](const QKeySequence& keys) { return menus_.isShortcut(keys); });
    window->setWidget(new DocumentView(shell_, *doc, menus_, window));
    window->setWindowTitle(doc->Caption());
    connect(doc, &codeEditor::captionChanged, window, [this, window, doc] {
        window->setWindowTitle(doc->Caption());
        updateTitle();
    });
    connect(doc, &codeEditor::focusRequested, window, [this, doc, pane] {
        activateDocument(doc);
        if (pane) pane->widget()->setFocus();
    });
    connect(doc, &codeEditor::editMenuRequested, this, [this, pane] {
        // At the caret when the keyboard asked, else at the pointer.
        const std::optional<QPoint> at = pane ? pane->widget()->takeKeyboardPopup() : std::nullopt;
        showPopup(QStringLiteral("mnuEdit"), at.value_or(QCursor::pos()));
    });
    windows_.insert(doc, window);
    connect(window, &QMdiSubWindow::windowStateChanged, this, &ShellWindow::updateTitle);
    activating_ = true;
    mdi_->addSubWindow(window);
    // Documents open full size, as the tab strip already tells them apart.
    const QMdiSubWindow* active = mdi_->activeSubWindow();
    if (!active || active == window || active->isMaximized())
        window->showMaximized();
    else
        window->show();
    activating_ = false;
}

void ShellWindow::activateDocument(codeEditor* doc) {
    DocumentWindow* window = windows_.value(doc);
    if (!window) return;
    activating_ = true;
    if (mdi_->activeSubWindow() != window) mdi_->setActiveSubWindow(window);
    activating_ = false;
    // However the document came forward, typing goes on in it.
    if (auto* view = qobject_cast<DocumentView*>(window->widget())) view->focusView();
    updateTitle();
}

void ShellWindow::keepMaximised(QMdiSubWindow* window) {
    if (!maximiseNext_ || !window || !windows_.key(qobject_cast<DocumentWindow*>(window))) return;
    maximiseNext_ = false;
    if (!window->isMaximized()) window->showMaximized();
}

void ShellWindow::updateTitle() {
    // The toolkit names a maximised document in the title only when it is maximised, and not
    // again when its name changes; the title is kept here instead.
    const QMdiSubWindow* window = mdi_->activeSubWindow();
    const QString title = window && window->isMaximized()
                              ? QStringLiteral("Tessaline - [%1]").arg(window->windowTitle())
                              : QStringLiteral("Tessaline");
    if (windowTitle() != title) setWindowTitle(title);
}

void ShellWindow::removeDocument(codeEditor* doc) {
    DocumentWindow* window = windows_.take(doc);
    if (!window) return;
    // The pane's editor belongs to the document, which the logic frees later.
    if (auto* pane = dynamic_cast<QtSourcePane*>(&doc->codebox()))
        pane->widget()->attach(nullptr, nullptr, {});
    if (auto* view = qobject_cast<DocumentView*>(window->widget())) view->releasePane();
    // The window that comes forward keeps the state the documents had: maximised ones stay so.
    maximiseNext_ = window->isMaximized();
    window->release();
    window->close();
    QMdiSubWindow* next = mdi_->activeSubWindow();
    if (next && next != window) keepMaximised(next);
    updateTitle();
}

void ShellWindow::syncTabs() {
    const TabStrip& strip = shell_.TabStrip1;
    const QSignalBlocker quiet(tabs_);
    while (tabs_->count() > strip.count())
        tabs_->removeTab(tabs_->count() - 1);
    while (tabs_->count() < strip.count())
        tabs_->addTab(QString());
    for (int i = 0; i < strip.count(); ++i) {
        // A file name with an ampersand must not turn into a mnemonic.
        QString caption = strip.tab(i).Caption;
        tabs_->setTabText(i, caption.replace(QLatin1Char('&'), QStringLiteral("&&")));
        tabs_->setTabToolTip(i, strip.tab(i).Key);
    }
    tabs_->setCurrentIndex(strip.selectedIndex());
}

void ShellWindow::syncPane() {
    pane_->setVisible(shell_.Picture1.Visible());
    sizer_->setVisible(shell_.Picture1.Visible());
    pane_->setFixedWidth(pixels(shell_.Picture1Width));
}

void ShellWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (droppedFiles(event->mimeData()).isEmpty()) return event->ignore();
    event->acceptProposedAction();
}

void ShellWindow::dropEvent(QDropEvent* event) {
    const QStringList paths = droppedFiles(event->mimeData());
    if (paths.isEmpty()) return event->ignore();
    event->acceptProposedAction();
    shell_.dispatch([&] { shell_.openDroppedFiles(paths); });
}

void ShellWindow::showPopup(const QString& menuName, const QPoint& at) {
    QMenu* menu = menus_.menuNamed(menuName);
    if (!menu) return;
    if (QMenu* arrow = menus_.pendingArrowMenu()) {
        arrow->addActions(menu->actions());
        return;
    }
    menu->popup(at);
}

void ShellWindow::fillWindowList() {
    QMenu* window = menus_.menuNamed(QStringLiteral("mnuWindow"));
    for (QAction* action : windowListActions_)
        window->removeAction(action), action->deleteLater();
    windowListActions_.clear();
    if (shell_.documents().empty()) return;
    windowListActions_.append(window->addSeparator());
    int number = 1;
    for (codeEditor* doc : shell_.documents()) {
        if (!doc->isShown()) continue;
        QString caption = doc->Caption();
        QAction* action =
            window->addAction(QStringLiteral("&%1 ").arg(number++) +
                              caption.replace(QLatin1Char('&'), QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(doc == shell_.ActiveForm());
        connect(action, &QAction::triggered, this,
                [this, doc] { shell_.dispatch([doc] { doc->SetFocus(); }); });
        windowListActions_.append(action);
    }
}

void ShellWindow::closeEvent(QCloseEvent* event) {
    if (exiting_) {
        event->accept();
        return;
    }
    bool accepted = false;
    shell_.dispatch([&] { accepted = shell_.requestExit(); });
    if (accepted) {
        exiting_ = true;
        event->accept();
    } else {
        event->ignore();
    }
}

void ShellWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // The document windows write their names into the title as they are maximised and
    // restored; the title is put right once they have done.
    if (event->type() == QEvent::WindowTitleChange)
        QTimer::singleShot(0, this, &ShellWindow::updateTitle);
}

void ShellWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    shell_.setWindowWidth(width() * 1440 / logicalDpiX());
}

} // namespace tsl
