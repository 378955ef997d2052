// A desktop that notes what it is asked to open.
#pragma once

#include <QDesktopServices>
#include <QTemporaryDir>
#include <QTextBrowser>

#include "files/NewFile.h"

class Desktop : public QTextBrowser { // has the slot for it
  public:
    Desktop() : path_(qgetenv("PATH")) {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "setSource");
        qputenv("PATH", QFile::encodeName(folder_.path()) + ':' + path_);
        setProgram("viewer.desktop");
    }
    ~Desktop() override {
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        qputenv("PATH", path_);
    }
    // Which program the desktop has for whatever there is to open.
    void setProgram(const QByteArray& name) const {
        const QString program = folder_.filePath(QStringLiteral("xdg-mime"));
        writeWholeFile(program, "#!/bin/sh\necho " + name + '\n');
        QFile::setPermissions(program, QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
    }
    QStringList takeOpened() { return std::exchange(opened_, {}); }

  protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType /*type*/) override {
        opened_ << url.toLocalFile();
    }

  private:
    QByteArray path_;
    QTemporaryDir folder_;
    QStringList opened_;
};
