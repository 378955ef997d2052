#include "survey/Answers.h"

#include <array>

#include "sheets/TableFile.h"
#include "survey/AnswerLayout.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using namespace AnswerLayout;

namespace {

using Row = QMap<int, TableCell>;

// The columns in which the answer sheet's columns stand; -1 where one is missing.
using Places = std::array<int, columns>;

constexpr std::array needed{GoalNo, PairNo, Left, Answer, Right, LeftNo, RightNo};

std::optional<Places> placesIn(const Row& row) {
    Places places;
    places.fill(-1);
    for (auto cell = row.begin(); cell != row.end(); ++cell)
        for (const Column column : needed)
            if (cell->text.trimmed() == heading(column)) places[column] = cell.key();
    for (const Column column : needed)
        if (places[column] < 0) return {};
    return places;
}

std::optional<qint32> wholeNumber(const QString& text) {
    if (!isNumeric(text)) return {};
    const double number = leadingNumber(text);
    const auto whole = static_cast<qint32>(std::clamp(number, -1.0, 2e9));
    return whole == number ? std::optional(whole) : std::nullopt;
}

class AnswerReader {
  public:
    explicit AnswerReader(Answers& answers) : answers_(answers) {}

    void read(const QList<Table>& sheets) {
        for (const auto& sheet : sheets)
            for (auto row = sheet.rows.begin(); row != sheet.rows.end(); ++row)
                if (const auto places = placesIn(*row)) return readTable(sheet, row.key(), *places);
        fault({}, u"調査票の回答用紙ではありません（見出し「%1」「%2」などの行がありません）。"_s.arg(
                      heading(GoalNo), heading(Answer)));
    }

  private:
    void readTable(const Table& sheet, int headingRow, const Places& places) {
        sheet_ = sheet.name;
        for (auto row = sheet.rows.begin(); row != sheet.rows.end(); ++row) {
            if (row.key() < headingRow) readHeader(*row);
            if (row.key() > headingRow) readPair(row.key(), *row, places);
        }
        for (const auto& merged : sheet.merged)
            if (merged.lastRow > headingRow)
                fault(place(std::max(merged.firstRow, headingRow + 1)), u"結合されたセルがあります。"_s);
        for (const auto& [label, number] : {std::pair{problemLabel, answers_.problemNo},
                                            {roundLabel, answers_.round},
                                            {evaluatorLabel, answers_.evaluatorNo}})
            if (!number) fault({}, u"「%1」が読み取れません。"_s.arg(label));
    }

    void readHeader(const Row& row) {
        for (auto cell = row.begin(); cell != row.end(); ++cell) {
            const auto label = cell->text.trimmed();
            const auto number = wholeNumber(row.value(cell.key() + 1).text);
            if (label == problemLabel) answers_.problemNo = number;
            if (label == roundLabel) answers_.round = number;
            if (label != evaluatorLabel) continue;
            answers_.evaluatorNo = number;
            answers_.evaluator = textOfCell(row.value(cell.key() + 2).text);
        }
    }

    void readPair(int rowNo, const Row& row, const Places& places) {
        const auto text = [&](Column column) { return row.value(places[column]).text.trimmed(); };
        const auto answer = row.value(places[Answer]);
        // The question above a goal's pairs, or a row that has nothing to do with them.
        if (text(PairNo).isEmpty() && text(LeftNo).isEmpty() && text(Answer).isEmpty() &&
            answer.kind != CellKind::Formula)
            return;
        AnsweredPair pair{place(rowNo), 0, 0, 0, 0, textOfCell(text(Left)), textOfCell(text(Right)), {}};
        for (const auto& [column, number] : {std::pair{GoalNo, &pair.goalNo},
                                             {PairNo, &pair.pairNo},
                                             {LeftNo, &pair.leftNo},
                                             {RightNo, &pair.rightNo}}) {
            const auto read = wholeNumber(text(column));
            if (!read) return fault(pair.place, u"「%1」が番号ではありません。"_s.arg(heading(column)));
            *number = *read;
        }
        if (answer.kind == CellKind::Formula)
            fault(pair.place, u"回答に数式が入っています。選択肢から選び直してください。"_s);
        else if (!text(Answer).isEmpty()) {
            pair.position = positionOf(text(Answer));
            if (!pair.position)
                fault(pair.place,
                      u"回答「%1」は選択肢にありません。"_s.arg(joinedLines(text(Answer)).left(20)));
        }
        answers_.pairs.append(pair);
    }

    QString place(int row) const {
        return sheet_.isEmpty() ? u"%1 行"_s.arg(row)
                                : u"シート「%1」%2 行"_s.arg(sheet_, QString::number(row));
    }
    void fault(const QString& place, const QString& text) {
        answers_.findings.append({Finding::Fault, place, text});
    }

    Answers& answers_;
    QString sheet_;
};

} // namespace

QString Finding::line() const {
    return place.isEmpty() ? text : place + u"　"_s + text;
}

void readAnswers(const QStringList& paths, const std::function<void(const Answers&)>& take) {
    readTableFiles(paths, [&take](const TableFile& file) {
        Answers answers;
        answers.path = file.path;
        if (file.fault.isEmpty())
            AnswerReader(answers).read(file.tables);
        else
            answers.findings.append({Finding::Fault, {}, file.fault});
        take(answers);
    });
}
