#include "app/ui/frmHelp.h"

#include "app/Help.h"
#include "widgets/Contrast.h"
#include "widgets/LineIcon.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr QSize kHelpSize(900, 640);
constexpr double kTextContrast = 4.5; ///< which readers need, beside its ground
constexpr int kMargin = 16;           ///< of a page
constexpr int kAroundPicture = 3 * kMargin;
constexpr int kLeastPicture = 300; ///< pixels across, at least, where there is room for less
constexpr int kSnippetBefore = 30;
constexpr int kSnippetLength = 90;

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QUrl Source(const QString& page) {
    return QUrl("qrc:/help/" + page + ".html");
}

/// Without the line of links at the end, which would make a hit of every page beside the one looked for.
QString PlainText(const QString& page) {
    QFile file(":/help/" + page + ".html");
    QTextDocument document;
    if (file.open(QIODevice::ReadOnly))
        document.setHtml(QString::fromUtf8(file.readAll()).section("<p><b>See also:</b>", 0, 0));
    return document.toPlainText().simplified().remove(QChar::ObjectReplacementCharacter);
}

/// The words around the first hit.
QString Snippet(const QString& text, const QString& word) {
    const qsizetype at = std::max<qsizetype>(0, text.indexOf(word, 0, Qt::CaseInsensitive) - kSnippetBefore);
    return (at > 0 ? "..." : "") + text.mid(at, kSnippetLength) + "...";
}

bool HoldsAll(const QString& text, const QStringList& words, const QString& edge) {
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        const QRegularExpression pattern(edge + QRegularExpression::escape(word) + edge,
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::UseUnicodePropertiesOption);
        return text.contains(pattern);
    });
}

constexpr int kBestRank = 4;

/// How well a page fits; 0: it lacks a word.
int Rank(const QString& title, const QString& text, const QStringList& words) {
    int rank = kBestRank;
    for (const QString& place : {title, text})
        for (const char* edge : {"\\b", ""}) {
            if (HoldsAll(place, words, edge))
                return rank;
            --rank;
        }
    return rank;
}

QStringList Words(const QString& text) {
    return text.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
}

/// Whose pictures have two pixels for each that they take, and so are sharp on any screen.
class PageBrowser : public QTextBrowser {
protected:
    QVariant loadResource(int type, const QUrl& name) override {
        QVariant resource = QTextBrowser::loadResource(type, name);
        const QImage picture = QImage::fromData(resource.toByteArray());
        if (type != QTextDocument::ImageResource || picture.isNull())
            return resource;
        const double scale = devicePixelRatioF();
        const int room = std::max(kLeastPicture, viewport()->width() - kAroundPicture);
        const QSizeF size = picture.width() / 2 > room
                                ? QSizeF(picture.size()).scaled(room, picture.height(), Qt::KeepAspectRatio)
                                : QSizeF(picture.size()) / 2;
        QImage shown = picture.scaled((size * scale).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        shown.setDevicePixelRatio(scale);
        return shown;
    }
};

} // namespace

frmHelp::frmHelp(SettingsStore& settings, QWidget* parent) : PlacedDialog(settings, "frmHelp", parent) {
    setObjectName("frmHelp");
    setWindowTitle(tr("Velmora Help"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    BuildUi();
    FillContents();
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, txtSearch_,
            [this] { txtSearch_->setFocus(); });
    connect(txtSearch_, &QLineEdit::textChanged, this, &frmHelp::Search);
    connect(page_, &QTextBrowser::sourceChanged, this, &frmHelp::SelectInContents);
    connect(treContents_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (const QString page = item ? item->data(0, Qt::UserRole).toString() : ""; !page.isEmpty())
            page_->setSource(Source(page));
    });
    connect(lstHits_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (!item)
            return;
        page_->setSource(Source(item->data(Qt::UserRole).toString()));
        MarkHits();
    });
}

void frmHelp::BuildUi() {
    page_ = new PageBrowser;
    page_->setObjectName("txtPage");
    page_->setAccessibleName(tr("Page"));
    page_->setMinimumSize(kHelpSize / 4); // it scrolls: the whole window has to fit a small screen with large pixels
    page_->document()->setDocumentMargin(kMargin);
    const QColor link = StandingOut(palette().link().color(), palette().base().color(), kTextContrast);
    page_->document()->setDefaultStyleSheet("a { color: " + link.name() + " }");
    auto* splitter = new QSplitter;
    splitter->addWidget(BuildIndex());
    splitter->addWidget(page_);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildBar());
    layout->addWidget(splitter, 1);
}

