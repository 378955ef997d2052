#include "startup/FirstStart.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <optional>

#include "startup/ProgramDirectory.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<Contents> askContents(const QString& directory) {
    QMessageBox box;
    box.setWindowTitle(u"Hollin"_s);
    box.setTextFormat(Qt::PlainText);
    box.setText(u"データを入れるフォルダーを作ります。\n%1"_s.arg(QDir::toNativeSeparators(directory)));
    box.setInformativeText(
        u"例題（防災・減災事業の優先順位）を入れて試すか、空のデータベースで始めるかを"
        "選んでください。"_s);
    const auto* sample = box.addButton(u"例題で始める"_s, QMessageBox::AcceptRole);
    const auto* empty = box.addButton(u"空のデータベースで始める"_s, QMessageBox::AcceptRole);
    box.setEscapeButton(box.addButton(u"やめる"_s, QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == sample) return Contents::Sample;
    if (box.clickedButton() == empty) return Contents::Empty;
    return std::nullopt;
}

// A copy of the database may have been put into a new directory. Where they cannot be made, the reports that
// need them say so.
void completeMessageFiles(const QString& directory) {
    try {
        createMessageFiles(directory);
    } catch (const RuntimeError&) {
    }
}

} // namespace

bool readyToStart(const QString& directory) {
    // A directory that holds the program is whole by itself: when its database is gone, the user must hear
    // so.
    if (directory == QCoreApplication::applicationDirPath()) return true;
    if (hasDatabase(directory)) {
        completeMessageFiles(directory);
        return true;
    }
    const auto contents = askContents(directory);
    if (contents) createProgramDirectory(directory, *contents);
    return contents.has_value();
}
