// Fixture with a calculated round: problem 1 with two goals and a leaf, four factors below the goals, one of
// them under both, and the evaluators 2, 5 and 7. The same factors stand in another problem and another
// round, too, with other values: a statement that forgets to ask for either takes them along.
#pragma once

#include <QDir>

#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "files/NewFile.h"
#include "printing/MadeFiles.h"
#include "printing/Printer.h"
#include "rounds/EvaluatorRound.h"
#include "support/PrintedPages.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class RoundTest : public ScreenTest {
  protected:
    RoundTest() {
        run(u"insert into 課題 values(1,0,2,3,1)"_s);
        run(u"insert into 要因 values(1,0,'候補地の選定',''),(11,1,'費用',''),(12,1,'環境',''),"
            "(13,1,'広さ',''),(21,1,'建設費',''),(22,1,'維持費',''),(23,1,'騒音',''),(24,1,'景観','')"_s);
        structure(u"1:11,12,13 11:21,22 12:22,23,24"_s);
        evaluators({2, 5, 7});
        run(u"insert into 課題 values(2,0,2,3,9)"_s);
        run(u"insert into 評価者 values(9,'評価者9','')"_s);
        run(u"insert into 課題評価者 values(2,9,''),(2,2,'')"_s);
        run(u"insert into 要因 values(2,0,'他の課題','')"_s);
        run(u"insert into 要因構成 select 2,親要因番号,子要因番号,4-子要因表示順,子作成済 from 要因構成"
            " union select 2,11,24,4,'0' union select 2,13,23,1,'0'"_s);
        compareAll(1);
        for (const auto& other : {u"2,%1,1"_s, u"1,%1,9"_s}) copyRound(other);
        calculateAll(1); // with the others beside it
        Printer::ofProgram().onDocument(MadeFiles::add);
        writeWholeFile(directory() + u"/file/message.txt"_s, u"~1~:~2~:~3~\r\n"_s.toUtf8());
    }

    // Comparisons and results of problem 1, round 1, with other values for "problem,%1,round".
    void copyRound(const QString& other) {
        run(u"insert into 一対比較 select %1,比較日付,比較表示順,7 from 一対比較 where 課題番号=1 and 比較回数=1"_s
                .arg(other.arg(u"目的要因番号,比較元要因番号,比較対象要因番号,評価者番号"_s)));
        run(u"insert into 評価結果 select %1,評価値/2,レベル,総合評価値/2 from 評価結果"
            " where 課題番号=1 and 比較回数=1"_s.arg(other.arg(u"親要因番号,子要因番号,評価者番号"_s)));
    }
    // The comparisons of all evaluators for a round, and their results.
    void compareAll(qint16 round) {
        for (const auto& [evaluator, triangles] : {std::pair{2, u"3 2 1/2:2:1/2 3 5"_s},
                                                   {5, u"1 2 3:1/4:3 5 3"_s},
                                                   {7, u"1/2 1/3 1:2:1/3 1/7 1/2"_s}}) {
            compare(1, {11, 12, 13}, triangles.section(u':', 0, 0), evaluator, round);
            compare(11, {21, 22}, triangles.section(u':', 1, 1), evaluator, round);
            compare(12, {22, 23, 24}, triangles.section(u':', 2), evaluator, round);
        }
        calculateAll(round);
    }
    void calculateAll(qint16 round) {
        for (const int evaluator : {2, 5, 7}) {
            InconsistencyList findings;
            const EvaluatorRound of{*Common::DbConn, 1, evaluator, round};
            calculateLocalWeights(of, findings);
            synthesise(of);
        }
        Common::DbConn->endUnitOfWork();
    }

    // What the user does on a report screen: the problem, the evaluators by row, PDF, the button. What the
    // screen tells then.
    std::vector<ShownMessage> report(const QString& screen, const QList<int>& evaluatorRows) {
        if (!isOpen(screen)) {
            Common::Forms.show(screen);
            if (screen != u"最終結果"_s) click(screen, u"Command17");
        }
        choose(screen, u"Combo1", 0);
        select(screen, u"List1", evaluatorRows);
        return told(screen, u"Command7");
    }
    QStringList documents() const { return QDir(directory() + u"/file"_s).entryList({u"*.pdf"_s}); }
    // The rows of a document below its first one, which has the date, joined by " / ".
    QString printedRows(const QString& part) const {
        QStringList texts;
        const QDir folder(directory() + u"/file"_s);
        for (const auto& page :
             printedPages(folder.filePath(folder.entryList({u'*' + part + u'*'}).value(0))))
            for (int row = 2; row < 40; ++row)
                if (const auto words = page.row(6 * row); !words.isEmpty()) texts << words.join(u' ');
        return texts.join(u" / ");
    }
};
