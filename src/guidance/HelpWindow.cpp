#include "guidance/HelpWindow.h"

#include "guidance/HelpAddress.h"
#include "guidance/HelpBrowser.h"
#include "guidance/HelpCollection.h"
#include "toolkit/ImageList.h"
#include "toolkit/ItemChoice.h"

#include <QAbstractItemView>
#include <QAction>
#include <QEvent>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpContentItem>
#include <QHelpContentModel>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QHelpSearchResult>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QListWidget>
#include <QModelIndex>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSplitter>
#include <QString>
#include <QStringList>
#include <QTabWidget>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize initialSize(1000, 700);
constexpr QSize toolPictureSize(24, 24);
/// Letters of a line on the left: the longest titles, and their place in the tree.
constexpr int sideLetters = 35;
constexpr double usualPoints = 10;

/// What the search engine takes for the words that somebody typed: every word must be there, as a
/// whole or as a beginning, and no sign of the engine's own language reaches it.
QString searchExpression(const QString& typed) {
    static const QRegularExpression notWord(u"[^\\p{L}\\p{N}]+"_s);
    QStringList words = typed.split(notWord, Qt::SkipEmptyParts);
    for (QString& word : words) {
        word = u"\"%1\"*"_s.arg(word);
    }
    return words.join(u' ');
}

QLabel* labelFor(QWidget* field, const QString& text) {
    auto* label = new QLabel(text);
    label->setBuddy(field);
    return label;
}

/// The first entry of the contents with this address, from `parent` down; invalid without one.
QModelIndex entryOf(const QHelpContentModel& contents, const QUrl& url,
                    const QModelIndex& parent = {}) {
    for (int row = 0; row < contents.rowCount(parent); ++row) {
        const QModelIndex index = contents.index(row, 0, parent);
        if (contents.contentItemAt(index)->url() == url) {
            return index;
        }
        if (const QModelIndex below = entryOf(contents, url, index); below.isValid()) {
            return below;
        }
    }
    return {};
}

} // namespace

HelpWindow::HelpWindow(std::shared_ptr<HelpCollection> collection)
    : m_collection(std::move(collection)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(u"HelpWindow"_s);
    setWindowTitle(u"Guida di Quor"_s);
    setContextMenuPolicy(Qt::NoContextMenu); // nobody hides the toolbar by accident
    setProperty("helpTopic", u"tastiera.html#guida"_s);

    m_tabs = new QTabWidget;
    m_tabs->setObjectName(u"tabs"_s);
    m_tabs->setAccessibleName(u"Sommario, indice e ricerca"_s);
    m_tabs->setUsesScrollButtons(false); // all three have room, whatever the font
    m_tabs->addTab(buildContents(), u"&Sommario"_s);
    m_tabs->addTab(buildIndex(), u"&Indice"_s);
    m_tabs->addTab(buildSearch(), u"&Cerca"_s);
    // Who chooses a tab wants to type or move in it.
    connect(m_tabs, &QTabWidget::currentChanged, this,
            [this] { m_tabs->currentWidget()->setFocus(); });

    auto* splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_tabs);
    splitter->addWidget(buildPage());
    splitter->setStretchFactor(1, 1);
    const QSize size = (initialSize * std::max(1.0, QFontInfo(font()).pointSizeF() / usualPoints))
                           .boundedTo(screen()->availableSize());
    const int side = sideLetters * fontMetrics().averageCharWidth();
    splitter->setSizes({side, size.width() - side});
    setCentralWidget(splitter);
    buildToolbar();
    resize(size);

    m_collection->makeSearchIndex();
    m_browser->setFocus();
}

HelpWindow::~HelpWindow() {
    // Everything that shows the collection goes before it.
    disconnect(m_browser, nullptr, this, nullptr);
    disconnect(m_collection.get(), nullptr, this, nullptr);
    m_collection->endUse();
    delete takeCentralWidget();
}

