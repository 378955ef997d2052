#include "core/Actions.h"

#include <QCoreApplication>

#include "core/Common.h"
#include "core/Messages.h"

using namespace Qt::StringLiterals;

namespace {

struct Problem {
    enum Kind { OfAction, OfStart, OfReopening };
    QString description;
    Kind kind = OfAction;
};

std::optional<Problem> problemOf(const std::function<void()>& body) {
    try {
        body();
        return std::nullopt;
    } catch (const StartError& error) {
        return Problem{error.description(), Problem::OfStart};
    } catch (const ReopenError& error) {
        return Problem{error.description(), Problem::OfReopening};
    } catch (const RuntimeError& error) {
        return Problem{error.description()};
    } catch (const std::exception& error) { // a fault of the program itself, or no memory left
        return Problem{u"内部エラーが発生しました。\n(%1)"_s.arg(QString::fromUtf8(error.what()))};
    }
}

void tell(const Problem& problem, const QString& caption) {
    Common::MsgText = problem.description;
    if (problem.kind != Problem::OfReopening) {
        Common::Presenter(Common::MsgText, caption, MessageStyle::Exclamation);
        return;
    }
    // Every way out leads through the menu: whoever cannot wait must still be able to leave.
    Common::MsgText += u"\nこの画面に戻ります。戻らずにプログラムを終了しますか ？"_s;
    if (Common::Presenter(Common::MsgText, caption, MessageStyle::Discard) == MessageAnswer::Yes)
        QCoreApplication::exit(1);
}

} // namespace

bool runAction(const QString& caption, const std::function<void()>& body) {
    // The unit of work ends whether the body failed or not, and before a box waits for the user.
    const auto failed = problemOf(body);
    const auto notDurable = problemOf(Common::makeDurable);
    for (const auto& problem : {failed, notDurable}) {
        if (!problem) continue;
        if (problem->kind == Problem::OfStart)
            reportUnhandled(problem->description);
        else
            tell(*problem, caption);
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
