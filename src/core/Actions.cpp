#include "core/Actions.h"

#include <QCoreApplication>

#include "core/Common.h"

using namespace Qt::StringLiterals;

namespace {

// The description of the error, or nothing.
std::optional<QString> errorOf(const std::function<void()>& body) {
    try {
        body();
        return std::nullopt;
    } catch (const RuntimeError& error) {
        return error.description();
    } catch (const std::exception& error) { // a fault of the program itself, or no memory left
        return u"内部エラーが発生しました。\n(%1)"_s.arg(QString::fromUtf8(error.what()));
    }
}

// Runs the body, then ends the unit of work whether the body failed or not; a first error is told before a
// failure to make durable what was written.
bool runUnitOfWork(const std::function<void()>& body, const std::function<void(const QString&)>& report) {
    const auto failed = errorOf(body);
    const auto notDurable = errorOf([] {
        if (Common::DbConn) Common::DbConn->endUnitOfWork();
    });
    for (const auto& error : {failed, notDurable})
        if (error) report(*error);
    return !failed && !notDurable;
}

} // namespace

bool runAction(const QString& caption, const std::function<void()>& body) {
    return runUnitOfWork(body, [&caption](const QString& error) {
        Common::MsgText = error;
        Common::Presenter(error, caption, MessageStyle::Exclamation);
    });
}

bool runEvent(const std::function<void()>& body) {
    return runUnitOfWork(body, reportUnhandled);
}

void reportUnhandled(const QString& description) {
    Common::Presenter(
        u"処理されていないエラーが発生したため、プログラムを終了します。\n%1"_s.arg(description), u"Hollin"_s,
        MessageStyle::Exclamation);
    QCoreApplication::exit(1);
}
