#include "comparison/GoalAspects.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>

#include "files/TextFile.h"
#include "hierarchy/Structure.h"
#include "text/RuntimeError.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

GoalAspects byRule(const ChildrenByParent& structure) {
    QHash<qint32, int> parents;
    for (const auto& children : structure)
        for (const auto child : children) ++parents[child];
    GoalAspects aspects;
    for (const auto& [goal, children] : structure.asKeyValueRange())
        if (std::ranges::all_of(
                children, [&](qint32 child) { return !structure.contains(child) && parents[child] > 1; }))
            aspects[goal] = Aspect::Quality;
    return aspects;
}

// "課題番号 目的番号 問い方", for all problems; blanks or commas in between.
class Choices {
  public:
    Choices(qint32 problemNo, const ChildrenByParent& structure)
        : problemNo_(problemNo), structure_(structure) {}

    void read(const QString& path, GoalAspects& aspects) {
        int lineNo = 0;
        for (const auto& line : readLines(path)) {
            place_ = u"%1 %2 行: %3"_s.arg(nativePath(path), QString::number(++lineNo), line.left(40));
            if (const auto text = toHalfWidth(line).trimmed(); !text.isEmpty() && !text.startsWith(u'#'))
                readChoice(text, aspects);
        }
    }

  private:
    void readChoice(const QString& text, GoalAspects& aspects) {
        static const QRegularExpression pattern(u"^(\\d{1,9})[\\s,]+(\\d{1,9})[\\s,]+(\\S+)$"_s);
        const auto parts = pattern.match(text);
        if (!parts.hasMatch()) fault(u"「課題番号 目的番号 問い方」の形で書いてください。"_s);
        const auto aspect = aspectOf(parts.captured(3));
        if (parts.captured(1).toInt() != problemNo_) return; // of another problem
        const qint32 goal = parts.captured(2).toInt();
        if (!structure_.contains(goal))
            fault(u"要因 %1 は課題 %2 の目的要因ではありません。"_s.arg(goal).arg(problemNo_));
        if (named_.contains(goal)) fault(u"目的 %1 は上の行にもあります。"_s.arg(goal));
        named_ << goal;
        aspects[goal] = aspect;
    }

    Aspect aspectOf(const QString& word) const {
        for (const auto aspect : {Aspect::Importance, Aspect::Quality})
            if (word == aspectWord(aspect)) return aspect;
        fault(u"問い方は「%1」か「%2」です。"_s.arg(aspectWord(Aspect::Importance),
                                                    aspectWord(Aspect::Quality)));
    }

    [[noreturn]] void fault(const QString& why) const {
        throw RuntimeError(ErrorCode::InvalidCall, why + u'\n' + place_);
    }

    qint32 problemNo_;
    const ChildrenByParent& structure_;
    QList<qint32> named_;
    QString place_;
};

} // namespace

GoalAspects readGoalAspects(Connection& connection, qint32 problemNo, const QString& folder) {
    const auto structure = readStructure(connection, problemNo);
    auto aspects = byRule(structure);
    const QString path = folder + u"\\questions.txt"_s;
    if (QFile::exists(nativePath(path))) Choices(problemNo, structure).read(path, aspects);
    return aspects;
}
