#include "survey/AnswerSheet.h"

#include <array>

#include "core/FactorNames.h"
#include "files/TextFile.h"
#include "judgement/ComparisonScale.h"
#include "printing/Output.h"
#include "rounds/RoundSelection.h"
#include "sheets/CsvRow.h"
#include "sheets/Spreadsheet.h"
#include "survey/AnswerLayout.h"
#include "survey/AnswerPage.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using namespace AnswerLayout;

namespace {

QStringList instructions(const Questionnaire& questionnaire, const Factor& evaluator) {
    QStringList lines{
        titleOf(questionnaire),
        evaluator.name + u"様"_s,
        {},
        u"下の「%1」のシートで、目的ごとに、左と右の要因のどちらがどれだけまさるか（重要か、目的によっては優れているか）をお答えください。"_s
            .arg(sheetName),
        u"黄色い欄を選ぶと右に▼が出ますので、押して（または Alt+↓ キーで）17 の選択肢から一つを選んでください。"_s,
        u"選ぶと、その意味が右に文で出ますので、お考えのとおりか確かめてください。"_s,
        u"選び直すことも、Delete キーで消すこともできます。途中で保存し、後で続けてもかまいません。"_s,
        u"上の「%1」が 0 になりましたら、このファイルを保存して担当者にお返しください。"_s.arg(openLabel),
        u"一つの目的の中に未回答の組があると、その目的は集計できません。"_s,
        u"黄色い欄のほかは変更できません。列や行の追加、削除、結合はしないでください。"_s,
        {},
        u"選択肢の意味"_s};
    for (int degree = mostDegree; degree > 1; --degree)
        lines << u"　左が %1 … 左のほうが%2重要（優れている）"_s.arg(QString::number(degree),
                                                                     degreeWords(degree));
    lines << u"　同じ … 左と右は同じくらい重要（優れている）"_s;
    lines << u"　右が 2 ～ 右が 9 … 同じ言葉で、右のほうが重要（優れている）"_s;
    return lines;
}

// The looks of the answer sheet's cells.
struct Looks {
    explicit Looks(Spreadsheet& book)
        : text(book.format()),
          title(book.format()),
          heading(book.format()),
          question(book.format()),
          questionNo(book.format()),
          number(book.format()),
          name(book.format()),
          answer(book.format()),
          beside(book.format()),
          instruction(book.format()),
          quiet(book.format()) {
        for (auto* bold : {title, heading, question, questionNo}) format_set_bold(bold);
        format_set_font_size(title, 14);
        format_set_bg_color(heading, 0xd9d9d9);
        for (auto* band : {question, questionNo}) format_set_bg_color(band, 0xeaf1f8);
        format_set_num_format(questionNo, "0000");
        for (auto* boxed : {heading, number, name, answer}) format_set_border(boxed, LXW_BORDER_HAIR);
        for (auto* centred : {heading, number, answer}) format_set_align(centred, LXW_ALIGN_CENTER);
        for (auto* wrapped : {name, quiet, instruction}) format_set_text_wrap(wrapped);
        format_set_indent(beside, 1);
        format_set_num_format(number, "0");
        format_set_num_format(answer, "@"); // what is typed stays as it is typed
        format_set_bg_color(answer, 0xfff2b3);
        format_set_unlocked(answer);
        format_set_font_color(quiet, 0x595959);
    }

