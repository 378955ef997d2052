// The documents that one action makes, and how they are shown to the user.
#pragma once

#include <QString>
#include <QStringList>

// Collects the documents that are made while it lives; without one each is shown at once.
//
//     Printer::ofProgram().onDocument(MadeFiles::add);
//     …
//     const MadeFiles made;
//     work();
//     made.show();
class MadeFiles {
  public:
    MadeFiles();
    ~MadeFiles();
    MadeFiles(const MadeFiles&) = delete;
    MadeFiles& operator=(const MadeFiles&) = delete;

    static void add(const QString& path);

    const QStringList& paths() const { return paths_; }
    // A single document in the user's viewer, several in their folder. False when there is nothing on this
    // computer that shows them.
    bool show() const;

  private:
    QStringList paths_;
    MadeFiles* outer_;
};

// Shows a PDF file, or a folder, in the program that the desktop has for it. False without one.
bool showOnDesktop(const QString& path);
