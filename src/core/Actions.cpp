#include "core/Actions.h"

#include <QCoreApplication>

#include "core/Common.h"

using namespace Qt::StringLiterals;

namespace {

struct Problem {
    QString description;
    bool preventsStart = false;
};

std::optional<Problem> problemOf(const std::function<void()>& body) {
    try {
        body();
        return std::nullopt;
    } catch (const StartError& error) {
        return Problem{error.description(), true};
    } catch (const RuntimeError& error) {
        return Problem{error.description()};
    } catch (const std::exception& error) { // a fault of the program itself, or no memory left
        return Problem{u"内部エラーが発生しました。\n(%1)"_s.arg(QString::fromUtf8(error.what()))};
    }
}

} // namespace

bool runAction(const QString& caption, const std::function<void()>& body) {
    // The unit of work ends whether the body failed or not, and before a box waits for the user.
    const auto failed = problemOf(body);
    const auto notDurable = problemOf(Common::makeDurable);
    for (const auto& problem : {failed, notDurable}) {
        if (!problem) continue;
        if (problem->preventsStart) {
            reportUnhandled(problem->description);
        } else {
            Common::MsgText = problem->description;
            Common::Presenter(Common::MsgText, caption, MessageStyle::Exclamation);
        }
    }
    return !failed && !notDurable;
}

bool runEvent(const std::function<void()>& body) {
    return runAction(QString(Common::MsgTitle), body);
}

void reportUnhandled(const QString& description) {
    Common::Presenter(
        u"処理されていないエラーが発生したため、プログラムを終了します。\n%1"_s.arg(description), u"Hollin"_s,
        MessageStyle::Exclamation);
    QCoreApplication::exit(1);
}
