#include "app/ui/frmImport.h"

#include "base/Text.h"
#include "document/Worksheet.h"
#include "widgets/Controls.h"
#include "widgets/ElidedLabel.h"
#include "widgets/HelpRequest.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

constexpr int kRowsShown = 8;
constexpr int kLettersOfColumn = 12; ///< the least room for a column's title
constexpr int kWidestColumn = 40;    ///< letters, where the table has no room for all columns
constexpr std::size_t kMostShown = 300;

QString EncodingTitle(ListEncoding encoding) {
    switch (encoding) {
    case ListEncoding::Windows1252: return "Windows-1252";
    case ListEncoding::Utf16: return "UTF-16";
    default: return "UTF-8";
    }
}

/// A title that is longer than its box is read in the list.
void FitList(QComboBox& box, int most) {
    box.view()->setMinimumWidth(std::min(box.view()->sizeHintForColumn(0), most));
}

/// As much of a cell as anybody reads in a table.
QString Beginning(const std::string& text) {
    return QString::fromStdString(std::string(LeftCharacters(text, kMostShown))).simplified();
}

} // namespace

frmImport::frmImport(MainModule& main, const ImportRequest& request, const ImportChoice& choice, QWidget* parent)
    : PlacedDialog(main.settings, "frmImport", parent), request_(request) {
    setObjectName("frmImport");
    setWindowTitle(tr("Import %1").arg(QString::fromStdString(request.name)));
    BuildUi(choice);
    FillColumns();
    for (std::size_t field = 0; field < cboFields_.size(); ++field) {
        cboFields_[field]->setCurrentIndex(choice.cells.columns.at(field));
        cboJoined_[field]->setCurrentIndex(choice.cells.joined[field]);
    }
    ShowPreview();
    for (const auto& boxes : {cboFields_, cboJoined_})
        for (QComboBox* box : boxes)
            connect(box, &QComboBox::currentIndexChanged, this, [this](int column) {
                ShowPreview();
                tblPreview_->scrollTo(tblPreview_->model()->index(0, column - 1));
            });
    connect(chkHeading_, &QCheckBox::toggled, this, [this] {
        FillColumns();
        ShowPreview();
    });
}

void frmImport::BuildUi(const ImportChoice& choice) {
    BuildPreview();
    chkHeading_ = Named(new QCheckBox(tr("The first row is a &heading")), "chkHeading");
    chkHeading_->setChecked(choice.cells.heading);
    lblFirstTab_ = Named(new ElidedLabel(true), "lblFirstTab");
    auto* fields = new QFormLayout;
    AddFieldEntries(fields);
    AddBetweenEntry(fields, choice);
    auto* others = new QFormLayout;
    if (!request_.encodings.empty())
        AddListEntries(others, choice);
    others->addRow(chkHeading_);
    if (request_.hiddenRows > 0)
        AddHiddenEntry(others);
    auto* entries = new QHBoxLayout;
    entries->addLayout(fields, 1);
    entries->addSpacing(24);
    entries->addLayout(others);

    auto* buttons = MakeButtons();
    auto* cmdImport = Named(buttons->addButton(tr("&Import"), QDialogButtonBox::AcceptRole), "cmdImport");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The first rows:")));
    layout->addWidget(tblPreview_, 1);
    layout->addLayout(entries);
    layout->addWidget(lblFirstTab_);
    layout->addWidget(buttons);
    cmdImport->setDefault(true); // in the dialog by now: Enter imports from every control
    cmdImport->setFocus();
}

void frmImport::BuildPreview() {
    tblPreview_ = Named(new QTableWidget, "tblPreview");
    tblPreview_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tblPreview_->setSelectionMode(QAbstractItemView::NoSelection);
    tblPreview_->setTabKeyNavigation(false);
    tblPreview_->setAccessibleName(tr("The first rows"));
    tblPreview_->setWordWrap(false);
    tblPreview_->horizontalHeader()->setStretchLastSection(true);
    const int rowHeight = tblPreview_->verticalHeader()->defaultSectionSize();
    tblPreview_->setMinimumSize(20 * rowHeight, (kRowsShown + 2) * rowHeight);
}

