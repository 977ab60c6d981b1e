#include "report/PrepareReport.h"

namespace velmora {

ReportRequest DocumentRequest(const TabDocument& document, std::string mode, bool pageOnly) {
    const DocumentSetup& setup = document.setup;
    return {std::move(mode),  setup.OptType,     pageOnly ? setup.TabsPerPage : document.TabCount,
            setup.NoOfFields, setup.RowsPerPage, setup.ColsPerPage,
            pageOnly};
}

void PrepareReport(rptVelmor& report, const ReportRequest& request, const ReportSource& source) {
    report.InitArray(request.mode, request.count, request.rows, request.cols, request.numFields, request.pageOnly,
                     source.document, request.labels);
    report.PrepareTabStyle(request.tabType, source.settings);
    report.FormatFields(request.numFields, request.cols, request.tabType, source.fonts);
}

rptVelmor MakeReport(LayoutValues& layout, const ReportRequest& request, const ReportSource& source) {
    rptVelmor report(layout);
    PrepareReport(report, request, source);
    report.SetPage(SheetPaper(source.document.setup), ReadPageMargins(source.settings));
    return report;
}

} // namespace velmora
