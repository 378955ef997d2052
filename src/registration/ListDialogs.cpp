#include "registration/ListDialogs.h"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

#include "core/Common.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "files/Settings.h"
#include "text/Numbers.h"
#include "text/Padding.h"
#include "text/RuntimeError.h"
#include "ui_ListDialog.h"
#include "widgets/Controls.h"
#include "widgets/ListSearch.h"

using namespace Qt::StringLiterals;

namespace Common {

std::vector<NumberedName> PickList;
qint16 PickCount = -1;

} // namespace Common

namespace {

constexpr Sql problemsSql = u"SELECT 要因番号,要因名 FROM 要因   WHERE 要因区分 = 0  ORDER BY 要因番号 ";
constexpr Sql factorsSql = u"SELECT 要因番号,要因名 FROM 要因   ORDER BY 要因番号 ";
constexpr Sql evaluatorsSql = u"SELECT 評価者番号,評価者氏名,所属部門 FROM 評価者   ORDER BY 評価者番号 ";

constexpr ListDialogKind problemPicker{u"課題選択", u"課題要因選択", problemsSql, Rows::Factors,
                                       PickUse::Picked};
constexpr ListDialogKind candidateList{u"課題候補表示", u"課題候補一覧", problemsSql, Rows::Factors,
                                       PickUse::Shown};
constexpr ListDialogKind problemList{u"課題要因表示", u"課題要因一覧", problemsSql, Rows::Factors,
                                     PickUse::Shown};
constexpr ListDialogKind factorList{u"要因表示", u"要因一覧", factorsSql, Rows::Factors, PickUse::None, true};
constexpr ListDialogKind evaluatorList{u"評価者表示", u"評価者一覧", evaluatorsSql, Rows::Evaluators,
                                       PickUse::None};

// Pixels. The lists of factors stand beside a centred screen, the wider list of evaluators above it; neither
// covers a field on a display of 1280 × 1024. On a wider display the lists of factors take more of the names;
// on a small one the list of evaluators stands beside its screen, too, as wide as that leaves room.
constexpr int screenWidth = 560;
constexpr int gap = 10;
constexpr int factorListWidth = 318;
constexpr int widestFactorListWidth = 480;
constexpr int factorListHeight = 600;
constexpr QSize evaluatorListSize{470, 320};

// Half-width columns of a row: 5 blanks, 4 for the number, 6 blanks, 20 for a name, 4 blanks. The headings
// begin at the columns that they head, the number's heading two before it.
constexpr int numberHeadingColumn = 3;
constexpr int nameColumn = 15;
constexpr int departmentColumn = nameColumn + 24;
constexpr double rowPoints = 10.5; // 14 pixels at 96 dpi: a half-width column is a whole number of pixels

QString fullWidthColumn(const QString& text) {
    qint16 width = 20; // PadWidth halves the caller's variable
    return Common::PadWidth(text, width, 1);
}

QString factorRow(const QString& number, const QString& name) {
    return QString(5, u' ') + Common::PadLeft(number, 4) + QString(6, u' ') + name;
}

QString evaluatorRow(const Recordset& record) {
    const QString number = digitsAfterFirst(1000LL + record[u"評価者番号"_s].toLong(), 3);
    return factorRow(number, fullWidthColumn(Common::NullToEmpty(record[u"評価者氏名"_s]))) +
           QString(4, u' ') + fullWidthColumn(Common::NullToEmpty(record[u"所属部門"_s]));
}

// PickList grows with the rows: it has no older elements from the first row on, and stays as it was when
// there is none.
void keepPick(qsizetype rowCount, const Recordset& record) {
    Common::PickList.resize(static_cast<std::size_t>(rowCount));
    Common::PickList.back() = {record[u"要因番号"_s].toText(), Common::NullToEmpty(record[u"要因名"_s])};
}

} // namespace

ListDialog::ListDialog(const ListDialogKind& kind)
    : Screen(kind.name.toString()), kind_(kind), ui_(std::make_unique<Ui::ListDialog>()) {
    ui_->setupUi(this);
    setWindowTitle(kind.caption.toString());
    layOut();
}

ListDialog::~ListDialog() = default;

