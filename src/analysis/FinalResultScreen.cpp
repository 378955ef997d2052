#include "analysis/FinalResultScreen.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "analysis/FinalResult.h"
#include "rounds/RoundSelection.h"
#include "widgets/ElidedLabel.h"

using namespace Qt::StringLiterals;

namespace {

QTableWidgetItem* cell(const QString& text, Qt::Alignment alignment) {
    auto* item = new QTableWidgetItem(text);
    item->setTextAlignment(alignment | Qt::AlignVCenter);
    return item;
}

} // namespace

最終結果::最終結果(const Work& work)
    : WorkScreen(work), coefficients_(new QTableWidget(0, 4)), whose_(new QLabel) {
    coefficients_->setObjectName(u"coefficients"_s);
    coefficients_->setHorizontalHeaderLabels({u"順位"_s, u"要因"_s, u"係数"_s, u"割合 (%)"_s});
    coefficients_->verticalHeader()->hide();
    coefficients_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    coefficients_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    coefficients_->setSelectionBehavior(QAbstractItemView::SelectRows);
    coefficients_->setTabKeyNavigation(false);
    coefficients_->setMinimumHeight(180);
    whose_->setObjectName(u"whose"_s);
    auto* meaning = new QLabel(
        u"係数は、評価者全員の総合評価値の幾何平均です。合計は 1 になりません。"
        "二つの回の係数は、割合だけで比べられます。"_s);
    for (auto* label : {whose_, meaning}) label->setWordWrap(true);
    optionsLayout()->addWidget(coefficients_);
    optionsLayout()->addWidget(whose_);
    optionsLayout()->addWidget(meaning);
    setTabOrder(findChild<QWidget*>(u"Combo1"_s), coefficients_);
}

void 最終結果::problemChosen(const std::optional<ProblemRound>& of) {
    coefficients_->setRowCount(0);
    whose_->clear();
    if (of) showCoefficients(*of);
}

void 最終結果::worked(const RoundSelection& chosen) {
    showCoefficients(chosen);
}

void 最終結果::showCoefficients(const ProblemRound& of) {
    const auto stored = storedCoefficients(of.connection, of.problemNo);
    const bool arePresent = stored.empty() || areOfPresentResults(of);
    coefficients_->setRowCount(static_cast<int>(stored.size()));
    for (int row = 0; const auto& [rank, name, coefficient, share] : stored) {
        coefficients_->setItem(row, 0, cell(QString::number(rank), Qt::AlignRight));
        coefficients_->setItem(row, 1, cell(name, Qt::AlignLeft));
        coefficients_->item(row, 1)->setToolTip(plainToolTip(name));
        coefficients_->setItem(row, 2, cell(coefficient, Qt::AlignRight));
        coefficients_->setItem(row++, 3, cell(share, Qt::AlignRight));
    }
    QFont font = whose_->font();
    font.setBold(!arePresent);
    whose_->setFont(font);
    whose_->setText(stored.empty() ? u"係数はまだ設定されていません。"_s
                    : arePresent   ? u"今の評価結果の係数です。"_s
                                 : u"今の評価結果の係数ではありません。係数設定で改められます。"_s);
}
