#include "platform/qt/QtUserInterface.h"

#include "base/Paths.h"
#include "base/Validate.h"
#include "platform/qt/TypedAhead.h"
#include "platform/qt/frmPassword.h"
#include "platform/qt/frmProgress.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace velmora {
namespace {

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QMessageBox::Icon BoxIcon(Icon icon) {
    switch (icon) {
    case Icon::Information: return QMessageBox::Information;
    case Icon::Question: return QMessageBox::Question;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Critical: return QMessageBox::Critical;
    case Icon::None: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons BoxButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::RetryCancel: return QMessageBox::Retry | QMessageBox::Cancel;
    case Buttons::Ok: break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton BoxButton(Answer answer) {
    switch (answer) {
    case Answer::Yes: return QMessageBox::Yes;
    case Answer::No: return QMessageBox::No;
    case Answer::Cancel: return QMessageBox::Cancel;
    case Answer::Retry: return QMessageBox::Retry;
    case Answer::Ok:
    case Answer::Other: break;
    }
    return QMessageBox::Ok;
}

Answer FirstAnswer(Buttons buttons) {
    return buttons == Buttons::Ok ? Answer::Ok : buttons == Buttons::RetryCancel ? Answer::Retry : Answer::Yes;
}

Answer BoxAnswer(int button) {
    switch (button) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    case QMessageBox::Retry: return Answer::Retry;
    default: return Answer::Ok;
    }
}

/// "Text (*.txt)|*.txt|All|*.*" becomes the names with their patterns in brackets, as the desktop's dialog takes them.
QStringList NameFilters(const std::string& filter) {
    const QStringList parts = Text(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].section('(', 0, 0).trimmed();
        filters << name + " (" + parts[i + 1] + ")";
    }
    return filters;
}

/// "csv" for "Text (*.csv)".
QString Suffix(const QString& nameFilter) {
    return nameFilter.section("(*.", -1).section(')', 0, 0).section(' ', 0, 0);
}

} // namespace

Answer QtUserInterface::Show(const Message& message) {
    QMessageBox box(BoxIcon(message.icon), Text(message.title), Text(message.text).replace("\r\n", "\n"),
                    BoxButtons(message.buttons), QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(BoxButton(message.defaultButton.value_or(FirstAnswer(message.buttons))));
    // A question without a Cancel button can be left with Escape all the same: that says No.
    if (message.buttons == Buttons::YesNo)
        box.setEscapeButton(QMessageBox::No);
    QCheckBox notAgain(QObject::tr("&Do not ask again"));
    if (message.notAgain != nullptr)
        box.setCheckBox(&notAgain);
    const QAbstractButton* other =
        message.other.empty() ? nullptr : box.addButton(Text(message.other), QMessageBox::ActionRole);
    const TypedAhead notMeantForIt(box);
    const int button = box.exec();
    if (message.notAgain != nullptr)
        *message.notAgain = notAgain.isChecked();
    return other && box.clickedButton() == other ? Answer::Other : BoxAnswer(button);
}

void QtUserInterface::Beep() {
    QApplication::beep();
}

std::unique_ptr<Progress> QtUserInterface::StartProgress(const std::string& text, int total) {
    return std::make_unique<frmProgress>(Text(text), total, frmProgress::Cancel::None);
}

std::unique_ptr<Progress> QtUserInterface::StartCancellable(const std::string& text, int total) {
    return std::make_unique<frmProgress>(Text(text), total, frmProgress::Cancel::Offered);
}

std::optional<std::filesystem::path> QtUserInterface::ChooseFile(const FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), Text(request.title), Text(PathText(request.folder)));
    const QStringList filters =
        NameFilters(request.moreFilters.empty() ? request.filter : request.filter + "|" + request.moreFilters);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.chosenFilter));
    const bool saving = request.operation == "SAVE";
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the program asks in its own words
    if (saving) {
        const auto follow = [&dialog](const QString& filter) { dialog.setDefaultSuffix(Suffix(filter)); };
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
        follow(filters.value(request.chosenFilter));
    }
    if (saving || FileExists(request.folder / PathOf(request.defaultName)))
        dialog.selectFile(Text(request.defaultName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return PathOf(dialog.selectedFiles().first().toStdString());
}

std::optional<std::filesystem::path> QtUserInterface::ChooseFolder(const std::string& title,
                                                                   const std::filesystem::path& start) {
    const QString folder =
        QFileDialog::getExistingDirectory(QApplication::activeWindow(), Text(title), Text(PathText(start)));
    if (folder.isEmpty())
        return std::nullopt;
    return PathOf(folder.toStdString());
}

std::optional<Credentials> QtUserInterface::AskForCredentials(const CredentialsRequest& request) {
    frmPassword form(request, QApplication::activeWindow());
    QApplication::setOverrideCursor(Qt::ArrowCursor); // the job's hourglass waits too
    const bool given = form.exec() == QDialog::Accepted;
    QApplication::restoreOverrideCursor();
    return given ? std::optional(form.Given()) : std::nullopt;
}

} // namespace velmora
