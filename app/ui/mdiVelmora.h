// The main window: menus, the grid editor and the status bar. It owns no rules; every command takes the page on screen
// into the document where needed and calls the core.
#pragma once

#include "app/Program.h"

#include <QMainWindow>

#include <array>

class QLabel;
class QMenu;

namespace velmora {

class frmGrid2a4;

class mdiVelmora : public QMainWindow, public MainWindowStatus {
    Q_OBJECT

public:
    explicit mdiVelmora(Program& program);
    ~mdiVelmora() override;

    void SetPanel(int panel, const std::string& text) override;
    void SetCaption(const std::string& caption) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildMenus();
    void BuildStatusBar();
    void AddItem(QMenu* menu, const char* name, const QString& caption, const QKeySequence& shortcut,
                 void (mdiVelmora::*command)());

    void New();
    void Open();
    void Save();
    void SaveAs();
    void ShowFirstPage();
    void ShowPreviousPage();
    void ShowNextPage();
    void ShowLastPage();
    void NewPage();
    void DeleteCurrentPage();
    void DeleteEmptyTabs();
    void SavePdf();
    void Exit();

    Program& program_;
    frmGrid2a4* grid_ = nullptr;
    std::array<QLabel*, kStatusPanels> panels_ = {};
};

} // namespace velmora
