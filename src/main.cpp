// Starts the program: fonts, translator, the table of screens, メニュー.
#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QUrl>

#include "ScreenTable.h"
#include "core/Actions.h"
#include "core/Common.h"
#include "core/Screens.h"
#include "platform/DesktopMessageBox.h"
#include "platform/Fonts.h"
#include "platform/StandardTexts.h"

using namespace Qt::StringLiterals;

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Hollin"_s);
    QApplication::setQuitOnLastWindowClosed(false); // the last form that unloads ends the program
    QApplication::setWindowIcon(QIcon(u":/hollin.png"_s));
    installFontSubstitutions();
    QApplication::setFont(QFont(u"ＭＳ Ｐゴシック"_s, 11));

    installStandardTexts();

    Common::Presenter = desktopPresenter();
    Common::Printer.onDocument(
        [](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    fillScreenTable(Common::Forms);
    int code = 1;
    try {
        Common::Forms.show(u"メニュー"_s);
        code = QApplication::exec();
    } catch (const RuntimeError& error) {
        reportUnhandled(error.description());
    } catch (const std::exception& error) {
        reportUnhandled(QString::fromUtf8(error.what()));
    }
    Common::Forms.unloadAll();
    return code;
}
