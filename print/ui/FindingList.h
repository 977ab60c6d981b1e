// What a check before printing finds, for a list: tens of thousands of lines cost nothing until they are seen.
#pragma once

#include "report/PrintChecks.h"

#include <QAbstractListModel>

#include <vector>

namespace velmora {

class FindingList : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void Clear();
    void Append(const std::vector<PrintFinding>& findings);
    const PrintFinding& At(int row) const { return findings_.at(static_cast<std::size_t>(row)); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<PrintFinding> findings_;
};

} // namespace velmora