QComboBox* frmImport::MakeColumnBox(const char* name, std::size_t field) {
    auto* box = Named(new QComboBox, (name + std::to_string(field + 1)).c_str());
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    box->setMinimumContentsLength(kLettersOfColumn); // where the screen has no room for more
    return box;
}

/// Each with the column that it begins with, and one that may follow.
void frmImport::AddFieldEntries(QFormLayout* entries) {
    for (std::size_t field = 0; field < cboFields_.size(); ++field) {
        const QChar letter('A' + static_cast<int>(field));
        cboFields_[field] = MakeColumnBox("cboField", field);
        cboJoined_[field] = MakeColumnBox("cboJoined", field);
        SetPurpose(*cboJoined_[field], tr("Column joined to field %1").arg(letter));
        auto* label = new QLabel(tr("Field &%1:").arg(letter));
        label->setBuddy(cboFields_[field]);
        auto* row = new QHBoxLayout;
        row->addWidget(cboFields_[field], 1);
        row->addWidget(new QLabel("+"));
        row->addWidget(cboJoined_[field], 1);
        entries->addRow(label, row);
    }
}

void frmImport::AddBetweenEntry(QFormLayout* entries, const ImportChoice& choice) {
    cboBetween_ = Named(new QComboBox, "cboBetween");
    for (const auto& [title, text] : {std::pair(tr("Blank"), " "),
                                      {tr("Comma and blank"), ", "},
                                      {tr("Hyphen"), "-"},
                                      {tr("Slash"), "/"},
                                      {tr("Full stop"), "."},
                                      {tr("Nothing"), ""}})
        cboBetween_->addItem(title, QString(text));
    cboBetween_->setCurrentIndex(std::max(0, cboBetween_->findData(QString::fromStdString(choice.cells.between))));
    entries->addRow(tr("Bet&ween them:"), cboBetween_);
    connect(cboBetween_, &QComboBox::currentIndexChanged, this, &frmImport::ShowFirstTab);
}

void frmImport::AddListEntries(QFormLayout* entries, const ImportChoice& choice) {
    cboDelimiter_ = Named(new QComboBox, "cboDelimiter");
    for (const auto& [title, delimiter] : {std::pair(tr("Comma"), ','), {tr("Semicolon"), ';'}, {tr("Tab"), '\t'}})
        cboDelimiter_->addItem(title, QChar(delimiter));
    cboDelimiter_->setCurrentIndex(cboDelimiter_->findData(QChar(choice.delimiter)));
    cboEncoding_ = Named(new QComboBox, "cboEncoding");
    for (const ListEncoding encoding : request_.encodings)
        cboEncoding_->addItem(EncodingTitle(encoding), static_cast<int>(encoding));
    cboEncoding_->setCurrentIndex(cboEncoding_->findData(static_cast<int>(choice.encoding)));
    entries->addRow(tr("&Separator:"), cboDelimiter_);
    entries->addRow(tr("&Encoding:"), cboEncoding_);
    for (QComboBox* box : {cboDelimiter_, cboEncoding_})
        connect(box, &QComboBox::currentIndexChanged, this, [this] {
            FillColumns();
            ShowPreview();
        });
}

void frmImport::AddHiddenEntry(QFormLayout* entries) {
    chkHidden_ = Named(new QCheckBox(tr("Lea&ve out hidden rows (%1)").arg(request_.hiddenRows)), "chkHidden");
    entries->addRow(chkHidden_);
    connect(chkHidden_, &QCheckBox::toggled, this, [this] {
        FillColumns();
        ShowPreview();
    });
}

ImportChoice frmImport::Choice() const {
    ImportChoice choice;
    for (std::size_t field = 0; field < cboFields_.size(); ++field) {
        choice.cells.columns[field] = std::max(0, cboFields_[field]->currentIndex());
        choice.cells.joined[field] = std::max(0, cboJoined_[field]->currentIndex());
    }
    choice.cells.between = cboBetween_->currentData().toString().toStdString();
    choice.cells.heading = chkHeading_->isChecked();
    choice.cells.visibleOnly = chkHidden_ && chkHidden_->isChecked();
    if (cboDelimiter_) {
        choice.delimiter = static_cast<char>(cboDelimiter_->currentData().toChar().unicode());
        choice.encoding = static_cast<ListEncoding>(cboEncoding_->currentData().toInt());
    }
    return choice;
}

