// The main window: menus, the grid editor and the status bar. It owns no rules; every command calls the core.
#pragma once

#include "app/Program.h"
#include "app/ui/ImportForms.h"
#include "print/ui/frmPreview.h"

#include <QMainWindow>
#include <QTimer>

class QAction;
class QMenu;

namespace velmora {

class PageStrip;
class StatusLine;
class frmGrid2a4;
struct CommandContext;
struct MenuItem;

class mdiVelmora : public QMainWindow, public MainWindowStatus {
    Q_OBJECT

public:
    explicit mdiVelmora(Program& program);
    ~mdiVelmora() override;

    /// The last moment of a program that others end: keeps a recovery copy of what is typed, and the windows' places.
    void Leave();
    /// Over the empty sheet; for a start that opens nothing.
    void ShowStartPage();
    void SetPanel(int panel, const std::string& text) override;
    void Tell(const DoneMessage& done) override;
    void SetCaption(const std::string& caption) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenus();
    QAction* MakeAction(const MenuItem& item);
    void AddRecentFiles(QMenu* menu);
    void OpenAnother(const std::filesystem::path& path);
    void WatchEditMenu(QMenu* menu);
    void AddRecovered(QMenu* menu);
    void Restore(const RecoveredDocument& document);
    void KeepSoon();
    void KeepBeside();
    void KeepPlace();
    void BuildToolBar();
    void BuildStatusLine();
    void BuildStrip();
    void ShowStrip();
    void FocusSheet();
    void EnableCommands();
    void ShowHistory();

    Program& program_;
    ImportForms importForms_{program_.main, this};
    StatusLine* status_ = nullptr;
    PageStrip* strip_ = nullptr;
    frmGrid2a4* grid_ = nullptr;
    QTimer keepTimer_{this};
    bool unkept_ = false; ///< something may have changed since the last copy was begun
    PreviewViewer viewer_{*this};
};

} // namespace velmora