void HelpWindow::buildToolbar() {
    QToolBar* bar = addToolBar(u"Barra degli strumenti"_s);
    bar->setObjectName(u"toolbar"_s);
    bar->setMovable(false);
    bar->setIconSize(toolPictureSize);
    const auto add = [this, bar](const char* name, const char* pictureName, const QString& text,
                                 const QList<QKeySequence>& keys, const auto& slot) {
        QAction* action =
            bar->addAction(picture(u"Imm"_s + QString::fromLatin1(pictureName)), text);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcuts(keys);
        if (!keys.isEmpty()) {
            action->setToolTip(
                u"%1 (%2)"_s.arg(text, keys.constFirst().toString(QKeySequence::NativeText)));
        }
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    QAction* back = add("back", "Indietro", u"Indietro"_s, {QKeySequence(u"Alt+Left"_s)},
                        [this] { m_browser->backward(); });
    QAction* forward = add("forward", "Avanti", u"Avanti"_s, {QKeySequence(u"Alt+Right"_s)},
                           [this] { m_browser->forward(); });
    add("home", "Inizio", u"Pagina iniziale"_s, {QKeySequence(u"Alt+Home"_s)},
        [this] { follow(helpPageUrl({})); });
    bar->addSeparator();
    add("zoomIn", "Ingrandisci", u"Ingrandisci il testo"_s,
        {QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+="_s)}, [this] { m_browser->zoomIn(); });
    add("zoomOut", "Riduci", u"Riduci il testo"_s, {QKeySequence(u"Ctrl+-"_s)},
        [this] { m_browser->zoomOut(); });
    add("zoomReset", "DimensioneNormale", u"Dimensione normale del testo"_s,
        {QKeySequence(u"Ctrl+0"_s)}, [this] { m_browser->resetZoom(); });
    bar->addSeparator();
    add("find", "Trova", u"Trova nella pagina"_s, {QKeySequence(u"Ctrl+F"_s)},
        [this] { openFindBar(); });

    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    // Keys without a button.
    const auto addKey = [this](const QString& keys, const auto& slot) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(keys));
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    addKey(u"F3"_s, [this] { findInPage(false); });
    addKey(u"Shift+F3"_s, [this] { findInPage(true); });
    addKey(u"Ctrl+W"_s, [this] { close(); });
}

QWidget* HelpWindow::buildContents() {
    QHelpContentWidget* contents = m_collection->engine().contentWidget();
    contents->setObjectName(u"contents"_s);
    contents->setAccessibleName(u"Sommario"_s);
    contents->setHeaderHidden(true);
    // A title that is wider than the tree is not shortened, one can scroll to its end.
    contents->header()->setStretchLastSection(false);
    contents->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    const auto open = [this](const QModelIndex& index) {
        if (const auto* item = m_collection->engine().contentModel()->contentItemAt(index)) {
            follow(item->url());
        }
    };
    connect(contents, &QAbstractItemView::clicked, this, open);
    connect(contents, &QAbstractItemView::activated, this, open);
    selectItemsByTool(*contents);
    whenChosenByTool(*contents, open);
    connect(m_collection->engine().contentModel(), &QHelpContentModel::contentsCreated, this,
            [this, contents] {
                contents->expandAll();
                selectInContents(m_browser->source());
            });
    return contents;
}

QWidget* HelpWindow::buildIndex() {
    QHelpIndexWidget* index = m_collection->engine().indexWidget();
    index->setObjectName(u"index"_s);
    index->setUniformItemSizes(false); // one can scroll to the end of the longest, not of the first
    index->setAccessibleName(u"Voci dell'indice"_s);
    auto* filter = new QLineEdit;
    filter->setObjectName(u"indexFilter"_s);
    filter->setClearButtonEnabled(true);
    filter->setAccessibleName(u"Voce da cercare nell'indice"_s);
    connect(filter, &QLineEdit::textChanged, index,
            [index](const QString& text) { index->filterIndices(text); });
    connect(filter, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QAbstractItemView::clicked, index, [index] { index->activateCurrentItem(); });
    whenChosenByTool(*index, [index](const QModelIndex& entry) {
        index->setCurrentIndex(entry);
        index->activateCurrentItem();
    });
    connect(index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink& document) { follow(document.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this,
            [this](const QList<QHelpLink>& documents) { follow(documents.constFirst().url); });

    auto* page = new QWidget;
    page->setFocusProxy(filter);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(labelFor(filter, u"&Voce:"_s));
    layout->addWidget(filter);
    layout->addWidget(index);
    return page;
}

QWidget* HelpWindow::buildSearch() {
    m_searchText = new QLineEdit;
    m_searchText->setObjectName(u"searchText"_s);
    m_searchText->setClearButtonEnabled(true);
    m_searchText->setAccessibleName(u"Parole da cercare in tutta la guida"_s);
    auto* button = new QPushButton(u"C&erca"_s);
    button->setObjectName(u"searchButton"_s);
    m_searchNote = new QLabel;
    m_searchNote->setObjectName(u"searchNote"_s);
    m_searchNote->setWordWrap(true);
    m_results = new QListWidget;
    m_results->setObjectName(u"searchResults"_s);
    m_results->setAccessibleName(u"Pagine trovate"_s);
    connect(m_searchText, &QLineEdit::returnPressed, this, &HelpWindow::search);
    connect(button, &QPushButton::clicked, this, &HelpWindow::search);
    const auto open = [this](const QListWidgetItem* item) {
        follow(item->data(Qt::UserRole).toUrl());
    };
    connect(m_results, &QListWidget::itemClicked, this, open);
    connect(m_results, &QListWidget::itemActivated, this, open);
    whenChosenByTool(
        *m_results, [this, open](const QModelIndex& found) { open(m_results->item(found.row())); });
    connect(m_collection.get(), &HelpCollection::found, this, &HelpWindow::showResults);

    auto* page = new QWidget;
    page->setFocusProxy(m_searchText);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(labelFor(m_searchText, u"&Parole:"_s));
    auto* row = new QHBoxLayout;
    row->addWidget(m_searchText, 1);
    row->addWidget(button);
    layout->addLayout(row);
    layout->addWidget(m_searchNote);
    layout->addWidget(m_results, 1);
    return page;
}

QWidget* HelpWindow::buildPage() {
    m_browser = new HelpBrowser(m_collection->engine());
    m_browser->setObjectName(u"browser"_s);
    connect(m_browser, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& url) { selectInContents(url); });

    m_findBar = new QWidget;
    m_findBar->setObjectName(u"findBar"_s);
    m_findText = new QLineEdit;
    m_findText->setObjectName(u"findText"_s);
    m_findText->setClearButtonEnabled(true);
    m_findText->setAccessibleName(u"Testo da trovare nella pagina"_s);
    m_findNote = new QLabel;
    m_findNote->setObjectName(u"findNote"_s);
    auto* previous = new QPushButton(u"P&recedente"_s);
    previous->setObjectName(u"findPrevious"_s);
    auto* next = new QPushButton(u"S&uccessivo"_s);
    next->setObjectName(u"findNext"_s);
    auto* close = new QPushButton(u"C&hiudi"_s);
    close->setObjectName(u"findClose"_s);
    connect(m_findText, &QLineEdit::returnPressed, this, [this] { findInPage(false); });
    connect(previous, &QPushButton::clicked, this, [this] { findInPage(true); });
    connect(next, &QPushButton::clicked, this, [this] { findInPage(false); });
    connect(close, &QPushButton::clicked, this, &HelpWindow::closeFindBar);
    auto* escape = new QAction(m_findBar);
    escape->setShortcut(QKeySequence(Qt::Key_Escape));
    escape->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QAction::triggered, this, &HelpWindow::closeFindBar);
    m_findBar->addAction(escape);

    auto* bar = new QHBoxLayout(m_findBar);
    bar->addWidget(labelFor(m_findText, u"&Trova:"_s));
    bar->addWidget(m_findText, 1);
    bar->addWidget(m_findNote);
    bar->addWidget(previous);
    bar->addWidget(next);
    bar->addWidget(close);
    m_findBar->hide();

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_findBar);
    return page;
}