/// Reads the rows anew and offers their columns, at least as many as there are fields.
void frmImport::FillColumns() {
    rows_ = request_.preview(Choice());
    std::size_t columns = cboFields_.size();
    for (const auto& row : rows_)
        columns = std::max(columns, row.size());
    columns_ = static_cast<int>(columns);
    for (const auto& [boxes, none] : {std::pair(cboFields_, tr("(empty)")), {cboJoined_, tr("(nothing)")}})
        for (QComboBox* box : boxes)
            FillColumns(*box, none);
}

void frmImport::FillColumns(QComboBox& box, const QString& none) {
    const QSignalBlocker quiet(box);
    const int chosen = box.currentIndex();
    box.clear();
    box.addItem(none);
    for (int column = 1; column <= columns_; ++column)
        box.addItem(ColumnTitle(column));
    box.setCurrentIndex(chosen <= columns_ ? chosen : 0);
    FitList(box, width());
}

/// "B", or "B - Name" where the first row is a heading.
QString frmImport::ColumnTitle(int column) const {
    const auto index = static_cast<std::size_t>(column) - 1;
    QString letters = QString::fromStdString(ColumnLetters(column));
    if (!chkHeading_->isChecked() || rows_.empty() || index >= rows_[0].size() || rows_[0][index].empty())
        return letters;
    return letters + " - " + Beginning(rows_[0][index]);
}

/// "Field A", and "+ Field B" for one that another column begins.
QString frmImport::FieldsOf(int column) const {
    QStringList fields;
    for (std::size_t field = 0; field < cboFields_.size(); ++field) {
        const QString name = tr("Field %1").arg(QChar('A' + static_cast<int>(field)));
        if (cboFields_[field]->currentIndex() == column)
            fields << name;
        if (cboJoined_[field]->currentIndex() == column)
            fields << "+ " + name;
    }
    return fields.join(", ");
}

/// The rows that become tabs, under the fields that their columns go to.
void frmImport::ShowPreview() {
    const int first = chkHeading_->isChecked() ? 1 : 0;
    const int count = static_cast<int>(rows_.size());
    tblPreview_->clear();
    tblPreview_->setColumnCount(columns_);
    tblPreview_->setRowCount(std::max(0, count - first));
    for (int column = 0; column < columns_; ++column) {
        const QString title = ColumnTitle(column + 1) + "\n" + FieldsOf(column + 1);
        tblPreview_->setHorizontalHeaderItem(column, new QTableWidgetItem(title.trimmed()));
    }
    for (int row = first; row < count; ++row) {
        const auto& cells = rows_[static_cast<std::size_t>(row)];
        for (std::size_t column = 0; column < cells.size(); ++column)
            tblPreview_->setItem(row - first, static_cast<int>(column), new QTableWidgetItem(Beginning(cells[column])));
    }
    FitColumns();
    ShowFirstTab();
}

/// What the choice makes of the first row that becomes a tab.
void frmImport::ShowFirstTab() {
    const ImportChoice choice = Choice();
    const std::size_t first = choice.cells.heading ? 1 : 0;
    QStringList texts;
    if (first < rows_.size())
        for (const std::string& text : TabOfRow(rows_[first], choice.cells))
            texts << Beginning(text);
    texts.removeAll("");
    lblFirstTab_->Show(tr("The first tab: %1").arg(texts.join(" | ")));
    const auto isChosen = [](const QComboBox* box) { return box->currentIndex() > 0; };
    cboBetween_->setEnabled(std::any_of(cboJoined_.begin(), cboJoined_.end(), isChosen));
}

/// No title is cut where there is room for it.
void frmImport::FitColumns() {
    tblPreview_->resizeColumnsToContents();
    QHeaderView& header = *tblPreview_->horizontalHeader();
    const int widest = kWidestColumn * fontMetrics().averageCharWidth();
    if (header.length() > tblPreview_->viewport()->width())
        for (int column = 0; column < columns_; ++column)
            header.resizeSection(column, std::min(header.sectionSize(column), widest));
}

void frmImport::resizeEvent(QResizeEvent* event) {
    PlacedDialog::resizeEvent(event);
    FitColumns();
}

} // namespace velmora
