// The help: contents and search on the left, the page on the right.
#pragma once

#include "widgets/FormPlace.h"

#include <string>
#include <vector>

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTextBrowser;
class QTreeWidget;

namespace velmora {

class frmHelp : public PlacedDialog {
    Q_OBJECT

public:
    frmHelp(SettingsStore& settings, QWidget* parent);

    /// Shows the window with the page of that name.
    void ShowPage(const std::string& name);
    QSize sizeHint() const override;

private:
    void BuildUi();
    QWidget* BuildBar();
    QWidget* BuildIndex();
    void FillContents();
    void Search();
    void MarkHits();
    void SelectInContents(const QUrl& source);

    QLineEdit* txtSearch_ = nullptr;
    QStackedWidget* index_ = nullptr; ///< the contents, or what a search found
    QTreeWidget* treContents_ = nullptr;
    QListWidget* lstHits_ = nullptr;
    QTextBrowser* page_ = nullptr;
    std::vector<QString> texts_; ///< of the pages, for the search; empty before the first one
};

} // namespace velmora