QWidget* frmHelp::BuildBar() {
    auto* bar = new QToolBar;
    const auto add = [&](const char* name, QAction* action, const QKeySequence& key, auto work) {
        action->setObjectName(name);
        action->setShortcut(key);
        action->setToolTip(action->text() + " (" + key.toString(QKeySequence::NativeText) + ")");
        connect(action, &QAction::triggered, page_, work);
        return action;
    };
    QAction* back = add("cmdBack", bar->addAction(LineIcon("previous"), tr("Back")), QKeySequence("Alt+Left"),
                        [this] { page_->backward(); });
    QAction* forward = add("cmdForward", bar->addAction(LineIcon("next"), tr("Forward")), QKeySequence("Alt+Right"),
                           [this] { page_->forward(); });
    bar->addSeparator();
    add("cmdZoomIn", bar->addAction(tr("Larger")), QKeySequence("Ctrl++"), [this] { page_->zoomIn(); });
    add("cmdZoomOut", bar->addAction(tr("Smaller")), QKeySequence("Ctrl+-"), [this] { page_->zoomOut(); });
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    back->setEnabled(false);
    forward->setEnabled(false);
    return bar;
}

QWidget* frmHelp::BuildIndex() {
    txtSearch_ = new QLineEdit;
    txtSearch_->setObjectName("txtSearch");
    txtSearch_->setPlaceholderText(tr("Search all pages"));
    txtSearch_->setAccessibleName(txtSearch_->placeholderText());
    txtSearch_->setClearButtonEnabled(true);
    treContents_ = new QTreeWidget;
    treContents_->setObjectName("treContents");
    treContents_->setAccessibleName(tr("Contents"));
    treContents_->setHeaderHidden(true);
    lstHits_ = new QListWidget;
    lstHits_->setObjectName("lstHits");
    lstHits_->setAccessibleName(tr("Pages found"));
    lstHits_->setWordWrap(true);
    lstHits_->setAlternatingRowColors(true);
    index_ = new QStackedWidget;
    index_->addWidget(treContents_);
    index_->addWidget(lstHits_);
    auto* index = new QWidget;
    auto* layout = new QVBoxLayout(index);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(txtSearch_);
    layout->addWidget(index_);
    return index;
}

void frmHelp::FillContents() {
    QTreeWidgetItem* chapter = nullptr;
    for (const HelpPage& page : HelpPages()) {
        if (!chapter || chapter->text(0) != Text(page.chapter)) {
            chapter = new QTreeWidgetItem(treContents_, {Text(page.chapter)});
            chapter->setFlags(Qt::ItemIsEnabled);
        }
        auto* item = new QTreeWidgetItem(chapter, {Text(page.title)});
        item->setData(0, Qt::UserRole, Text(page.name));
    }
    treContents_->expandAll();
    const QAbstractItemView& titles = *treContents_;
    treContents_->setMinimumWidth(titles.sizeHintForColumn(0) + 2 * titles.frameWidth() +
                                  style()->pixelMetric(QStyle::PM_ScrollBarExtent)); // none is cut
}

QSize frmHelp::sizeHint() const {
    return kHelpSize;
}

void frmHelp::ShowPage(const std::string& name) {
    show(); // pictures take the room that there is
    raise();
    activateWindow();
    page_->setSource(Source(QString::fromStdString(name)));
    page_->setFocus();
}

void frmHelp::SelectInContents(const QUrl& source) {
    const QString shown = QFileInfo(source.path()).completeBaseName();
    const QSignalBlocker blocker(treContents_);
    for (QTreeWidgetItemIterator item(treContents_); *item; ++item)
        if ((*item)->data(0, Qt::UserRole).toString() == shown)
            treContents_->setCurrentItem(*item);
}

/// Titles come first, and whole words before parts of words; among equals, in the order of the contents.
void frmHelp::Search() {
    const QStringList words = Words(txtSearch_->text());
    lstHits_->clear();
    index_->setCurrentIndex(words.isEmpty() ? 0 : 1);
    MarkHits();
    if (words.isEmpty())
        return;
    const auto pages = HelpPages();
    if (texts_.empty())
        for (const HelpPage& page : pages)
            texts_.push_back(PlainText(Text(page.name)));
    for (int rank = kBestRank; rank > 0; --rank)
        for (std::size_t i = 0; i < pages.size(); ++i)
            if (Rank(Text(pages[i].title), texts_[i], words) == rank) {
                auto* hit =
                    new QListWidgetItem(Text(pages[i].title) + "\n" + Snippet(texts_[i], words.first()), lstHits_);
                hit->setData(Qt::UserRole, Text(pages[i].name));
            }
    if (lstHits_->count() == 0)
        (new QListWidgetItem(tr("No page holds these words."), lstHits_))->setFlags(Qt::NoItemFlags);
}

/// The words looked for stand out, and the first one is in sight.
void frmHelp::MarkHits() {
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString& word : Words(txtSearch_->text()))
        for (QTextCursor at = page_->document()->find(word); !at.isNull(); at = page_->document()->find(word, at)) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setFontUnderline(true);
            mark.format.setBackground(palette().highlight());
            mark.format.setForeground(palette().highlightedText());
            marks.push_back(mark);
        }
    page_->setExtraSelections(marks);
    if (marks.isEmpty())
        return;
    QTextCursor first = marks.first().cursor;
    first.clearSelection();
    page_->setTextCursor(first);
}

} // namespace velmora
