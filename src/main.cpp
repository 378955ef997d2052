// Starts the program: command line, fonts, translator, the table of screens, メニュー.
#include <QApplication>
#include <QIcon>
#include <QPointer>

#include "CommandLine.h"
#include "ScreenTable.h"
#include "core/Actions.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/Screens.h"
#include "files/ApplicationDirectory.h"
#include "help/HelpWindow.h"
#include "help/Manual.h"
#include "printing/MadeFiles.h"
#include "printing/Printer.h"
#include "startup/FirstStart.h"
#include "text/Fonts.h"
#include "text/StandardTexts.h"
#include "widgets/DesktopMessageBox.h"

using namespace Qt::StringLiterals;

namespace {

// Made when it is first asked for, and kept: the place where one has read stays.
void presentHelp(const QString& screen) {
    static QPointer<HelpWindow> help;
    if (help == nullptr) {
        help = new HelpWindow(manualFile());
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, help, &QObject::deleteLater);
    }
    help->showSection(screen);
}

} // namespace

int main(int argc, char* argv[]) {
    if (asksForTextOnly(argc, argv)) {
        const QCoreApplication application(argc, argv);
        installStandardTexts();
        return answerCommandLine(QCoreApplication::arguments()).value_or(0);
    }
    QApplication application(argc, argv);
    installStandardTexts();
    if (const auto code = answerCommandLine(QApplication::arguments())) return *code;
    QApplication::setApplicationName(u"Hollin"_s);
    QApplication::setQuitOnLastWindowClosed(false); // the last form that unloads ends the program
    QApplication::setWindowIcon(QIcon(u":/hollin.png"_s));
    installFontSubstitutions();
    QApplication::setFont(QFont(u"ＭＳ Ｐゴシック"_s, 11));

    Common::Presenter = desktopPresenter();
    Common::HelpPresenter = presentHelp;
    Printer::ofProgram().onDocument(MadeFiles::add);
    fillScreenTable(Common::Forms);
    int code = 1;
    try {
        if (!readyToStart(applicationDirectory())) return 0;
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
