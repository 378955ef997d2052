#include "analysis/ReportScreens.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "analysis/ReportWorks.h"

using namespace Qt::StringLiterals;

評価計算::評価計算() : ReportForm(reportWork(u"評価計算"_s)) {}

個人結果::個人結果() : ReportForm(reportWork(u"個人結果"_s)) {
    auto* Check1 = new QCheckBox(u"評価値を印刷する"_s);
    Check1->setObjectName(u"Check1"_s);
    Check1->setShortcut(u"Alt+V"_s);
    Check1->setToolTip(u"オフにすると、要因の木を評価値 0 で印刷します (Alt+V)"_s);
    Check1->setChecked(true);
    optionsLayout()->addWidget(Check1, 0, Qt::AlignLeft);
    setTabOrder(findChild<QWidget*>(u"Command17"_s), Check1);
    connect(Check1, &QCheckBox::toggled, this, [this](bool shown) { options.showValues = shown; });
}

報告作成::報告作成() : ReportForm(reportWork(u"報告作成"_s)) {}

分析出力::分析出力() : ReportForm(reportWork(u"分析出力"_s)) {}

最終結果::最終結果() : ReportForm(reportWork(u"最終結果"_s)) {}
