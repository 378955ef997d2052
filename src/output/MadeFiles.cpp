#include "output/MadeFiles.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#include <utility>

namespace {

MadeFiles* collecting = nullptr;

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
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
