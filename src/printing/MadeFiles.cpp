#include "printing/MadeFiles.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

MadeFiles* collecting = nullptr;

constexpr int answerTime = 5000; // ms

// The desktop's launcher starts, and says so, before it knows whether there is a program for the file. Where
// nobody can be asked for one, its word counts.
bool mayHaveProgramFor(const QString& path) {
    QProcess question;
    question.start(u"xdg-mime"_s, {u"query"_s, u"default"_s,
                                   QFileInfo(path).isDir() ? u"inode/directory"_s : u"application/pdf"_s});
    if (!question.waitForStarted() || !question.waitForFinished(answerTime)) return true;
    return !question.readAllStandardOutput().trimmed().isEmpty();
}

} // namespace

MadeFiles::MadeFiles() : outer_(std::exchange(collecting, this)) {}

MadeFiles::~MadeFiles() {
    collecting = outer_;
}

void MadeFiles::add(const QString& path) {
    if (collecting != nullptr)
        collecting->paths_ << path;
    else
        showOnDesktop(path);
}

bool MadeFiles::show() const {
    if (paths_.isEmpty()) return true;
    const QString& first = paths_.constFirst();
    return showOnDesktop(paths_.size() == 1 ? first : QFileInfo(first).path());
}

bool showOnDesktop(const QString& path) {
    const bool mayHaveProgram = mayHaveProgramFor(path);
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path)) && mayHaveProgram; // it may know of one yet
}
