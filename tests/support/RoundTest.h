// Fixture with a calculated round: problem 1 with five factors below its two goals, one of them under both,
// and the evaluators 2, 5 and 7.
#pragma once

#include <QDir>

#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "platform/TextFile.h"
#include "support/PrintedPages.h"
#include "support/ScreenTest.h"

class RoundTest : public ScreenTest {
  protected:
    RoundTest() {
        using namespace Qt::StringLiterals;
        run(u"insert into 課題 values(1,0,2,3,1)"_s);
        for (const auto* factor : {u"1,0,'候補地の選定'", u"11,1,'費用'", u"12,1,'環境'", u"21,1,'建設費'",
                                   u"22,1,'維持費'", u"23,1,'騒音'", u"24,1,'景観'"})
            run(u"insert into 要因 (要因番号,要因区分,要因名) values(%1)"_s.arg(QString::fromUtf16(factor)));
        for (const auto* edge :
             {u"1,11,1", u"1,12,2", u"11,21,1", u"11,22,2", u"12,22,1", u"12,23,2", u"12,24,3"})
            run(u"insert into 要因構成 values(1,%1,'1')"_s.arg(QString::fromUtf16(edge)));
        for (const int evaluator : {2, 5, 7}) {
            run(u"insert into 評価者 values(%1,'評価者%1','')"_s.arg(evaluator));
            run(u"insert into 課題評価者 values(1,%1,'')"_s.arg(evaluator));
        }
        compareAll(1);
        writeWholeFile(directory() + u"/file/message.txt"_s, u"~1~:~2~:~3~\r\n"_s.toUtf8());
        takeMessages();
    }

    // The comparisons of all evaluators for a round, and their results.
    void compareAll(qint16 round) {
        compare(round, 2, {"3", "2", "1/2 3 5"});
        compare(round, 5, {"1", "1/4", "3 5 3"});
        compare(round, 7, {"1/2", "2", "1/3 1/7 1/2"});
    }

    // What the user does on a report screen: the problem, the evaluators by row, PDF, the button.
    void report(const QString& screen, const QList<int>& evaluatorRows) {
        using namespace Qt::StringLiterals;
        if (!isOpen(screen)) {
            Common::Forms.show(screen);
            if (screen != u"最終結果"_s) click(screen, u"Command17"_s);
        }
        choose(screen, u"Combo1"_s, 0);
        select(screen, u"List1"_s, evaluatorRows);
        click(screen, u"Command7"_s);
    }
    QStringList documents() const {
        return QDir(directory() + QStringLiteral("/file")).entryList({QStringLiteral("*.pdf")});
    }
    // Texts of the rows of a document below its first one, which has the date.
    QStringList printedRows(const QString& prefix) const {
        QStringList texts;
        const QDir folder(directory() + QStringLiteral("/file"));
        for (const auto& page : printedPages(folder.filePath(folder.entryList({prefix + u'*'}).value(0))))
            for (int row = 2; row < 40; ++row)
                if (const auto words = page.row(6 * row); !words.isEmpty()) texts << words.join(u' ');
        return texts;
    }

  private:
    // Upper triangles below the factors 1, 11 and 12.
    void compare(qint16 round, int evaluator, const QList<QByteArray>& triangles) {
        const QList<QList<int>> families{{1, 11, 12}, {11, 21, 22}, {12, 22, 23, 24}};
        for (int goal = 0; goal < 3; ++goal) {
            const auto& family = families[goal];
            const auto scales = triangles[goal].split(' ');
            for (int source = 1, pair = 0; source < family.size(); ++source)
                for (int target = source + 1; target < family.size(); ++target, ++pair)
                    run(QStringLiteral("insert into 一対比較 values(1,%1,%2,%3,%4,%5,'2026/04/01',%6,%7)")
                            .arg(family[0])
                            .arg(family[source])
                            .arg(family[target])
                            .arg(evaluator)
                            .arg(round)
                            .arg(pair + 1)
                            .arg(scale(scales[pair]), 0, 'g', 17));
        }
        InconsistencyList findings;
        calculateLocalWeights(*Common::DbConn, 1, evaluator, round, findings);
        synthesise(*Common::DbConn, 1, evaluator, round);
        Common::DbConn->endUnitOfWork();
    }
    // A scale text such as "1/3" as the grid stores it.
    static double scale(const QByteArray& text) {
        return static_cast<double>(text.startsWith("1/") ? static_cast<float>(1.0 / text.mid(2).toInt())
                                                         : text.toFloat());
    }
};
