#include "evaluation/IndividualResultScreen.h"

#include <QCheckBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

個人結果::個人結果(const Work& work) : WorkScreen(work) {
    auto* Check1 = new QCheckBox(u"評価値を印刷する"_s);
    Check1->setObjectName(u"Check1"_s);
    Check1->setShortcut(u"Alt+V"_s);
    Check1->setToolTip(u"オフにすると、要因の木を評価値 0 で印刷します (Alt+V)"_s);
    Check1->setChecked(true);
    optionsLayout()->addWidget(Check1, 0, Qt::AlignLeft);
    setTabOrder(findChild<QWidget*>(u"Command17"_s), Check1);
    connect(Check1, &QCheckBox::toggled, this, [this](bool shown) { options.showValues = shown; });
}
