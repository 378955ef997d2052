#include "analysis/GroupReportScreen.h"

#include "analysis/GroupReport.h"

using namespace Qt::StringLiterals;

報告作成::報告作成()
    : ReportForm({.name = u"報告作成"_s, .actionControl = u"Command7"_s, .actionCaption = u"報告作成"_s}) {}

void 報告作成::run(const ReportSelection& selection) {
    MakeGroupReport(print_, selection, progress());
}
