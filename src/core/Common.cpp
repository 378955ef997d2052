#include "core/Common.h"

#include "core/Database.h"
#include "core/Messages.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace Common {

std::unique_ptr<Connection> DbConn;
QString AppDir;
QString ProblemEntry;
qint32 ProblemNo = 0;
QString ProblemNoText;
QString EvaluatorEntry;
BoundedArray<qint32, 101> EvaluatorNos;
qint16 EvaluatorCount = 0;
QString RoundEntry;
qint16 RoundCount = 0;
qint16 EvaluatorLoadFailed = 0;
std::function<void(const QString&)> HelpPresenter = [](const QString&) {};

void openDatabase(const QString& applicationDirectory) {
    makeDurable(); // the connection that goes must not take unsaved rows with it
    AppDir = applicationDirectory;
    auto fresh = std::make_unique<Connection>();
    openDatabaseFile(*fresh, AppDir + u"\\DB\\Hollin.mdb"_s);
    DbConn = std::move(fresh);
}

void makeDurable() {
    if (DbConn) DbConn->endUnitOfWork();
}

bool CheckProblemChosen() {
    const QString entry = ProblemEntry.trimmed();
    if (entry.isEmpty()) {
        refuse(u"課題が未設定です"_s);
        return false;
    }
    ProblemNo = toLong(leadingNumber(entry));
    ProblemNoText = QString::number(ProblemNo);
    return true;
}

bool CheckEvaluatorChosen() {
    if (EvaluatorEntry.isEmpty()) {
        refuse(u"評価者が未選択です"_s);
        return false;
    }
    const auto colon = EvaluatorEntry.indexOf(u':');
    if (colon < 0) throw RuntimeError(ErrorCode::InvalidCall);
    EvaluatorNos[0] = Value(EvaluatorEntry.left(colon).trimmed()).toLong();
    EvaluatorCount = 1;
    return true;
}

bool CheckRoundChosen() {
    const QString entry = RoundEntry.trimmed();
    if (entry.isEmpty()) {
        refuse(u"比較回数設定"_s);
        return false;
    }
    RoundCount = toInteger(leadingNumber(entry));
    return true;
}

bool CheckRoundAndEvaluator() {
    const bool roundChosen = CheckRoundChosen();
    const bool evaluatorChosen = CheckEvaluatorChosen();
    return roundChosen && evaluatorChosen;
}

} // namespace Common