    lxw_format *text, *title, *heading, *question, *questionNo, *number, *name, *answer, *beside,
        *instruction, *quiet;
};

constexpr lxw_row_t openRow = 4;
constexpr lxw_row_t headingRow = 6;
constexpr std::array<double, columns> widths{10, 5, 30, 10, 30, 60, 8, 8};

void writeInstructions(lxw_worksheet* sheet, const QStringList& lines, const Looks& looks) {
    worksheet_set_column(sheet, 0, 0, 110, looks.text);
    lxw_row_t row = 0;
    for (const auto& line : lines) {
        writeText(sheet, row, 0, line, row == 0 ? looks.title : looks.instruction);
        ++row;
    }
    worksheet_gridlines(sheet, LXW_HIDE_ALL_GRIDLINES);
    worksheet_fit_to_pages(sheet, 1, 0);
    worksheet_protect(sheet, nullptr, nullptr);
}

// Whose answer sheet it is, for which problem and round.
void writeHeader(lxw_worksheet* sheet, const Questionnaire& questionnaire, const Factor& evaluator,
                 const Looks& looks) {
    writeText(sheet, 0, 0, titleOf(questionnaire), looks.title);
    lxw_row_t row = 1;
    for (const auto& [label, number, name] :
         {std::tuple{problemLabel, questionnaire.problem.number, questionnaire.problem.name},
          {roundLabel, questionnaire.round, u"回目"_s},
          {evaluatorLabel, evaluator.number, evaluator.name}}) {
        writeText(sheet, row, 0, label, looks.text);
        writeNumber(sheet, row, 1, number, looks.number);
        writeText(sheet, row, 2, name, looks.beside);
        ++row;
    }
    for (int column = 0; column < columns; ++column) {
        worksheet_set_column(sheet, static_cast<lxw_col_t>(column), static_cast<lxw_col_t>(column),
                             widths.at(static_cast<std::size_t>(column)), nullptr);
        writeText(sheet, headingRow, column, heading(static_cast<Column>(column)), looks.heading);
    }
}

// The degree of the answer in words: the last character of the answer is its digit.
QString degreeFormula(const QString& answer) {
    QStringList words;
    for (int degree = 2; degree <= mostDegree; ++degree) words << u'"' + degreeWords(degree) + u'"';
    return u"CHOOSE(VALUE(RIGHT(%1,1))-1,%2)"_s.arg(answer, words.join(u','));
}

// "「水道」のほうがやや重要", whatever is chosen.
QString meaningFormula(lxw_row_t row, Aspect aspect) {
    const auto cell = [row](Column column) { return QChar(u'A' + column) + QString::number(row + 1); };
    const auto answer = cell(Answer);
    return uR"(=IF(%1="","",IF(%1="%4","「"&%2&"」と「"&%3&"」は同じくらい%6",IFERROR("「"&IF(LEFT(%1,1)="左",%2,%3)&"」のほうが"&%5&"%6","選択肢から選んでください")))"_s
               .arg(answer, cell(Left), cell(Right), choice(equalPosition), degreeFormula(answer),
                    aspectWord(aspect)) +
           u')';
}

void offerChoices(lxw_worksheet* sheet, lxw_row_t first, lxw_row_t last) {
    static const auto choices = [] {
        QList<QByteArray> texts;
        for (int position = 0; position < scalePositions; ++position) texts << choice(position).toUtf8();
        return texts;
    }();
    std::array<const char*, scalePositions + 1> list{}; // ends with a null pointer
    for (int position = 0; position < scalePositions; ++position)
        list.at(static_cast<std::size_t>(position)) = choices[position].constData();
    lxw_data_validation rule{};
    rule.validate = LXW_VALIDATION_TYPE_LIST;
    // The library only reads them; its older version does not say so.
    rule.value_list = const_cast<decltype(rule.value_list)>(list.data());
    rule.error_title = const_cast<decltype(rule.error_title)>("回答");
    rule.error_message =
        const_cast<decltype(rule.error_message)>("一覧にある 17 の選択肢から選んでください。");
    worksheet_data_validation_range(sheet, first, Answer, last, Answer, &rule);
}

// The rows of one goal; the next free row.
lxw_row_t writeGoal(lxw_worksheet* sheet, lxw_row_t row, const QuestionGoal& goal, const Looks& looks) {
    for (int column = 0; column < columns; ++column)
        worksheet_write_blank(sheet, row, static_cast<lxw_col_t>(column), looks.question);
    writeNumber(sheet, row, GoalNo, goal.factor.number, looks.questionNo);
    writeText(sheet, row, Left, questionOf(goal), looks.question);
    if (!goal.contents.isEmpty()) writeText(sheet, ++row, Left, joinedLines(goal.contents), looks.text);
    const lxw_row_t first = ++row;
    for (const auto& pair : goal.pairs()) {
        writeNumber(sheet, row, GoalNo, goal.factor.number, looks.number);
        writeNumber(sheet, row, PairNo, pair.number, looks.number);
        writeText(sheet, row, Left, pair.left.name, looks.name);
        worksheet_write_blank(sheet, row, Answer, looks.answer);
        writeText(sheet, row, Right, pair.right.name, looks.name);
        worksheet_write_formula_str(sheet, row, Meaning,
                                    meaningFormula(row, goal.aspect).toUtf8().constData(), looks.quiet, "");
        writeNumber(sheet, row, LeftNo, pair.left.number, looks.number);
        writeNumber(sheet, row, RightNo, pair.right.number, looks.number);
        ++row;
    }
    offerChoices(sheet, first, row - 1);
    return row;
}

// How many answers are still missing.
void writeOpenCount(lxw_worksheet* sheet, lxw_row_t last, int pairs, const Looks& looks) {
    const auto range = [last](Column column) {
        const auto letter = QChar(u'A' + column);
        return u"%1%2:%1%3"_s.arg(letter).arg(headingRow + 2).arg(last + 1);
    };
    writeText(sheet, openRow, 0, openLabel, looks.text);
    worksheet_write_formula_num(
        sheet, openRow, 1, u"=COUNT(%1)-COUNTA(%2)"_s.arg(range(PairNo), range(Answer)).toUtf8().constData(),
        looks.number, pairs);
    writeText(sheet, openRow, 2, u"0 になれば終わりです。黄色い欄で選択肢から選んでください。"_s,
              looks.beside);
}

void writeAnswers(lxw_worksheet* sheet, const Questionnaire& questionnaire, const Factor& evaluator,
                  const Looks& looks) {
    writeHeader(sheet, questionnaire, evaluator, looks);
    lxw_row_t row = headingRow + 1;
    for (const auto& goal : questionnaire.goals) row = writeGoal(sheet, row, goal, looks);
    writeOpenCount(sheet, row - 1, questionnaire.pairs(), looks);
    worksheet_freeze_panes(sheet, headingRow + 1, 0);
    worksheet_set_selection(sheet, headingRow + 2, Answer, headingRow + 2, Answer);
    worksheet_set_landscape(sheet);
    worksheet_set_paper(sheet, 9); // A4
    worksheet_fit_to_pages(sheet, 1, 0);
    worksheet_repeat_rows(sheet, headingRow, headingRow);
    worksheet_protect(sheet, nullptr, nullptr);
}

bool writeAnswerFiles(Output& output, const RoundSelection& chosen, const QString& type,
                      QByteArray (*contents)(const Questionnaire&, const Factor& evaluator),
                      const Progress& progress) {
    const auto questionnaire = askedQuestionnaire(chosen, output.FileDir);
    int done = 0;
    for (const auto& [number, entry] : chosen.evaluators) {
        progress(done++, static_cast<int>(chosen.evaluators.size()), entry);
        const Factor evaluator{number, evaluatorName(chosen.connection, number)};
        output.writeFile({u"調査票"_s, questionnaire.problem.name, evaluator.name, questionnaire.round}, type,
                         contents(questionnaire, evaluator));
    }
    return true;
}

} // namespace

