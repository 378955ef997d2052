#include "screens/OutputScreen.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

#include "core/Common.h"
#include "files/TextFile.h"
#include "printing/MadeFiles.h"
#include "widgets/ElidedLabel.h"

using namespace Qt::StringLiterals;

namespace {

// How many, or the name of the only file, for "%1"; nothing for none.
QString countOf(const QStringList& files, const QStringList& documents) {
    if (files.size() == 1) return u"%1 を作成しました。"_s;
    if (!files.isEmpty()) return u"ファイル %1 個を作成しました。"_s.arg(files.size());
    if (!documents.isEmpty()) return u"PDF %1 件を作成しました。"_s.arg(documents.size());
    return {};
}

// The window keeps its size when the control comes and goes.
void keepPlace(QWidget* control) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

} // namespace

void OutputScreen::setUpOutput(QPushButton* target, ElidedLabel* device, QPushButton* folder) {
    target_ = target;
    device_ = device;
    openFolder_ = folder;
    keepPlace(openFolder_);
    openFolder_->hide();
    onEvent(target_, &QPushButton::clicked, [this] {
        output_.ToggleOutputTarget();
        showTarget();
    });
    onEvent(openFolder_, &QPushButton::clicked, [this] { openFolder(); });
}

std::optional<RoundSelection> OutputScreen::chosenRound(QComboBox* problems, QListWidget* evaluators,
                                                        const QLabel* round) {
    auto goBack = qScopeGuard([&] { goTo(listToMend(problems, evaluators)); });
    ChosenEntries entries{problems->currentText(), {}, round->text()};
    for (int row = 0; row < evaluators->count(); ++row)
        if (evaluators->item(row)->isSelected()) entries.evaluators << evaluators->item(row)->text();
    auto chosen = checkedSelection(*Common::DbConn, entries, !evaluators->isHidden());
    if (chosen) goBack.dismiss();
    return chosen;
}

QWidget* OutputScreen::listToMend(QComboBox* problems, QListWidget* evaluators) {
    if (problems->currentIndex() < 0 || evaluators->isHidden()) return problems;
    return evaluators;
}

void OutputScreen::setUpProgress(QProgressBar* bar) {
    progressBar_ = bar;
    keepPlace(bar);
    bar->hide();
}

void OutputScreen::loadOutput() {
    output_.load(Common::AppDir);
    output_.FileExported = [this](const QString& path) { files_ << nativePath(path); };
    showTarget();
}

void OutputScreen::showTarget() {
    target_->setText(output_.OutputTarget);
    if (device_->isHidden()) return;
    const QString device = output_.ReportDevice();
    device_->setWholeText(device.isEmpty() ? u"プリンタがありません"_s : u"→ "_s + device);
}

void OutputScreen::openFolder() {
    if (!showOnDesktop(folder_))
        say(u"このコンピューターにはフォルダーを表示するプログラムがありません：%1"_s.arg(folder_), true);
}

bool OutputScreen::makeDocuments(const QString& subject, const std::function<bool()>& work,
                                 const QString& nothing) {
    showTarget(); // printers come and go
    openFolder_->hide();
    files_.clear();
    const MadeFiles documents;
    const int before = output_.Documents;
    try {
        if (!work()) return false;
    } catch (...) {
        showMade(documents, output_.Documents - before);
        throw;
    }
    const bool shown = showMade(documents, output_.Documents - before);
    hasDone() ? sayWithDone(subject, !shown) : say(nothing, !shown);
    return true;
}

bool OutputScreen::showMade(const MadeFiles& documents, int printed) {
    QString made = countOf(files_, documents.paths());
    QStringList names; // for "%1"
    if (files_.size() == 1) names << QFileInfo(files_.constFirst()).fileName();
    if (made.isEmpty() && printed > 0) {
        made = u"%1 件を"_s.arg(printed) + u"「%1」に送りました。"_s;
        names << output_.printer().DeviceName();
    }
    QString where;
    const bool shown = documents.show();
    if (!shown)
        where = u"%1を表示するプログラムがありません。"_s.arg(
            documents.paths().size() == 1 ? u"PDF "_s : u"フォルダー"_s);
    if (const auto paths = files_ + documents.paths(); !paths.isEmpty()) {
        folder_ = QFileInfo(paths.constFirst()).path();
        where += u"（%1）"_s.arg(folder_);
        openFolder_->show();
    }
    setDoneOf(names, [made, where](const QStringList& shownNames) {
        return (shownNames.isEmpty() ? made : made.arg(shownNames[0])) + where;
    });
    return shown;
}

Progress OutputScreen::progress() {
    return [this](int done, int total, const QString& at) {
        openFolder_->hide(); // the bar takes its place
        progressBar_->setMaximum(total);
        progressBar_->setValue(done);
        progressBar_->show();
        sayRunning(at);
        // The work runs on this thread: let the bar be painted, and take no clicks meanwhile.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
}

void OutputScreen::endProgress() {
    progressBar_->hide();
    endRunning();
}
