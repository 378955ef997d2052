// Fixture with a calculated round: problem 1 with five factors below its two goals, one of them under both,
// and the evaluators 2, 5 and 7.
#pragma once

#include <QDir>

#include "evaluation/EvaluatorRound.h"
#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "platform/TextFile.h"
#include "support/PrintedPages.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class RoundTest : public ScreenTest {
  protected:
    RoundTest() {
        run(u"insert into 課題 values(1,0,2,3,1)"_s);
        run(u"insert into 要因 values(1,0,'候補地の選定',''),(11,1,'費用',''),(12,1,'環境',''),"
            "(21,1,'建設費',''),(22,1,'維持費',''),(23,1,'騒音',''),(24,1,'景観','')"_s);
        structure(u"1:11,12 11:21,22 12:22,23,24"_s);
        evaluators({2, 5, 7});
        compareAll(1);
        writeWholeFile(directory() + u"/file/message.txt"_s, u"~1~:~2~:~3~\r\n"_s.toUtf8());
    }

    // The comparisons of all evaluators for a round, and their results.
    void compareAll(qint16 round) {
        for (const auto& [evaluator, triangles] :
             {std::pair{2, u"3:2:1/2 3 5"_s}, {5, u"1:1/4:3 5 3"_s}, {7, u"1/2:2:1/3 1/7 1/2"_s}}) {
            compare(1, {11, 12}, triangles.section(u':', 0, 0), evaluator, round);
            compare(11, {21, 22}, triangles.section(u':', 1, 1), evaluator, round);
            compare(12, {22, 23, 24}, triangles.section(u':', 2), evaluator, round);
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
    QString printedRows(const QString& prefix) const {
        QStringList texts;
        const QDir folder(directory() + u"/file"_s);
        for (const auto& page : printedPages(folder.filePath(folder.entryList({prefix + u'*'}).value(0))))
            for (int row = 2; row < 40; ++row)
                if (const auto words = page.row(6 * row); !words.isEmpty()) texts << words.join(u' ');
        return texts.join(u" / ");
    }
};
