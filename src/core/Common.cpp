#include "core/Common.h"

#include "core/Database.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace Common {

std::unique_ptr<Connection> DbConn;
QString MsgTitle;
QString MsgText;
QString AppDir;
QString ProblemEntry;
qint32 ProblemNo = 0;
QString ProblemNoText;
QString EvaluatorEntry;
BoundedArray<qint32, 101> EvaluatorNos;
qint16 EvaluatorCount = 0;
QString RoundEntry;
qint16 RoundCount = 0;
QString CmpProblemName;
qint32 CmpProblemNo = 0;
qint32 CmpEvaluatorNo = 0;
QString CmpEvaluatorName;
QString CmpDate;
qint16 CmpRound = 0;
std::vector<NumberedName> PickList;
qint16 PickCount = -1;
qint16 EvaluatorLoadFailed = 0;
qint32 StructProblemNo = 0;
std::vector<NumberedName> StructList;
MessagePresenter Presenter = consolePresenter();
std::function<void(const QString&)> HelpPresenter = [](const QString&) {};

namespace {

void requireWidth(qint16 width) {
    if (width < 0) throw RuntimeError(ErrorCode::InvalidCall);
}

} // namespace

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

MessageAnswer showMessage(MessageStyle style) {
    return showMessage(style, MsgTitle);
}

MessageAnswer showMessage(MessageStyle style, const QString& title) {
    makeDurable();
    return Presenter(MsgText, title, style);
}

void refuse(const QString& text) {
    MsgText = text;
    showMessage(MessageStyle::Exclamation);
}

void inform(const QString& text) {
    MsgText = text;
    showMessage(MessageStyle::Plain);
}

bool confirm(const QString& text) {
    MsgText = text;
    return showMessage(MessageStyle::Question) == MessageAnswer::Yes;
}

bool confirmDiscard(const QString& text) {
    MsgText = text;
    return showMessage(MessageStyle::Discard) == MessageAnswer::Yes;
}

Value NullToZero(const Value& value) {
    return value.isNull() || value.isEmptyText() ? Value(0) : value;
}

QString NullToEmpty(const Value& value) {
    return value.isNull() ? QString() : value.toText();
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

QString PadWidth(const QString& text, qint16& width, const qint16& fullWidth) {
    const bool isWide = fullWidth != 0;
    if (isWide) width = static_cast<qint16>(width / 2);
    requireWidth(width);
    const QString converted = isWide ? toFullWidth(text) : toHalfWidth(text);
    const auto padding = width - characterCount(converted);
    if (padding > 0) return converted + QString(padding, isWide ? QChar(0x3000) : QChar(u' '));
    return leadingCharacters(converted, width);
}

QString PadLeft(const QString& text, const qint16& width) {
    requireWidth(width);
    const auto padding = width - characterCount(text);
    return padding > 0 ? QString(padding, u' ') + text : leadingCharacters(text, width);
}

} // namespace Common