void HelpWindow::showPage(const QString& page) {
    follow(helpPageUrl(page));
}

void HelpWindow::follow(const QUrl& url) {
    m_browser->setSource(url);
}

/// Marks the page shown in the contents, as soon as those are read.
void HelpWindow::selectInContents(const QUrl& page) {
    QHelpContentWidget* contents = m_collection->engine().contentWidget();
    // An entry for this very place on the page comes before the one for the page. The widget's own
    // search knows pages only.
    const QHelpContentModel& model = *m_collection->engine().contentModel();
    QModelIndex index = entryOf(model, page);
    if (!index.isValid()) {
        index = entryOf(model, page.adjusted(QUrl::RemoveFragment));
    }
    if (index.isValid()) {
        contents->setCurrentIndex(index);
    } else {
        contents->setCurrentIndex({});
    }
}

void HelpWindow::openFindBar() {
    const QString selected = m_browser->textCursor().selectedText();
    if (!selected.isEmpty()) {
        m_findText->setText(selected);
    }
    m_findBar->show();
    m_findText->setFocus();
    m_findText->selectAll();
}

void HelpWindow::closeFindBar() {
    m_findNote->clear();
    m_findBar->hide();
    m_browser->setFocus();
}

/// Finds the next place, going on at the other end of the page when there is none.
void HelpWindow::findInPage(bool backward) {
    const QString text = m_findText->text();
    if (text.isEmpty()) {
        openFindBar();
        return;
    }
    const auto direction = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = m_browser->find(text, direction);
    if (!found) {
        const QTextCursor before = m_browser->textCursor();
        m_browser->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = m_browser->find(text, direction);
        if (!found) {
            m_browser->setTextCursor(before);
        }
    }
    m_findNote->setText(found ? QString() : u"Testo non trovato"_s);
}

