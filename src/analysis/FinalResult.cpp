#include "analysis/FinalResult.h"

#include "core/FactorNames.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "files/TextFile.h"
#include "judgement/Ranks.h"
#include "judgement/Statistics.h"
#include "printing/Output.h"
#include "rounds/RoundSelection.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using Common::inform;
using Common::refuse;

namespace {

const QString coefficientPattern = u"#0.0000"_s;
constexpr qsizetype longestFileName = 255; // bytes

// The coefficient of the factor whose rows come next, as text. Leaves the record set at the next factor.
QString nextCoefficient(Recordset& rows, const QString& name) {
    const auto factorNo = rows[u"子要因番号"_s].toLong();
    Statistics weights;
    for (; !rows.eof() && rows[u"子要因番号"_s].toLong() == factorNo; rows.moveNext())
        weights.add(rows[u"総合評価値"_s].toDouble());
    return formatNumber(weights.geometricMean(name), coefficientPattern);
}

// A separator in the name would put the file into some other folder.
QString filePath(const QString& folder, const QString& problem) {
    if (problem.isEmpty())
        throw RuntimeError(ErrorCode::InvalidCall, u"課題名がないため、ファイルを作成できません。"_s);
    if (problem.contains(u'/') || problem.contains(u'\\'))
        throw RuntimeError(ErrorCode::InvalidCall,
                           u"課題名に「/」や「\\」があるため、ファイルを作成できません。\n%1"_s.arg(problem));
    if (hasControlCharacters(problem))
        throw RuntimeError(ErrorCode::InvalidCall,
                           u"課題名に改行などの制御文字があるため、ファイルを作成できません。\n%1"_s.arg(
                               firstLine(problem)));
    const QString name = problem + u".csv"_s;
    if (name.toUtf8().size() > longestFileName)
        throw RuntimeError(ErrorCode::InvalidCall,
                           u"課題名が長すぎるため、ファイルを作成できません。\n%1"_s.arg(problem));
    return folder + u'\\' + name;
}

} // namespace

bool SetCoefficients(Output& output, const RoundSelection& chosen, const WorkOptions& /*options*/,
                     const Progress& progress) {
    progress(0, 1, chosen.problemEntry);
    if (!ComputeCoefficients(chosen, output.FileDir)) return false;
    progress(1, 1, chosen.problemEntry);
    if (output.FileExported)
        output.FileExported(filePath(output.FileDir, factorName(chosen.connection, chosen.problemNo)));
    inform(u" 係数設定終了"_s);
    return true;
}

bool ComputeCoefficients(const ProblemRound& of, const QString& folder) {
    auto& connection = of.connection;
    const QString problem = Common::NullToEmpty(
        Recordset(connection, u"select 要因名 from 要因 where 要因番号=?", of.problemNo)[u"要因名"_s]);
    connection.execute(u"delete from 総合係数 where 課題番号=?", of.problemNo);
    Recordset rows(connection,
                   u"select 子要因番号,総合評価値 from 評価結果 where レベル = 2 and 課題番号=? and "
                   u"比較回数=? order by 子要因番号",
                   of.problemNo, of.round);
    if (rows.eof()) {
        refuse(u"選択された課題、評価回数の評価結果が存在しません。"_s);
        return false;
    }
    QString names = Quote(u"要因名"_s);
    QString coefficients = Quote(u"係数"_s);
    while (!rows.eof()) {
        const auto factorNo = rows[u"子要因番号"_s].toLong();
        const QString name = factorName(connection, factorNo);
        const QString coefficient = nextCoefficient(rows, name);
        names += u',' + Quote(cellOfText(name));
        coefficients += u',' + coefficient;
        connection.execute(u"insert into 総合係数 (課題番号,要因番号,係数値) values(?,?,?)", of.problemNo,
                           factorNo, Value(coefficient).toDouble());
    }
    connection.endUnitOfWork(); // the file shows what is on the disk
    try {
        writeCodePageLines(filePath(folder, problem), {names, coefficients});
    } catch (const RuntimeError& error) {
        throw RuntimeError(
            error, error.description() + u"\n係数は保存しました。CSV ファイルだけが書き出されていません。"_s);
    }
    return true;
}

std::vector<RankedCoefficient> storedCoefficients(Connection& connection, qint32 problemNo) {
    std::vector<RankedCoefficient> ranked;
    std::vector<double> values;
    double sum = 0;
    for (Recordset rows(
             connection,
             u"select 要因番号,係数値 from 総合係数 where 課題番号=? order by 係数値 desc,要因番号",
             problemNo);
         !rows.eof(); rows.moveNext()) {
        values.push_back(rows[u"係数値"_s].toDouble());
        sum += values.back();
        ranked.push_back({0,
                          factorName(connection, rows[u"要因番号"_s].toLong()),
                          formatNumber(values.back(), coefficientPattern),
                          {}});
    }
    const auto order = shownRanks(values);
    for (std::size_t i = 0; i < ranked.size(); ++i) {
        ranked[i].rank = order[i];
        ranked[i].share =
            formatNumber(sum > 0 ? 100 * Value(ranked[i].coefficient).toDouble() / sum : 0, u"0.0"_s);
    }
    return ranked;
}

bool areOfPresentResults(const ProblemRound& of) {
    try {
        Recordset results(of.connection,
                          u"select 子要因番号,総合評価値 from 評価結果"
                          " where レベル = 2 and 課題番号=? and 比較回数=? order by 子要因番号",
                          of.problemNo, of.round);
        Recordset stored(of.connection,
                         u"select 要因番号,係数値 from 総合係数 where 課題番号=? order by 要因番号",
                         of.problemNo);
        for (; !results.eof() && !stored.eof(); stored.moveNext()) {
            const auto factorNo = results[u"子要因番号"_s].toLong();
            if (factorNo != stored[u"要因番号"_s].toLong() ||
                nextCoefficient(results, {}) !=
                    formatNumber(stored[u"係数値"_s].toDouble(), coefficientPattern))
                return false;
        }
        return results.eof() && stored.eof();
    } catch (const RuntimeError&) { // results that have no coefficients
        return false;
    }
}

QString Quote(const QString& text) {
    return u'"' + text + u'"';
}