QByteArray answerSpreadsheet(const Questionnaire& questionnaire, const Factor& evaluator) {
    Spreadsheet book;
    const Looks looks(book);
    writeInstructions(book.sheet(u"説明"_s), instructions(questionnaire, evaluator), looks);
    writeAnswers(book.sheet(sheetName), questionnaire, evaluator, looks);
    return book.bytes();
}

QList<QStringList> answerRows(const Questionnaire& questionnaire, const Factor& evaluator) {
    QStringList headings;
    for (int column = 0; column < columns; ++column)
        headings << (column == Meaning ? QString() : heading(static_cast<Column>(column)));
    const auto& problem = questionnaire.problem;
    QList<QStringList> rows{
        {titleOf(questionnaire)},
        {problemLabel, QString::number(problem.number), problem.name},
        {roundLabel, QString::number(questionnaire.round)},
        {evaluatorLabel, QString::number(evaluator.number), evaluator.name},
        {u"回答の欄に、次のどれかを書いてください。 左が 9 … 左が 2、同じ、右が 2 … 右が 9"_s},
        headings};
    for (const auto& goal : questionnaire.goals) {
        const auto number = QString::number(goal.factor.number);
        rows.append({number, {}, questionOf(goal), {}, {}, {}, {}, {}});
        if (!goal.contents.isEmpty())
            rows.append({number, {}, joinedLines(goal.contents), {}, {}, {}, {}, {}});
        for (const auto& pair : goal.pairs())
            rows.append({number,
                         QString::number(pair.number),
                         pair.left.name,
                         {},
                         pair.right.name,
                         {},
                         QString::number(pair.left.number),
                         QString::number(pair.right.number)});
    }
    return rows;
}

QByteArray answerText(const Questionnaire& questionnaire, const Factor& evaluator) {
    QString text = QChar(QChar::ByteOrderMark);
    for (const auto& row : answerRows(questionnaire, evaluator)) text += csvRow(row);
    return text.toUtf8();
}

bool WriteAnswerSpreadsheets(Output& output, const RoundSelection& chosen, const WorkOptions&,
                             const Progress& progress) {
    return writeAnswerFiles(output, chosen, u"xlsx"_s, answerSpreadsheet, progress);
}

bool WriteAnswerTexts(Output& output, const RoundSelection& chosen, const WorkOptions&,
                      const Progress& progress) {
    return writeAnswerFiles(output, chosen, u"csv"_s, answerText, progress);
}

bool WriteAnswerPages(Output& output, const RoundSelection& chosen, const WorkOptions&,
                      const Progress& progress) {
    return writeAnswerFiles(output, chosen, u"html"_s, answerPage, progress);
}
