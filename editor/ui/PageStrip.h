// The strip of small pages beside the sheet: a list whose entries are made when they are painted or asked for, so that
// thousands of pages open as fast as one.
#pragma once

#include "document/TabDocument.h"

#include <QListView>

namespace velmora {

class PageStripModel;

class PageStrip : public QListView {
    Q_OBJECT

public:
    /// `document` must outlive the strip. Its context menu holds its actions.
    PageStrip(const TabDocument& document, QWidget* parent);

    /// Shows the document as it is now: how many pages, which one is in view, what they hold.
    void Follow();
    /// The page in view was typed in: its small sheet alone is painted anew.
    void ShowTyping();

signals:
    /// The person goes to a page, from 1.
    void PageWanted(int page);
    /// The person wants to type on the page in view.
    void TypingWanted();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitWidth();

    const TabDocument& document_;
    PageStripModel* model_;
    QSize itemSize_;
    bool following_ = false;
};

} // namespace velmora
