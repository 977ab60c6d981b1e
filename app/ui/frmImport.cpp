#include "app/ui/frmImport.h"

#include "base/Text.h"
#include "document/Worksheet.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"

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
constexpr int kWidestTitle = 24;
constexpr std::size_t kMostShown = 300;

QString EncodingTitle(ListEncoding encoding) {
    switch (encoding) {
    case ListEncoding::Windows1252: return "Windows-1252";
    case ListEncoding::Utf16: return "UTF-16";
    default: return "UTF-8";
    }
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
    for (std::size_t field = 0; field < cboFields_.size(); ++field)
        cboFields_[field]->setCurrentIndex(choice.cells.columns.at(field));
    chkHeading_->setChecked(choice.cells.heading);
    ShowPreview();
    for (QComboBox* box : cboFields_)
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
    auto* fields = new QFormLayout;
    AddFieldEntries(fields);
    auto* others = new QFormLayout;
    if (!request_.encodings.empty())
        AddListEntries(others, choice);
    others->addRow(chkHeading_);
    if (request_.hiddenRows > 0)
        AddHiddenEntry(others);
    auto* entries = new QHBoxLayout;
    entries->addLayout(fields, 1);
    entries->addSpacing(24);
    entries->addLayout(others, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    Named(buttons->button(QDialogButtonBox::Cancel), "cmdCancel");
    auto* cmdImport = Named(buttons->addButton(tr("&Import"), QDialogButtonBox::AcceptRole), "cmdImport");
    AddHelpButton(*buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The first rows:")));
    layout->addWidget(tblPreview_, 1);
    layout->addLayout(entries);
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

void frmImport::AddFieldEntries(QFormLayout* entries) {
    for (std::size_t field = 0; field < cboFields_.size(); ++field) {
        cboFields_[field] = Named(new QComboBox, ("cboField" + std::to_string(field + 1)).c_str());
        cboFields_[field]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        cboFields_[field]->setMinimumContentsLength(kWidestTitle / 2);
        entries->addRow(tr("Field &%1:").arg(QChar('A' + static_cast<int>(field))), cboFields_[field]);
    }
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
    for (std::size_t field = 0; field < cboFields_.size(); ++field)
        choice.cells.columns[field] = std::max(0, cboFields_[field]->currentIndex());
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
    for (QComboBox* box : cboFields_) {
        const QSignalBlocker quiet(box);
        const int chosen = box->currentIndex();
        box->clear();
        box->addItem(tr("(empty)"));
        for (int column = 1; column <= columns_; ++column)
            box->addItem(ColumnTitle(column));
        box->setCurrentIndex(chosen <= columns_ ? chosen : 0);
    }
}

/// "B", or "B - Name" where the first row is a heading.
QString frmImport::ColumnTitle(int column) const {
    const auto index = static_cast<std::size_t>(column) - 1;
    QString letters = QString::fromStdString(ColumnLetters(column));
    if (!chkHeading_->isChecked() || rows_.empty() || index >= rows_[0].size() || rows_[0][index].empty())
        return letters;
    const QString title = Beginning(rows_[0][index]);
    return letters + " - " + (title.size() > kWidestTitle ? title.left(kWidestTitle - 1) + "\u2026" : title);
}

/// The rows that become tabs, under the fields that their columns go to.
void frmImport::ShowPreview() {
    const int first = chkHeading_->isChecked() ? 1 : 0;
    const int count = static_cast<int>(rows_.size());
    tblPreview_->clear();
    tblPreview_->setColumnCount(columns_);
    tblPreview_->setRowCount(std::max(0, count - first));
    for (int column = 0; column < columns_; ++column) {
        QString title = ColumnTitle(column + 1) + "\n";
        for (std::size_t field = 0; field < cboFields_.size(); ++field)
            if (cboFields_[field]->currentIndex() == column + 1)
                title += tr("Field %1 ").arg(QChar('A' + static_cast<int>(field)));
        tblPreview_->setHorizontalHeaderItem(column, new QTableWidgetItem(title.trimmed()));
    }
    for (int row = first; row < count; ++row) {
        const auto& cells = rows_[static_cast<std::size_t>(row)];
        for (std::size_t column = 0; column < cells.size(); ++column)
            tblPreview_->setItem(row - first, static_cast<int>(column), new QTableWidgetItem(Beginning(cells[column])));
    }
}

} // namespace velmora
