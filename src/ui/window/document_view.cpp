#include "ui/window/document_view.h"
#include "shell/shell_core.h"
#include "ui/kit/binders.h"
#include "ui/kit/combo_widget.h"
#include "ui/layout/layout_surface.h"
#include "ui/kit/menu_binder.h"
#include "ui/source/source_editor.h"
#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace tsl {

namespace {
QWidget* engineHost(QWidget* parent) {
    auto* host = new QWidget(parent);
    host->setObjectName(QStringLiteral("engineHost"));
    auto* layout = new QVBoxLayout(host);
    layout->setContentsMargins(0, 0, 0, 0);
    return host;
}

QComboBox* combo(ComboBox& control, Binder& bind, const QString& toolTip, int width) {
    auto* box = new ComboWidget;
    bind.comboBox(control, box);
    box->setToolTip(toolTip);
    // A combo on a tool strip has no label: its tip names it for assistive tools.
    box->setAccessibleName(toolTip);
    box->setMinimumWidth(width);
    return box;
}
} // namespace

DocumentView::DocumentView(ShellCore& shell, codeEditor& doc, MenuBinder& menus, QWidget* parent)
    : QWidget(parent), shell_(shell), doc_(doc) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    stack_ = new QStackedWidget(this);
    layout->addWidget(stack_, 1);

    // Source.
    source_ = new QWidget(stack_);
    auto* sourceLayout = new QVBoxLayout(source_);
    sourceLayout->setContentsMargins(0, 0, 0, 0);
    if (auto* pane = dynamic_cast<QtSourcePane*>(&doc.codebox()))
        sourceLayout->addWidget(pane->widget());
    stack_->addWidget(source_);

    // Layout: its strips and combos above the editing surface.
    auto* layoutPanel = new QWidget(stack_);
    auto* layoutColumn = new QVBoxLayout(layoutPanel);
    layoutColumn->setContentsMargins(0, 0, 0, 0);
    layoutColumn->setSpacing(0);
    auto* strips = new QHBoxLayout;
    strips->setSpacing(4);
    strips->setContentsMargins(2, 2, 2, 2);
    Binder bind(shell);
    const QString folder = shell.platform().applicationFolder();
    strips->addWidget(combo(doc.cmbStyles, bind, QStringLiteral("Format"), 130));
    strips->addWidget(combo(doc.cmbFonts, bind, QStringLiteral("Font"), 150));
    strips->addWidget(combo(doc.cmbFontSize, bind, QStringLiteral("Font Size"), 50));
    strips->addWidget(menus.buildToolBar(doc.tbrLayout, QStringLiteral("Layout"), folder, this));
    strips->addWidget(menus.buildToolBar(doc.tbrTable, QStringLiteral("Table"), folder, this));
    strips->addStretch(1);
    layoutColumn->addLayout(strips);
    QWidget* layoutHost = engineHost(layoutPanel);
    layoutColumn->addWidget(layoutHost, 1);
    stack_->addWidget(layoutPanel);
    if (auto* surface = dynamic_cast<QtLayoutSurface*>(&doc.DHTMLEdit1())) {
        surface->setHost(layoutHost);
        surface->setDispatcher([&shell](const std::function<void()>& h) { shell.dispatch(h); });
    }

    // Preview: the browser's strip above the browser.
    auto* previewPanel = new QWidget(stack_);
    auto* previewColumn = new QVBoxLayout(previewPanel);
    previewColumn->setContentsMargins(0, 0, 0, 0);
    previewColumn->setSpacing(0);
    previewColumn->addWidget(
        menus.buildToolBar(doc.tbrWebBrowser, QStringLiteral("Browser"), folder, this));
    QWidget* browserHost = engineHost(previewPanel);
    previewColumn->addWidget(browserHost, 1);
    stack_->addWidget(previewPanel);
    if (auto* browser = dynamic_cast<QtBrowserSurface*>(&doc.WebBrowser1()))
        browser->setHost(browserHost);

    tabs_ = new QTabBar(this);
    tabs_->setObjectName(QStringLiteral("tabEditor"));
    tabs_->setShape(QTabBar::RoundedSouth);
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    // A click chooses a view and leaves the keyboard with the text.
    tabs_->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(tabs_);
    syncTabs();
    connect(&doc.tabEditor, &Control::changed, this, &DocumentView::syncTabs);
    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        if (index < 0 || index + 1 == doc_.tabEditor.SelectedTab()) return;
        codeEditor* doc = &doc_;
        shell_.dispatch([doc, index] { doc->tabEditor.SelectTab(index + 1); });
    });
}

void DocumentView::syncTabs() {
    const TabControl& model = doc_.tabEditor;
    const QSignalBlocker quiet(tabs_);
    while (tabs_->count() < model.TabCount())
        tabs_->addTab(model.TabCaption(tabs_->count() + 1));
    tabs_->setCurrentIndex(model.SelectedTab() - 1);
    // The panel of the selected view comes to the front.
    stack_->setCurrentIndex(model.SelectedTab() - 1);
}

void DocumentView::focusView() {
    QWidget* panel = stack_->currentWidget();
    if (panel == source_) {
        if (auto* pane = dynamic_cast<QtSourcePane*>(&doc_.codebox())) pane->widget()->setFocus();
        return;
    }
    // The engine's view, once it is there, takes the keys of Layout and Preview.
    const QList<QWidget*> hosts = panel->findChildren<QWidget*>(QStringLiteral("engineHost"));
    for (QWidget* host : hosts)
        if (host->layout() && host->layout()->count() > 0)
            host->layout()->itemAt(0)->widget()->setFocus();
}

void DocumentView::releasePane() {
    if (auto* pane = dynamic_cast<QtSourcePane*>(&doc_.codebox())) {
        pane->widget()->hide();
        pane->widget()->setParent(nullptr);
    }
}

} // namespace tsl