void ListDialog::layOut() {
    QFont font(u"ＭＳ ゴシック"_s);
    font.setPointSizeF(rowPoints);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->List1, ui_->Label1, ui_->Label2, ui_->Label3})
        widget->setFont(font);

    const bool ofEvaluators = kind_.rows == Rows::Evaluators;
    ui_->Label1->setText(ofEvaluators ? u"評価者番号"_s : u"要因番号"_s);
    ui_->Label2->setText(ofEvaluators ? u"評価者名"_s : u"要因名"_s);
    ui_->Label3->setText(u"所属部門"_s);
    ui_->Label3->setVisible(ofEvaluators);
    ui_->Command1->setVisible(kind_.pickUse == PickUse::Picked);
    ui_->Text1->setVisible(kind_.isSearchable);
    new ListSearch(ui_->Text1, ui_->List1);

    const int column = QFontMetrics(font).horizontalAdvance(u' ');
    ui_->headings->setContentsMargins(entryMargin(*ui_->List1) + numberHeadingColumn * column, 0, 0, 0);
    ui_->Label1->setFixedWidth((nameColumn - numberHeadingColumn) * column);
    ui_->Label2->setFixedWidth((departmentColumn - nameColumn) * column);
}

void ListDialog::fitBesideScreen() {
    const int beside = screen()->size().width() - screenWidth - gap - x();
    if (kind_.rows == Rows::Evaluators)
        return fitToScreen(
            {std::clamp(beside, factorListWidth, evaluatorListSize.width()), evaluatorListSize.height()});
    const int free = (beside - x() - gap) / 2;
    fitToScreen({std::clamp(free, factorListWidth, widestFactorListWidth), factorListHeight});
}

void ListDialog::Form_Load() {
    const QString section = u"Settings3"_s;
    position(readSetting(section, u"MeLeft"_s, 500), readSetting(section, u"MeTop"_s, 500));
    fitBesideScreen();
    fill();
    if (kind_.pickUse == PickUse::Shown) Common::PickCount = -1;
}

void ListDialog::fill() {
    QStringList rows;
    for (Recordset records(*Common::DbConn, kind_.sql); !records.eof(); records.moveNext()) {
        rows << row(records);
        if (kind_.pickUse != PickUse::None) keepPick(rows.size(), records);
    }
    ui_->List1->addItems(rows);
}

QString ListDialog::row(const Recordset& record) const {
    if (kind_.rows == Rows::Evaluators) return evaluatorRow(record);
    const auto& number = record[u"要因番号"_s];
    const QString name = Common::NullToEmpty(record[u"要因名"_s]);
    const bool asStored = kind_.pickUse == PickUse::Picked;
    return factorRow(asStored ? number.toText() : digitsAfterFirst(10000LL + number.toLong(), 4), name);
}

課題選択::課題選択() : ListDialog(problemPicker) {
    onEvent(ui().List1, &QListWidget::itemDoubleClicked, [this] { List1_DblClick(); });
    onEvent(ui().Command1, &QPushButton::clicked, [this] { Command1_Click(); });
}

void 課題選択::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || focusWidget() != ui().List1 || ui().List1->currentRow() < 0)
        return ListDialog::keyPressEvent(event);
    runEvent([this] { List1_DblClick(); });
}

void 課題選択::List1_DblClick() {
    Common::PickCount = static_cast<qint16>(ui().List1->currentRow());
    Common::Forms.unload(name());
}

void 課題選択::Command1_Click() {
    Common::PickCount = -1;
    Common::Forms.unload(name());
}

課題候補表示::課題候補表示() : ListDialog(candidateList) {}

課題要因表示::課題要因表示() : ListDialog(problemList) {}

要因表示::要因表示() : ListDialog(factorList) {}

評価者表示::評価者表示() : ListDialog(evaluatorList) {}

void 評価者表示::fill() {
    Common::EvaluatorLoadFailed = 0;
    try {
        ListDialog::fill();
    } catch (const RuntimeError& error) {
        Common::EvaluatorLoadFailed = 1;
        Common::MsgText = error.description();
        Common::showMessage(MessageStyle::Exclamation, u"評価者テーブルエラー"_s);
    }
}