void HelpWindow::search() {
    const QString expression = searchExpression(m_searchText->text());
    m_results->clear();
    if (expression.isEmpty()) {
        m_searchNote->setText(u"Scrivere una o più parole da cercare."_s);
        return;
    }
    m_searchNote->setText(u"Ricerca in corso..."_s);
    m_collection->search(expression);
}

void HelpWindow::showResults(int count) {
    m_results->clear();
    for (const QHelpSearchResult& result :
         m_collection->engine().searchEngine()->searchResults(0, count)) {
        auto* item = new QListWidgetItem(result.title(), m_results);
        item->setData(Qt::UserRole, result.url());
        item->setToolTip(u"<p>%1</p>"_s.arg(result.snippet()));
    }
    switch (count) {
    case 0:
        m_searchNote->setText(u"Nessuna pagina trovata."_s);
        break;
    case 1:
        m_searchNote->setText(u"Una pagina trovata:"_s);
        break;
    default:
        m_searchNote->setText(u"%1 pagine trovate:"_s.arg(count));
    }
}

bool HelpWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked) {
        keepUsable();
    }
    return QMainWindow::event(event);
}

/// A modal dialog takes the input of all windows but those that belong to it. So the viewer belongs
/// to the dialog on top while there is one. Only their windows on the screen are tied: the dialog
/// does not own the viewer and does not take it along when it goes.
void HelpWindow::keepUsable() {
    QWindow* window = windowHandle();
    if (window == nullptr) {
        return;
    }
    QWindow* dialog = QGuiApplication::modalWindow();
    window->setTransientParent(dialog);
    if (dialog != nullptr) {
        const auto review = [this] { keepUsable(); };
        connect(dialog, &QWindow::visibleChanged, this, review,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        connect(dialog, &QObject::destroyed, this, review, Qt::SingleShotConnection);
    }
}

} // namespace quor
