#include "print/ui/FindingList.h"

namespace velmora {

void FindingList::Clear() {
    beginResetModel();
    findings_.clear();
    endResetModel();
}

void FindingList::Append(const std::vector<PrintFinding>& findings) {
    if (findings.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(findings.size()) - 1);
    findings_.insert(findings_.end(), findings.begin(), findings.end());
    endInsertRows();
}

int FindingList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(findings_.size());
}

QVariant FindingList::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const PrintFinding& finding = At(index.row());
    return QString::fromStdString(FindingText(finding) + "\n" + FindingPlace(finding));
}

} // namespace velmora
